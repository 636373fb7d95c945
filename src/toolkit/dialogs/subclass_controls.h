// subclass_controls.h: SubclassChildControls, which gives every plain control of a window that
// has no toolkit object yet the matching themed toolkit control.
#pragma once

#include <string>

#include "platform/ui/types.h"

namespace qmk::toolkit {

class ThemedControl;

// The toolkit control a plain control of `class_name` and `style` becomes, new (owned by the
// caller), or null when it stays plain.
ThemedControl* MakeThemedControlFor(const std::string& class_name, uint32_t style);

// Themes all direct children of `parent`, walking them in z-order: each child without a toolkit
// object gets a new one, owned by its window. Group boxes then go below the other controls.
// Returns how many controls were themed.
int SubclassChildControls(platform::ui::HWND parent);

}  // namespace qmk::toolkit
