// The edit engine's behaviours as the input rules of grid cells: a masked cell and a locale
// number cell refuse, before taking them, the texts their edits would refuse.
#include <gtest/gtest.h>

#include "toolkit/edit/grid_cell_input.h"
#include "toolkit/edit/memory_edit.h"
#include "toolkit/grid/cell_input.h"

namespace qmk::toolkit::edit {
namespace {

TEST(MaskedCellInput, TextsMustStandOnTheMask) {
  CBehaviorMasked mask(nullptr, "##/##/####");
  MaskedCellInput rule(mask);
  grid::CExtGridCellStringMasked cell;
  cell.InputBehaviourSet(&rule);
  struct Case {
    const char* text;
    bool taken;
  };
  for (const Case c : {Case{"12/31/2024", true}, Case{"12/__/____", true}, Case{"ab/31/2024", false},
                       Case{"12-31-2024", false}, Case{"12/31/20245", false}}) {
    EXPECT_EQ(cell.OnParseText(c.text) == platform::S_OK, c.taken) << c.text;
  }
}

TEST(SystemNumberCellInput, NumbersWithinTheDigitLimitsAreTaken) {
  MemoryEdit edit;
  CExtEditSystemNumber number(&edit, 5, 2, platform::EnUsLocale());
  SystemNumberCellInput rule(number);
  struct Case {
    const char* text;
    platform::HRESULT result;
  };
  for (const Case c : {Case{"12,345.67", platform::S_OK}, Case{"1.5", platform::S_OK},
                       Case{"123456", platform::DISP_E_OVERFLOW}, Case{"1.234", platform::DISP_E_OVERFLOW},
                       Case{"abc", platform::DISP_E_TYPEMISMATCH}, Case{"", platform::DISP_E_TYPEMISMATCH}}) {
    EXPECT_EQ(rule.ValidateText(c.text), c.result) << c.text;
  }
  grid::CExtGridCellSystemNumber cell;
  cell.InputBehaviourSet(&rule);
  EXPECT_NE(cell.OnParseText("123456"), platform::S_OK);
}

}  // namespace
}  // namespace qmk::toolkit::edit
