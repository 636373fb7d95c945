// data_file.h: the data file of a scan: one record per sheet read, written as it is read.
//
//   # qmkscan data file: one record per sheet; cells in hex, one byte per cell as sent
//   sheet 1 front 12 64 back 0 64 barcode ABC123
//   F 783030...            one line per front timing line
//   B ...                  one line per back timing line
#pragma once

#include <cstdio>
#include <string>

#include "qmk/QmkScan.h"

namespace qmkscan {

class DataFile {
 public:
  ~DataFile();
  // Creates (or empties) the file; false with a message in error.
  bool Open(const std::string& path, std::string& error);
  // Appends one sheet and pushes it to the disk, so a sheet once read survives a crash.
  bool Write(int number, const char* front, int front_lines, int front_length, const char* back,
             int back_lines, int back_length, const std::string& barcode);
  void Close();

 private:
  void Lines(char side, const char* cells, int lines, int length);
  std::FILE* file_ = nullptr;
};

}  // namespace qmkscan
