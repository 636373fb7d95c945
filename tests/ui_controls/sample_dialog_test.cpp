// sample_dialog_test.cpp: the plain controls inside a dialog made from the sample template, run
// modally and worked by the scripted operator through real keys and clicks.
#include <gmock/gmock.h>

#include "platform/ui/dialog.h"
#include "platform/ui/dialog_script.h"
#include "ui_controls/control_fixture.h"

namespace qmk::platform::ui::controls::testing {
namespace {

struct Values {
  std::string name;
  int colour = -1;
  bool print = false;
  int size_checked = 0;
  int count = 0;
  int list = -1;
  std::string notes;
};
Values g_values;

intptr_t SampleProc(HWND dlg, unsigned msg, WPARAM wparam, LPARAM lparam) {
  (void)lparam;
  if (msg == WM_INITDIALOG) {
    for (const char* c : {"Red", "Green", "Blue"}) {
      SendDlgItemMessage(dlg, 1002, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(c));
    }
    for (const char* c : {"First", "Second", "Third"}) {
      SendDlgItemMessage(dlg, 1010, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(c));
    }
    SendDlgItemMessage(dlg, 1004, UDM_SETRANGE32, 1, 9);
    CheckRadioButton(dlg, 1005, 1007, 1005);
    return 1;
  }
  if (msg == WM_COMMAND && (LOWORD(wparam) == IDOK || LOWORD(wparam) == IDCANCEL)) {
    g_values.name = GetDlgItemText(dlg, 1001);
    g_values.colour = static_cast<int>(SendDlgItemMessage(dlg, 1002, CB_GETCURSEL, 0, 0));
    g_values.print = IsDlgButtonChecked(dlg, 1008) == BST_CHECKED;
    for (int id = 1005; id <= 1007; ++id) {
      if (IsDlgButtonChecked(dlg, id)) g_values.size_checked = id;
    }
    g_values.count = GetDlgItemInt(dlg, 1003, nullptr, false);
    g_values.list = static_cast<int>(SendDlgItemMessage(dlg, 1010, LB_GETCURSEL, 0, 0));
    g_values.notes = GetDlgItemText(dlg, 1011);
    EndDialog(dlg, LOWORD(wparam));
    return 1;
  }
  return 0;
}

class SampleDialogTest : public ControlTest {
 protected:
  void SetUp() override {
    ControlTest::SetUp();
    g_values = {};
    ClearDialogScripts();
  }
};

TEST_F(SampleDialogTest, ScriptedOperatorFillsTheControlsAndPressesOk) {
  QueueDialogScript(DialogScript(9000)
                        .SetText(1001, "Ann")
                        .Choose(1002, "Blue")
                        .Check(1008)
                        .Click(1006)
                        .Key(VK_DOWN)
                        .Choose(1010, "Second")
                        .SetText(1003, "4")
                        .Press(IDOK));
  EXPECT_EQ(DialogBoxParam(9000, host_, &SampleProc, 0), IDOK);
  EXPECT_EQ(PendingDialogScripts(), 0);
  EXPECT_EQ(g_values.name, "Ann");
  EXPECT_EQ(g_values.colour, 2);
  EXPECT_TRUE(g_values.print);
  EXPECT_EQ(g_values.size_checked, 1007);  // Medium, then the down arrow to Large
  EXPECT_EQ(g_values.list, 1);
  EXPECT_EQ(g_values.count, 4);
}

TEST_F(SampleDialogTest, EnterInTheMultiLineEditBreaksTheLineAndEscapeCancels) {
  QueueDialogScript(DialogScript(9000).Click(1011).Key(VK_END, kModControl).Key(VK_RETURN)
                        .Type("more").Key(VK_ESCAPE));
  EXPECT_EQ(DialogBoxParam(9000, host_, &SampleProc, 0), IDCANCEL);
  EXPECT_EQ(PendingDialogScripts(), 0);
  EXPECT_EQ(g_values.notes, "Notes\r\nmore");
}

}  // namespace
}  // namespace qmk::platform::ui::controls::testing
