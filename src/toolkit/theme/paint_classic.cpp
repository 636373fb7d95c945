// paint_classic.cpp: the base theme's widgets: grey faces with raised and sunken edges in the
// system's highlight, light, shadow and dark shadow colours.
#include <algorithm>

#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/painters.h"
#include "toolkit/theme/system_colors.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit::theme::classic {
namespace {

using draw::Arrow;

struct Colors {
  uint32_t face, hi, light, shadow, dark, text, window, window_text, gray, highlight, highlight_text;
};
Colors Read(CExtPaintManager& pm) {
  return {pm.GetColor(COLOR_BTNFACE),  pm.GetColor(COLOR_BTNHIGHLIGHT), pm.GetColor(COLOR_3DLIGHT),
          pm.GetColor(COLOR_BTNSHADOW), pm.GetColor(COLOR_3DDKSHADOW),  pm.GetColor(COLOR_BTNTEXT),
          pm.GetColor(COLOR_WINDOW),    pm.GetColor(COLOR_WINDOWTEXT),  pm.GetColor(COLOR_GRAYTEXT),
          pm.GetColor(COLOR_HIGHLIGHT), pm.GetColor(COLOR_HIGHLIGHTTEXT)};
}

void Raised(DrawTarget& dc, const DrawRect& rc, const Colors& c) {
  draw::Edge(dc, rc, c.hi, c.dark);
  draw::Edge(dc, draw::Deflate(rc, 1, 1), c.light, c.shadow);
}

void Sunken(DrawTarget& dc, const DrawRect& rc, const Colors& c) {
  draw::Edge(dc, rc, c.shadow, c.hi);
  draw::Edge(dc, draw::Deflate(rc, 1, 1), c.dark, c.light);
}

// Disabled text is embossed: a highlight copy one pixel down and right under a shadow copy.
void StateText(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text,
               unsigned state, uint32_t rgb, const Colors& c,
               platform::TextAlign align = platform::TextAlign::kLeft) {
  if (state & kStateDisabled) {
    PaintText(pm, dc, {rc.left + 1, rc.top + 1, rc.right + 1, rc.bottom + 1}, text, c.hi, align);
    PaintText(pm, dc, rc, text, c.shadow, align);
    return;
  }
  PaintText(pm, dc, rc, text, rgb, align);
}

// A small raised button with an arrow, pushed in when pressed.
void ArrowButton(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, Arrow dir, unsigned state,
                 const Colors& c) {
  draw::Fill(dc, rc, c.face);
  if (state & kStatePressed) draw::Frame(dc, rc, c.shadow);
  else Raised(dc, rc, c);
  const int shift = (state & kStatePressed) ? 1 : 0;
  const int size = std::max(2, std::min(pm.UiScale(4), std::min(rc.Width(), rc.Height()) / 3));
  draw::ArrowGlyph(dc, {rc.left + shift, rc.top + shift, rc.right + shift, rc.bottom + shift}, dir, size,
                   (state & kStateDisabled) ? c.shadow : c.text);
}

}  // namespace

void DialogBackground(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc) {
  draw::Fill(dc, rc, pm.GetColor(COLOR_BTNFACE));
}

void Gripper(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc) {
  const Colors c = Read(pm);
  // Three diagonal ridges in the lower right corner, each a highlight line over two shadow lines.
  for (int ridge = 0; ridge < 3; ++ridge)
    for (int i = 0; i < 12 - ridge * 4; ++i) {
      const int x = rc.right - 1 - i, y = rc.bottom - 12 + ridge * 4 + i;
      draw::Fill(dc, {x, y, x + 1, y + 1}, c.hi);
      draw::Fill(dc, {x, y + 1, x + 1, y + 3}, c.shadow);
    }
}

void Label(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state) {
  const Colors c = Read(pm);
  StateText(pm, dc, rc, text, state, c.window_text, c);
}

void PushButton(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text,
                unsigned state) {
  const Colors c = Read(pm);
  draw::Fill(dc, rc, c.face);
  DrawRect face = rc;
  if (state & (kStateDefault | kStateFocused)) {
    draw::Frame(dc, face, c.window_text);
    face = draw::Deflate(face, 1, 1);
  }
  const bool pressed = state & kStatePressed;
  if (pressed) draw::Frame(dc, face, c.shadow);
  else Raised(dc, face, c);
  DrawRect text_rc = draw::Deflate(face, 3, 2);
  if (pressed) text_rc = {text_rc.left + 1, text_rc.top + 1, text_rc.right + 1, text_rc.bottom + 1};
  StateText(pm, dc, text_rc, text, state, c.text, c, platform::TextAlign::kCenter);
  if ((state & kStateFocused) && !(state & kStateDisabled))
    draw::FocusFrame(dc, draw::Deflate(face, 3, 3), c.window_text);
}

void CheckBox(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text,
              unsigned state, bool radio) {
  const Colors c = Read(pm);
  const layout::CheckParts parts = layout::CheckBox(pm, rc);
  const bool grey_field = state & (kStateDisabled | kStatePressed);
  const uint32_t mark = (state & kStateDisabled) ? c.shadow : c.window_text;
  if (radio) {
    draw::Disc(dc, parts.box, grey_field ? c.face : c.window);
    draw::Ring(dc, parts.box, c.shadow);
    draw::Ring(dc, draw::Deflate(parts.box, 1, 1), c.dark);
    if (state & kStateChecked) draw::Disc(dc, draw::CenteredSquare(parts.box, pm.UiScale(5)), mark);
  } else {
    // An undecided box shows a grey tick on the dithered face.
    const bool undecided = state & kStateIndeterminate;
    draw::Fill(dc, parts.box, undecided ? pm.Brush(0).color : grey_field ? c.face : c.window);
    Sunken(dc, parts.box, c);
    if (state & (kStateChecked | kStateIndeterminate))
      draw::CheckGlyph(dc, draw::Deflate(parts.box, 2, 2), undecided ? c.shadow : mark, false);
  }
  StateText(pm, dc, parts.text, text, state, c.window_text, c);
  if ((state & kStateFocused) && !text.empty()) {
    const platform::TextSize size = platform::MeasureText(text, pm.Font(), true);
    const int top = parts.text.top + (parts.text.Height() - size.height) / 2;
    draw::FocusFrame(dc, {parts.text.left - 1, top - 1, parts.text.left + size.width + 2, top + size.height + 1},
                     c.window_text);
  }
}

void GroupBox(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& caption,
              unsigned state) {
  const Colors c = Read(pm);
  const layout::GroupParts parts = layout::GroupBox(pm, rc, caption);
  // An etched line: shadow, with highlight one pixel inside.
  const DrawRect f = parts.frame;
  draw::Frame(dc, {f.left + 1, f.top + 1, f.right, f.bottom}, c.hi);
  draw::Frame(dc, {f.left, f.top, f.right - 1, f.bottom - 1}, c.shadow);
  if (parts.caption.IsEmpty()) return;
  draw::Fill(dc, parts.caption, c.face);
  StateText(pm, dc, draw::Deflate(parts.caption, 2, 0), caption, state, c.window_text, c);
}

void Edit(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state) {
  const Colors c = Read(pm);
  const bool disabled = state & kStateDisabled;
  draw::Fill(dc, rc, disabled ? c.face : c.window);
  Sunken(dc, rc, c);
  PaintText(pm, dc, draw::Deflate(rc, 4, 2), text, disabled ? c.gray : c.window_text);
}

void ComboBox(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state) {
  const Colors c = Read(pm);
  const bool disabled = state & kStateDisabled;
  draw::Fill(dc, rc, disabled ? c.face : c.window);
  Sunken(dc, rc, c);
  const layout::ComboParts parts = layout::ComboBox(pm, draw::Deflate(rc, 1, 1));
  DrawRect text_rc = parts.text;
  if ((state & kStateFocused) && !disabled) {
    const DrawRect sel = draw::Deflate({rc.left + 2, rc.top + 2, parts.button.left - 1, rc.bottom - 2}, 1, 1);
    draw::Fill(dc, sel, c.highlight);
    PaintText(pm, dc, text_rc, text, c.highlight_text);
  } else {
    PaintText(pm, dc, text_rc, text, disabled ? c.gray : c.window_text);
  }
  ArrowButton(pm, dc, parts.button, Arrow::kDown, state, c);
}

void DropList(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::vector<std::string>& items,
              int selected) {
  const Colors c = Read(pm);
  draw::Fill(dc, rc, c.window);
  draw::Frame(dc, rc, c.window_text);
  const int h = layout::ListItemHeight(pm);
  for (size_t i = 0; i < items.size(); ++i) {
    const DrawRect row{rc.left + 1, rc.top + 1 + static_cast<int>(i) * h, rc.right - 1,
                       rc.top + 1 + static_cast<int>(i + 1) * h};
    if (row.bottom > rc.bottom - 1) break;
    const bool sel = static_cast<int>(i) == selected;
    if (sel) draw::Fill(dc, row, c.highlight);
    PaintText(pm, dc, draw::Deflate(row, 3, 0), items[i], sel ? c.highlight_text : c.window_text);
  }
}

void Spin(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, unsigned up, unsigned down) {
  const Colors c = Read(pm);
  const layout::SpinParts parts = layout::Spin(rc);
  ArrowButton(pm, dc, parts.up, Arrow::kUp, up, c);
  ArrowButton(pm, dc, parts.down, Arrow::kDown, down, c);
}

void TabStrip(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::vector<std::string>& tabs,
              int selected, int hot) {
  (void)hot;  // the classic tabs don't track the mouse
  const Colors c = Read(pm);
  const layout::TabParts parts = layout::TabStrip(pm, rc, tabs);
  draw::Fill(dc, rc, c.face);
  Raised(dc, parts.pane, c);
  for (size_t i = 0; i < parts.tabs.size(); ++i) {
    const bool sel = static_cast<int>(i) == selected;
    DrawRect t = parts.tabs[i];
    if (sel) t = {t.left - 2, t.top - 2, t.right + 2, t.bottom + 1};
    draw::Fill(dc, t, c.face);
    // Left and top in highlight with a cut corner, right in shadow and dark shadow.
    draw::Fill(dc, {t.left, t.top + 2, t.left + 1, t.bottom}, c.hi);
    draw::Fill(dc, {t.left + 1, t.top + 1, t.left + 2, t.top + 2}, c.hi);
    draw::Fill(dc, {t.left + 2, t.top, t.right - 2, t.top + 1}, c.hi);
    draw::Fill(dc, {t.right - 2, t.top + 1, t.right - 1, t.bottom}, c.shadow);
    draw::Fill(dc, {t.right - 1, t.top + 2, t.right, t.bottom}, c.dark);
    PaintText(pm, dc, draw::Deflate(t, 2, 1), tabs[i], c.text, platform::TextAlign::kCenter);
  }
}

void Progress(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, int pos, int range, unsigned state) {
  const Colors c = Read(pm);
  draw::Fill(dc, rc, c.face);
  draw::Edge(dc, rc, c.shadow, c.hi);
  const DrawRect inner = draw::Deflate(rc, 2, 2);
  const DrawRect done = layout::ProgressDone(inner, pos, range);
  const uint32_t block = (state & kStateDisabled) ? c.shadow : c.highlight;
  const int step = pm.UiScale(10), gap = pm.UiScale(2);
  for (int x = done.left; x < done.right; x += step)
    draw::Fill(dc, {x, done.top, std::min(done.right, x + step - gap), done.bottom}, block);
}

void ScrollBar(CExtPaintManager& pm, DrawTarget& dc, PAINTSCROLLBARDATA& data) {
  const Colors c = Read(pm);
  layout::ScrollBar(pm, data);
  // The track is the half step from face to highlight, one of the shaded helper brushes.
  draw::Fill(dc, data.m_rcBar, pm.Brush(0).color);
  const unsigned off = data.m_bEnabled ? 0u : static_cast<unsigned>(kStateDisabled);
  ArrowButton(pm, dc, data.m_rcButtonUp, data.m_bHorzBar ? Arrow::kLeft : Arrow::kUp, data.m_nStateArrowUp | off, c);
  ArrowButton(pm, dc, data.m_rcButtonDown, data.m_bHorzBar ? Arrow::kRight : Arrow::kDown,
              data.m_nStateArrowDown | off, c);
  if (data.m_rcThumb.IsEmpty()) return;
  draw::Fill(dc, data.m_rcThumb, c.face);
  Raised(dc, data.m_rcThumb, c);
}

void MessageBox(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& body, const DrawRect& icon_area, int icon) {
  draw::Fill(dc, body, pm.GetColor(COLOR_BTNFACE));
  PaintMessageIcon(pm, dc, icon_area, icon);
}

}  // namespace qmk::toolkit::theme::classic
