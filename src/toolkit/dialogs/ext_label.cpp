// ext_label.cpp: the label's notify style, its wrapped and aligned text over the parent's themed
// background, and its colour slots.
#include "toolkit/dialogs/ext_label.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/paint.h"
#include "platform/ui/window.h"
#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/system_colors.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
constexpr uint32_t kLeftNoWordWrap = 0xC, kSimple = 0xB;

// Kinds of static that show text; icons, frames, rectangles and pictures keep the plain look.
bool IsTextKind(uint32_t style) {
  const uint32_t kind = style & ui::SS_TYPEMASK;
  return kind == ui::SS_LEFT || kind == ui::SS_CENTER || kind == ui::SS_RIGHT || kind == kSimple ||
         kind == kLeftNoWordWrap;
}

// Frames and etched lines: drawn over the parent's background in the theme's colours, so that a
// frame around a label shows the dialog's own shading inside, not the window system's face.
bool IsFrameKind(uint32_t style) {
  const uint32_t kind = style & ui::SS_TYPEMASK;
  return kind == ui::SS_BLACKFRAME || kind == ui::SS_GRAYFRAME || kind == ui::SS_WHITEFRAME ||
         kind == ui::SS_ETCHEDFRAME || kind == ui::controls::SS_ETCHEDHORZ || kind == ui::controls::SS_ETCHEDVERT;
}

// One line in the theme's label colours; disabled text is embossed in the classic look.
void DrawLine(theme::CExtPaintManager& pm, platform::DrawTarget& target, const platform::DrawRect& row,
              const std::string& line, const platform::FontSpec& font, bool enabled, uint32_t custom) {
  platform::TextOptions options;
  options.mnemonics = true;
  options.center_vertically = false;
  const theme::WidgetLook* look = pm.GetWidgetLook();
  uint32_t colour = custom;
  if (colour == kThemeColor && look) colour = pm.GetColor(enabled ? look->label_text : look->disabled_label);
  if (colour == kThemeColor && enabled) colour = pm.GetColor(theme::COLOR_WINDOWTEXT);
  if (colour == kThemeColor) {
    platform::DrawText(target, {row.left + 1, row.top + 1, row.right + 1, row.bottom + 1}, line, font,
                       pm.GetColor(theme::COLOR_BTNHIGHLIGHT), options);
    colour = pm.GetColor(theme::COLOR_BTNSHADOW);
  }
  platform::DrawText(target, row, line, font, colour, options);
}

}  // namespace

void CExtLabel::OnSubclassed() { SyncNotifyStyle(); }

void CExtLabel::SyncNotifyStyle() {
  if (!m_hWnd || !m_bToolTipActive) return;
  const uint32_t style = Style();
  const uint32_t next = m_strToolTipText.empty() ? (style & ~ui::SS_NOTIFY) : (style | ui::SS_NOTIFY);
  if (next != style) ui::SetWindowLongPtr(m_hWnd, ui::GWL_STYLE, static_cast<intptr_t>(next));
}

void CExtLabel::SetTooltipText(const std::string& text) {
  m_strToolTipText = text;
  SyncNotifyStyle();
}

void CExtLabel::ActivateTooltip(bool on) {
  m_bToolTipActive = on;
  SyncNotifyStyle();
}

void CExtLabel::SetMargins(int left, int top, int right, int bottom) {
  m_nMarginLeft = left;
  m_nMarginTop = top;
  m_nMarginRight = right;
  m_nMarginBottom = bottom;
  Invalidate();
}

void CExtLabel::SetTextColor(bool enabled, uint32_t rgb) {
  (enabled ? m_clrTextNormal : m_clrTextDisabled) = rgb;
  Invalidate();
}

void CExtLabel::SetBkColor(uint32_t rgb) {
  m_clrBackground = rgb;
  Invalidate();
}

void CExtLabel::SetBitmap(const bitmap::CExtBitmap& picture) {
  m_bitmap = picture;
  Invalidate();
}

bool CExtLabel::PaintsClient() const {
  return IsTextKind(Style()) || IsFrameKind(Style()) || !m_bitmap.IsEmpty();
}

void CExtLabel::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  if (m_clrBackground != kThemeColor) theme::draw::Fill(target, rc, m_clrBackground);
  else PaintParentBackground(target, rc);
  if (IsFrameKind(Style())) return PaintFrame(target, rc);
  const platform::DrawRect box{rc.left + m_nMarginLeft, rc.top + m_nMarginTop, rc.right - m_nMarginRight,
                               rc.bottom - m_nMarginBottom};
  if (m_bitmap.IsEmpty()) PaintText(target, box);
  else PaintBitmap(target, box);
}

void CExtLabel::PaintFrame(platform::DrawTarget& target, const platform::DrawRect& rc) {
  auto& pm = *theme::g_PaintManager().GetPM();
  const uint32_t shadow = pm.GetColor(theme::COLOR_BTNSHADOW), light = pm.GetColor(theme::COLOR_BTNHIGHLIGHT);
  switch (Style() & ui::SS_TYPEMASK) {
    case ui::SS_BLACKFRAME: return theme::draw::Frame(target, rc, pm.GetColor(theme::COLOR_WINDOWTEXT));
    case ui::SS_GRAYFRAME: return theme::draw::Frame(target, rc, shadow);
    case ui::SS_WHITEFRAME: return theme::draw::Frame(target, rc, light);
    case ui::controls::SS_ETCHEDHORZ:
      theme::draw::Fill(target, {rc.left, rc.top, rc.right, rc.top + 1}, shadow);
      return theme::draw::Fill(target, {rc.left, rc.top + 1, rc.right, rc.top + 2}, light);
    case ui::controls::SS_ETCHEDVERT:
      theme::draw::Fill(target, {rc.left, rc.top, rc.left + 1, rc.bottom}, shadow);
      return theme::draw::Fill(target, {rc.left + 1, rc.top, rc.left + 2, rc.bottom}, light);
    default:  // etched: shadow, with highlight one pixel inside
      theme::draw::Frame(target, {rc.left + 1, rc.top + 1, rc.right, rc.bottom}, light);
      return theme::draw::Frame(target, {rc.left, rc.top, rc.right - 1, rc.bottom - 1}, shadow);
  }
}

void CExtLabel::PaintBitmap(platform::DrawTarget& target, const platform::DrawRect& box) {
  int x = box.left, y = box.top;
  if (Style() & ui::controls::SS_CENTERIMAGE) {
    x = box.left + (box.Width() - m_bitmap.Width()) / 2;
    y = box.top + (box.Height() - m_bitmap.Height()) / 2;
  }
  // Pictures with an alpha channel blend over the background.
  m_bitmap.AlphaBlend(target, {x, y, x + m_bitmap.Width(), y + m_bitmap.Height()});
}

void CExtLabel::PaintText(platform::DrawTarget& target, const platform::DrawRect& box) {
  auto& pm = *theme::g_PaintManager().GetPM();
  const uint32_t kind = Style() & ui::SS_TYPEMASK;
  const bool enabled = ui::IsWindowEnabled(m_hWnd);
  const LabelTextLayout text = LayOutLabelText(m_hWnd, box.Width());
  const uint32_t custom = enabled ? m_clrTextNormal : m_clrTextDisabled;
  int y = box.top;
  for (size_t i = 0; i < text.lines.size(); ++i) {
    if (y >= box.bottom) break;
    const int width = text.widths[i] + 1;
    int left = box.left;
    if (kind == ui::SS_CENTER) left = box.left + (box.Width() - width) / 2;
    if (kind == ui::SS_RIGHT) left = box.right - width;
    DrawLine(pm, target, {left, y, left + width, y + text.line_height}, text.lines[i], text.font, enabled, custom);
    y += text.line_height;
  }
}

}  // namespace qmk::toolkit
