// data_file_metrics.h: what a look through a scan's data file tells: its whole sheet records and
// the serial number of the last one, which "Replace At S/N" continues from.
//
// The data file is text, one record per sheet, each line ended by a newline:
//
//   # qmkscan data file: one record per sheet; cells in hex, one byte per cell as sent
//   sheet 17 front 12 64 back 0 64 barcode ABC123    serial, lines and line length per side
//   F f808f808...                                     one line per front timing line
//   B ...                                             one line per back timing line
#pragma once

#include <cstdio>
#include <string>

namespace qmk::options {

// The first line of every data file.
inline constexpr char kDataFileHeader[] = "# qmkscan data file";

struct DataFileMetrics {
  unsigned records = 0;      // whole sheet records
  unsigned first_serial = 0; // serial of the first whole record; 0 when there is none
  unsigned damaged = 0;      // records cut short or garbled, and stray lines, all skipped
  unsigned last_serial = 0;  // serial of the last whole record; 0 when there is none
};

enum class DataFileRead {
  kRead,          // the metrics hold what the file holds (an empty file holds no record)
  kMissing,       // there is no file of that name
  kNotADataFile,  // the file doesn't start as a data file does
  kUnreadable,    // the file (or folder) can't be opened or read to its end
};

// Reads the data file at `path` line by line, with memory bounded by the longest line a record
// may hold, so a damaged or huge file is read through without harm. A record cut short (the
// scanner stopped while it was written) or garbled doesn't count: the last serial is that of
// the last whole record, so a new scan replaces the damaged one.
DataFileRead ReadDataFileMetrics(const std::string& path, DataFileMetrics& metrics);
// The same over an open stream, from its start.
DataFileRead ReadDataFileMetrics(std::FILE* file, DataFileMetrics& metrics);

}  // namespace qmk::options
