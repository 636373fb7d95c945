// main.cpp: qmk-serial-sim, the simulated serial scanner as a program of its own.
#include <cstdio>
#include <cstring>

#include "serial_scanner_sim.h"

int main(int argc, char** argv) {
  if (argc > 1 && (!std::strcmp(argv[1], "--help") || !std::strcmp(argv[1], "-h"))) {
    std::printf("usage: qmk-serial-sim %s\n", qmk::serialsim::kSimulatorUsage);
    return 0;
  }
  return qmk::serialsim::RunSimulatorCommand(std::vector<std::string>(argv + 1, argv + argc), stdout);
}
