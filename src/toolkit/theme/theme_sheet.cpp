// theme_sheet.cpp: the widget sheet: rows of buttons, boxes, fields, tabs, bars and message
// icons, each in the states a dialog shows them in.
#include "toolkit/theme/theme_sheet.h"

#include <iterator>

#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/selection.h"

namespace qmk::toolkit::theme {
namespace {

struct Sample {
  const char* text;
  unsigned state;
};

constexpr Sample kButtons[] = {
    {"&Normal", kStateNormal},     {"&Hot", kStateHot},           {"&Pressed", kStatePressed},
    {"&Default", kStateDefault},   {"D&isabled", kStateDisabled}, {"&Focused", kStateFocused | kStateDefault},
};
constexpr Sample kChecks[] = {
    {"Off", kStateNormal},
    {"Checked", kStateChecked},
    {"Mixed", kStateIndeterminate},
    {"Hot", kStateHot | kStateChecked},
    {"Pressed", kStatePressed},
    {"Disabled", kStateDisabled | kStateChecked},
    {"Focused", kStateFocused},
};
constexpr Sample kFields[] = {
    {"Normal", kStateNormal}, {"Hot", kStateHot}, {"Focused", kStateFocused}, {"Disabled", kStateDisabled},
};
constexpr Sample kCombos[] = {
    {"Normal", kStateNormal}, {"Hot", kStateHot}, {"Pressed", kStatePressed | kStateFocused},
    {"Disabled", kStateDisabled},
};
constexpr int kIcons[] = {kIconStop, kIconQuestion, kIconExclamation, kIconInformation};

template <typename Row, typename Draw>
void Across(int left, int width, int gap, const Row& row, Draw draw) {
  int x = left;
  for (const auto& item : row) {
    draw(item, x, x + width);
    x += width + gap;
  }
}

void Buttons(CExtPaintManager& pm, DrawTarget& dc, int y) {
  Across(124, 100, 10, kButtons, [&](const Sample& s, int l, int r) {
    pm.PaintPushButton(dc, {l, y, r, y + 26}, s.text, s.state);
  });
}

void Checks(CExtPaintManager& pm, DrawTarget& dc, int y, bool radio) {
  Across(124, 86, 6, kChecks, [&](const Sample& s, int l, int r) {
    if (radio && s.state == kStateIndeterminate) return;
    if (radio) pm.PaintRadioButton(dc, {l, y, r, y + 20}, s.text, s.state);
    else pm.PaintCheckBox(dc, {l, y, r, y + 20}, s.text, s.state);
  });
}

void Fields(CExtPaintManager& pm, DrawTarget& dc, int y) {
  Across(124, 110, 8, kFields, [&](const Sample& s, int l, int r) {
    pm.PaintEdit(dc, {l, y, r, y + 22}, s.text, s.state);
  });
  Across(124, 110, 8, kCombos, [&](const Sample& s, int l, int r) {
    pm.PaintComboBox(dc, {l, y + 30, r, y + 52}, s.text, s.state);
  });
  pm.PaintComboDropList(dc, {360, y + 52, 470, y + 138}, {"First", "Second", "Third", "Fourth"}, 1);
  const unsigned spins[][2] = {{kStateNormal, kStateNormal}, {kStateHot, kStateNormal},
                               {kStateNormal, kStateHot | kStatePressed}, {kStateDisabled, kStateDisabled}};
  int x = 612;
  for (const auto& s : spins) {
    pm.PaintSpinButtons(dc, {x, y, x + 17, y + 26}, s[0], s[1]);
    x += 26;
  }
}

void Bars(CExtPaintManager& pm, DrawTarget& dc, int y) {
  const int values[][2] = {{0, 100}, {40, 100}, {100, 100}};
  int x = 250;
  for (const auto& v : values) {
    pm.PaintProgress(dc, {x, y, x + 120, y + 18}, v[0], v[1], kStateNormal);
    x += 130;
  }
  pm.PaintProgress(dc, {250, y + 26, 370, y + 44}, 60, 100, kStateDisabled);

  PAINTSCROLLBARDATA horz;
  horz.m_rcBar = {380, y + 26, 640, y + 43};
  horz.m_bHorzBar = true;
  horz.m_nPos = 30;
  horz.m_nStateThumb = kStateHot;
  horz.m_nStateArrowDown = kStatePressed;
  pm.PaintScrollBar(dc, horz);
  PAINTSCROLLBARDATA vert;
  vert.m_rcBar = {650, y, 667, y + 140};
  vert.m_nPos = 70;
  vert.m_nStateArrowUp = kStateHot;
  pm.PaintScrollBar(dc, vert);
  PAINTSCROLLBARDATA off;
  off.m_rcBar = {676, y, 693, y + 140};
  off.m_bEnabled = false;
  pm.PaintScrollBar(dc, off);
}

void MessageBoxes(CExtPaintManager& pm, DrawTarget& dc, int y) {
  int x = 250;
  for (int icon : kIcons) {
    pm.PaintMessageBox(dc, {x, y, x + 90, y + 60}, {x, y, x + 90, y + 44}, icon);
    x += 98;
  }
}

}  // namespace

void PaintThemeSheet(CExtPaintManager& pm, DrawTarget& dc, const std::string& title) {
  const DrawRect all{0, 0, kSheetWidth, kSheetHeight};
  pm.PaintDialogBackground(dc, all);
  pm.PaintLabel(dc, {12, 6, 560, 26}, title, kStateNormal);
  pm.PaintLabel(dc, {560, 6, 680, 26}, "Label", kStateNormal);
  pm.PaintLabel(dc, {680, 6, 770, 26}, "Disabled", kStateDisabled);

  pm.PaintGroupBox(dc, {8, 30, 772, 168}, "&Buttons and boxes", kStateNormal);
  pm.PaintLabel(dc, {20, 50, 120, 76}, "Push", kStateNormal);
  Buttons(pm, dc, 50);
  pm.PaintLabel(dc, {20, 90, 120, 110}, "Check", kStateNormal);
  Checks(pm, dc, 90, false);
  pm.PaintLabel(dc, {20, 124, 120, 144}, "Radio", kStateNormal);
  Checks(pm, dc, 124, true);

  pm.PaintGroupBox(dc, {8, 176, 772, 322}, "&Fields", kStateNormal);
  pm.PaintLabel(dc, {20, 198, 120, 220}, "Edit, spin", kStateNormal);
  pm.PaintLabel(dc, {20, 228, 120, 250}, "Combo", kStateNormal);
  Fields(pm, dc, 198);

  pm.PaintTabStrip(dc, {8, 346, 240, 486}, {"&General", "&Pages", "Hot"}, 0, 2);
  pm.PaintLabel(dc, {20, 380, 230, 400}, "Selected page", kStateNormal);
  Bars(pm, dc, 346);
  MessageBoxes(pm, dc, 492);
  pm.PaintGripper(dc, {kSheetWidth - 16, kSheetHeight - 16, kSheetWidth, kSheetHeight});
}

bool WriteThemeSheetPng(int id, const std::string& path) {
  SelectPaintManagerById(id, nullptr);
  CExtPaintManager* pm = g_PaintManager().GetPM();
  DrawTarget dc(kSheetWidth, kSheetHeight);
  if (!dc.ok()) return false;
  std::string title = ThemeDisplayName(id);
  if (title.empty()) title = "Theme " + std::to_string(id);
  PaintThemeSheet(*pm, dc, title + "  (" + pm->GetRuntimeClass()->m_lpszClassName + ")");
  return dc.WritePng(path);
}

}  // namespace qmk::toolkit::theme
