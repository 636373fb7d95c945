// The library's own string table.
#include <gtest/gtest.h>

#include "toolkit/dialogs/string_table.h"

namespace qmk::toolkit {
namespace {

TEST(StringTable, FindsTextsByIdAndEmptiesOnAMiss) {
  std::string text = "left over";
  EXPECT_TRUE(LoadString(6, text));
  EXPECT_EQ(text, "Lamps are warming up.  %d:%02d minutes remaining.");
  EXPECT_FALSE(LoadString(9999, text));
  EXPECT_EQ(text, "");
  EXPECT_FALSE(LoadString(-5, text));
}

}  // namespace
}  // namespace qmk::toolkit
