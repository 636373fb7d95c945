// The steps every library dialog takes on opening and closing: its name, the remembered
// options and place, the help context swap, the title.
#include <gtest/gtest.h>

#include "frame/corvid_dialog.h"
#include "platform/ui/backend.h"
#include "platform/ui/headless.h"
#include "platform/ui/window.h"
#include "qmk/QmkGen.h"
#include "support/settings_sandbox.h"
#include "toolkit/dialogs/builtin_resources.h"
#include "toolkit/dialogs/dialog_profile.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;

constexpr int kTemplate = 9911;

class CorvidDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(InstallBackend(MakeHeadlessBackend().release()));
    toolkit::InstallToolkitSeams();
    static const bool added = toolkit::AddDialogTemplate(toolkit::BuiltinResources(), kTemplate, "en",
                                                         R"(dialog 9911
caption "From the template"
position 0 0 120 60
style WS_POPUP | WS_CAPTION | WS_THICKFRAME
edit 101 "" 8 8 80 12
end
)");
    ASSERT_TRUE(added);
    toolkit::SetDialogProfilePath("");
    GenSetHelpId(0);
  }

  SettingsSandbox sandbox_;
};

// Opens the dialog, runs `while_open`, and closes it.
template <typename F>
void OpenAndClose(frame::CCorvidDialog& dialog, F while_open) {
  ASSERT_TRUE(dialog.Create(kTemplate, nullptr));
  while_open(dialog.GetSafeHwnd());
  dialog.DestroyWindow();
}

TEST_F(CorvidDialogTest, UnnamedDialogIsNamedByItsTemplateNumber) {
  frame::CCorvidDialog dialog(kTemplate);
  OpenAndClose(dialog, [](HWND) {});
  EXPECT_EQ(dialog.m_strDialogName, "Dialog box 9911");
  EXPECT_TRUE(dialog.m_bInitialised);
}

TEST_F(CorvidDialogTest, HelpContextIsSwappedOnlyForIdsAboveZero) {
  struct Case {
    int help_id;
    int while_open;
  };
  for (const Case c : {Case{-1, 55}, Case{0, 55}, Case{2000, 2000}}) {
    GenSetHelpId(55);
    frame::CCorvidDialog dialog(kTemplate);
    dialog.m_nHelpId = c.help_id;
    OpenAndClose(dialog, [&](HWND) { EXPECT_EQ(GenGetHelpId(), c.while_open) << c.help_id; });
    EXPECT_EQ(GenGetHelpId(), 55) << c.help_id;
  }
}

TEST_F(CorvidDialogTest, NestedDialogsUnwindTheHelpContextLikeAStack) {
  GenSetHelpId(7);
  frame::CCorvidDialog outer(kTemplate), inner(kTemplate);
  outer.m_nHelpId = 100;
  inner.m_nHelpId = 200;
  OpenAndClose(outer, [&](HWND) {
    OpenAndClose(inner, [](HWND) { EXPECT_EQ(GenGetHelpId(), 200); });
    EXPECT_EQ(GenGetHelpId(), 100);
  });
  EXPECT_EQ(GenGetHelpId(), 7);
}

TEST_F(CorvidDialogTest, TitleFromCodeReplacesTheTemplatesCaption) {
  frame::CCorvidDialog titled(kTemplate), plain(kTemplate);
  titled.m_strTitle = "Set in code";
  OpenAndClose(titled, [](HWND hwnd) { EXPECT_EQ(GetWindowText(hwnd), "Set in code"); });
  OpenAndClose(plain, [](HWND hwnd) { EXPECT_EQ(GetWindowText(hwnd), "From the template"); });
}

TEST_F(CorvidDialogTest, OptionsAndPlaceComeBackByName) {
  frame::CCorvidDialog first(kTemplate);
  first.m_strDialogName = "Remembered test dialog";
  Rect moved{};
  OpenAndClose(first, [&](HWND hwnd) {
    MoveWindow(hwnd, 40, 30, 300, 200, true);
    GetWindowRect(hwnd, &moved);
    first.m_strDialogOptions = "columns=3";
  });
  frame::CCorvidDialog second(kTemplate);
  second.m_strDialogName = "Remembered test dialog";
  OpenAndClose(second, [&](HWND hwnd) {
    Rect now{};
    GetWindowRect(hwnd, &now);
    EXPECT_EQ(now.left, moved.left);
    EXPECT_EQ(now.top, moved.top);
    EXPECT_EQ(now.right, moved.right);
    EXPECT_EQ(now.bottom, moved.bottom);
  });
  EXPECT_EQ(second.m_strDialogOptions, "columns=3");
}

TEST(GenDialogOptions, UnknownOrEmptyNamesRememberNothing) {
  char buffer[8] = "junk";
  EXPECT_EQ(GenGetDialogOpts(nullptr, "never stored", buffer, sizeof buffer), 0);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(GenSetDialogOpts(nullptr, "", "x"), 0);
  EXPECT_EQ(GenSetDialogOpts(nullptr, nullptr, "x"), 0);
  // A long text is cut to the buffer and stays zero-ended.
  EXPECT_EQ(GenSetDialogOpts(nullptr, "short buffer", "0123456789"), 1);
  EXPECT_EQ(GenGetDialogOpts(nullptr, "short buffer", buffer, sizeof buffer), 1);
  EXPECT_STREQ(buffer, "0123456");
}

}  // namespace
}  // namespace qmk::testing
