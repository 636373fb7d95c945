// module_state.cpp: the per-thread current module.
#include "platform/module_state.h"

namespace qmk::platform {
namespace {
thread_local ModuleState* t_current = nullptr;
}

ModuleState* CurrentModule() { return t_current; }
void SetCurrentModule(ModuleState* state) { t_current = state; }

}  // namespace qmk::platform
