// The application object: load-time steps and the parent of the framework's message boxes.
#include "frame/corvid_app.h"

#include <gtest/gtest.h>

#include "frame/message_display.h"
#include "frame/module_state_guard.h"
#include "frame/scripted_operator.h"

namespace qmk::frame {
namespace {

TEST(CorvidApp, InitInstanceHandsOverTheModuleAndEmptiesTheHelpPath) {
  CCorvidApp app;
  EXPECT_TRUE(app.html_help());
  EXPECT_FALSE(app.help_file_path().empty());
  EXPECT_TRUE(app.InitInstance());
  EXPECT_TRUE(app.help_file_path().empty());
  EXPECT_EQ(ToolkitModuleState(), &ThisModule());
  EXPECT_EQ(ModuleInstance(), ResourceInstance());
  EXPECT_NE(ModuleInstance(), nullptr);
}

TEST(CorvidApp, TheOneAppIsInitialised) {
  EXPECT_EQ(&TheApp(), &TheApp());
  EXPECT_TRUE(TheApp().help_file_path().empty());
}

// Remembers the parent each box was given.
class ParentRecorder : public ScriptedOperator {
 public:
  QMK_HWND parent = reinterpret_cast<QMK_HWND>(0x99);
  int MessageBox(QMK_HWND p, const std::string& text, const std::string& caption, unsigned flags,
                 int help_id) override {
    parent = p;
    return ScriptedOperator::MessageBox(p, text, caption, flags, help_id);
  }
};

TEST(CorvidApp, DoMessageBoxParentCaptionAndHelpId) {
  ParentRecorder op;
  Operator* previous = SetOperator(&op);
  const auto active = reinterpret_cast<QMK_HWND>(0x11), main = reinterpret_cast<QMK_HWND>(0x22),
             popup = reinterpret_cast<QMK_HWND>(0x33);
  struct Case { QMK_HWND active, main, popup, want; };
  for (const Case c : {Case{active, main, popup, active}, {nullptr, main, popup, popup},
                       {nullptr, nullptr, popup, nullptr}}) {
    CCorvidApp app;
    app.m_hActiveWnd = c.active, app.m_pMainWnd = c.main, app.m_hLastActivePopup = c.popup;
    op.QueueAnswer(kIdRetry);
    EXPECT_EQ(app.DoMessageBox("Disk full", 0x05, 4321), kIdRetry);
    EXPECT_EQ(op.events().back(), "message \"\" \"Disk full\" flags=0x5 help=4321");
    EXPECT_EQ(op.parent, c.want);
  }
  SetOperator(previous);
}

}  // namespace
}  // namespace qmk::frame
