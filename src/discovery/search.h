// search.h: the configuration dialog's search of a serial port: which settings it tries, and
// what it makes of the reply: the model, the baud list, the option states.
#pragma once

#include <string>
#include <vector>

#include "discovery/status_query.h"

namespace qmk::discovery {

// The result codes of the dialog's Auto Configure that the search gives.
constexpr int kConfigured = 0;
constexpr int kNotConfigured = 98;

// The baud rates of the dialog's baud list, in row order; 115200 ends it when `fast`.
std::vector<uint32_t> BaudList(bool fast);

struct ModelDecision {
  int model;  // text id of the model list
  bool fast;  // the model runs at 115200 baud too
};

// The model that a status reply names. `selected_model` decides between 518 and 511.
ModelDecision DecideModel(const uint8_t* reply, int selected_model);

// The bar-code and printer states that byte 49 of a reply gives: 1 (fitted) or 2.
struct OptionStates {
  int bar_code;
  int printer;
};
OptionStates OptionStatesFromReply(const uint8_t* reply);

struct SearchOutcome {
  int code = kNotConfigured;
  std::string open_error;      // "Error opening <path>. <reason>" when the port didn't open
  LineSettings setting;        // the setting answered
  StatusReply reply;
  ModelDecision model{0, false};
  OptionStates options{2, 2};
};

// Opens "\\.\<port_name>" and runs the status query at each setting of SearchOrder(baud_list)
// until one is answered; then decides the model and the option states.
SearchOutcome SearchPort(const std::string& port_name, const std::vector<uint32_t>& baud_list,
                         int selected_model);

}  // namespace qmk::discovery
