// The text form of a build_data record: exact round trips and the refusal of bad lines.
#include "options/build_data_text.h"

#include <gtest/gtest.h>

#include <cstring>

namespace qmk::options {
namespace {

build_data Patterned(unsigned seed) {
  build_data r;
  auto* bytes = reinterpret_cast<unsigned char*>(&r);
  for (size_t i = 0; i < sizeof r; ++i) bytes[i] = static_cast<unsigned char>((i * 31 + seed) % 256);
  return r;
}

TEST(BuildDataText, EveryByteRoundTrips) {
  build_data zero{};
  build_data texts{};
  std::strcpy(texts.dataFileName, "with \"quotes\", a \\ and\ttab");
  std::memset(texts.autoNameTemplate, 'x', sizeof texts.autoNameTemplate);  // no ending zero
  texts.dataFileName[600] = 'z';  // a byte behind the text's end
  texts.autoNameSequence = -1;
  texts.onlineEditCorrection = INT32_MIN;
  for (const build_data& original : {zero, texts, Patterned(0), Patterned(77)}) {
    const std::string text = BuildDataToText(original);
    build_data back;
    std::string error;
    ASSERT_TRUE(BuildDataFromText(text, back, error)) << error;
    EXPECT_EQ(std::memcmp(&original, &back, sizeof original), 0) << text;
  }
}

TEST(BuildDataText, NamedFieldsAreReadableAndZeroRecordNeedsNoBytes) {
  build_data r{};
  std::strcpy(r.scanDateText, "06/12/2026");
  r.printPosition = 12;
  r.editMode = 4;
  const std::string text = BuildDataToText(r);
  EXPECT_NE(text.find("scanDateText \"06/12/2026\"\n"), std::string::npos);
  EXPECT_NE(text.find("printPosition 12\n"), std::string::npos);
  EXPECT_NE(text.find("editMode 4\n"), std::string::npos);
  EXPECT_EQ(text.find("\nbytes "), std::string::npos);
}

TEST(BuildDataText, FieldsLeftOutAreZeroAndLaterLinesWin) {
  build_data r;
  std::string error;
  ASSERT_TRUE(BuildDataFromText("# a comment\n\neditMode 2\neditMode 4\r\nbytes 0 0102\n", r, error)) << error;
  EXPECT_EQ(r.editMode, 4);
  EXPECT_EQ(r.formNumber, 0x0201);
  EXPECT_EQ(r.printPosition, 0);
}

TEST(BuildDataText, BadLinesAreRefusedWithTheirNumber) {
  struct Case {
    const char* text;
    const char* error;
  };
  const Case cases[] = {
      {"colour 3\n", "line 1: unknown field \"colour\""},
      {"\nautoNameFlags 256\n", "line 2: bad number for autoNameFlags"},
      {"printPosition -32769\n", "line 1: bad number for printPosition"},
      {"editMode -1\n", "line 1: bad number for editMode"},
      {"bubbleThreshold 2147483648\n", "line 1: bad number for bubbleThreshold"},
      {"formNumber 1x\n", "line 1: bad number for formNumber"},
      {"formNumber\n", "line 1: bad number for formNumber"},
      {"runNumberText \"123\"\n", "line 1: bad text for runNumberText (quoted, at most 2 bytes)"},
      {"dataFileName abc\n", "line 1: bad text for dataFileName (quoted, at most 1040 bytes)"},
      {"dataFileName \"abc\" x\n", "line 1: bad text for dataFileName (quoted, at most 1040 bytes)"},
      {"dataFileName \"a\\q\"\n", "line 1: bad text for dataFileName (quoted, at most 1040 bytes)"},
      {"dataFileName \"a\\x00\"\n", "line 1: bad text for dataFileName (quoted, at most 1040 bytes)"},
      {"bytes 5299 0102\n", "line 1: expected \"bytes OFFSET HEX\" inside the record"},
      {"bytes -1 01\n", "line 1: expected \"bytes OFFSET HEX\" inside the record"},
      {"bytes 10 0g\n", "line 1: expected \"bytes OFFSET HEX\" inside the record"},
      {"bytes 10 012\n", "line 1: expected \"bytes OFFSET HEX\" inside the record"},
  };
  for (const Case& c : cases) {
    build_data r;
    std::string error;
    EXPECT_FALSE(BuildDataFromText(c.text, r, error)) << c.text;
    EXPECT_EQ(error, c.error) << c.text;
  }
}

TEST(BuildDataText, LastByteOfTheRecordCanBeWritten) {
  build_data r;
  std::string error;
  ASSERT_TRUE(BuildDataFromText("bytes 5299 ff\n", r, error)) << error;
  EXPECT_EQ(reinterpret_cast<unsigned char*>(&r)[5299], 0xFF);
}

}  // namespace
}  // namespace qmk::options
