// auto_name.h: data file names from a template, today's date and a per-context sequence number.
#pragma once

#include <cstdint>
#include <string>

#include "qmk/QmkScan.h"

namespace qmk::options {

// What one naming call did, for hosts that report more than the name.
struct AutoNameOutcome {
  int result = 0;               // 1: a commit wrapped the sequence and said so
  bool reset = false;           // the reset rule fired while loading the context
  bool wrapped = false;         // the next number would have been 999 and became 1
  bool used_sequence = false;   // the template produced a sequence field
  int16_t sequence_before = 0;  // the record's number after loading, before this name
  int16_t sequence_next = 0;    // the number this name carries
};

// The naming context's name for a form: text 216 of the common services formatted with it.
std::string ContextName(int16_t formNumber);

// Loads the context's sequence and reset date into the record when it keeps them in the settings
// store, then applies the reset rule. True when the rule fired (the record then starts over
// today; nothing is written to the store).
bool LoadAutoNameContext(build_data* record);

// Expands `name_template` (at most QMK_NAME_BYTES - 1 characters are read) into `out`, which
// receives at most QMK_NAME_BYTES bytes, zero byte included. Returns whether a sequence field
// was written.
bool ExpandAutoNameTemplate(const char* name_template, int16_t sequence, char* out);

// The whole naming call: load, expand, and with `commit` take the number.
AutoNameOutcome MakeAutoName(QMK_HWND owner, const char* dataPath, char* outName,
                             build_data* record, int commit);

}  // namespace qmk::options
