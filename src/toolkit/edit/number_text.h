// number_text.h: a number being typed, split into its parts, and the digit grouping rule.
#pragma once

#include <string>
#include <vector>

namespace qmk::toolkit::edit {

// A number as its digits, without separators, signs or currency: what typing changes.
struct NumberParts {
  bool negative = false;
  std::string whole;  // digits before the decimal separator
  bool point = false;
  std::string fraction;
  bool exponent = false;
  bool exponent_negative = false;
  std::string exponent_digits;

  // The parts as one string of the characters the caret counts: whole digits, ".", fraction
  // digits, "e", "-", exponent digits.
  std::string Logical() const;
  // The parts of such a string; anything out of place is dropped.
  static NumberParts FromLogical(const std::string& logical, bool negative);
  bool Empty() const { return whole.empty() && !point && fraction.empty() && !exponent; }
};

// The group sizes of a grouping text: "3;2;0" is {3, 2, 0}; a piece that isn't a number is 0.
std::vector<int> ParseGroupSizes(const std::string& grouping);

// The indexes into `count` whole digits in front of which a group separator goes. The sizes
// apply from the right; the last size repeats to the left end, unless it is 0, which stops the
// size before it from repeating.
std::vector<size_t> GroupBreaks(size_t count, const std::vector<int>& sizes);

}  // namespace qmk::toolkit::edit
