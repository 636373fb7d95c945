// render_test.cpp: the order form as a person sees it, compared with a reference picture. A
// failing run writes the actual picture and a difference picture beside the test program.
#include "platform/ui/control_messages.h"
#include "ui/picture_compare.h"
#include "ui/ui_fixture.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;

class Rendering : public UiTest {};

intptr_t FillOrder(HWND dlg, unsigned msg, WPARAM, LPARAM) {
  if (msg != WM_INITDIALOG) return 0;
  for (const char* c : {"Red", "Green", "Blue"})
    SendDlgItemMessage(dlg, 102, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(c));
  SendDlgItemMessage(dlg, 102, CB_SETCURSEL, 1, 0);
  SetDlgItemText(dlg, 101, "Ada Lovelace");
  CheckRadioButton(dlg, 103, 105, 104);
  CheckDlgButton(dlg, 106, BST_CHECKED);
  return 1;
}

TEST_F(Rendering, OrderFormLooksAsItDid) {
  DialogTemplate tpl;
  ASSERT_TRUE(ParseDialogTemplate(kOrderTemplate, &tpl, nullptr));
  HWND dlg = CreateDialogIndirectParam(tpl, nullptr, FillOrder, 0);
  ASSERT_NE(dlg, nullptr);
  ShowWindow(dlg, SW_SHOW);
  Pump();
  auto picture = RenderWindow(dlg);
  ASSERT_TRUE(picture);
  picture->WritePng((PictureOutputDir() / "order.png").string());
  EXPECT_TRUE(MatchesReference(*picture, "order"));
  EXPECT_TRUE(RenderScreenToPng((PictureOutputDir() / "screen.png").string()));
}

TEST_F(Rendering, ComparisonCatchesAChangedPicture) {
  DialogTemplate tpl;
  ASSERT_TRUE(ParseDialogTemplate(kOrderTemplate, &tpl, nullptr));
  HWND dlg = CreateDialogIndirectParam(tpl, nullptr, FillOrder, 0);
  ShowWindow(dlg, SW_SHOW);
  SetDlgItemText(dlg, 101, "Somebody else entirely");
  Pump();
  auto picture = RenderWindow(dlg);
  ASSERT_TRUE(picture);
  if (std::getenv("QMK_UPDATE_REFERENCE")) GTEST_SKIP() << "updating references";
  EXPECT_FALSE(MatchesReference(*picture, "order"));
}

}  // namespace
}  // namespace qmk::testing
