// sim_session.h: host records for a model of the table, and the simulator's journal as text.
#pragma once

#include <string>
#include <vector>

#include "qmk/QmkScan.h"
#include "scanner/model_table.h"

namespace qmkscan {

struct HostConfig {
  sct_config cfg{};
  sct_config_ex comm{};
};

// The records a host's configuration would hold for `model`: the model's feature word (a stacker
// checkbox ticked), the documented tune defaults, and 9600 baud, 7E1 on COM1 unless the model
// forces its port.
HostConfig ConfigForModel(const qmk::scanner::ModelRow& model, int bar_code_port);

// The journal entries from `first` on, each followed by what the call means.
std::vector<std::string> JournalLines(int first);

// Prints the journal from `first` on, indented; returns the journal's size.
int PrintJournal(int first);

}  // namespace qmkscan
