// cell_header_filter.h: a column header that also holds the column's filter.
#pragma once

#include <string>
#include <vector>

#include "toolkit/grid/cell_ex.h"

namespace qmk::toolkit::grid {

// A header with a filter of two parts, both of which a cell must pass: a list of the texts to
// show (when switched on; letter case ignored), and a condition against an operand. Text
// conditions ignore letter case; the order conditions compare as numbers when the cell's value
// and the operand are both numbers, else as texts.
class CExtGridCellHeaderFilter : public CExtGridCellHeader {
  QMK_GRID_CELL_CLASS(CExtGridCellHeaderFilter)
 public:
  enum Condition : int32_t {
    kNone, kEquals, kNotEquals, kContains, kNotContains, kBeginsWith, kEndsWith,
    kGreater, kGreaterOrEqual, kLess, kLessOrEqual, kIsEmpty, kIsNotEmpty,
  };
  static constexpr uint32_t kValueListOn = 0x1;

  const std::vector<std::string>& ValuesGet() const { return m_arrValues; }
  void ValuesSet(std::vector<std::string> values) { m_arrValues = std::move(values); }
  bool ValueListOnGet() const { return (m_dwFilterFlags & kValueListOn) != 0; }
  void ValueListOnSet(bool on);
  Condition ConditionGet() const { return m_eCondition; }
  const std::string& OperandGet() const { return m_strOperand; }
  void ConditionSet(Condition condition, const std::string& operand = {});
  // Switches both parts off.
  void FilterClear();
  bool IsFilterActive() const { return ValueListOnGet() || m_eCondition != kNone; }
  // Whether the cell (null for a position without one) passes the filter.
  bool Matches(const CExtGridCell* cell) const;

  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;

 private:
  bool MatchesCondition(const CExtGridCell* cell, const std::string& text) const;
  std::vector<std::string> m_arrValues;
  uint32_t m_dwFilterFlags = 0;
  Condition m_eCondition = kNone;
  std::string m_strOperand;
};

}  // namespace qmk::toolkit::grid
