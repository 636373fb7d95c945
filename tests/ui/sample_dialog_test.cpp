// sample_dialog_test.cpp: the sample dialog from resources/dialogs with the real plain controls:
// a person tabs, types, picks, uses the arrow keys and presses Enter, and the dialog looks as
// it did.
#include <gmock/gmock.h>

#include "platform/ui/control_messages.h"
#include "ui/picture_compare.h"
#include "ui/ui_fixture.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;

constexpr int kSample = 9000;

struct Values {
  std::string name, colour, count;
  int size = 0;
  bool print = false;
  long list = -1;
};

intptr_t SampleProc(HWND dlg, unsigned msg, WPARAM wp, LPARAM lp) {
  if (msg == WM_INITDIALOG) {
    SetWindowLongPtr(dlg, GWLP_USERDATA, lp);
    for (const char* c : {"Red", "Green", "Blue"})
      SendDlgItemMessage(dlg, 1002, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(c));
    SendDlgItemMessage(dlg, 1002, CB_SETCURSEL, 0, 0);
    for (const char* c : {"First sheet", "Second sheet", "Third sheet"})
      SendDlgItemMessage(dlg, 1010, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(c));
    CheckRadioButton(dlg, 1005, 1007, 1005);
    SendDlgItemMessage(dlg, 1015, PBM_SETPOS, 40, 0);
    return 1;
  }
  if (msg == WM_COMMAND && LOWORD(wp) == IDOK) {
    auto* v = reinterpret_cast<Values*>(GetWindowLongPtr(dlg, GWLP_USERDATA));
    v->name = GetDlgItemText(dlg, 1001);
    v->count = GetDlgItemText(dlg, 1003);
    char colour[32] = {};
    const auto sel = SendDlgItemMessage(dlg, 1002, CB_GETCURSEL, 0, 0);
    if (sel >= 0)
      SendDlgItemMessage(dlg, 1002, CB_GETLBTEXT, static_cast<WPARAM>(sel),
                         reinterpret_cast<LPARAM>(colour));
    v->colour = colour;
    for (int id = 1005; id <= 1007; ++id)
      if (IsDlgButtonChecked(dlg, id)) v->size = id;
    v->print = IsDlgButtonChecked(dlg, 1008) == BST_CHECKED;
    v->list = static_cast<long>(SendDlgItemMessage(dlg, 1010, LB_GETCURSEL, 0, 0));
    EndDialog(dlg, IDOK);
    return 1;
  }
  return 0;
}

class SampleDialog : public UiTest {
 protected:
  intptr_t Run(Values* v) {
    return DialogBoxParam(kSample, nullptr, SampleProc, reinterpret_cast<LPARAM>(v));
  }
};

TEST_F(SampleDialog, KeyboardPersonFillsItInAndPressesEnter) {
  QueueDialogScript(DialogScript(kSample)
                        .Type("Ada")         // the name has focus first
                        .Key(VK_TAB)         // the colour
                        .Key(VK_DOWN)        // Red -> Green
                        .Key(VK_TAB)         // the count
                        .Type("7")           // replaces the selected 1
                        .Key(VK_TAB)         // the checked radio button, Small
                        .Key(VK_DOWN)        // Medium
                        .Key(VK_DOWN)        // Large
                        .Key(VK_TAB)         // Print a copy
                        .Key(VK_SPACE)       // checked
                        .Key(VK_RETURN));    // OK
  Values v;
  EXPECT_EQ(Run(&v), IDOK);
  EXPECT_EQ(v.name, "Ada");
  EXPECT_EQ(v.colour, "Green");
  EXPECT_EQ(v.count, "7");
  EXPECT_EQ(v.size, 1007);
  EXPECT_TRUE(v.print);
}

TEST_F(SampleDialog, EscapeCancels) {
  QueueDialogScript(DialogScript(kSample).Type("gone").Key(VK_ESCAPE));
  Values v;
  EXPECT_EQ(Run(&v), IDCANCEL);
  EXPECT_EQ(v.name, "");
}

TEST_F(SampleDialog, LooksAsItDid) {
  Values v;
  HWND dlg = CreateDialogParam(kSample, nullptr, SampleProc, reinterpret_cast<LPARAM>(&v));
  ASSERT_NE(dlg, nullptr) << LastDialogError();
  SetDlgItemText(dlg, 1001, "Ada Lovelace");
  ShowWindow(dlg, SW_SHOW);
  Pump();
  auto picture = RenderWindow(dlg);
  ASSERT_TRUE(picture);
  picture->WritePng((PictureOutputDir() / "sample.png").string());
  EXPECT_TRUE(MatchesReference(*picture, "sample"));
}

}  // namespace
}  // namespace qmk::testing
