// selection.h: theme ids and their classes and display names, and the selection a host makes
// by id.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "toolkit/theme/runtime_class.h"

namespace qmk::toolkit::theme {

struct ThemeChoice {
  int id;
  const CRuntimeClass* cls;
  const char* display_name;
};

// The ids that select a class of their own (29750 to 29764), in id order.
std::span<const ThemeChoice> ThemeChoices();
// The class an id selects; every id without a row selects the base class.
const CRuntimeClass* PaintManagerClassForId(int id);
// The theme name held in the resources under the id (29750 to 29771), or empty.
std::string ThemeDisplayName(int id);

// Installs a fresh object of the id's class in the process holder, then hands the id, unchanged
// and whatever the install gave, to `tell_recognition`. Returns whether the install took.
bool SelectPaintManagerById(int id, const std::function<void(int)>& tell_recognition);

}  // namespace qmk::toolkit::theme
