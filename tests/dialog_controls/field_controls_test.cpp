// field_controls_test.cpp: labels with their tooltips and wrapping, edits with a themed frame
// and a tooltip, combo boxes with their drop state and themed list, spins and progress bars.
#include <gmock/gmock.h>

#include "dialog_controls/themed_fixture.h"
#include "platform/ui/controls/combo_box_control.h"
#include "platform/ui/controls/control_messages.h"
#include "toolkit/dialogs/combo_drop_list.h"
#include "toolkit/dialogs/ext_combo_box.h"
#include "toolkit/dialogs/ext_edit.h"
#include "toolkit/dialogs/ext_group_box.h"
#include "toolkit/dialogs/ext_label.h"
#include "toolkit/dialogs/ext_spin_wnd.h"
#include "toolkit/dialogs/themed_progress.h"
#include "toolkit/dialogs/tool_tip.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;
using namespace toolkit;
using namespace toolkit::theme;

class Fields : public ThemedTest {
 protected:
  static void MoveOver(HWND h, Point p) { Send(h, WM_MOUSEMOVE, 0, MAKELPARAM(p.x, p.y)); }
  static uint32_t Rgb(uint32_t pixel) { return pixel & 0xFFFFFF; }
};

TEST(LabelWrap, BreaksAtSpacesAndLineBreaks) {
  // Ten pixels a character makes the edges plain to see.
  const TextWidth measure = [](const std::string& line) { return static_cast<int>(line.size()) * 10; };
  const int word = 50, two = 100;
  struct Case { const char* text; int width; bool wrap; std::vector<std::string> want; };
  const Case cases[] = {
      {"alpha beta gamma", two, true, {"alpha beta", "gamma"}},  // exactly fits
      {"alpha beta gamma", two - 1, true, {"alpha", "beta", "gamma"}},  // one pixel short
      {"alpha beta gamma", word, false, {"alpha beta gamma"}},
      {"alpha beta gamma", word, true, {"alpha", "beta", "gamma"}},
      {"alpha\r\nbeta", 1000, true, {"alpha", "beta"}},
      {"unbreakableword", 5, true, {"unbreakableword"}},
      {"", 100, true, {""}},
  };
  for (const Case& c : cases) EXPECT_EQ(WrapLabelText(c.text, measure, c.width, c.wrap), c.want) << c.text;
}

TEST_F(Fields, LabelTakesTheNotifyStyleExactlyWithATip) {
  HWND h = Make(kStaticClass, "Path", SS_NOTIFY, {10, 10, 100, 30}, 1);
  CExtLabel label;
  ASSERT_TRUE(label.SubclassWindow(h));
  EXPECT_FALSE(GetWindowLongPtr(h, GWL_STYLE) & SS_NOTIFY) << "no tip, no notify style";
  label.SetTooltipText("/var/lib/quillmark/scanner");
  EXPECT_TRUE(GetWindowLongPtr(h, GWL_STYLE) & SS_NOTIFY);
  MoveOver(h, {5, 5});
  EXPECT_EQ(ToolTipOwner(), h);
  EXPECT_EQ(ToolTipText(), "/var/lib/quillmark/scanner");
  ASSERT_NE(ToolTipWindow(), nullptr);
  EXPECT_TRUE(IsWindowVisible(ToolTipWindow()));
  Send(h, kMsgMouseLeave);
  EXPECT_EQ(ToolTipWindow(), nullptr) << "no hidden window is left behind";
  label.ActivateTooltip(false);
  MoveOver(h, {6, 5});
  EXPECT_EQ(ToolTipOwner(), nullptr);
}

TEST_F(Fields, LabelPaintsItsTextInTheThemeOverTheParentsBackground) {
  ASSERT_TRUE(SelectPaintManagerById(29764, [](int) {}));  // a look with its own label colour
  HWND h = Make(kStaticClass, "WWWWWW", 0, {10, 10, 120, 30}, 1);
  HWND frame = Make(kStaticClass, "", SS_ETCHEDFRAME, {10, 40, 120, 60}, 2);
  CExtLabel label, etched;
  ASSERT_TRUE(label.SubclassWindow(h));
  ASSERT_TRUE(etched.SubclassWindow(frame));
  auto picture = RenderWindow(h);
  ASSERT_NE(picture, nullptr);
  auto& pm = *g_PaintManager().GetPM();
  platform::DrawTarget expected(picture->width(), picture->height());
  pm.PaintDialogBackground(expected, {-10, -10, 410, 310});
  // The corner away from the text is the parent's background at that place.
  EXPECT_EQ(Rgb(picture->GetPixel(picture->width() - 1, picture->height() - 1)),
            Rgb(expected.GetPixel(picture->width() - 1, picture->height() - 1)));
  const uint32_t label_text = Rgb(pm.GetColor(pm.GetWidgetLook()->label_text));
  auto near = [](uint32_t a, uint32_t b) {
    for (int s : {0, 8, 16})
      if (std::abs(static_cast<int>((a >> s) & 0xFF) - static_cast<int>((b >> s) & 0xFF)) > 24) return false;
    return true;
  };
  int text_pixels = 0;
  for (int y = 0; y < picture->height(); ++y)
    for (int x = 0; x < picture->width(); ++x) text_pixels += near(Rgb(picture->GetPixel(x, y)), label_text);
  EXPECT_GT(text_pixels, 10);
}

TEST_F(Fields, LabelBreaksLinesByItsOwnFontNotTheThemes) {
  // A label made just as wide as its text in the control font, as message boxes size theirs,
  // shows the text on one line although the theme's font is larger.
  const std::string text = "The old ones are lost, and this line is long";
  const Size extent = GetTextExtent(GetStockGuiFont(), text);
  HWND h = Make(kStaticClass, text.c_str(), 0, {10, 10, 10 + extent.cx, 10 + 2 * extent.cy + 4}, 4);
  CExtLabel label;
  ASSERT_TRUE(label.SubclassWindow(h));
  auto picture = RenderWindow(h);
  ASSERT_NE(picture, nullptr);
  int ink_above = 0, ink_below = 0;
  for (int y = 0; y < picture->height(); ++y)
    for (int x = 0; x < picture->width(); ++x) {
      const uint32_t p = picture->GetPixel(x, y);
      const bool ink = (p & 0xFF) + ((p >> 8) & 0xFF) + ((p >> 16) & 0xFF) < 300;
      (y < extent.cy ? ink_above : ink_below) += ink;
    }
  EXPECT_GT(ink_above, 50);
  EXPECT_EQ(ink_below, 0);
}

TEST_F(Fields, LabelShowsItsPictureInsteadOfTheText) {
  HWND h = Make(kStaticClass, "WWWW", platform::ui::controls::SS_CENTERIMAGE, {10, 10, 50, 30}, 3);
  CExtLabel label;
  ASSERT_TRUE(label.SubclassWindow(h));
  bitmap::CExtBitmap red;
  ASSERT_TRUE(red.Create(4, 4, 32));
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 4; ++x) red.SetPixel(x, y, {0, 0, 255, 255});
  label.SetBitmap(red);
  auto picture = RenderWindow(h);
  ASSERT_NE(picture, nullptr);
  // A 40 by 20 label centres the picture at 18..22, 8..12, and draws no text.
  EXPECT_EQ(Rgb(picture->GetPixel(19, 9)), 0x0000FFu);
  EXPECT_NE(Rgb(picture->GetPixel(17, 9)), 0x0000FFu);
  int ink = 0;
  for (int y = 0; y < picture->height(); ++y)
    for (int x = 0; x < picture->width(); ++x) {
      const uint32_t p = picture->GetPixel(x, y);
      ink += (p & 0xFF) < 0x40 && ((p >> 8) & 0xFF) < 0x40 && ((p >> 16) & 0xFF) < 0x40;
    }
  EXPECT_EQ(ink, 0);
  label.SetBitmap(bitmap::CExtBitmap());
  picture = RenderWindow(h);
  EXPECT_NE(Rgb(picture->GetPixel(19, 9)), 0x0000FFu) << "the text is back";
}

TEST_F(Fields, EditKeepsTypingAndWearsTheThemesFrame) {
  HWND h = CreateWindowEx(WS_EX_CLIENTEDGE, kEditClass, "", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
                          10, 10, 120, 24, host_, 5, nullptr);
  CExtEdit edit;
  ASSERT_TRUE(edit.SubclassWindow(h));
  SetFocus(h);
  Type("Ada");
  EXPECT_EQ(GetWindowText(h), "Ada");
  EXPECT_THAT(Commands(5), ::testing::Contains(EN_CHANGE));
  SetFocus(host_);
  Pump();
  // The theme changes under a painted edit: its frame follows.
  ASSERT_TRUE(SelectPaintManagerById(29757, [](int) {}));
  auto picture = RenderWindow(h);
  ASSERT_NE(picture, nullptr);
  platform::DrawTarget expected(picture->width(), picture->height());
  g_PaintManager()->PaintEdit(expected, {0, 0, expected.width(), expected.height()}, "", kStateNormal);
  EXPECT_EQ(Rgb(picture->GetPixel(0, 12)), Rgb(expected.GetPixel(0, 12))) << "the frame is the theme's";
  EXPECT_NE(Rgb(picture->GetPixel(0, 12)), 0xA0A0A0u) << "not the plain sunken edge";
}

TEST_F(Fields, EditTooltipShowsWhenActive) {
  HWND h = Make(kEditClass, "short", 0, {10, 10, 60, 30}, 6);
  CExtEdit edit;
  ASSERT_TRUE(edit.SubclassWindow(h));
  edit.SetTooltipText("/a/very/long/path/to/answers.dat", false);
  MoveOver(h, {5, 5});
  EXPECT_NE(ToolTipOwner(), h);
  edit.SetTooltipText("/a/very/long/path/to/answers.dat", true);
  EXPECT_EQ(ToolTipOwner(), h) << "a new tip shows at once under a resting mouse";
  edit.SetTooltipText("", true);
  EXPECT_EQ(ToolTipOwner(), nullptr);
  edit.SetTooltipText("back", true);
  DestroyWindow(h);
  EXPECT_EQ(ToolTipOwner(), nullptr) << "the tip goes with its owner";
}

TEST_F(Fields, DropListComboIsPressedWhileDownAndItsListIsThemed) {
  HWND h = Make(kComboBoxClass, "", CBS_DROPDOWNLIST | WS_TABSTOP, {10, 10, 150, 120}, 8);
  for (const char* item : {"Red", "Green", "Blue"}) SendText(h, CB_ADDSTRING, 0, item);
  CExtComboBox combo;
  ASSERT_TRUE(combo.SubclassWindow(h));
  EXPECT_EQ(combo.PaintState(), kStateNormal);
  EXPECT_EQ(combo.DroppedList(), nullptr);
  Send(h, CB_SHOWDROPDOWN, 1);
  ASSERT_NE(combo.DroppedList(), nullptr);
  EXPECT_TRUE(combo.PaintState() & kStatePressed);
  EXPECT_NE(dynamic_cast<ComboDropList*>(ThemedControl::FromHandle(combo.DroppedList())), nullptr);
  // A click on the second row as drawn picks it, as the plain list would.
  auto* plain = platform::ui::controls::ControlOf<platform::ui::controls::ComboBoxControl>(h);
  ASSERT_NE(plain, nullptr);
  HeardLog().clear();
  ClickAt(combo.DroppedList(), Centre(plain->pane().ItemRect(1)));
  EXPECT_EQ(Send(h, CB_GETCURSEL), 1);
  EXPECT_THAT(Commands(8), ElementsAre(CBN_SELCHANGE, CBN_SELENDOK, CBN_CLOSEUP));
  EXPECT_EQ(combo.DroppedList(), nullptr);
  EXPECT_EQ(GetWindowText(h), "Green");
}

TEST_F(Fields, ComboWithAnEditKeepsItsCaretFieldAndThemesTheButton) {
  ASSERT_TRUE(SelectPaintManagerById(29757, [](int) {}));
  HWND h = Make(kComboBoxClass, "", CBS_DROPDOWN | WS_TABSTOP, {10, 10, 150, 120}, 9);
  CExtComboBox combo;
  ASSERT_TRUE(combo.SubclassWindow(h));
  SetFocus(h);
  Type("Teal");
  EXPECT_EQ(GetWindowText(h), "Teal");
  EXPECT_FALSE(combo.PaintState() & kStateFocused) << "the caret shows the focus";
  SetFocus(host_);
  auto picture = RenderWindow(h);
  ASSERT_NE(picture, nullptr);
  platform::DrawTarget expected(picture->width(), picture->height());
  g_PaintManager()->PaintComboBox(expected, {0, 0, expected.width(), expected.height()}, "", kStateNormal);
  const int x = picture->width() - 8, y = picture->height() / 2;
  EXPECT_EQ(Rgb(picture->GetPixel(x, y)), Rgb(expected.GetPixel(x, y))) << "the button is the theme's";
}

TEST_F(Fields, SpinArrowsPressAndStepAsBefore) {
  HWND buddy = Make(kEditClass, "3", ES_NUMBER, {10, 10, 60, 30}, 10);
  HWND h = Make(kUpDownClass, "", UDS_SETBUDDYINT, {60, 10, 76, 30}, 11);
  Send(h, UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy));
  Send(h, UDM_SETRANGE32, 0, 9);
  Send(h, UDM_SETPOS32, 0, 3);
  CExtSpinWnd spin;
  ASSERT_TRUE(spin.SubclassWindow(h));
  Send(h, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(8, 3));
  EXPECT_EQ(spin.UpState(), kStatePressed);
  EXPECT_EQ(spin.DownState(), kStateNormal);
  Send(h, WM_LBUTTONUP, 0, MAKELPARAM(8, 3));
  EXPECT_EQ(spin.UpState(), kStateNormal);
  EXPECT_EQ(Send(h, UDM_GETPOS32), 4);
  EXPECT_EQ(GetWindowText(buddy), "4");
  MoveOver(h, {8, 17});
  EXPECT_EQ(spin.DownState(), kStateHot);
  EXPECT_EQ(spin.UpState(), kStateNormal);
  EnableWindow(h, false);
  EXPECT_EQ(spin.UpState(), kStateDisabled);
  EXPECT_EQ(spin.DownState(), kStateDisabled);
}

TEST_F(Fields, ProgressShowsItsShareInTheTheme) {
  ASSERT_TRUE(SelectPaintManagerById(29757, [](int) {}));
  HWND h = Make(kProgressClass, "", 0, {10, 10, 210, 26}, 12);
  Send(h, PBM_SETRANGE32, 100, 200);
  Send(h, PBM_SETPOS, 150);
  ThemedProgress bar;
  ASSERT_TRUE(bar.SubclassWindow(h));
  auto picture = RenderWindow(h);
  platform::DrawTarget expected(200, 16);
  g_PaintManager()->PaintProgress(expected, {0, 0, 200, 16}, 50, 100, kStateNormal);
  for (int x : {20, 80, 120, 180})
    EXPECT_EQ(Rgb(picture->GetPixel(x, 8)), Rgb(expected.GetPixel(x, 8))) << "x " << x;
  Send(h, PBM_SETPOS, 200);
  Rect dirty;
  EXPECT_TRUE(GetUpdateRect(h, &dirty, false)) << "a new position repaints";
}

TEST_F(Fields, GroupBoxIsNeverHot) {
  HWND h = Make(kButtonClass, "Size", BS_GROUPBOX, {10, 10, 200, 100}, 13);
  CExtGroupBox box;
  ASSERT_TRUE(box.SubclassWindow(h));
  MoveOver(h, {50, 50});
  EXPECT_FALSE(box.IsHot());
}

}  // namespace
}  // namespace qmk::testing
