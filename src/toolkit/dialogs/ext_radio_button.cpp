// ext_radio_button.cpp: the radio button's dialog code, tab stops across its group and arrow keys.
#include "toolkit/dialogs/ext_radio_button.h"

#include <algorithm>

#include "platform/ui/control_messages.h"
#include "platform/ui/window.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;

bool IsRadioWindow(ui::HWND h) {
  return (ui::SendMessage(h, ui::WM_GETDLGCODE, 0, 0) & ui::DLGC_RADIOBUTTON) != 0;
}

bool HasStyle(ui::HWND h, uint32_t bits) { return (ui::GetWindowLongPtr(h, ui::GWL_STYLE) & bits) != 0; }

void SetStyleBit(ui::HWND h, uint32_t bit, bool on) {
  const auto style = static_cast<uint32_t>(ui::GetWindowLongPtr(h, ui::GWL_STYLE));
  const uint32_t next = on ? (style | bit) : (style & ~bit);
  if (next != style) ui::SetWindowLongPtr(h, ui::GWL_STYLE, static_cast<intptr_t>(next));
}

}  // namespace

std::vector<ui::HWND> CExtRadioButton::GroupRadios() const {
  const std::vector<HWND> siblings = ui::GetChildren(ui::GetParent(m_hWnd));
  const auto at = std::find(siblings.begin(), siblings.end(), m_hWnd);
  if (at == siblings.end()) return {m_hWnd};
  auto first = at;
  while (first != siblings.begin() && !HasStyle(*first, ui::WS_GROUP)) --first;
  auto last = at + 1;
  while (last != siblings.end() && !HasStyle(*last, ui::WS_GROUP)) ++last;
  std::vector<HWND> radios;
  for (auto it = first; it != last; ++it)
    if (*it == m_hWnd || IsRadioWindow(*it)) radios.push_back(*it);
  return radios;
}

ThemedControl::LRESULT CExtRadioButton::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  switch (msg) {
    case ui::WM_GETDLGCODE:
      return ui::DLGC_RADIOBUTTON | ui::DLGC_BUTTON;
    case ui::BM_SETCHECK:
      SetCheck(wp);
      return 0;
    case ui::WM_KEYDOWN:
      if (wp == ui::VK_LEFT || wp == ui::VK_UP || wp == ui::VK_RIGHT || wp == ui::VK_DOWN) {
        MoveChoice(wp == ui::VK_RIGHT || wp == ui::VK_DOWN);
        return 0;
      }
      return CExtCheckBox::WindowProc(msg, wp, lp);
    default:
      return CExtCheckBox::WindowProc(msg, wp, lp);
  }
}

void CExtRadioButton::SetCheck(WPARAM check) {
  CExtCheckBox::WindowProc(ui::BM_SETCHECK, check, 0);
  if (!ui::IsWindowEnabled(m_hWnd) || !ui::IsWindowVisible(m_hWnd)) return;
  // The group is one tab stop: the unchecked buttons lose theirs, the checked one keeps it.
  for (HWND other : GroupRadios()) {
    if (other != m_hWnd && ui::SendMessage(other, ui::BM_GETCHECK, 0, 0) == ui::BST_UNCHECKED)
      SetStyleBit(other, ui::WS_TABSTOP, false);
  }
  SetStyleBit(m_hWnd, ui::WS_TABSTOP, check != ui::BST_UNCHECKED);
}

void CExtRadioButton::MoveChoice(bool forward) {
  const std::vector<HWND> radios = GroupRadios();
  const auto n = static_cast<int>(radios.size());
  const int at = static_cast<int>(std::find(radios.begin(), radios.end(), m_hWnd) - radios.begin());
  for (int step = 1; step < n; ++step) {
    const HWND next = radios[static_cast<size_t>(((at + (forward ? step : -step)) % n + n) % n)];
    if (!ui::IsWindowVisible(next) || !ui::IsWindowEnabled(next)) continue;
    if (ui::SendMessage(next, ui::BM_GETCHECK, 0, 0) != ui::BST_UNCHECKED) return;
    ui::SendMessage(m_hWnd, ui::BM_SETCHECK, ui::BST_UNCHECKED, 0);
    ui::SendMessage(next, ui::BM_SETCHECK, ui::BST_CHECKED, 0);
    ui::SetFocus(next);
    const HWND parent = ui::GetParent(next);
    const auto id = static_cast<unsigned>(ui::GetDlgCtrlID(next));
    ui::SendMessage(parent, ui::WM_COMMAND, ui::MAKEWPARAM(id, ui::BN_CLICKED), reinterpret_cast<LPARAM>(next));
    return;
  }
}

}  // namespace qmk::toolkit
