// cmd_simulate_serial.cpp: qmkscan simulate-serial: the simulated serial scanner, for trying
// qmkscan probe by hand.
#include <cstdio>

#include "commands.h"
#include "serial_scanner_sim.h"

namespace qmkscan {

int RunSimulateSerial(Args& args) {
  if (args.Flag("help")) {
    std::printf("usage: qmkscan simulate-serial %s\n", qmk::serialsim::kSimulatorUsage);
    return 0;
  }
  return qmk::serialsim::RunSimulatorCommand(args.rest(), stdout);
}

}  // namespace qmkscan
