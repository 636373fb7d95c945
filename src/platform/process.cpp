// process.cpp: the program's name from the C library's record of argv[0].
#include "platform/process.h"

#include <errno.h>

namespace qmk::platform {

std::string ApplicationName() {
  const char* name = program_invocation_short_name;
  return name && *name ? name : "QmkScan";
}

}  // namespace qmk::platform
