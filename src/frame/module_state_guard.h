// module_state_guard.h: enters this library's module state for the life of an export call.
#pragma once

#include "platform/module_state.h"

namespace qmk::frame {

// The state of libQmkScan: the one its resource lookups need.
platform::ModuleState& ThisModule();

// Entered at the top of every export that may touch windows, resources or the transport; the
// destructor restores the caller's state on every way out.
class ModuleStateGuard {
 public:
  ModuleStateGuard();
  ~ModuleStateGuard();
  ModuleStateGuard(const ModuleStateGuard&) = delete;
  ModuleStateGuard& operator=(const ModuleStateGuard&) = delete;

 private:
  platform::ModuleState* previous_;
};

}  // namespace qmk::frame
