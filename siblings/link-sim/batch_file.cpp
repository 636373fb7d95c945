// batch_file.cpp: reading batch files of sheets.
//
//   # a comment              lamp-warmup 5
//   sheet [name]             starts a sheet; "end" closes it
//     thickness 6            status1 0x8   status2 0   status3 0   jam 0x2   image-flags 0
//     skew-hold 1            not-ready 1   sensors 01 10 00 00     barcode ABC 123
//     front                  a grid of cells, one text line per timing line, until "end":
//       ..x...9..            '.' 0, '0'-'9' and 'a'-'f' darkness, 'x' or '#' 15
//     end
//     back-raw               raw cell bytes in hex, one line per timing line, until "end"
//       30 30 3f
//     end
//   end
#include "batch_file.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace qmk::sim {
namespace {

std::string_view Trim(std::string_view s) {
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front()))) s.remove_prefix(1);
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.back()))) s.remove_suffix(1);
  return s;
}

// Splits "word rest" at the first blank.
std::pair<std::string_view, std::string_view> Head(std::string_view line) {
  size_t i = 0;
  while (i < line.size() && !std::isspace(static_cast<unsigned char>(line[i]))) ++i;
  return {line.substr(0, i), Trim(line.substr(i))};
}

// A whole-number field: decimal or 0x hexadecimal, within 32 bits.
bool ParseNumber(std::string_view text, long long low, long long high, long long& out) {
  std::string s(text);
  if (s.empty()) return false;
  char* end = nullptr;
  errno = 0;
  const long long v = std::strtoll(s.c_str(), &end, 0);
  if (*end != '\0' || errno == ERANGE || v < low || v > high) return false;
  out = v;
  return true;
}

int GridDarkness(char c) {
  if (c == '.' || c == ' ') return 0;
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c == 'x' || c == 'X' || c == '#') return 15;
  return -1;
}

class Parser {
 public:
  Parser(std::string_view text, Batch& batch, std::string& error)
      : text_(text), batch_(batch), error_(error) {}

  bool Run() {
    while (NextLine()) {
      if (line_.empty() || line_[0] == '#') continue;
      auto [word, rest] = Head(line_);
      if (word == "lamp-warmup") {
        long long v;
        if (!ParseNumber(rest, 0, 3600, v)) return Fail("lamp-warmup wants seconds, 0 to 3600");
        batch_.lamp_warm_up_s = static_cast<int>(v);
      } else if (word == "sheet") {
        if (!ParseSheet()) return false;
      } else {
        return Fail("expected \"sheet\" or \"lamp-warmup\", not \"" + std::string(word) + "\"");
      }
    }
    return true;
  }

 private:
  enum class Cells { kNone, kDarkness, kRaw };

  bool NextLine() {
    if (pos_ >= text_.size()) return false;
    size_t end = text_.find('\n', pos_);
    if (end == std::string_view::npos) end = text_.size();
    raw_line_ = text_.substr(pos_, end - pos_);
    if (!raw_line_.empty() && raw_line_.back() == '\r') raw_line_.remove_suffix(1);
    line_ = Trim(raw_line_);
    pos_ = end + 1;
    ++number_;
    return true;
  }

  bool Fail(const std::string& what) {
    error_ = "line " + std::to_string(number_) + ": " + what;
    return false;
  }

  bool ParseSheet() {
    Sheet sheet;
    Cells kind = Cells::kNone;
    while (NextLine()) {
      if (line_.empty() || line_[0] == '#') continue;
      auto [word, rest] = Head(line_);
      if (word == "end") {
        sheet.facts.lines_front = static_cast<int32_t>(sheet.front.size() / QLK_SIM_LINE_BYTES);
        sheet.facts.lines_back = static_cast<int32_t>(sheet.back.size() / QLK_SIM_LINE_BYTES);
        sheet.facts.cells_are_darkness = kind == Cells::kDarkness;
        batch_.sheets.push_back(std::move(sheet));
        return true;
      }
      if (word == "front" || word == "back" || word == "front-raw" || word == "back-raw") {
        const Cells wanted = word.size() > 5 && word.substr(word.size() - 4) == "-raw" ? Cells::kRaw : Cells::kDarkness;
        if (kind != Cells::kNone && kind != wanted)
          return Fail("a sheet's sides are both grids or both raw bytes");
        kind = wanted;
        auto& cells = word[0] == 'f' ? sheet.front : sheet.back;
        if (!cells.empty()) return Fail("this side was given already");
        if (!(wanted == Cells::kRaw ? ParseRaw(cells) : ParseGrid(cells))) return false;
      } else if (!ParseFact(word, rest, sheet.facts)) {
        return false;
      }
    }
    return Fail("the sheet has no \"end\"");
  }

  bool ParseFact(std::string_view word, std::string_view rest, qlk_sim_sheet& f) {
    struct Field { const char* name; long long low, high; void* target; bool is_unsigned; };
    const Field fields[] = {
        {"thickness", 0, 255, &f.thickness, false},   {"status1", 0, 0xFFFFFFFF, &f.status1, true},
        {"status2", 0, 0xFFFFFFFF, &f.status2, true}, {"status3", 0, 0xFFFFFFFF, &f.status3, true},
        {"jam", 0, 0xFFFFFFFF, &f.jam_detail, true},  {"image-flags", 0, 0xFFFFFFFF, &f.image_flags, true},
        {"skew-hold", -2147483648LL, 2147483647, &f.skew_hold, false},
        {"not-ready", -2147483648LL, 2147483647, &f.not_ready, false},
    };
    for (const Field& field : fields) {
      if (word != field.name) continue;
      long long v;
      if (!ParseNumber(rest, field.low, field.high, v))
        return Fail(std::string(field.name) + " wants a number from " + std::to_string(field.low) +
                    " to " + std::to_string(field.high));
      if (field.is_unsigned)
        *static_cast<uint32_t*>(field.target) = static_cast<uint32_t>(v);
      else
        *static_cast<int32_t*>(field.target) = static_cast<int32_t>(v);
      return true;
    }
    if (word == "barcode") {
      if (rest.size() >= QMK_BAR_CODE_BYTES) return Fail("the bar code is longer than 199 characters");
      std::memcpy(f.bar_code_text, rest.data(), rest.size());
      return true;
    }
    if (word == "sensors") {
      std::string_view r = rest;
      for (int i = 0; i < 4; ++i) {
        auto [byte, more] = Head(r);
        long long v;
        if (!ParseNumber("0x" + std::string(byte), 0, 255, v)) return Fail("sensors wants four hex bytes");
        f.sensor_bytes[i] = static_cast<unsigned char>(v);
        r = more;
      }
      if (!r.empty()) return Fail("sensors wants four hex bytes");
      return true;
    }
    return Fail("unknown word \"" + std::string(word) + "\"");
  }

  bool AddLine(std::vector<unsigned char>& cells, const std::vector<unsigned char>& line) {
    if (line.size() > QLK_SIM_LINE_BYTES)
      return Fail("a line has more than " + std::to_string(QLK_SIM_LINE_BYTES) + " cells");
    if (cells.size() / QLK_SIM_LINE_BYTES >= QLK_SIM_MAX_LINES)
      return Fail("a side has more than " + std::to_string(QLK_SIM_MAX_LINES) + " lines");
    const size_t at = cells.size();
    cells.resize(at + QLK_SIM_LINE_BYTES, 0);
    std::copy(line.begin(), line.end(), cells.begin() + static_cast<long>(at));
    return true;
  }

  // Grid rows keep their blanks inside the row: only the indentation before the first cell and
  // the end of the line are dropped.
  bool ParseGrid(std::vector<unsigned char>& cells) {
    while (NextLine()) {
      if (line_ == "end") return true;
      std::vector<unsigned char> row;
      for (char c : line_) {
        const int d = GridDarkness(c);
        if (d < 0) return Fail(std::string("a grid cell is '.', 0-9, a-f, x or #, not '") + c + "'");
        row.push_back(static_cast<unsigned char>(d));
      }
      if (!AddLine(cells, row)) return false;
    }
    return Fail("the grid has no \"end\"");
  }

  bool ParseRaw(std::vector<unsigned char>& cells) {
    while (NextLine()) {
      if (line_ == "end") return true;
      std::vector<unsigned char> row;
      std::string_view r = line_;
      while (!r.empty()) {
        auto [byte, more] = Head(r);
        long long v;
        if (byte.size() > 2 || !ParseNumber("0x" + std::string(byte), 0, 255, v))
          return Fail("raw cells are hex bytes such as 30 or 3f");
        row.push_back(static_cast<unsigned char>(v));
        r = more;
      }
      if (!AddLine(cells, row)) return false;
    }
    return Fail("the raw cells have no \"end\"");
  }

  std::string_view text_;
  Batch& batch_;
  std::string& error_;
  std::string_view raw_line_, line_;
  size_t pos_ = 0;
  int number_ = 0;
};

}  // namespace

bool ParseBatch(std::string_view text, Batch& batch, std::string& error) {
  batch = Batch{};
  return Parser(text, batch, error).Run();
}

}  // namespace qmk::sim
