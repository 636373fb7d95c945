// system_menu.cpp: the system menu popup: its window class, painting, keys and clicks.
#include "toolkit/dialogs/system_menu.h"

#include <algorithm>

#include "platform/draw/text.h"
#include "platform/ui/messages.h"
#include "platform/ui/paint.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/themed_paint.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
using ui::HWND;

constexpr int kMinWidth = 120, kTextPadding = 24;

// The theme's list rows, so that a click lands on the row the person sees.
int ItemHeight() { return theme::layout::ListItemHeight(*theme::g_PaintManager().GetPM()); }

// One popup at a time, as with the platform's menus.
struct OpenMenu {
  HWND popup = nullptr;
  HWND owner = nullptr;
  std::vector<SystemMenuItem> items;
  int selected = 0;
};

OpenMenu& Menu() {
  static OpenMenu menu;
  return menu;
}

std::vector<std::string> Texts() {
  std::vector<std::string> out;
  for (const SystemMenuItem& item : Menu().items) out.push_back(item.text);
  return out;
}

void Choose(int index) {
  OpenMenu& m = Menu();
  if (index < 0 || index >= static_cast<int>(m.items.size())) return CloseSystemMenu();
  const HWND owner = m.owner;
  const unsigned command = m.items[static_cast<size_t>(index)].command;
  CloseSystemMenu();
  if (ui::IsWindow(owner)) ui::PostMessage(owner, ui::WM_SYSCOMMAND, command, 0);
}

void Paint(HWND hwnd) {
  ui::PAINTSTRUCT ps;
  ui::Dc* dc = ui::BeginPaint(hwnd, &ps);
  ui::Rect client;
  ui::GetClientRect(hwnd, &client);
  const std::vector<std::string> texts = Texts();
  const int selected = Menu().selected;
  PaintThemed(dc, client, [&](platform::DrawTarget& t, const platform::DrawRect& r) {
    theme::g_PaintManager().GetPM()->PaintComboDropList(t, r, texts, selected);
  });
  ui::EndPaint(hwnd, &ps);
}

ui::LRESULT MenuProc(HWND hwnd, unsigned msg, ui::WPARAM wp, ui::LPARAM lp) {
  switch (msg) {
    case ui::WM_ERASEBKGND:
      return 1;
    case ui::WM_PAINT:
      Paint(hwnd);
      return 0;
    case ui::WM_LBUTTONUP: {
      // The popup holds the mouse: a click outside it closes it without choosing.
      const int x = static_cast<int16_t>(lp & 0xFFFF), y = static_cast<int16_t>((lp >> 16) & 0xFFFF);
      ui::Rect client;
      ui::GetClientRect(hwnd, &client);
      if (x < 0 || y < 0 || x >= client.right || y >= client.bottom) return CloseSystemMenu(), 0;
      Choose((y - 1) / ItemHeight());
      return 0;
    }
    case ui::WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lp) != hwnd && Menu().popup == hwnd) CloseSystemMenu();
      return 0;
    default:
      return ui::DefWindowProc(hwnd, msg, wp, lp);
  }
}

bool RegisterMenuClass() {
  ui::WNDCLASS wc;
  if (ui::GetClassInfo(kSystemMenuClassName, &wc)) return true;
  wc.lpszClassName = kSystemMenuClassName;
  wc.lpfnWndProc = &MenuProc;
  wc.background = ui::kNoBackground;
  return ui::RegisterClass(wc);
}

int MenuWidth(const std::vector<SystemMenuItem>& items) {
  int width = kMinWidth;
  const platform::FontSpec& font = theme::g_PaintManager().GetPM()->Font(0);
  for (const SystemMenuItem& item : items)
    width = std::max(width, platform::MeasureText(item.text, font, true).width + kTextPadding);
  return width;
}

}  // namespace

std::vector<SystemMenuItem> DialogSystemMenuItems(bool close_enabled) {
  std::vector<SystemMenuItem> items;
  if (close_enabled) items.push_back({ui::SC_CLOSE, "Close"});
  return items;
}

HWND OpenSystemMenu(HWND owner, ui::Point at, std::vector<SystemMenuItem> items,
                    bool right_to_left) {
  CloseSystemMenu();
  if (items.empty() || !ui::IsWindow(owner) || !RegisterMenuClass()) return nullptr;
  const int width = MenuWidth(items);
  const int height = ItemHeight() * static_cast<int>(items.size()) + 2;
  if (right_to_left) at.x -= width;
  const HWND popup = ui::CreateWindowEx(ui::WS_EX_TOOLWINDOW | ui::WS_EX_TOPMOST, kSystemMenuClassName,
                                        "", ui::WS_POPUP, at.x, at.y, width, height, owner, 0, nullptr);
  if (!popup) return nullptr;
  OpenMenu& m = Menu();
  m = OpenMenu{popup, owner, std::move(items), 0};
  ui::ShowWindow(popup, ui::SW_SHOWNOACTIVATE);
  ui::SetCapture(popup);
  return popup;
}

HWND SystemMenuOf(HWND owner) {
  const OpenMenu& m = Menu();
  return m.owner == owner && ui::IsWindow(m.popup) ? m.popup : nullptr;
}

void CloseSystemMenu() {
  OpenMenu& m = Menu();
  const HWND popup = m.popup;
  m = OpenMenu{};
  if (!ui::IsWindow(popup)) return;
  if (ui::GetCapture() == popup) ui::ReleaseCapture();
  ui::DestroyWindow(popup);
}

bool SystemMenuKey(unsigned vk) {
  OpenMenu& m = Menu();
  if (!ui::IsWindow(m.popup)) return false;
  const int n = static_cast<int>(m.items.size());
  switch (vk) {
    case ui::VK_UP:
    case ui::VK_DOWN:
      m.selected = (m.selected + (vk == ui::VK_UP ? n - 1 : 1)) % n;
      ui::InvalidateRect(m.popup, nullptr, false);
      return true;
    case ui::VK_RETURN:
      Choose(m.selected);
      return true;
    case ui::VK_ESCAPE:
    case ui::VK_MENU:
      CloseSystemMenu();
      return true;
    default:
      return true;  // the menu holds the keyboard while it is up
  }
}

}  // namespace qmk::toolkit
