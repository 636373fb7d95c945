// The shared text services and the user's folders.
#include <gtest/gtest.h>

#include <climits>
#include <fstream>

#include "platform/files.h"
#include "platform/text.h"
#include "support/scoped_env.h"

namespace qmk::platform {
namespace {

TEST(Text, CaseBlindMatchingTouchesAsciiLettersOnly) {
  EXPECT_TRUE(EqualsNoCase("Com3", "cOM3"));
  EXPECT_FALSE(EqualsNoCase("COM", "COM3"));
  EXPECT_FALSE(EqualsNoCase("\xC9", "\xE9")) << "bytes above 127 are not letters here";
  EXPECT_FALSE(EqualsNoCase("@", "`")) << "the neighbours of the letter ranges stay apart";
  EXPECT_TRUE(EndsWithNoCase("scan.BMP", ".bmp"));
  EXPECT_FALSE(EndsWithNoCase("bmp", ".bmp"));
  std::string s = "ab\xE9z[";
  EXPECT_EQ(ToUpperAscii(s), "AB\xE9Z[");
}

TEST(Text, HexDigitsBothWays) {
  struct Case { char c; int value; };
  for (Case c : {Case{'0', 0}, {'9', 9}, {'a', 10}, {'F', 15}, {'g', -1}, {'G', -1}, {'/', -1}, {':', -1}})
    EXPECT_EQ(HexDigitValue(c.c), c.value) << c.c;
  EXPECT_EQ(HexByte(0x0A), "0a");
  EXPECT_EQ(HexByte(0xFE, true), "FE");
}

TEST(Text, BoundedIntegersTakeTheWholeTextAndNothingOutOfRange) {
  struct Case { const char* text; long low, high; int base; bool ok; long value; };
  const Case cases[] = {
      {"42", 0, 100, 10, true, 42},      {"-7", -10, 10, 10, true, -7},
      {"100", 0, 99, 10, false, 0},      {"", 0, 9, 10, false, 0},
      {" 4", 0, 9, 10, false, 0},        {"4 ", 0, 9, 10, false, 0},
      {"4x", 0, 9, 10, false, 0},        {"0x1F", 0, 99, 0, true, 31},
      {"0x1F", 0, 99, 10, false, 0},     {"99999999999999999999", LONG_MIN, LONG_MAX, 10, false, 0},
  };
  for (const Case& c : cases) {
    long value = -1;
    EXPECT_EQ(ParseBoundedInt(c.text, c.low, c.high, &value, c.base), c.ok) << c.text;
    if (c.ok) EXPECT_EQ(value, c.value) << c.text;
    else EXPECT_EQ(value, -1) << c.text << ": a refusal leaves the value alone";
  }
}

TEST(Text, CopyCutCutsAndAlwaysEnds) {
  char buffer[4] = {'x', 'x', 'x', 'x'};
  EXPECT_EQ(CopyCut("abcdef", buffer, sizeof buffer), 3u);
  EXPECT_STREQ(buffer, "abc");
  EXPECT_EQ(CopyCut("", buffer, sizeof buffer), 0u);
  EXPECT_STREQ(buffer, "");
  buffer[0] = 'q';
  EXPECT_EQ(CopyCut("abc", buffer, 0), 0u);
  EXPECT_EQ(buffer[0], 'q') << "a size of 0 writes nothing";
  EXPECT_EQ(CopyCut("abc", nullptr, 9), 0u);
}

TEST(Folders, ConfigFolderFollowsTheXdgRules) {
  testing::ScopedEnv home("HOME", "/home/op");
  {
    testing::ScopedEnv xdg("XDG_CONFIG_HOME", "/cfg");
    EXPECT_EQ(ConfigFolder(), "/cfg");
  }
  {
    testing::ScopedEnv xdg("XDG_CONFIG_HOME", "relative/cfg");
    EXPECT_EQ(ConfigFolder(), "/home/op/.config") << "a relative value is ignored";
  }
  testing::ScopedEnv xdg("XDG_CONFIG_HOME", "");
  EXPECT_EQ(ConfigFolder(), "/home/op/.config");
}

TEST(Files, SaveReplacesTheWholeFileOrNothing) {
  testing::TempDir dir;
  const std::string path = dir.str() + "/form.txt";
  std::string error;
  ASSERT_TRUE(SaveFileAtomically(path, "first\n", error)) << error;
  ASSERT_TRUE(SaveFileAtomically(path, "second\n", error)) << error;
  std::ifstream in(path);
  std::string text((std::istreambuf_iterator<char>(in)), {});
  EXPECT_EQ(text, "second\n");
  EXPECT_TRUE(IsFolder(dir.str()));
  EXPECT_FALSE(IsFolder(path));
  EXPECT_FALSE(SaveFileAtomically(dir.str() + "/missing/form.txt", "x", error));
  EXPECT_NE(error.find("cannot write"), std::string::npos);
}

}  // namespace
}  // namespace qmk::platform
