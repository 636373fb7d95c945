// dialog_keyboard.cpp: Tab traversal over nested dialogs and the mnemonic offer.
#include "toolkit/dialogs/dialog_keyboard.h"

#include <algorithm>

#include "platform/ui/control_messages.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/res_dlg.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
using ui::HWND;

bool Usable(HWND h) { return ui::IsWindowVisible(h) && ui::IsWindowEnabled(h); }

bool IsDialog(HWND h) {
  return CExtResDlg::FromHandle(h) != nullptr || ui::GetClassName(h) == ui::kDialogClass;
}

// A window whose children take part in its parent's Tab order: a nested dialog (a page), a
// window that says so with the control-parent style, or a window that is no tab stop itself and
// holds pages (a tab-page container), which the window system's dialog manager doesn't enter.
bool IsTabContainer(HWND h) {
  const auto ex = static_cast<uint32_t>(ui::GetWindowLongPtr(h, ui::GWL_EXSTYLE));
  if ((ex & ui::WS_EX_CONTROLPARENT) || IsDialog(h)) return true;
  if (ui::GetWindowLongPtr(h, ui::GWL_STYLE) & ui::WS_TABSTOP) return false;
  const std::vector<HWND> children = ui::GetChildren(h);
  return std::any_of(children.begin(), children.end(), IsDialog);
}

void Collect(HWND parent, std::vector<HWND>* out) {
  for (HWND c : ui::GetChildren(parent)) {
    if (!Usable(c)) continue;
    if (IsTabContainer(c))
      Collect(c, out);
    else if (ui::GetWindowLongPtr(c, ui::GWL_STYLE) & ui::WS_TABSTOP)
      out->push_back(c);
  }
}

}  // namespace

std::vector<HWND> NestedTabStops(HWND dialog) {
  std::vector<HWND> out;
  if (ui::IsWindow(dialog)) Collect(dialog, &out);
  return out;
}

HWND NextNestedTabStop(HWND dialog, HWND from, bool previous) {
  const std::vector<HWND> stops = NestedTabStops(dialog);
  if (stops.empty()) return nullptr;
  // A focus inside a stop (a combo box's edit) counts as the stop.
  auto at = std::find_if(stops.begin(), stops.end(),
                         [from](HWND s) { return s == from || ui::IsChild(s, from); });
  const int n = static_cast<int>(stops.size());
  if (at == stops.end()) return previous ? stops.back() : stops.front();
  const int i = static_cast<int>(at - stops.begin());
  return stops[static_cast<size_t>(((i + (previous ? -1 : 1)) % n + n) % n)];
}

void FocusAndSelect(HWND control) {
  const auto code = static_cast<unsigned>(ui::SendMessage(control, ui::WM_GETDLGCODE, 0, 0));
  if (code & ui::DLGC_HASSETSEL) ui::SendMessage(control, ui::EM_SETSEL, 0, -1);
  ui::SetFocus(control);
}

HWND ClaimMnemonic(HWND dialog, char upper) {
  for (HWND c : ui::GetChildren(dialog)) {
    if (!Usable(c)) continue;
    if (ui::SendMessage(c, kMsgOfferMnemonic, static_cast<ui::WPARAM>(static_cast<unsigned char>(upper)), 0))
      return c;
  }
  return nullptr;
}

}  // namespace qmk::toolkit
