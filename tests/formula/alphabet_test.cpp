// alphabet_test.cpp: column, row, cell and range names of the default naming scheme, the
// transposed scheme, and their limits.
#include <gtest/gtest.h>

#include "formula/fake_manager.h"
#include "toolkit/formula/alphabet.h"

namespace qmk::toolkit::formula {
namespace {

using testing::FakeManager;

const CExtFormulaAlphabet kAlphabet;

int Column(const char* text, std::string* rest = nullptr) {
  const char* p = text;
  const int n = kAlphabet.ParseColumn(p);
  if (rest) *rest = p;
  return n;
}

int Row(const char* text) {
  const char* p = text;
  return kAlphabet.ParseRow(p);
}

CellPos Cell(const CExtFormulaAlphabet& alphabet, const char* text) {
  const char* p = text;
  return alphabet.ParseCell(p);
}

TEST(FormulaAlphabet, ColumnNamesArePositionalWithAAsZero) {
  // This is the product's naming, not the bijective one: "AA" is column 0 and 26 is "BA".
  struct Case {
    int column;
    const char* name;
  };
  for (const Case c : {Case{0, "A"}, {1, "B"}, {25, "Z"}, {26, "BA"}, {27, "BB"}, {51, "BZ"}, {52, "CA"},
                       {675, "ZZ"}, {676, "BAA"}, {308915775, "ZZZZZZ"}}) {
    EXPECT_EQ(kAlphabet.FormatColumn(c.column), c.name) << c.column;
    if (std::string(c.name).size() <= 5) {
      EXPECT_EQ(Column(c.name), c.column) << c.name;
    }
  }
  EXPECT_EQ(Column("AA"), 0);
  EXPECT_EQ(Column("AAB"), 1);
  EXPECT_EQ(Column("ba"), 26);
  EXPECT_EQ(kAlphabet.FormatColumn(-1), "");
  EXPECT_EQ(kAlphabet.FormatColumn(308915776), "");
}

TEST(FormulaAlphabet, ColumnLetterLimitCountsCharactersRead) {
  std::string rest;
  EXPECT_EQ(Column("ABCD1", &rest), 731);
  EXPECT_EQ(rest, "1");
  // The limit is checked before each character, the one behind the letters included: four
  // letters and a row pass, five letters pass only at the end of the text.
  EXPECT_EQ(Column("ABCDE1"), -1);
  EXPECT_EQ(Column("ABCDE"), 731 * 26 + 4);
  EXPECT_EQ(Column("ABCDEF"), -1);
  // "$" does not count against the limit.
  EXPECT_EQ(Column("$ABCD1", &rest), 731);
  EXPECT_EQ(rest, "1");
}

TEST(FormulaAlphabet, ColumnAbsoluteMarker) {
  std::string rest;
  EXPECT_EQ(Column("$A1", &rest), 0);
  EXPECT_EQ(rest, "1");
  // "$" directly followed by a digit is column 0.
  EXPECT_EQ(Column("$1", &rest), 0);
  EXPECT_EQ(rest, "1");
  EXPECT_EQ(Column("$"), 0);
  EXPECT_EQ(Column(""), -1);
  EXPECT_EQ(Column("1A"), -1);
  EXPECT_EQ(Column("#A"), -1);
}

TEST(FormulaAlphabet, Rows) {
  EXPECT_EQ(Row("1"), 0);
  EXPECT_EQ(Row("10"), 9);
  EXPECT_EQ(Row("0001"), 0);
  EXPECT_EQ(Row("1073741822"), 1073741821);
  EXPECT_EQ(Row("1073741823"), -1);
  EXPECT_EQ(Row("99999999999999999999999"), -1);
  EXPECT_EQ(Row("0"), -1);
  EXPECT_EQ(Row(""), -1);
  EXPECT_EQ(Row("$1"), -1);
  EXPECT_EQ(Row("1a"), -1);
  EXPECT_EQ(Row("1 "), -1);
}

TEST(FormulaAlphabet, Cells) {
  struct Case {
    const char* text;
    CellPos cell;
  };
  for (const Case c : {Case{"A1", {0, 0}}, {"a1", {0, 0}}, {"AA1", {0, 0}}, {"BA10", {26, 9}},
                       {"  C3", {2, 2}}, {"$A1", {0, 0}}, {"$1", {0, 0}}, {"$11", {0, 10}},
                       {"A0", {-1, -1}}, {"A", {-1, -1}}, {"1", {-1, -1}}, {"A$1", {-1, -1}},
                       {"A1B", {-1, -1}}, {"", {-1, -1}}}) {
    const CellPos got = Cell(kAlphabet, c.text);
    const CellPos want = c.cell.row < 0 ? CellPos{} : c.cell;
    EXPECT_EQ(got, want) << c.text;
  }
  EXPECT_EQ(kAlphabet.FormatCell(0, 0), "A1");
  EXPECT_EQ(kAlphabet.FormatCell(26, 99), "BA100");
  // Coordinates below 0 print as they come: an empty column part, a row part of 0 or below.
  EXPECT_EQ(kAlphabet.FormatCell(-1, 0), "1");
  EXPECT_EQ(kAlphabet.FormatCell(0, -1), "A0");
  EXPECT_EQ(kAlphabet.FormatCell(0, -3), "A-2");
  EXPECT_EQ(kAlphabet.FormatCell(0, 2147483647), "A2147483648");
}

struct RangeCase {
  const char* first;
  const char* second;
  bool with_manager;
  CellRect rect;
  bool bad1, bad2;
};

TEST(FormulaAlphabet, Ranges) {
  const FakeManager manager(10, 100);
  for (const RangeCase c : {
           RangeCase{"A1", "B2", false, {0, 0, 1, 1}, false, false},
           // Not normalised.
           {"C3", "A1", false, {2, 2, 0, 0}, false, false},
           {"A", "C", true, {0, 0, 2, 99}, false, false},
           {"2", "5", true, {0, 1, 9, 4}, false, false},
           {"A", "C", false, {}, true, false},
           {"A", "3", true, {}, false, true},
           {"2", "B", true, {}, false, true},
           // A cell beside a non-cell, and with a manager a first text that is neither a
           // column nor a row, flag nothing: the rectangle stays at -1.
           {"A1", "B", true, {}, false, false},
           {"A1", "B", false, {}, false, false},
           {"", "B2", false, {}, true, false},
           {"A1", "", false, {}, false, true},
           {"#", "B2", true, {}, false, false},
           {"A0", "B2", true, {}, false, false},
       }) {
    bool bad1 = true, bad2 = true;
    const CellRect got = kAlphabet.ParseRange(c.first, c.second, bad1, bad2, c.with_manager ? &manager : nullptr);
    EXPECT_EQ(got, c.rect) << c.first << ":" << c.second;
    EXPECT_EQ(bad1, c.bad1) << c.first << ":" << c.second;
    EXPECT_EQ(bad2, c.bad2) << c.first << ":" << c.second;
  }
}

TEST(FormulaAlphabet, FormatRangeUsesWholeFormsOnlyWithAManager) {
  const FakeManager manager(10, 100);
  EXPECT_EQ(kAlphabet.FormatRange({0, 1, 9, 4}, &manager), "2:5");
  EXPECT_EQ(kAlphabet.FormatRange({0, 0, 2, 99}, &manager), "A:C");
  // The whole grid spans every column, so it prints as rows.
  EXPECT_EQ(kAlphabet.FormatRange({0, 0, 9, 99}, &manager), "1:100");
  EXPECT_EQ(kAlphabet.FormatRange({0, 1, 8, 4}, &manager), "A2:I5");
  EXPECT_EQ(kAlphabet.FormatRange({0, 1, 9, 4}, nullptr), "A2:J5");
}

// A scheme whose letters name rows and digits columns.
class TransposedAlphabet : public CExtFormulaAlphabet {
 public:
  bool IsTransposed() const override { return true; }
};

TEST(FormulaAlphabet, TransposedSchemeSwapsLettersAndDigits) {
  const TransposedAlphabet alphabet;
  const FakeManager manager(10, 100);
  EXPECT_EQ(Cell(alphabet, "C2"), (CellPos{1, 2}));
  EXPECT_EQ(alphabet.FormatCell(1, 2), "C2");
  bool bad1 = false, bad2 = false;
  EXPECT_EQ(alphabet.ParseRange("A", "C", bad1, bad2, &manager), (CellRect{0, 0, 9, 2}));
  EXPECT_EQ(alphabet.ParseRange("2", "5", bad1, bad2, &manager), (CellRect{1, 0, 4, 99}));
  EXPECT_EQ(alphabet.FormatRange({0, 0, 9, 2}, &manager), "A:C");
  EXPECT_EQ(alphabet.FormatRange({1, 0, 4, 99}, &manager), "2:5");
}

// A scheme with ten letters shows that names go through the virtual operations.
class DecimalLetters : public CExtFormulaAlphabet {
 public:
  int GetRadix() const override { return 10; }
  const char* GetLetters() const override { return "ABCDEFGHIJ"; }
};

TEST(FormulaAlphabet, ReplacedSchemeIsUsedThroughout) {
  const DecimalLetters alphabet;
  EXPECT_EQ(alphabet.FormatColumn(10), "BA");
  EXPECT_EQ(Cell(alphabet, "BA3"), (CellPos{10, 2}));
  EXPECT_EQ(Cell(alphabet, "K3"), CellPos{});
}

}  // namespace
}  // namespace qmk::toolkit::formula
