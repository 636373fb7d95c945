// form_file.cpp: writing and reading form descriptions.
#include "form_file.h"
#include "platform/text.h"
#include "platform/files.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <vector>

namespace qmkscan {
namespace {

constexpr int kBack = 0x80;

std::string Side(int row) { return (row & kBack) ? "back" : "front"; }

bool Number(const std::string& word, long low, long high, long& out) {
  return qmk::platform::ParseBoundedInt(word, low, high, &out);
}

// Reads "COL ROW SIDE" into a column and a row with the side's bit.
bool Place(const std::vector<std::string>& w, long& col, long& row) {
  if (!Number(w[1], 1, 255, col) || !Number(w[2], 1, 127, row)) return false;
  if (w[3] == "back") row |= kBack;
  return w[3] == "front" || w[3] == "back";
}

}  // namespace

std::string FormToText(const sht_desc& d) {
  std::ostringstream out;
  out << "# qmkscan form description\n";
  out << "lines " << d.id_lines_front << " " << d.id_lines_back << "\n";
  out << "thickness " << d.thick_min << " " << d.thick_max << "\n";
  for (int i = 0; i < QMK_MAX_FORM_ID_MARKS && d.id_mark_col[i]; ++i)
    out << "mark " << d.id_mark_col[i] << " " << (d.id_mark_row[i] & ~kBack) << " "
        << Side(d.id_mark_row[i]) << " " << int{d.id_mark_sense[i]} << "\n";
  for (int i = 0; i < d.skew_mark_count; ++i)
    out << "skew " << int{d.skew_marks[i][0]} << " " << (d.skew_marks[i][1] & ~kBack) << " "
        << Side(d.skew_marks[i][1]) << "\n";
  out << "solid-row " << d.solid_row << "\n";
  return out.str();
}

bool FormFromText(const std::string& text, sht_desc& desc, std::string& error) {
  sht_desc d{};
  int marks = 0, number = 0;
  std::istringstream in(text);
  std::string line;
  const auto fail = [&](const std::string& what) {
    error = "line " + std::to_string(number) + ": " + what;
    return false;
  };
  while (std::getline(in, line)) {
    ++number;
    std::istringstream words(line);
    std::vector<std::string> w;
    for (std::string word; words >> word;) w.push_back(word);
    if (w.empty() || w[0][0] == '#') continue;
    long a, b, c;
    if (w[0] == "lines" && w.size() == 3 && Number(w[1], 0, 10000, a) && Number(w[2], 0, 10000, b)) {
      d.id_lines_front = static_cast<int32_t>(a), d.id_lines_back = static_cast<int32_t>(b);
    } else if (w[0] == "thickness" && w.size() == 3 && Number(w[1], 0, 255, a) && Number(w[2], 0, 255, b)) {
      d.thick_min = static_cast<int32_t>(a), d.thick_max = static_cast<int32_t>(b);
    } else if (w[0] == "mark" && w.size() == 5 && Place(w, a, b) && Number(w[4], 0, 255, c)) {
      if (marks == QMK_MAX_FORM_ID_MARKS) return fail("more than 48 form-ID marks");
      d.id_mark_col[marks] = static_cast<int32_t>(a);
      d.id_mark_row[marks] = static_cast<int32_t>(b);
      d.id_mark_sense[marks++] = static_cast<uint8_t>(c);
    } else if (w[0] == "skew" && w.size() == 4 && Place(w, a, b)) {
      if (d.skew_mark_count == QMK_MAX_SKEW_MARKS) return fail("more than 255 skew marks");
      d.skew_marks[d.skew_mark_count][0] = static_cast<uint8_t>(a);
      d.skew_marks[d.skew_mark_count++][1] = static_cast<uint8_t>(b);
    } else if (w[0] == "solid-row" && w.size() == 2 && Number(w[1], 0, 10000, a)) {
      d.solid_row = static_cast<int32_t>(a);
    } else {
      return fail("expected lines, thickness, mark COL ROW front|back SENSE, skew COL ROW front|back "
                  "or solid-row, with numbers in range");
    }
  }
  std::memcpy(d.host_portion, desc.host_portion, sizeof d.host_portion);
  desc = d;
  return true;
}

bool SaveForm(const std::string& path, const sht_desc& desc, std::string& error) {
  return qmk::platform::SaveFileAtomically(path, FormToText(desc), error);
}

bool LoadForm(const std::string& path, sht_desc& desc, std::string& error) {
  std::ifstream in(path);
  if (!in) {
    error = "cannot read " + path;
    return false;
  }
  std::ostringstream text;
  text << in.rdbuf();
  if (!FormFromText(text.str(), desc, error)) {
    error = path + ": " + error;
    return false;
  }
  return true;
}

}  // namespace qmkscan
