// module_state.h: the current module of the calling thread, which resource lookups consult.
#pragma once

namespace qmk::platform {

// One loaded module's state: what a resource lookup needs to find that module's own texts.
struct ModuleState {
  const char* name;
  long entries = 0;  // how often a guard entered this state: lets tests see every export enter
};

// The module whose resources the calling thread uses now; null until something enters one.
ModuleState* CurrentModule();
void SetCurrentModule(ModuleState* state);

}  // namespace qmk::platform
