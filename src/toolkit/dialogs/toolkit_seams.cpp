// toolkit_seams.cpp: joins the theme holder and the resource manager to the window system.
#include "toolkit/dialogs/toolkit_seams.h"

#include <algorithm>
#include <cstring>

#include "platform/ui/dialog_template.h"
#include "platform/ui/screen.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/builtin_resources.h"
#include "toolkit/dialogs/language_font.h"
#include "toolkit/dialogs/resource_manager.h"
#include "toolkit/dialogs/resource_manager_holder.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/pm_bridge.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
using ui::HWND;

bool g_installed = false;

HWND ToHwnd(uintptr_t handle) { return reinterpret_cast<HWND>(handle); }

// Sends the message to the window and everything below it, parents first.
void SendToTree(HWND window, unsigned message) {
  ui::SendMessage(window, message, 0, 0);
  for (HWND child : ui::GetChildren(window)) SendToTree(child, message);
}

void InvalidateTree(HWND window) {
  ui::InvalidateRect(window, nullptr, true);
  for (HWND child : ui::GetChildren(window)) InvalidateTree(child);
}

// The built-in templates of one language, US English when it has none.
std::optional<std::string> BuiltinTemplateText(int id, uint16_t language) {
  for (uint16_t lang : {language, ui::kLangEnglishUS})
    for (const auto& row : ui::BuiltinTemplates())
      if (row.id == id && row.language == lang && row.text) return std::string(row.text);
  return std::nullopt;
}

void InstallThemeSeams() {
  auto& holder = theme::g_PaintManager();
  const int dpi = ui::PrimaryMonitor().dpi;
  for (int axis = 0; axis < 3; ++axis) holder.SetDpi(axis, dpi);
  // The screen model knows no colour depth: every back end draws on 32-bit surfaces.
  holder.m_nDesktopColorDepth = 32;
  holder.SetBroadcast([](const char*) {
    for (HWND top : ui::GetChildren(nullptr)) SendToTree(top, kMsgPaintManagerChanged);
  });
  theme::BridgeWindowCalls calls;
  calls.set_window_pos = [](theme::WindowHandle h, unsigned flags) {
    return ui::SetWindowPos(ToHwnd(h), nullptr, 0, 0, 0, 0, flags);
  };
  calls.redraw_window = [](theme::WindowHandle h, unsigned) {
    if (!ui::IsWindow(ToHwnd(h))) return false;
    InvalidateTree(ToHwnd(h));
    return true;
  };
  theme::SetBridgeWindowCalls(std::move(calls));
}

void InstallResourceSeams() {
  AddDialogTemplates(BuiltinResources(), ui::BuiltinTemplates());
  FontWindowAccess access;
  access.send = [](WindowRef w, unsigned msg, uintptr_t wp, intptr_t lp) {
    ui::SendMessage(static_cast<HWND>(w), msg, wp, lp);
  };
  access.children = [](WindowRef w) {
    std::vector<WindowRef> out;
    for (HWND c : ui::GetChildren(static_cast<HWND>(w))) out.push_back(c);
    // GetChildren lists topmost first; the language font walks first to last.
    std::reverse(out.begin(), out.end());
    return out;
  };
  SetFontWindowAccess(std::move(access));
  // Dialogs made by id ask the resource manager, which knows the host's modules and language.
  ui::SetTemplateSource([](int id, uint16_t language) -> std::optional<std::string> {
    std::string text;
    if (ResourceManager()->LoadDialogTemplate(id, text)) return text;
    return BuiltinTemplateText(id, language);
  });
}

}  // namespace

void InstallToolkitSeams() {
  if (g_installed) return;
  g_installed = true;
  InstallThemeSeams();
  InstallResourceSeams();
}

bool ToolkitSeamsInstalled() { return g_installed; }

}  // namespace qmk::toolkit
