// cell_text.h: text helpers the cell classes share when they read what a user typed.
#pragma once

#include <string>
#include <string_view>

namespace qmk::toolkit::grid {

// `text` without blanks, tabs and line ends at either end; null reads as "".
inline std::string TrimmedText(const char* text) {
  const std::string_view t = text ? text : "";
  const size_t first = t.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return std::string(t.substr(first, t.find_last_not_of(" \t\r\n") - first + 1));
}
inline std::string TrimmedText(const std::string& text) { return TrimmedText(text.c_str()); }

}  // namespace qmk::toolkit::grid
