// fake_manager.h: a FormulaManager with a fixed grid size and named ranges, for the tests.
#pragma once

#include <map>
#include <set>
#include <string>

#include "toolkit/formula/manager.h"

namespace qmk::toolkit::formula::testing {

class FakeManager : public FormulaManager {
 public:
  FakeManager(int columns, int rows) : columns_(columns), rows_(rows) {}
  int GetColumnCount() const override { return columns_; }
  int GetRowCount() const override { return rows_; }
  const CExtGridRangeSet* FindNamedRange(const std::string& name) const override {
    const auto it = names_.find(name);
    return it == names_.end() ? nullptr : &it->second;
  }
  bool IsBareNameFunction(const std::string& name) const override { return bare_.count(name) > 0; }

  void AddName(const std::string& name, const CellRect& rect) { names_[name] = CExtGridRangeSet(rect); }
  void AddBareFunction(const std::string& name) { bare_.insert(name); }

 private:
  int columns_, rows_;
  std::map<std::string, CExtGridRangeSet> names_;
  std::set<std::string> bare_;
};

}  // namespace qmk::toolkit::formula::testing
