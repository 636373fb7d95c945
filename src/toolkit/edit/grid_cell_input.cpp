// grid_cell_input.cpp: what a grid cell asks of the edit engine before it takes a text.
#include "toolkit/edit/grid_cell_input.h"

namespace qmk::toolkit::edit {

platform::HRESULT MaskedCellInput::ValidateText(const std::string& text) const {
  return m_behaviour.MatchesMask(text) ? platform::S_OK : platform::DISP_E_TYPEMISMATCH;
}

platform::HRESULT SystemNumberCellInput::ValidateText(const std::string& text) const {
  const std::string digits = m_behaviour.GetNumericPart(text);
  if (digits.empty() || digits == "-") return platform::DISP_E_TYPEMISMATCH;
  // Normalising cuts a text down to the digit limits; a text that loses digits doesn't fit.
  if (m_behaviour.GetNumericPart(m_behaviour.Normalize(text)) != digits) return platform::DISP_E_OVERFLOW;
  return platform::S_OK;
}

}  // namespace qmk::toolkit::edit
