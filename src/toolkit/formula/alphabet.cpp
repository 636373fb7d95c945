// alphabet.cpp: column, row, cell and range names of the default naming scheme.
#include "toolkit/formula/alphabet.h"

#include <cstring>

#include "toolkit/formula/manager.h"

namespace qmk::toolkit::formula {

bool CExtFormulaAlphabet::MakeUpperChar(char& c) const {
  if (c >= 'a' && c <= 'z') {
    c = static_cast<char>(c - 'a' + 'A');
    return true;
  }
  return false;
}

int CExtFormulaAlphabet::GetLetterIndex(char c) const {
  MakeUpperChar(c);
  const char* letters = GetLetters();
  const size_t count = std::strlen(letters);
  if (count == 0 || c < letters[0] || c > letters[count - 1]) return -1;
  return c - letters[0];
}

int CExtFormulaAlphabet::ParseColumn(const char*& text) const {
  const char* p = text;
  if (p == nullptr || *p == '\0') return -1;
  long long value = 0;
  int adjustment = 0;
  for (int i = 0; *p != '\0'; ++i, ++p) {
    // The limit counts the characters read so far, so a name may carry one letter more than
    // GetMaxLetters when nothing follows it; kept as the product has always accepted it.
    if (i + adjustment > GetMaxLetters()) return -1;
    const int digit = GetLetterIndex(*p);
    if (digit >= 0) {
      value = value * GetRadix() + digit;
      if (value > GetMaxColumn()) return -1;
      continue;
    }
    if (i > 0) break;
    if (!IsAbsoluteMarker(*p)) return -1;
    // The marker is consumed and the scan goes on, so "$" directly followed by a digit is
    // column 0: "$1" names A1.
    adjustment = -1;
  }
  text = p;
  return static_cast<int>(value);
}

int CExtFormulaAlphabet::ParseRow(const char*& text) const {
  const char* p = text;
  if (p == nullptr || *p == '\0') return -1;
  long long value = 0;
  for (; *p != '\0'; ++p) {
    if (*p < '0' || *p > '9') return -1;
    value = value * 10 + (*p - '0');
    if (value > GetMaxRow()) return -1;
  }
  if (value == 0) return -1;
  text = p;
  return static_cast<int>(value - 1);
}

void CExtFormulaAlphabet::SkipSpaces(const char*& text) const {
  while (text != nullptr && *text != '\0' && IsSpace(*text)) ++text;
}

CellPos CExtFormulaAlphabet::ParseCell(const char*& text) const {
  const char* p = text;
  SkipSpaces(p);
  const int letters = ParseColumn(p);
  if (letters < 0) return {};
  const int digits = ParseRow(p);
  if (digits < 0) return {};
  text = p;
  return IsTransposed() ? CellPos{digits, letters} : CellPos{letters, digits};
}

int CExtFormulaAlphabet::ParseWhole(const char* text, bool rows) const {
  const char* p = text;
  const int n = rows ? ParseRow(p) : ParseColumn(p);
  return (n >= 0 && *p == '\0') ? n : -1;
}

CellRect CExtFormulaAlphabet::ParseRange(const char* text1, const char* text2, bool& bad1,
                                         bool& bad2, const FormulaManager* manager) const {
  bad1 = bad2 = false;
  if (text1 == nullptr) text1 = "";
  if (text2 == nullptr) text2 = "";
  bad1 = *text1 == '\0';
  bad2 = *text2 == '\0';
  const char* p1 = text1;
  const char* p2 = text2;
  const CellPos c1 = ParseCell(p1);
  const CellPos c2 = ParseCell(p2);
  if (c1.column >= 0 && c2.column >= 0) return {c1.column, c1.row, c2.column, c2.row};
  // A cell paired with anything but a cell is no range, yet neither half is flagged: the
  // rectangle stays at -1 and the walks over references leave it out.
  if (c1.column >= 0) return {};
  if (manager == nullptr) {
    bad1 = true;
    return {};
  }
  const int last_column = manager->GetColumnCount() - 1;
  const int last_row = manager->GetRowCount() - 1;
  // Letters alone name whole columns, digits alone whole rows; transposed, the other way round.
  const bool letters_are_rows = IsTransposed();
  for (const bool digits : {false, true}) {
    const int first = ParseWhole(text1, digits);
    if (first < 0) continue;
    const int second = ParseWhole(text2, digits);
    if (second < 0) {
      bad2 = true;
      return {};
    }
    const bool spans_rows = digits != letters_are_rows;
    if (spans_rows) return {0, first, last_column, second};
    return {first, 0, second, last_row};
  }
  // Neither a column nor a row: no flag either, as above.
  return {};
}

std::string CExtFormulaAlphabet::FormatColumn(int column) const {
  if (column < 0 || column > GetMaxColumn()) return {};
  const char* letters = GetLetters();
  const int radix = GetRadix();
  std::string text;
  do {
    text.insert(text.begin(), letters[column % radix]);
    column /= radix;
  } while (column > 0);
  return text;
}

std::string CExtFormulaAlphabet::FormatLetterPart(int number) const { return FormatColumn(number); }

std::string CExtFormulaAlphabet::FormatDigitPart(int number) {
  return std::to_string(static_cast<long long>(number) + 1);
}

std::string CExtFormulaAlphabet::FormatCell(int column, int row) const {
  if (IsTransposed()) return FormatLetterPart(row) + FormatDigitPart(column);
  return FormatLetterPart(column) + FormatDigitPart(row);
}

std::string CExtFormulaAlphabet::FormatRange(const CellRect& rect, const FormulaManager* manager) const {
  if (manager != nullptr) {
    const int last_column = manager->GetColumnCount() - 1;
    const int last_row = manager->GetRowCount() - 1;
    const bool all_columns = rect.left == 0 && rect.right == last_column;
    const bool all_rows = rect.top == 0 && rect.bottom == last_row;
    // Which of the two whole forms prints as digits depends on the orientation of names.
    const auto digits = [](int a, int b) { return FormatDigitPart(a) + ":" + FormatDigitPart(b); };
    const auto letters = [this](int a, int b) { return FormatLetterPart(a) + ":" + FormatLetterPart(b); };
    if (all_columns) return IsTransposed() ? letters(rect.top, rect.bottom) : digits(rect.top, rect.bottom);
    if (all_rows) return IsTransposed() ? digits(rect.left, rect.right) : letters(rect.left, rect.right);
  }
  return FormatCell(rect.left, rect.top) + ":" + FormatCell(rect.right, rect.bottom);
}

}  // namespace qmk::toolkit::formula
