// number_text.cpp: the parts of a typed number and where its group separators go.
#include "toolkit/edit/number_text.h"

#include <algorithm>
#include <cstdlib>

namespace qmk::toolkit::edit {

std::string NumberParts::Logical() const {
  std::string text = whole;
  if (point) text += '.';
  text += fraction;
  if (exponent) {
    text += 'e';
    if (exponent_negative) text += '-';
    text += exponent_digits;
  }
  return text;
}

NumberParts NumberParts::FromLogical(const std::string& logical, bool negative) {
  NumberParts parts;
  parts.negative = negative;
  for (size_t i = 0; i < logical.size(); ++i) {
    const char c = logical[i];
    const bool digit = c >= '0' && c <= '9';
    if (parts.exponent) {
      if (digit) parts.exponent_digits += c;
      else if (c == '-' && parts.exponent_digits.empty() && logical[i - 1] == 'e') parts.exponent_negative = true;
    } else if (c == 'e') {
      parts.exponent = true;
    } else if (c == '.' && !parts.point) {
      parts.point = true;
    } else if (digit) {
      (parts.point ? parts.fraction : parts.whole) += c;
    }
  }
  return parts;
}

std::vector<int> ParseGroupSizes(const std::string& grouping) {
  std::vector<int> sizes;
  if (grouping.empty()) return sizes;
  size_t start = 0;
  for (;;) {
    const size_t end = grouping.find(';', start);
    const std::string piece = grouping.substr(start, end == std::string::npos ? std::string::npos : end - start);
    sizes.push_back(std::clamp(std::atoi(piece.c_str()), 0, 9));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return sizes;
}

std::vector<size_t> GroupBreaks(size_t count, const std::vector<int>& sizes) {
  std::vector<size_t> breaks;
  size_t from_right = 0;
  for (size_t i = 0; i < sizes.size() || (!sizes.empty() && sizes.back() != 0); ++i) {
    // Past the list the last size repeats; a closing 0 ended the list before this.
    const int size = i < sizes.size() ? sizes[i] : sizes.back();
    if (size <= 0) break;
    from_right += size;
    if (from_right >= count) break;
    breaks.push_back(count - from_right);
  }
  std::reverse(breaks.begin(), breaks.end());
  return breaks;
}

}  // namespace qmk::toolkit::edit
