// process.h: facts about the running program.
#pragma once

#include <string>

namespace qmk::platform {

// The program's short name, as a window title would show it ("qmkscan").
std::string ApplicationName();

}  // namespace qmk::platform
