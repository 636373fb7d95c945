// data_file.cpp: writing sheet records.
#include "data_file.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace qmkscan {

DataFile::~DataFile() { Close(); }

bool DataFile::Open(const std::string& path, std::string& error) {
  file_ = std::fopen(path.c_str(), "w");
  if (!file_) {
    error = "cannot write " + path + ": " + std::strerror(errno);
    return false;
  }
  std::fputs("# qmkscan data file: one record per sheet; cells in hex, one byte per cell as sent\n",
             file_);
  return true;
}

void DataFile::Lines(char side, const char* cells, int lines, int length) {
  for (int line = 0; line < lines; ++line) {
    std::fprintf(file_, "%c ", side);
    for (int i = 0; i < length; ++i)
      std::fprintf(file_, "%02x", static_cast<unsigned char>(cells[line * length + i]));
    std::fputc('\n', file_);
  }
}

bool DataFile::Write(int number, const char* front, int front_lines, int front_length,
                     const char* back, int back_lines, int back_length, const std::string& barcode) {
  if (!file_) return false;
  std::fprintf(file_, "sheet %d front %d %d back %d %d", number, front_lines, front_length,
               back_lines, back_length);
  if (!barcode.empty()) std::fprintf(file_, " barcode %s", barcode.c_str());
  std::fputc('\n', file_);
  Lines('F', front, front_lines, front_length);
  Lines('B', back, back_lines, back_length);
  return std::fflush(file_) == 0 && fsync(fileno(file_)) == 0;
}

void DataFile::Close() {
  if (file_) std::fclose(file_);
  file_ = nullptr;
}

}  // namespace qmkscan
