// widget_paint.cpp: the paint manager's widget operations, each handing over to the classic
// painter or to the look the theme answers; and the text and icons both share.
#include <algorithm>

#include "toolkit/bitmap/colour.h"
#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/painters.h"

namespace qmk::toolkit::theme {
namespace {

using bitmap::RGB;

// The sign and colours of each message box icon.
struct IconStyle {
  int icon;
  const char* sign;
  uint32_t disc, ring, ink;
};
constexpr IconStyle kIcons[] = {
    {kIconStop, "X", RGB(214, 40, 40), RGB(140, 20, 20), RGB(255, 255, 255)},
    {kIconQuestion, "?", RGB(48, 110, 200), RGB(24, 64, 140), RGB(255, 255, 255)},
    {kIconExclamation, "!", RGB(250, 200, 40), RGB(170, 120, 0), RGB(0, 0, 0)},
    {kIconInformation, "i", RGB(48, 110, 200), RGB(24, 64, 140), RGB(255, 255, 255)},
};

}  // namespace

void PaintText(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text, uint32_t rgb,
               platform::TextAlign align) {
  platform::TextOptions options;
  options.align = align;
  options.mnemonics = true;
  platform::DrawText(dc, rc, text, pm.Font(), rgb, options);
}

void PaintMessageIcon(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& area, int icon) {
  const IconStyle* style = nullptr;
  for (const IconStyle& s : kIcons)
    if (s.icon == (icon & 0xF0)) style = &s;
  if (!style) return;
  const int side = std::min(pm.UiScale(32), std::min(area.Width(), area.Height()));
  const DrawRect disc = draw::CenteredSquare(area, side);
  draw::Disc(dc, disc, style->ring);
  draw::Disc(dc, draw::Deflate(disc, 1, 1), style->disc);
  platform::FontSpec font = pm.Font();
  font.bold = true;
  font.pixels = side * 0.6;
  platform::TextOptions options;
  options.align = platform::TextAlign::kCenter;
  platform::DrawText(dc, disc, style->sign, font, style->ink, options);
}

void CExtPaintManager::PaintDialogBackground(DrawTarget& dc, const DrawRect& rc) {
  if (const WidgetLook* l = GetWidgetLook()) modern::DialogBackground(*this, *l, dc, rc);
  else classic::DialogBackground(*this, dc, rc);
}

void CExtPaintManager::PaintGripper(DrawTarget& dc, const DrawRect& rc) {
  if (const WidgetLook* l = GetWidgetLook()) modern::Gripper(*this, *l, dc, rc);
  else classic::Gripper(*this, dc, rc);
}

void CExtPaintManager::PaintLabel(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state) {
  if (const WidgetLook* l = GetWidgetLook()) modern::Label(*this, *l, dc, rc, text, state);
  else classic::Label(*this, dc, rc, text, state);
}

void CExtPaintManager::PaintPushButton(DrawTarget& dc, const DrawRect& rc, const std::string& text,
                                       unsigned state) {
  if (const WidgetLook* l = GetWidgetLook()) modern::PushButton(*this, *l, dc, rc, text, state);
  else classic::PushButton(*this, dc, rc, text, state);
}

void CExtPaintManager::PaintCheckBox(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state) {
  if (const WidgetLook* l = GetWidgetLook()) modern::CheckBox(*this, *l, dc, rc, text, state, false);
  else classic::CheckBox(*this, dc, rc, text, state, false);
}

void CExtPaintManager::PaintRadioButton(DrawTarget& dc, const DrawRect& rc, const std::string& text,
                                        unsigned state) {
  if (const WidgetLook* l = GetWidgetLook()) modern::CheckBox(*this, *l, dc, rc, text, state, true);
  else classic::CheckBox(*this, dc, rc, text, state, true);
}

void CExtPaintManager::PaintGroupBox(DrawTarget& dc, const DrawRect& rc, const std::string& caption,
                                     unsigned state) {
  if (const WidgetLook* l = GetWidgetLook()) modern::GroupBox(*this, *l, dc, rc, caption, state);
  else classic::GroupBox(*this, dc, rc, caption, state);
}

void CExtPaintManager::PaintEdit(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state) {
  if (const WidgetLook* l = GetWidgetLook()) modern::Edit(*this, *l, dc, rc, text, state);
  else classic::Edit(*this, dc, rc, text, state);
}

void CExtPaintManager::PaintComboBox(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state) {
  if (const WidgetLook* l = GetWidgetLook()) modern::ComboBox(*this, *l, dc, rc, text, state);
  else classic::ComboBox(*this, dc, rc, text, state);
}

void CExtPaintManager::PaintComboDropList(DrawTarget& dc, const DrawRect& rc, const std::vector<std::string>& items,
                                          int selected) {
  if (const WidgetLook* l = GetWidgetLook()) modern::DropList(*this, *l, dc, rc, items, selected);
  else classic::DropList(*this, dc, rc, items, selected);
}

void CExtPaintManager::PaintSpinButtons(DrawTarget& dc, const DrawRect& rc, unsigned up, unsigned down) {
  if (const WidgetLook* l = GetWidgetLook()) modern::Spin(*this, *l, dc, rc, up, down);
  else classic::Spin(*this, dc, rc, up, down);
}

void CExtPaintManager::PaintTabStrip(DrawTarget& dc, const DrawRect& rc, const std::vector<std::string>& tabs,
                                     int selected, int hot) {
  if (const WidgetLook* l = GetWidgetLook()) modern::TabStrip(*this, *l, dc, rc, tabs, selected, hot);
  else classic::TabStrip(*this, dc, rc, tabs, selected, hot);
}

void CExtPaintManager::PaintProgress(DrawTarget& dc, const DrawRect& rc, int pos, int range, unsigned state) {
  if (const WidgetLook* l = GetWidgetLook()) modern::Progress(*this, *l, dc, rc, pos, range, state);
  else classic::Progress(*this, dc, rc, pos, range, state);
}

void CExtPaintManager::PaintScrollBar(DrawTarget& dc, PAINTSCROLLBARDATA& data) {
  if (const WidgetLook* l = GetWidgetLook()) modern::ScrollBar(*this, *l, dc, data);
  else classic::ScrollBar(*this, dc, data);
}

void CExtPaintManager::PaintMessageBox(DrawTarget& dc, const DrawRect& body, const DrawRect& icon_area, int icon) {
  if (const WidgetLook* l = GetWidgetLook()) modern::MessageBox(*this, *l, dc, body, icon_area, icon);
  else classic::MessageBox(*this, dc, body, icon_area, icon);
}

}  // namespace qmk::toolkit::theme
