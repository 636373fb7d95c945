// subclass_controls.cpp: the table of plain classes and button kinds and the toolkit control
// each becomes, and the walk over a window's children.
#include "toolkit/dialogs/subclass_controls.h"

#include <strings.h>

#include <memory>
#include <vector>

#include "platform/ui/window.h"
#include "toolkit/dialogs/ext_button.h"
#include "toolkit/dialogs/ext_check_box.h"
#include "toolkit/dialogs/ext_combo_box.h"
#include "toolkit/dialogs/ext_edit.h"
#include "toolkit/dialogs/ext_group_box.h"
#include "toolkit/dialogs/ext_label.h"
#include "toolkit/dialogs/ext_radio_button.h"
#include "toolkit/dialogs/ext_spin_wnd.h"
#include "toolkit/dialogs/themed_progress.h"
#include "toolkit/dialogs/themed_scroll_bar.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;

template <class T>
ThemedControl* Make() {
  return new T;
}

// A button row applies to the kinds (the style's low four bits) whose bit is set in `kinds`.
constexpr unsigned Kinds(std::initializer_list<unsigned> list) {
  unsigned bits = 0;
  for (unsigned k : list) bits |= 1u << k;
  return bits;
}
constexpr unsigned kAnyKind = ~0u;

struct SubclassRule {
  const char* class_name;  // compared without regard to case
  unsigned kinds;
  ThemedControl* (*make)();
};

constexpr SubclassRule kRules[] = {
    {"Static", kAnyKind, &Make<CExtLabel>},
    {"Edit", kAnyKind, &Make<CExtEdit>},
    {"ComboBox", kAnyKind, &Make<CExtComboBox>},
    {"Button", Kinds({0, 1}), &Make<CExtButton>},
    {"Button", Kinds({2, 3, 5, 6}), &Make<CExtCheckBox>},
    {"Button", Kinds({4, 9}), &Make<CExtRadioButton>},
    {"Button", Kinds({7}), &Make<CExtGroupBox>},
    {"msctls_progress32", kAnyKind, &Make<ThemedProgress>},
    {"Progress", kAnyKind, &Make<ThemedProgress>},
    {"ScrollBar", kAnyKind, &Make<ThemedScrollBar>},
    {"msctls_updown32", kAnyKind, &Make<CExtSpinWnd>},
};

}  // namespace

ThemedControl* MakeThemedControlFor(const std::string& class_name, uint32_t style) {
  const unsigned kind_bit = 1u << (style & 0xF);
  for (const SubclassRule& rule : kRules)
    if (strcasecmp(rule.class_name, class_name.c_str()) == 0 && (rule.kinds & kind_bit)) return rule.make();
  return nullptr;
}

int SubclassChildControls(ui::HWND parent) {
  if (!ui::IsWindow(parent)) return 0;
  int themed = 0;
  std::vector<ui::HWND> group_boxes;
  // GetChildren lists the children topmost first, the order of the z-order walk.
  for (ui::HWND child : ui::GetChildren(parent)) {
    if (ThemedControl::FromHandle(child)) continue;
    const auto style = static_cast<uint32_t>(ui::GetWindowLongPtr(child, ui::GWL_STYLE));
    std::unique_ptr<ThemedControl> control(MakeThemedControlFor(ui::GetClassName(child), style));
    // A control that can't be bound keeps its plain self.
    if (!control || !control->SubclassWindow(child)) continue;
    control.release()->SetAutoDelete(true);
    ++themed;
    if (dynamic_cast<CExtGroupBox*>(ThemedControl::FromHandle(child))) group_boxes.push_back(child);
    if (ui::IsWindowVisible(child)) {
      ui::InvalidateRect(child, nullptr, true);
      ui::UpdateWindow(child);
    }
  }
  // Frames go below the controls they hold, each behind the one before.
  for (ui::HWND box : group_boxes)
    ui::SetWindowPos(box, ui::HWND_BOTTOM(), 0, 0, 0, 0,
                     ui::SWP_NOMOVE | ui::SWP_NOSIZE | ui::SWP_NOACTIVATE | ui::SWP_NOREDRAW);
  return themed;
}

}  // namespace qmk::toolkit
