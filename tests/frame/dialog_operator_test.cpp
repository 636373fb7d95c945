// The library's dialogs as the operator: which operator answers by default, and whose child each
// message box is.
#include <gmock/gmock.h>

#include "dialog_session_fixture.h"
#include "frame/corvid_app.h"
#include "frame/message_display.h"
#include "frame/operator.h"
#include "platform/ui/dialog.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "support/scoped_env.h"
#include "toolkit/dialogs/msg_box.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using frame::OperatorKind;

TEST(OperatorChoice, HostThenDialogsThenTerminalThenNobody) {
  struct Case { bool host, window_system, terminal; OperatorKind want; };
  for (const Case c : {Case{true, true, true, OperatorKind::kHost},
                       {false, true, true, OperatorKind::kDialogs},
                       {false, false, true, OperatorKind::kTerminal},
                       {false, false, false, OperatorKind::kUnattended}})
    EXPECT_EQ(frame::ChooseOperatorKind(c.host, c.window_system, c.terminal), c.want)
        << c.host << c.window_system << c.terminal;
}

TEST(OperatorChoice, DialogsNeedAskedForHeadlessOrADisplayWithTheModule) {
  struct Case { const char *ui, *display, *wayland; bool module, want; };
  for (const Case c : {Case{"headless", nullptr, nullptr, false, true},
                       {nullptr, ":0", nullptr, true, true},
                       {nullptr, nullptr, "wayland-0", true, true},
                       {nullptr, ":0", nullptr, false, false},
                       {"gtk3", nullptr, nullptr, true, false},
                       {nullptr, "", "", true, false},
                       {nullptr, nullptr, nullptr, false, false}})
    EXPECT_EQ(frame::WindowSystemAvailable(c.ui, c.display, c.wayland, c.module), c.want)
        << (c.ui ? c.ui : "-") << " " << (c.display ? c.display : "-") << " " << c.module;
}

TEST(OperatorChoice, AskedForHeadlessTheDialogsAnswerUnlessAHostOperatorIsSet) {
  ScopedEnv ui("QMK_UI", "headless");
  frame::Operator* previous = frame::SetOperator(nullptr);
  EXPECT_NE(dynamic_cast<frame::DialogOperator*>(&frame::CurrentOperator()), nullptr);
  ScnOperator host{};
  host.size = sizeof host;
  host.message_box = [](void*, QMK_HWND, const char*, const char*, unsigned, int) { return 6; };
  host.fault_list = [](void*, const char*, const char*, const char* const*, int,
                       const char*) { return 2; };
  ASSERT_EQ(ScnSetOperator(&host), 0);
  EXPECT_EQ(frame::CurrentOperator().MessageBox(nullptr, "t", "c", 4, 0), 6);
  ScnSetOperator(nullptr);
  frame::SetOperator(previous);
}

// Whose child each box is, and what it showed, read when the box first falls idle; the box is
// then answered with its default button.
struct BoxSeen {
  HWND owner = nullptr;
  std::string caption, text;
  int template_id = 0;
};

class MessageBoxParent : public DialogSessionTest {
 protected:
  void SetUp() override {
    DialogSessionTest::SetUp();
    watcher_ = AddIdleHandler([this](int) {
      const HWND box = GetActiveWindow();
      if (box && box != last_ && GetDialogTemplateId(box) == toolkit::kMsgBoxTemplateId) {
        last_ = box;
        seen_.push_back({GetParent(box), GetWindowText(box), {}, GetDialogTemplateId(box)});
        PostMessage(box, WM_COMMAND, IDOK, 0);
      }
      return false;
    });
  }
  void TearDown() override {
    RemoveIdleHandler(watcher_);
    frame::TheApp().m_pMainWnd = nullptr;
    frame::TheApp().m_hActiveWnd = nullptr;
    DialogSessionTest::TearDown();
  }
  std::vector<BoxSeen> seen_;
  int watcher_ = 0;
  HWND last_ = nullptr;
};

TEST_F(MessageBoxParent, LibraryMessagesBelongToTheMainWindowElseStandAlone) {
  frame::TheApp().m_pMainWnd = host_;
  EXPECT_EQ(frame::DisplayMessage("Scanner not found", frame::kMbOk), frame::kIdOk);
  // A parent that is no window gives way to the main window too.
  dialogs_.MessageBox(reinterpret_cast<QMK_HWND>(0x7777), "Gone", "c", frame::kMbOk, 0);
  frame::TheApp().m_pMainWnd = nullptr;
  frame::DisplayMessage("Scanner not found", frame::kMbOk);
  ASSERT_EQ(seen_.size(), 3u);
  EXPECT_EQ(seen_[0].owner, host_);
  EXPECT_EQ(seen_[1].owner, host_);
  EXPECT_EQ(seen_[2].owner, nullptr);
  EXPECT_EQ(seen_[0].caption, frame::MessageCaption());
}

TEST_F(MessageBoxParent, FrameworkMessagesBelongToTheActiveWindow) {
  // The host window is active: the framework's box is its child, with no caption of its own.
  SetActiveWindow(host_);
  frame::TheApp().DoMessageBox("Out of memory", frame::kMbOk, 0);
  // None active (the host window hidden): the main window's last active popup.
  ShowWindow(host_, SW_HIDE);
  ASSERT_EQ(GetActiveWindow(), nullptr);
  const DLGPROC plain = [](HWND, unsigned, WPARAM, LPARAM) -> intptr_t { return 0; };
  const HWND popup = CreateDialogParam(9000, host_, plain, 0);
  ASSERT_NE(popup, nullptr);
  frame::TheApp().m_pMainWnd = host_;
  frame::TheApp().m_hLastActivePopup = popup;
  frame::TheApp().DoMessageBox("Out of memory", frame::kMbOk, 0);
  frame::TheApp().m_hLastActivePopup = nullptr;
  ASSERT_EQ(seen_.size(), 2u);
  EXPECT_EQ(seen_[0].owner, host_);
  EXPECT_EQ(seen_[0].caption, "");
  EXPECT_EQ(seen_[1].owner, popup);
}

}  // namespace
}  // namespace qmk::testing
