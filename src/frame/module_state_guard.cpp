// module_state_guard.cpp: this library's module state and its guard.
#include "frame/module_state_guard.h"

namespace qmk::frame {

platform::ModuleState& ThisModule() {
  static platform::ModuleState state{"QmkScan"};
  return state;
}

ModuleStateGuard::ModuleStateGuard() : previous_(platform::CurrentModule()) {
  platform::SetCurrentModule(&ThisModule());
  ++ThisModule().entries;
}

ModuleStateGuard::~ModuleStateGuard() { platform::SetCurrentModule(previous_); }

}  // namespace qmk::frame
