// ext_label.cpp: the label's notify style, its wrapped and aligned text over the parent's themed
// background, and its colour slots.
#include "toolkit/dialogs/ext_label.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/window.h"
#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/painters.h"
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

std::string EscapeMnemonics(const std::string& text) {
  std::string out;
  for (char c : text) {
    out += c;
    if (c == '&') out += '&';
  }
  return out;
}

}  // namespace

std::vector<std::string> WrapLabelText(const std::string& text, const platform::FontSpec& font, int width,
                                       bool wrap) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start <= text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string para = text.substr(start, end - start);
    if (!para.empty() && para.back() == '\r') para.pop_back();
    while (wrap && platform::MeasureText(para, font, true).width > width) {
      // The longest head that fits and ends before a space.
      size_t cut = std::string::npos;
      for (size_t sp = para.find(' '); sp != std::string::npos; sp = para.find(' ', sp + 1)) {
        if (platform::MeasureText(para.substr(0, sp), font, true).width > width) break;
        cut = sp;
      }
      if (cut == std::string::npos) cut = para.find(' ');
      if (cut == std::string::npos) break;
      lines.push_back(para.substr(0, cut));
      para = para.substr(cut + 1);
    }
    lines.push_back(para);
    start = end + 1;
  }
  return lines;
}

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

bool CExtLabel::PaintsClient() const { return IsTextKind(Style()); }

void CExtLabel::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  auto& pm = *theme::g_PaintManager().GetPM();
  if (m_clrBackground != kThemeColor) theme::draw::Fill(target, rc, m_clrBackground);
  else PaintParentBackground(target, rc);
  const uint32_t style = Style();
  const bool enabled = ui::IsWindowEnabled(m_hWnd);
  const platform::DrawRect box{rc.left + m_nMarginLeft, rc.top + m_nMarginTop, rc.right - m_nMarginRight,
                               rc.bottom - m_nMarginBottom};
  std::string text = Text();
  if (style & ui::SS_NOPREFIX) text = EscapeMnemonics(text);
  const uint32_t kind = style & ui::SS_TYPEMASK;
  const bool wrap = kind == ui::SS_LEFT || kind == ui::SS_CENTER || kind == ui::SS_RIGHT;
  const int line_height = platform::MeasureText("Ag", pm.Font()).height;
  const uint32_t custom = enabled ? m_clrTextNormal : m_clrTextDisabled;
  int y = box.top;
  for (const std::string& line : WrapLabelText(text, pm.Font(), box.Width(), wrap)) {
    if (y >= box.bottom) break;
    const int width = platform::MeasureText(line, pm.Font(), true).width + 1;
    int left = box.left;
    if (kind == ui::SS_CENTER) left = box.left + (box.Width() - width) / 2;
    if (kind == ui::SS_RIGHT) left = box.right - width;
    const platform::DrawRect row{left, y, left + width, y + line_height};
    if (custom != kThemeColor) theme::PaintText(pm, target, row, line, custom);
    else pm.PaintLabel(target, row, line, enabled ? theme::kStateNormal : theme::kStateDisabled);
    y += line_height;
  }
}

}  // namespace qmk::toolkit
