// ext_button.cpp: the state a button is drawn in, and its themed face.
#include "toolkit/dialogs/ext_button.h"

#include <cctype>

#include "platform/ui/control_messages.h"
#include "platform/draw/text.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/dialog_keyboard.h"
#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/painters.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/system_colors.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
constexpr uint32_t kPushLike = 0x1000;

unsigned ButtonStateOf(unsigned base, uint32_t style, uintptr_t button_state) {
  unsigned state = base;
  if (button_state & ui::BST_PUSHED) state |= theme::kStatePressed;
  if ((button_state & 3) == ui::BST_CHECKED) state |= theme::kStateChecked;
  if ((button_state & 3) == ui::BST_INDETERMINATE) state |= theme::kStateIndeterminate;
  if ((style & 0xF) == ui::BS_DEFPUSHBUTTON) state |= theme::kStateDefault;
  return state;
}

}  // namespace

unsigned CExtButton::PaintState() const {
  const auto button_state = static_cast<uintptr_t>(ui::SendMessage(m_hWnd, ui::BM_GETSTATE, 0, 0));
  unsigned state = ButtonStateOf(BaseState(), Style(), button_state);
  // A pushed-in look for checked push-like check boxes.
  if ((Style() & kPushLike) && (state & theme::kStateChecked)) state |= theme::kStatePressed;
  return state;
}

static bool AnswersMnemonic(ui::HWND hwnd, const std::string& text, ui::WPARAM upper) {
  if (!ui::IsWindowEnabled(hwnd) || !ui::IsWindowVisible(hwnd)) return false;
  const platform::MnemonicText m = platform::StripMnemonics(text);
  if (m.underline_start < 0 || m.underline_start >= static_cast<int>(m.text.size())) return false;
  const auto ch = static_cast<unsigned char>(m.text[static_cast<size_t>(m.underline_start)]);
  return static_cast<ui::WPARAM>(std::toupper(ch)) == upper;
}

ThemedControl::LRESULT CExtButton::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  switch (msg) {
    case kMsgOfferMnemonic:
      return m_bMnemonics && AnswersMnemonic(m_hWnd, Text(), wp) ? 1 : 0;
    case ui::BM_SETSTATE:
    case ui::BM_SETCHECK:
    case ui::BM_SETSTYLE:
    case ui::WM_SETTEXT:
    case ui::WM_ENABLE:
    case ui::WM_SETFOCUS:
    case ui::WM_KILLFOCUS: {
      // The plain button repaints on these too; the themed face changes with each of them.
      const LRESULT r = ThemedControl::WindowProc(msg, wp, lp);
      Invalidate();
      return r;
    }
    default:
      return ThemedControl::WindowProc(msg, wp, lp);
  }
}

uint32_t CExtButton::CustomTextColor(unsigned state) const {
  if (state & theme::kStateDisabled) return m_clrTextDisabled;
  if ((state & theme::kStatePressed) && m_clrTextPressed != kThemeColor) return m_clrTextPressed;
  if ((state & theme::kStateHot) && m_clrTextHover != kThemeColor) return m_clrTextHover;
  return m_clrTextNormal;
}

void CExtButton::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  PaintParentBackground(target, rc);
  PaintFace(target, rc, Text(), PaintState());
}

void CExtButton::PaintFace(platform::DrawTarget& target, const platform::DrawRect& rc, const std::string& text,
                           unsigned state) {
  auto& pm = *theme::g_PaintManager().GetPM();
  const uint32_t custom = CustomTextColor(state);
  if (custom == kThemeColor && m_clrBackground == kThemeColor) {
    pm.PaintPushButton(target, rc, text, state);
    return;
  }
  pm.PaintPushButton(target, rc, "", state);
  if (m_clrBackground != kThemeColor) theme::draw::Fill(target, theme::draw::Deflate(rc, 3, 3), m_clrBackground);
  platform::DrawRect text_rc = theme::draw::Deflate(rc, 4, 3);
  if (state & theme::kStatePressed) text_rc = {text_rc.left + 1, text_rc.top + 1, text_rc.right + 1, text_rc.bottom + 1};
  const uint32_t colour = custom != kThemeColor ? custom : pm.GetColor(theme::COLOR_BTNTEXT);
  theme::PaintText(pm, target, text_rc, text, colour, platform::TextAlign::kCenter);
}

}  // namespace qmk::toolkit
