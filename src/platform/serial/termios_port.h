// termios_port.h: a serial port on a POSIX terminal device, real or pseudo.
#pragma once

#include <memory>
#include <string>

#include "platform/serial/serial_port.h"

namespace qmk::platform::serial {

// Opens `path` for reading and writing, exclusively: an advisory lock that another holder makes
// fail with EBUSY, and TIOCEXCL against programs that don't lock. Null with an errno value in
// *error when the path can't be opened, isn't a terminal or is held.
std::unique_ptr<SerialPort> OpenTermiosPort(const std::string& path, int* error);

// The termios speed constant of a baud rate; 0 for a rate the interface has no constant for.
unsigned SpeedConstant(uint32_t baud);

}  // namespace qmk::platform::serial
