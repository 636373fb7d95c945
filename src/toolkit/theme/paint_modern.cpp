// paint_modern.cpp: widgets of the flat and shaded themes, drawn from the logical colours and
// the shape of a WidgetLook: flat XP faces, shaded Office 2003 and Studio faces, glossy rounded
// Office 2007 faces, and so on.
#include <algorithm>

#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/painters.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit::theme::modern {
namespace {

using draw::Arrow;

struct FaceColors {
  uint32_t top, bottom, border;
};

// The face colours of a button-like part in a state: pressed wins over hot.
FaceColors FaceFor(CExtPaintManager& pm, const WidgetLook& l, unsigned state) {
  if (state & kStateDisabled) return {pm.GetColor(l.field_disabled), pm.GetColor(l.field_disabled), pm.GetColor(l.group_line)};
  if (state & (kStatePressed | kStateChecked))
    return {pm.GetColor(l.pressed_top), pm.GetColor(l.pressed_bottom), pm.GetColor(l.pressed_border)};
  if (state & kStateHot) return {pm.GetColor(l.hot_top), pm.GetColor(l.hot_bottom), pm.GetColor(l.hot_border)};
  return {pm.GetColor(l.face_top), pm.GetColor(l.face_bottom), pm.GetColor(l.border)};
}

void Face(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc, const FaceColors& f) {
  const int radius = pm.UiScale(l.radius);
  if (l.glossy) draw::GlossyFace(dc, rc, f.top, f.bottom, radius);
  else if (l.gradient) draw::ShadedFace(dc, rc, f.top, f.bottom, radius);
  else draw::Fill(dc, rc, f.bottom);
  draw::RoundFrame(dc, rc, f.border, radius);
}

void ArrowButton(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc, Arrow dir,
                 unsigned state) {
  Face(pm, l, dc, rc, FaceFor(pm, l, state));
  const int size = std::max(2, std::min(pm.UiScale(4), std::min(rc.Width(), rc.Height()) / 3));
  draw::ArrowGlyph(dc, rc, dir, size, pm.GetColor((state & kStateDisabled) ? l.disabled_text : l.text));
}

// Text on a face, or (for `normal` the label colour) on the dialog's background.
uint32_t TextColor(CExtPaintManager& pm, const WidgetLook& l, unsigned state, int normal) {
  if (!(state & kStateDisabled)) return pm.GetColor(normal);
  return pm.GetColor(normal == l.label_text ? l.disabled_label : l.disabled_text);
}

// Edit-like fields: a field colour inside a one-pixel border that lights up when hot or focused.
void Field(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc, unsigned state) {
  const bool disabled = state & kStateDisabled;
  draw::Fill(dc, rc, pm.GetColor(disabled ? l.field_disabled : l.field));
  const int border = disabled ? l.group_line
                   : (state & kStateFocused) ? l.focus
                   : (state & kStateHot) ? l.hot_border : l.field_border;
  draw::Frame(dc, rc, pm.GetColor(border));
}

}  // namespace

void DialogBackground(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc) {
  if (l.gradient) draw::ShadedFace(dc, rc, pm.GetColor(l.dialog_top), pm.GetColor(l.dialog_bottom), 0);
  else draw::Fill(dc, rc, pm.GetColor(l.dialog_bottom));
}

void Gripper(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc) {
  // A triangle of six square dots, each with a light dot under it to look pressed in.
  const uint32_t dot = pm.GetColor(l.gripper), light = pm.GetColor(l.field);
  const int step = pm.UiScale(4);
  for (int row = 0; row < 3; ++row)
    for (int col = 0; col <= row; ++col) {
      const int x = rc.right - step * (col + 1), y = rc.bottom - step * (3 - row);
      draw::Fill(dc, {x + 1, y + 1, x + 3, y + 3}, light);
      draw::Fill(dc, {x, y, x + 2, y + 2}, dot);
    }
}

void Label(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc, const std::string& text,
           unsigned state) {
  PaintText(pm, dc, rc, text, TextColor(pm, l, state, l.label_text));
}

void PushButton(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc,
                const std::string& text, unsigned state) {
  Face(pm, l, dc, rc, FaceFor(pm, l, state & ~kStateChecked));
  const int radius = pm.UiScale(l.radius);
  const bool enabled = !(state & kStateDisabled);
  // The default button carries a second ring in the focus colour inside its border.
  if ((state & kStateDefault) && enabled) draw::RoundFrame(dc, draw::Deflate(rc, 1, 1), pm.GetColor(l.focus), radius);
  if ((state & kStateFocused) && enabled) draw::FocusFrame(dc, draw::Deflate(rc, 3, 3), pm.GetColor(l.text));
  PaintText(pm, dc, draw::Deflate(rc, 4, 2), text, TextColor(pm, l, state, l.text), platform::TextAlign::kCenter);
}

void CheckBox(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc,
              const std::string& text, unsigned state, bool radio) {
  const layout::CheckParts parts = layout::CheckBox(pm, rc);
  const bool disabled = state & kStateDisabled;
  FaceColors f{pm.GetColor(l.field), pm.GetColor(l.field), pm.GetColor(l.field_border)};
  if (disabled) f = {pm.GetColor(l.field_disabled), pm.GetColor(l.field_disabled), pm.GetColor(l.group_line)};
  else if (state & (kStateHot | kStatePressed)) f = FaceFor(pm, l, state & (kStateHot | kStatePressed));
  const uint32_t mark = pm.GetColor(disabled ? l.disabled_text : l.mark);
  if (radio) {
    draw::Disc(dc, parts.box, f.border);
    draw::Disc(dc, draw::Deflate(parts.box, 1, 1), f.bottom);
    if (state & kStateChecked) draw::Disc(dc, draw::CenteredSquare(parts.box, pm.UiScale(5)), mark);
  } else {
    draw::ShadedFace(dc, parts.box, f.top, f.bottom, 0);
    draw::Frame(dc, parts.box, f.border);
    if (state & kStateIndeterminate) draw::Fill(dc, draw::Deflate(parts.box, 3, 3), mark);
    else if (state & kStateChecked) draw::CheckGlyph(dc, draw::Deflate(parts.box, 1, 1), mark, l.radius > 0);
  }
  PaintText(pm, dc, parts.text, text, TextColor(pm, l, state, l.label_text));
  if ((state & kStateFocused) && !disabled && !text.empty()) {
    const platform::TextSize size = platform::MeasureText(text, pm.Font(), true);
    const int top = parts.text.top + (parts.text.Height() - size.height) / 2;
    draw::FocusFrame(dc, {parts.text.left - 1, top - 1, parts.text.left + size.width + 2, top + size.height + 1},
                     pm.GetColor(l.label_text));
  }
}

void GroupBox(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc,
              const std::string& caption, unsigned state) {
  const layout::GroupParts parts = layout::GroupBox(pm, rc, caption);
  draw::RoundFrame(dc, parts.frame, pm.GetColor(l.group_line), pm.UiScale(l.radius));
  if (parts.caption.IsEmpty()) return;
  // The caption breaks the line: the pixel just above the line is the background there,
  // whether the dialog is flat or shaded.
  const int line_y = parts.frame.top;
  const uint32_t under = dc.GetPixel(parts.caption.left, line_y - 1);
  const uint32_t gap = (under >> 24) ? under : pm.GetColor(l.dialog_bottom);
  draw::Fill(dc, {parts.caption.left, line_y, parts.caption.right, line_y + 1}, gap);
  PaintText(pm, dc, draw::Deflate(parts.caption, 2, 0), caption, TextColor(pm, l, state, l.label_text));
}

void Edit(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc, const std::string& text,
          unsigned state) {
  Field(pm, l, dc, rc, state);
  PaintText(pm, dc, draw::Deflate(rc, 4, 2), text, TextColor(pm, l, state, l.text));
}

void ComboBox(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc,
              const std::string& text, unsigned state) {
  Field(pm, l, dc, rc, state);
  const layout::ComboParts parts = layout::ComboBox(pm, rc);
  PaintText(pm, dc, parts.text, text, TextColor(pm, l, state, l.text));
  // The drop button shows only its face when the mouse is over it or it is pressed.
  const DrawRect button{parts.button.left, rc.top, rc.right, rc.bottom};
  if (state & (kStateHot | kStatePressed)) {
    ArrowButton(pm, l, dc, button, Arrow::kDown, state);
    return;
  }
  draw::Fill(dc, {button.left, rc.top + 1, button.left + 1, rc.bottom - 1}, pm.GetColor(l.field_border));
  const int size = std::max(2, pm.UiScale(4));
  draw::ArrowGlyph(dc, button, Arrow::kDown, size, TextColor(pm, l, state, l.text));
}

void DropList(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc,
              const std::vector<std::string>& items, int selected) {
  draw::Fill(dc, rc, pm.GetColor(l.field));
  draw::Frame(dc, rc, pm.GetColor(l.border));
  const int h = layout::ListItemHeight(pm);
  for (size_t i = 0; i < items.size(); ++i) {
    const DrawRect row{rc.left + 2, rc.top + 2 + static_cast<int>(i) * h, rc.right - 2,
                       rc.top + 2 + static_cast<int>(i + 1) * h};
    if (row.bottom > rc.bottom - 2) break;
    const bool sel = static_cast<int>(i) == selected;
    if (sel) {
      draw::Fill(dc, row, pm.GetColor(l.selection));
      draw::Frame(dc, row, pm.GetColor(l.focus));
    }
    PaintText(pm, dc, draw::Deflate(row, 3, 0), items[i], pm.GetColor(sel ? l.selection_text : l.text));
  }
}

void Spin(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc, unsigned up,
          unsigned down) {
  const layout::SpinParts parts = layout::Spin(rc);
  ArrowButton(pm, l, dc, parts.up, Arrow::kUp, up);
  ArrowButton(pm, l, dc, parts.down, Arrow::kDown, down);
}

void TabStrip(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc,
              const std::vector<std::string>& tabs, int selected, int hot) {
  const layout::TabParts parts = layout::TabStrip(pm, rc, tabs);
  draw::Fill(dc, parts.strip, pm.GetColor(l.tab_strip));
  // The pane is the page's own background, which the selected tab runs into.
  const uint32_t page_top = pm.GetColor(l.gradient ? l.dialog_top : l.dialog_bottom);
  draw::ShadedFace(dc, parts.pane, page_top, pm.GetColor(l.dialog_bottom), 0);
  draw::Frame(dc, parts.pane, pm.GetColor(l.tab_border));
  const int radius = pm.UiScale(l.radius);
  for (size_t i = 0; i < parts.tabs.size(); ++i) {
    const bool sel = static_cast<int>(i) == selected;
    DrawRect t = parts.tabs[i];
    FaceColors f = FaceFor(pm, l, static_cast<int>(i) == hot ? kStateHot : kStateNormal);
    if (sel) {
      t = {t.left - 1, t.top - 2, t.right + 1, t.bottom + 1};
      f = {pm.GetColor(l.tab_selected_top), page_top, pm.GetColor(l.tab_border)};
    }
    // Tabs are faces whose lower corners are hidden under the pane's edge.
    if (sel && !l.gradient) f.bottom = f.top;
    Face(pm, l, dc, {t.left, t.top, t.right, t.bottom + radius}, f);
    if (sel) draw::Fill(dc, {t.left + 1, parts.pane.top, t.right - 1, parts.pane.top + 1 + radius}, f.bottom);
    else draw::Fill(dc, {t.left, parts.pane.top, t.right, parts.pane.top + 1}, pm.GetColor(l.tab_border));
    draw::Fill(dc, {t.left + 1, parts.pane.top + 1, t.right - 1, parts.pane.top + 1 + radius},
               sel ? f.bottom : page_top);
    PaintText(pm, dc, draw::Deflate(t, 2, 1), tabs[i], pm.GetColor(l.text), platform::TextAlign::kCenter);
  }
  // The pane's side lines run again over the feet of the tabs.
  draw::Fill(dc, {parts.pane.left, parts.pane.top + 1, parts.pane.left + 1, parts.pane.bottom}, pm.GetColor(l.tab_border));
}

void Progress(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& rc, int pos, int range,
              unsigned state) {
  const int radius = pm.UiScale(l.radius);
  draw::ShadedFace(dc, rc, pm.GetColor(l.progress_track), pm.GetColor(l.field), radius);
  draw::RoundFrame(dc, rc, pm.GetColor(l.border), radius);
  const DrawRect inner = draw::Deflate(rc, 2, 2);
  const DrawRect done = layout::ProgressDone(inner, pos, range);
  if (done.IsEmpty()) return;
  const bool disabled = state & kStateDisabled;
  const uint32_t top = pm.GetColor(disabled ? l.field_disabled : l.progress_top);
  const uint32_t bottom = pm.GetColor(disabled ? l.group_line : l.progress_bottom);
  if (!l.block_progress) {
    draw::ShadedFace(dc, done, top, bottom, 0);
    return;
  }
  const int step = pm.UiScale(9), gap = pm.UiScale(2);
  for (int x = done.left; x < done.right; x += step)
    draw::GlossyFace(dc, {x, done.top, std::min(done.right, x + step - gap), done.bottom}, top, bottom, 0);
}

void ScrollBar(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, PAINTSCROLLBARDATA& data) {
  layout::ScrollBar(pm, data);
  draw::Fill(dc, data.m_rcBar, pm.GetColor(l.scroll_track));
  const unsigned off = data.m_bEnabled ? 0u : static_cast<unsigned>(kStateDisabled);
  ArrowButton(pm, l, dc, data.m_rcButtonUp, data.m_bHorzBar ? Arrow::kLeft : Arrow::kUp, data.m_nStateArrowUp | off);
  ArrowButton(pm, l, dc, data.m_rcButtonDown, data.m_bHorzBar ? Arrow::kRight : Arrow::kDown,
              data.m_nStateArrowDown | off);
  const DrawRect& t = data.m_rcThumb;
  if (t.IsEmpty()) return;
  Face(pm, l, dc, t, FaceFor(pm, l, data.m_nStateThumb | off));
  // Three grip lines across the middle of the thumb, when it is long enough to hold them.
  const uint32_t grip = pm.GetColor(l.gripper);
  const int cx = (t.left + t.right) / 2, cy = (t.top + t.bottom) / 2;
  for (int k = -1; k <= 1; ++k) {
    if (data.m_bHorzBar && t.Width() > 12)
      draw::Fill(dc, {cx + 2 * k, t.top + 4, cx + 2 * k + 1, t.bottom - 4}, grip);
    if (!data.m_bHorzBar && t.Height() > 12)
      draw::Fill(dc, {t.left + 4, cy + 2 * k, t.right - 4, cy + 2 * k + 1}, grip);
  }
}

void MessageBox(CExtPaintManager& pm, const WidgetLook& l, DrawTarget& dc, const DrawRect& body,
                const DrawRect& icon_area, int icon) {
  DialogBackground(pm, l, dc, body);
  draw::Fill(dc, icon_area, pm.GetColor(l.icon_area));
  draw::Fill(dc, {icon_area.left, icon_area.bottom - 1, icon_area.right, icon_area.bottom}, pm.GetColor(l.group_line));
  PaintMessageIcon(pm, dc, icon_area, icon);
}

}  // namespace qmk::toolkit::theme::modern
