// grid_cell_input.h: the edit engine's behaviours as the input rules of grid cells, so that a
// masked cell and a locale number cell refuse what their edits would refuse.
#pragma once

#include <string>

#include "toolkit/edit/behavior_masked.h"
#include "toolkit/edit/system_number.h"
#include "toolkit/grid/cell_input.h"

namespace qmk::toolkit::edit {

// A masked cell's rule: a text must stand on the mask (literals in place, each rule position a
// byte its rule takes, or the prompt). The behaviour is not owned.
class MaskedCellInput : public grid::CellInputBehaviour {
 public:
  explicit MaskedCellInput(const CBehaviorMasked& behaviour) : m_behaviour(behaviour) {}
  platform::HRESULT ValidateText(const std::string& text) const override;

 private:
  const CBehaviorMasked& m_behaviour;
};

// A locale number cell's rule: a text must hold a number, and no digit of it may be lost to the
// behaviour's digit limits. The behaviour is not owned.
class SystemNumberCellInput : public grid::CellInputBehaviour {
 public:
  explicit SystemNumberCellInput(const CExtEditSystemNumberCurrencyBase& behaviour) : m_behaviour(behaviour) {}
  platform::HRESULT ValidateText(const std::string& text) const override;

 private:
  const CExtEditSystemNumberCurrencyBase& m_behaviour;
};

}  // namespace qmk::toolkit::edit
