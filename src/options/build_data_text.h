// build_data_text.h: the text form of a build_data record, which the command-line host reads
// and writes: one named field a line, then the bytes that no field covers. Round trips exactly.
#pragma once

#include <string>

#include "qmk/QmkScan.h"

namespace qmk::options {

// The record as text. Every named field is written; bytes that the named fields don't rebuild
// (the host's untouched runs, bytes behind a text's end) follow as "bytes OFFSET HEX" lines.
std::string BuildDataToText(const build_data& record);

// Reads the text form into `record` (fields left out are zero). False with `error` ("line 3:
// unknown field \"foo\"") on the first bad line; `record` is then unspecified.
bool BuildDataFromText(const std::string& text, build_data& record, std::string& error);

}  // namespace qmk::options
