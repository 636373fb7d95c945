// anchor_layer.cpp: one layout pass over the anchored controls.
#include "toolkit/dialogs/anchor_layer.h"

namespace qmk::toolkit {

namespace ui = platform::ui;

void ArrangeAnchors(ui::HWND parent, AnchorMap& map, int width, int height) {
  if (map.empty() || !ui::IsWindow(parent)) return;
  ui::HDWP group = ui::BeginDeferWindowPos(static_cast<int>(map.size()));
  std::vector<ui::HWND> gone;
  for (const auto& [hwnd, rdi] : map) {
    if (!ui::IsWindow(hwnd)) {
      gone.push_back(hwnd);
      continue;
    }
    const ui::Rect want = PlaceAnchor(rdi, width, height);
    ui::Rect now;
    ui::GetWindowRect(hwnd, &now);
    ui::MapWindowRect(nullptr, parent, &now);
    const bool same_pos = want.left == now.left && want.top == now.top;
    const bool same_size = want.Width() == now.Width() && want.Height() == now.Height();
    if (same_pos && same_size) continue;
    unsigned flags = ui::SWP_NOZORDER | ui::SWP_NOACTIVATE | ui::SWP_NOOWNERZORDER;
    if (same_pos) flags |= ui::SWP_NOMOVE;
    if (same_size) flags |= ui::SWP_NOSIZE;
    if (group)
      group = ui::DeferWindowPos(group, hwnd, nullptr, want.left, want.top, want.Width(),
                                 want.Height(), flags);
  }
  if (group) ui::EndDeferWindowPos(group);
  for (ui::HWND h : gone) map.erase(h);
}

}  // namespace qmk::toolkit
