// widget_paint_test.cpp: widgets as a person sees them: the colours of faces in each state,
// marks that show, text that is there, and text drawing itself.
#include <gtest/gtest.h>

#include "platform/draw/text.h"
#include "theme/theme_fixture.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit::theme::testing {
namespace {

constexpr uint32_t kRgb = 0x00FFFFFF;

// Pixels of `rc` within 40 of `rgb` in every channel (smoothed text has few exact pixels).
int CountNear(const DrawTarget& dc, const DrawRect& rc, uint32_t rgb) {
  int n = 0;
  for (int y = rc.top; y < rc.bottom; ++y)
    for (int x = rc.left; x < rc.right; ++x) {
      const uint32_t p = dc.GetPixel(x, y);
      bool near = true;
      for (int shift = 0; shift < 24; shift += 8)
        near = near && std::abs(int((p >> shift) & 0xFF) - int((rgb >> shift) & 0xFF)) <= 40;
      n += near;
    }
  return n;
}

// Pixels of `rc` that differ between two targets.
int CountDifferent(const DrawTarget& a, const DrawTarget& b, const DrawRect& rc) {
  int n = 0;
  for (int y = rc.top; y < rc.bottom; ++y)
    for (int x = rc.left; x < rc.right; ++x) n += a.GetPixel(x, y) != b.GetPixel(x, y);
  return n;
}

class WidgetPaint : public ThemeTest {};

TEST_F(WidgetPaint, XpButtonFacesAndBordersByState) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManagerXP));
  struct Case { unsigned state; int face, border; };
  for (const Case c : {Case{kStateNormal, COLOR_BTNFACE, 2002}, {kStateHot, 1001, 2004},
                       {kStatePressed, 2003, 2004}, {kStateHot | kStatePressed, 2003, 2004},
                       {kStateDisabled, COLOR_BTNFACE, 2002}}) {
    DrawTarget dc(100, 30);
    pm->PaintPushButton(dc, {0, 0, 100, 30}, "", c.state);
    EXPECT_EQ(dc.GetPixel(6, 15) & kRgb, pm->GetColor(c.face)) << "state " << c.state;
    EXPECT_EQ(dc.GetPixel(0, 15) & kRgb, pm->GetColor(c.border)) << "state " << c.state;
  }
}

TEST_F(WidgetPaint, ClassicButtonsRaiseAndSink) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManager));
  struct Case { unsigned state; int top_left, bottom_right; };
  for (const Case c : {Case{kStateNormal, COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW},
                       {kStatePressed, COLOR_BTNSHADOW, COLOR_BTNSHADOW},
                       {kStateDefault, COLOR_WINDOWTEXT, COLOR_WINDOWTEXT}}) {
    DrawTarget dc(80, 24);
    pm->PaintPushButton(dc, {0, 0, 80, 24}, "", c.state);
    EXPECT_EQ(dc.GetPixel(0, 10) & kRgb, pm->GetColor(c.top_left)) << "state " << c.state;
    EXPECT_EQ(dc.GetPixel(79, 10) & kRgb, pm->GetColor(c.bottom_right)) << "state " << c.state;
  }
}

TEST_F(WidgetPaint, MarksShowInEveryTheme) {
  for (const CRuntimeClass* cls : AllPaintManagerClasses()) {
    auto pm = Make(cls);
    const DrawRect rc{0, 0, 60, 21};
    const DrawRect box = layout::CheckBox(*pm, rc).box;
    DrawTarget off(60, 21), on(60, 21), mixed(60, 21), radio_off(60, 21), radio_on(60, 21);
    pm->PaintCheckBox(off, rc, "", kStateNormal);
    pm->PaintCheckBox(on, rc, "", kStateChecked);
    pm->PaintCheckBox(mixed, rc, "", kStateIndeterminate);
    pm->PaintRadioButton(radio_off, rc, "", kStateNormal);
    pm->PaintRadioButton(radio_on, rc, "", kStateChecked);
    EXPECT_GE(CountDifferent(off, on, box), 12) << cls->m_lpszClassName << ": the tick";
    EXPECT_GE(CountDifferent(off, mixed, box), 9) << cls->m_lpszClassName << ": the undecided mark";
    EXPECT_GE(CountDifferent(on, mixed, box), 5) << cls->m_lpszClassName << ": undecided is not checked";
    EXPECT_GE(CountDifferent(radio_off, radio_on, box), 12) << cls->m_lpszClassName << ": the dot";
  }
}

TEST_F(WidgetPaint, StatesLookDifferentInTheShadedThemes) {
  for (const CRuntimeClass* cls : AllPaintManagerClasses()) {
    auto pm = Make(cls);
    if (!pm->GetWidgetLook()) continue;
    const DrawRect rc{0, 0, 90, 26};
    DrawTarget normal(90, 26), hot(90, 26), pressed(90, 26), disabled(90, 26), by_default(90, 26);
    pm->PaintPushButton(normal, rc, "OK", kStateNormal);
    pm->PaintPushButton(hot, rc, "OK", kStateHot);
    pm->PaintPushButton(pressed, rc, "OK", kStatePressed);
    pm->PaintPushButton(disabled, rc, "OK", kStateDisabled);
    pm->PaintPushButton(by_default, rc, "OK", kStateDefault);
    const int area = rc.Width() * rc.Height();
    EXPECT_GT(CountDifferent(normal, hot, rc), area / 2) << cls->m_lpszClassName;
    EXPECT_GT(CountDifferent(hot, pressed, rc), area / 2) << cls->m_lpszClassName;
    EXPECT_GT(CountDifferent(normal, disabled, rc), 20) << cls->m_lpszClassName;
    EXPECT_GT(CountDifferent(normal, by_default, rc), 100) << cls->m_lpszClassName << ": the default ring";
  }
}

TEST_F(WidgetPaint, CaptionsAreDrawnInTheTextColour) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian));
  DrawTarget dc(200, 30);
  pm->PaintDialogBackground(dc, {0, 0, 200, 30});
  pm->PaintLabel(dc, {4, 0, 200, 30}, "Label text", kStateNormal);
  EXPECT_GT(CountNear(dc, {0, 0, 200, 30}, pm->GetColor(kClrLabelText)), 20) << "white on the dark theme";
  DrawTarget button(120, 26);
  pm->PaintPushButton(button, {0, 0, 120, 26}, "&Cancel", kStateNormal);
  EXPECT_GT(CountNear(button, {0, 0, 120, 26}, pm->GetColor(kClrText)), 20) << "dark on the light face";
}

TEST_F(WidgetPaint, ProgressFillsItsShare) {
  for (const CRuntimeClass* cls : {QMK_RUNTIME_CLASS(CExtPaintManager), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003)}) {
    auto pm = Make(cls);
    DrawTarget empty(104, 18), part(104, 18);
    pm->PaintProgress(empty, {0, 0, 104, 18}, 0, 100, kStateNormal);
    pm->PaintProgress(part, {0, 0, 104, 18}, 50, 100, kStateNormal);
    EXPECT_GT(CountDifferent(empty, part, {2, 2, 52, 16}), 300) << cls->m_lpszClassName;
    EXPECT_EQ(CountDifferent(empty, part, {53, 0, 104, 18}), 0) << cls->m_lpszClassName << ": nothing past half";
  }
}

TEST(Text, DrawsMeasuresAndUnderlines) {
  platform::FontSpec font;
  EXPECT_EQ(platform::MeasureText("&&", font, true).width, platform::MeasureText("&", font).width);
  EXPECT_EQ(platform::MeasureText("&File", font, true).width, platform::MeasureText("File", font).width);
  EXPECT_GT(platform::MeasureText("Wide text", font).width, platform::MeasureText("Wide", font).width);
  EXPECT_GT(platform::MeasureText("\xff\xfe broken", font).width, 0) << "bad bytes are shown, not fatal";

  DrawTarget plain(80, 24), marked(80, 24);
  platform::TextOptions mn;
  mn.mnemonics = true;
  ASSERT_TRUE(platform::DrawText(plain, {0, 0, 80, 24}, "File", font, 0));
  ASSERT_TRUE(platform::DrawText(marked, {0, 0, 80, 24}, "&File", font, 0, mn));
  EXPECT_GT(CountDifferent(plain, marked, {0, 0, 80, 24}), 3) << "the underline under F";
  EXPECT_FALSE(platform::DrawText(plain, {0, 0, 0, 0}, "x", font, 0));
  EXPECT_FALSE(platform::DrawText(plain, {0, 0, 80, 24}, "", font, 0));
  EXPECT_FALSE(platform::DrawText(plain, {100, 100, 120, 120}, "x", font, 0)) << "outside the target";
  // Text that doesn't fit is cut at the box: nothing is drawn beyond it.
  DrawTarget cut(80, 24);
  platform::DrawText(cut, {0, 0, 20, 24}, "A long caption", font, 0);
  int beyond = 0;
  for (int y = 0; y < 24; ++y)
    for (int x = 20; x < 80; ++x) beyond += (cut.GetPixel(x, y) >> 24) != 0;
  EXPECT_EQ(beyond, 0);
  EXPECT_GT(CountDifferent(cut, plain, {0, 0, 20, 24}), 0);
  EXPECT_TRUE(platform::FontFamilyInstalled("DejaVu Sans"));
  EXPECT_TRUE(platform::FontFamilyInstalled("dejavu sans"));
  EXPECT_FALSE(platform::FontFamilyInstalled("No Such Face 123"));
}

}  // namespace
}  // namespace qmk::toolkit::theme::testing
