// alphabet.h: CExtFormulaAlphabet, the naming scheme of columns, rows, cells and ranges.
#pragma once

#include <cstdint>
#include <string>

#include "toolkit/formula/range_set.h"

namespace qmk::toolkit::formula {

class FormulaManager;

// Every operation is virtual so that an application can replace the naming scheme. Column names
// are a positional number in base 26 with "A" as the digit zero: "A" and "AA" are both column 0,
// and column 26 is "BA". This is the settled naming of the product, not the bijective one.
class CExtFormulaAlphabet {
 public:
  virtual ~CExtFormulaAlphabet() = default;

  virtual int GetRadix() const { return 26; }
  virtual const char* GetLetters() const { return "ABCDEFGHIJKLMNOPQRSTUVWXYZ"; }
  // Upper-cases one byte; bytes of multibyte characters (0x80 and up) are left alone.
  virtual bool MakeUpperChar(char& c) const;
  virtual bool IsAbsoluteMarker(char c) const { return c == '$'; }
  // The digit value of a letter after upper-casing, or -1 outside the first..last letter.
  virtual int GetLetterIndex(char c) const;
  virtual bool IsLetter(char c) const { return GetLetterIndex(c) >= 0; }
  virtual int GetMaxLetters() const { return 4; }
  virtual int GetMaxColumn() const { return 308915775; }
  virtual int GetMaxRow() const { return 1073741822; }
  // The column number at `text`, or -1; on success the cursor stands behind the name.
  virtual int ParseColumn(const char*& text) const;
  // The row number (0-based) of the digits that make up the rest of `text`, or -1.
  virtual int ParseRow(const char*& text) const;
  virtual bool IsSpace(char c) const { return c == 9 || c == 10 || c == 13 || c == 32; }
  virtual void SkipSpaces(const char*& text) const;
  // A cell name, (-1, -1) when `text` is none.
  virtual CellPos ParseCell(const char*& text) const;
  // The rectangle of "text1:text2", not normalised; all -1 with `bad1` or `bad2` set on failure.
  // Whole columns ("A:C") and whole rows ("2:5") need `manager` for the grid's size.
  virtual CellRect ParseRange(const char* text1, const char* text2, bool& bad1, bool& bad2,
                              const FormulaManager* manager) const;
  virtual CellPos GetMaxCell() const { return {GetMaxColumn(), GetMaxRow()}; }
  // True when the letters name the row and the digits the column.
  virtual bool IsTransposed() const { return false; }
  virtual std::string FormatColumn(int column) const;
  virtual std::string FormatCell(int column, int row) const;
  virtual std::string FormatRange(const CellRect& rect, const FormulaManager* manager) const;

 private:
  // The whole of `text` as a column (or, with `rows`, a row) name; -1 if anything is left.
  int ParseWhole(const char* text, bool rows) const;
  std::string FormatLetterPart(int number) const;
  static std::string FormatDigitPart(int number);
};

}  // namespace qmk::toolkit::formula
