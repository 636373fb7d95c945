// module_state_guard.cpp: this library's module state and its guard.
#include "frame/module_state_guard.h"

#include "frame/gen_message_sink.h"

namespace qmk::frame {

platform::ModuleState& ThisModule() {
  static platform::ModuleState state{"QmkScan"};
  static const bool connected = (ConnectGenMessageSink(), true);
  (void)connected;
  return state;
}

ModuleStateGuard::ModuleStateGuard() : previous_(platform::CurrentModule()) {
  platform::SetCurrentModule(&ThisModule());
  ++ThisModule().entries;
}

ModuleStateGuard::~ModuleStateGuard() { platform::SetCurrentModule(previous_); }

}  // namespace qmk::frame
