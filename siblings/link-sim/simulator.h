// simulator.h: the one simulated scanner of the process, with its journal and forced results.
#pragma once

#include <initializer_list>

#include "forced_results.h"
#include "journal.h"
#include "scanner.h"

namespace qmk::sim {

struct Simulator {
  Scanner scanner;
  Journal journal;
  ForcedResults forced;
  bool journal_on = true;
  qlk_sim_hook enter = nullptr, leave = nullptr;
};

Simulator& TheSimulator();
void ResetSimulator();

// Journals the call, then answers it: a forced result replaces the operation's own result, and
// the operation itself runs only when the forced result is 0 (success), so that a forced
// failure changes no state.
template <class Operation>
int Call(const char* name, std::initializer_list<Arg> args, Operation operation) {
  Simulator& sim = TheSimulator();
  if (sim.enter) sim.enter();
  if (sim.journal_on) sim.journal.Add(name, args);
  int result;
  if (auto forced = sim.forced.Take(name)) {
    if (*forced == 0) operation();
    result = *forced;
  } else {
    result = operation();
  }
  if (sim.leave) sim.leave();
  return result;
}

}  // namespace qmk::sim
