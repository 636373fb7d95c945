// data_file_metrics.cpp: reading a scan's data file for its whole records and last serial.
#include "options/data_file_metrics.h"

#include <cctype>
#include <cerrno>
#include <cstring>
#include <memory>
#include <vector>

#include "qmk/QmkScan.h"

namespace qmk::options {
namespace {

// The longest line a record may hold: a side's cells in hex after its letter and blank. The
// header line, bar code included, is far shorter.
constexpr size_t kMaxLine = 2 * QMK_OMR_BYTES + 2;
// A serial of more than nine digits is damage, so the serial after the last never overflows.
constexpr int kMaxSerialDigits = 9;

enum class LineKind { kLine, kTooLong, kUnended, kEnd };

// One line, without its newline, into `line`, read in blocks so that any byte (a zero too) is
// just a byte of the line. A line longer than kMaxLine is read to its end and reported as too
// long; a last line without its newline (a write cut short) as unended. A carriage return before
// the newline is dropped, for a file that travelled through a system that ends lines so.
class LineReader {
 public:
  explicit LineReader(std::FILE* file) : file_(file), block_(64 * 1024) {}

  LineKind Next(std::string& line) {
    line.clear();
    bool too_long = false, any = false;
    for (int c = Get(); c != EOF; c = Get()) {
      any = true;
      if (c == '\n') {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        return too_long ? LineKind::kTooLong : LineKind::kLine;
      }
      if (too_long) continue;
      if (line.size() == kMaxLine) {
        too_long = true;
        line.clear();
      } else {
        line.push_back(static_cast<char>(c));
      }
    }
    if (!any) return LineKind::kEnd;
    return too_long ? LineKind::kTooLong : LineKind::kUnended;
  }

 private:
  int Get() {
    if (pos_ == end_) {
      end_ = std::fread(block_.data(), 1, block_.size(), file_);
      pos_ = 0;
      if (end_ == 0) return EOF;
    }
    return static_cast<unsigned char>(block_[pos_++]);
  }

  std::FILE* file_;
  std::vector<char> block_;
  size_t pos_ = 0, end_ = 0;
};

// Reads a decimal number of at most `max_digits` digits at `pos`, then one blank or the end.
bool ReadField(const std::string& text, size_t& pos, int max_digits, unsigned& value) {
  value = 0;
  int digits = 0;
  while (pos < text.size() && std::isdigit(static_cast<unsigned char>(text[pos]))) {
    if (++digits > max_digits) return false;
    value = value * 10 + static_cast<unsigned>(text[pos++] - '0');
  }
  if (digits == 0) return false;
  if (pos == text.size()) return true;
  return text[pos++] == ' ';
}

bool ReadWord(const std::string& text, size_t& pos, const char* word) {
  const size_t n = std::strlen(word);
  if (text.compare(pos, n, word) != 0 || pos + n >= text.size() || text[pos + n] != ' ')
    return false;
  pos += n + 1;
  return true;
}

struct SheetHeader {
  unsigned serial = 0;
  unsigned lines[2] = {0, 0};
  unsigned length[2] = {0, 0};
};

// "sheet N front LINES LENGTH back LINES LENGTH", then " barcode TEXT" or nothing.
bool ParseHeader(const std::string& text, SheetHeader& h) {
  size_t pos = 0;
  if (!ReadWord(text, pos, "sheet") || !ReadField(text, pos, kMaxSerialDigits, h.serial) ||
      h.serial == 0)
    return false;
  static const char* const kSides[2] = {"front", "back"};
  for (int side = 0; side < 2; ++side) {
    if (!ReadWord(text, pos, kSides[side]) || !ReadField(text, pos, 5, h.lines[side]) ||
        !ReadField(text, pos, 5, h.length[side]))
      return false;
    // The cells of a side are one buffer of the session record.
    if (static_cast<unsigned long>(h.lines[side]) * h.length[side] > QMK_OMR_BYTES) return false;
  }
  if (pos == text.size()) return text.back() != ' ';
  return ReadWord(text, pos, "barcode") && pos < text.size();
}

// "F " or "B " and exactly `length` bytes in hex.
bool IsCellLine(const std::string& text, char side, unsigned length) {
  if (text.size() != 2 + 2 * static_cast<size_t>(length) || text[0] != side || text[1] != ' ')
    return false;
  for (size_t i = 2; i < text.size(); ++i)
    if (!std::isxdigit(static_cast<unsigned char>(text[i]))) return false;
  return true;
}

bool IsHeaderLine(const std::string& text) { return text.rfind("sheet ", 0) == 0; }

// Walks the records after the file's first line. A line that breaks a record drops that record;
// when the breaking line is itself a record's header, reading goes on from it.
void ReadRecords(LineReader& reader, DataFileMetrics& m) {
  std::string line;
  LineKind kind = reader.Next(line);
  while (kind != LineKind::kEnd) {
    SheetHeader h;
    if (kind != LineKind::kLine || !ParseHeader(line, h)) {
      ++m.damaged;
      kind = reader.Next(line);
      continue;
    }
    bool whole = true;
    for (int side = 0; side < 2 && whole; ++side) {
      for (unsigned i = 0; i < h.lines[side] && whole; ++i) {
        kind = reader.Next(line);
        whole = kind == LineKind::kLine && IsCellLine(line, side == 0 ? 'F' : 'B', h.length[side]);
      }
    }
    if (!whole) {
      ++m.damaged;
      // The line that broke the record may start the next one.
      if (kind == LineKind::kLine && IsHeaderLine(line)) continue;
      if (kind != LineKind::kEnd) kind = reader.Next(line);
      continue;
    }
    ++m.records;
    if (m.first_serial == 0) m.first_serial = h.serial;
    m.last_serial = h.serial;
    kind = reader.Next(line);
  }
}

}  // namespace

DataFileRead ReadDataFileMetrics(std::FILE* file, DataFileMetrics& metrics) {
  metrics = DataFileMetrics{};
  std::rewind(file);
  LineReader reader(file);
  std::string first;
  const LineKind kind = reader.Next(first);
  if (std::ferror(file)) return DataFileRead::kUnreadable;
  if (kind == LineKind::kEnd) return DataFileRead::kRead;  // nothing written yet
  if (kind == LineKind::kTooLong || first.rfind(kDataFileHeader, 0) != 0)
    return DataFileRead::kNotADataFile;
  ReadRecords(reader, metrics);
  if (std::ferror(file)) {
    metrics = DataFileMetrics{};
    return DataFileRead::kUnreadable;
  }
  return DataFileRead::kRead;
}

DataFileRead ReadDataFileMetrics(const std::string& path, DataFileMetrics& metrics) {
  metrics = DataFileMetrics{};
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
  if (!file) return errno == ENOENT ? DataFileRead::kMissing : DataFileRead::kUnreadable;
  return ReadDataFileMetrics(file.get(), metrics);
}

}  // namespace qmk::options
