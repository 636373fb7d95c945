// value.h: CExtFormulaValue, one intermediate result of a formula, and the conversions it needs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/variant/variant.h"
#include "toolkit/formula/key_map.h"
#include "toolkit/formula/range_set.h"

namespace qmk::toolkit::formula {

// The positions already entered during one computing pass; a cell met again reads its stored
// value, which is what ends the recursion of a cell that depends on itself.
class FormulaContext {
 public:
  // Entering is only noted: most passes never ask, and a pass over a long chain should not
  // pay a table insert per cell. The table is filled from the notes when first asked.
  void insert(int64_t key) { m_keys.push_back(key); }
  size_t count(int64_t key) const { return Indexed().Contains(key) ? 1 : 0; }
  size_t size() const { return Indexed().size(); }
  void reserve(size_t count) { m_keys.reserve(count); }

  // The offset of the cell being computed from the cell its tree was parsed for: cells of one
  // shape share a tree, and its plain cell names are read that much further.
  int m_nShiftColumns = 0, m_nShiftRows = 0;

 private:
  const FlatKeySet& Indexed() const {
    for (; m_nIndexed < m_keys.size(); ++m_nIndexed) m_set.Insert(m_keys[m_nIndexed], 1);
    return m_set;
  }

  std::vector<int64_t> m_keys;
  mutable FlatKeySet m_set;
  mutable size_t m_nIndexed = 0;
};
inline int64_t PositionKey(int column, int row) {
  return (static_cast<int64_t>(static_cast<uint32_t>(column)) << 32) | static_cast<uint32_t>(row);
}
inline CellPos KeyPosition(int64_t key) {
  return {static_cast<int>(static_cast<uint32_t>(key >> 32)), static_cast<int>(static_cast<uint32_t>(key))};
}

// Converts `value` in place to `type`. A text that is empty after trimming blanks, carriage
// returns, line feeds and tabs reads as the integer 0 for any numeric or date target. False,
// with `value` unchanged, when there is no such conversion.
bool ConvertVariant(platform::Variant& value, platform::VarType type);

// A scalar as the command-line host prints it: a number in its shortest exact form, a text in
// double quotes, TRUE or FALSE.
std::string ScalarText(const platform::Variant& value);

class CExtFormulaValue {
 public:
  enum Kind : int { kNone = 0, kScalar = 1, kRange = 2 };

  CExtFormulaValue() = default;
  virtual ~CExtFormulaValue() = default;

  // A date becomes a double of the same number, except one that falls on 1 January 1900,
  // which loses 2.0 so that TIME's result turns into a pure fraction of a day. False, with
  // nothing changed, for any other type.
  virtual bool NormalizeDate();
  // Negative, zero or positive, by the variant comparison of the scalars.
  virtual int Compare(const CExtFormulaValue& other) const;
  virtual void Assign(const CExtFormulaValue& other) { *this = other; }
  virtual bool IsEmptyKind() const { return m_nKind == kNone; }
  // Kind 0, no variant, the "empty" bit set, no range.
  virtual void Clear();

  // Stores a scalar: kind 1, "empty" cleared.
  void SetScalar(const platform::Variant& scalar);
  void SetRange(const CExtGridRangeSet& range);
  // Converts the scalar in place; false when it has no such form.
  bool ChangeType(platform::VarType type) { return ConvertVariant(m_value, type); }

  int m_nKind = kNone;
  platform::Variant m_value;
  bool m_bEmpty = true;  // the cell style bit "empty" the information functions test
  CExtGridRangeSet m_range;
};

}  // namespace qmk::toolkit::formula
