// theme_families.h: one theme of each family, for the picture tests that draw a dialog in every
// look and compare it with a reference picture of that family.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "toolkit/theme/selection.h"

namespace qmk::testing {

struct Family {
  const char* name;  // also the reference pictures' suffix
  int theme_id;
};

inline constexpr Family kFamilies[] = {
    {"office2000", 29750}, {"officexp", 29751},   {"office2003", 29752}, {"office2003-plain", 29753},
    {"studio2005", 29754}, {"native", 29756},     {"office2007", 29757}, {"office2010", 29764},
};

// The plain look every picture test returns to.
inline constexpr int kPlainTheme = 29750;

// Selects a family's theme; true when the id was taken.
inline bool SelectFamilyTheme(int theme_id) {
  return toolkit::theme::SelectPaintManagerById(theme_id, [](int) {});
}
inline void SelectPlainTheme() { SelectFamilyTheme(kPlainTheme); }

// The test name of a family: its name with '-' as '_', which test names may not hold.
inline std::string FamilyTestName(const ::testing::TestParamInfo<Family>& info) {
  std::string name = info.param.name;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

}  // namespace qmk::testing
