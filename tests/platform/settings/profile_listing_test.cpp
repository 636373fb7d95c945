// Sectioned text files: line endings of any system, listing sections and keys with the buffer
// rules, deleting by a missing key or value, and the default text of a read.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/settings/atomic_file.h"
#include "platform/settings/profile_file.h"
#include "support/settings_sandbox.h"

namespace qmk::platform {
namespace {

// The same file with each of the three line endings.
std::string WithBreaks(const std::string& lf_text, const std::string& br) {
  std::string out;
  for (char c : lf_text) out += c == '\n' ? br : std::string(1, c);
  return out;
}

constexpr char kFile[] = "; comment\n[One]\na=1\nB = two\n\n[Two]\nc=3\n[one]\nA=again\n";

TEST(ProfileLineEnds, CrCrLfAndLfReadTheSame) {
  for (const char* br : {"\n", "\r\n", "\r"}) {
    const std::string text = WithBreaks(kFile, br);
    SCOPED_TRACE(::testing::PrintToString(std::string(br)));
    EXPECT_EQ(FindProfileValue(text, "one", "a"), "1");
    EXPECT_EQ(FindProfileValue(text, "One", "b"), "two");
    EXPECT_EQ(FindProfileValue(text, "Two", "c"), "3");
    EXPECT_EQ(FindProfileValue(text, "Two", "a"), std::nullopt);  // no run-on into other lines
    EXPECT_EQ(ListProfileSections(text), (std::vector<std::string>{"One", "Two"}));
    EXPECT_EQ(ListProfileKeys(text, "ONE"), (std::vector<std::string>{"a", "B"}));
  }
}

TEST(ProfileLineEnds, AWriteKeepsTheLineEndTheFileHas) {
  for (const char* br : {"\n", "\r\n", "\r"}) {
    const std::string text = WithBreaks(kFile, br);
    SCOPED_TRACE(::testing::PrintToString(std::string(br)));
    // A key added to a section, a new section, a replaced value: all in the file's own ending.
    EXPECT_EQ(SetProfileValue(text, "Two", "d", "4"),
              WithBreaks("; comment\n[One]\na=1\nB = two\n\n[Two]\nc=3\nd=4\n[one]\nA=again\n", br));
    EXPECT_EQ(SetProfileValue(text, "Three", "e", "5"), text + WithBreaks("[Three]\ne=5\n", br));
    EXPECT_EQ(SetProfileValue(text, "One", "B", "2"),
              WithBreaks("; comment\n[One]\na=1\nB=2\n\n[Two]\nc=3\n[one]\nA=again\n", br));
    // A last line without a break gets the file's break before the new line.
    const std::string cut = WithBreaks("[S]\nk=1", br);
    EXPECT_EQ(SetProfileValue(cut, "S", "z", "9"), cut + br + "z=9" + br);
  }
  EXPECT_EQ(SetProfileValue("", "S", "k", "v"), "[S]\nk=v\n");  // a new file gets LF
  EXPECT_EQ(SetProfileValue("; no break yet", "S", "k", "v"), "; no break yet\n[S]\nk=v\n");
}

TEST(ProfileDelete, SectionsAndKeysGoWithEveryCopyAndNothingElse) {
  const std::string text = WithBreaks(kFile, "\r\n");
  EXPECT_EQ(DeleteProfileSection(text, "ONE"), WithBreaks("; comment\n[Two]\nc=3\n", "\r\n"));
  EXPECT_EQ(DeleteProfileSection(text, "Missing"), text);
  EXPECT_EQ(DeleteProfileKey(text, "one", "A"),
            WithBreaks("; comment\n[One]\nB = two\n\n[Two]\nc=3\n[one]\nA=again\n", "\r\n"));
  EXPECT_EQ(DeleteProfileKey(text, "Two", "a"), text);
  EXPECT_EQ(DeleteProfileKey("[S]\nk=1\nk=2\nK=3\n", "S", "k"), "[S]\n");
  // Empty names are not listed: in a zero-separated list they would end it early.
  EXPECT_EQ(ListProfileSections("[]\n=1\n[S]\n = 2\nk=3\n"), std::vector<std::string>{"S"});
  EXPECT_EQ(ListProfileKeys("[S]\n = 2\nk=3\n", "S"), std::vector<std::string>{"k"});
}

class ProfileEntryTest : public ::testing::Test {
 protected:
  void Write(const std::string& text) { std::ofstream(path_, std::ios::binary) << text; }
  std::string Contents() {
    std::string text;
    ReadWholeFile(path_, text);
    return text;
  }
  // Reads into a buffer of `size` bytes preset to 'x' and returns the result with the bytes.
  std::pair<size_t, std::string> Read(const char* section, const char* key, size_t size,
                                      const char* fallback = "") {
    std::string buffer(size + 2, 'x');
    const size_t n = ReadProfileEntry(section, key, fallback, buffer.data(), size, path_);
    return {n, buffer.substr(0, size)};
  }

  testing::SettingsSandbox sandbox_;
  std::string path_ = sandbox_.root() + "/list.ini";
};

TEST_F(ProfileEntryTest, SectionListIsCutWithTheDoubleZeroKept) {
  Write("[One]\nk=1\n[Two]\n[three]\n");
  using std::string_literals::operator""s;
  struct Case {
    size_t size;
    size_t result;
    std::string bytes;
  };
  const Case cases[] = {
      {20, 14, "One\0Two\0three\0\0xxxxx"s},
      {15, 14, "One\0Two\0three\0\0"s},   // exactly fits with the final zero
      {14, 12, "One\0Two\0thre\0\0"s},    // one short: size - 2 bytes and two zeros
      {5, 3, "One\0\0"s},
      {3, 1, "O\0\0"s},
      {2, 0, "\0\0"s},
      {1, 0, "\0"s},
      {0, 0, ""s},
  };
  for (const Case& c : cases) {
    const auto [n, bytes] = Read(nullptr, "ignored", c.size);
    EXPECT_EQ(n, c.result) << "size " << c.size;
    EXPECT_EQ(bytes, c.bytes) << "size " << c.size;
  }
}

TEST_F(ProfileEntryTest, KeyListHoldsTheSectionsKeysOnly) {
  using std::string_literals::operator""s;
  Write("[A]\r\nx=1\r\n;y=2\r\nnot a key\r\nZ = 3\r\nX=again\r\n[B]\r\nw=4\r\n");
  EXPECT_EQ(Read("a", nullptr, 20), std::make_pair(size_t{4}, "x\0Z\0\0xxxxxxxxxxxxxxx"s));
  EXPECT_EQ(Read("missing", nullptr, 4), std::make_pair(size_t{0}, "\0\0xx"s));
  EXPECT_EQ(Read(nullptr, nullptr, 8), std::make_pair(size_t{4}, "A\0B\0\0xxx"s));
}

TEST_F(ProfileEntryTest, DefaultTextLosesTrailingBlanksAndValuesCutAtSizeMinusOne) {
  using std::string_literals::operator""s;
  Write("[A]\nk=value\n");
  struct Case {
    const char* key;
    const char* fallback;
    size_t size;
    size_t result;
    std::string bytes;
  };
  const Case cases[] = {
      {"none", "dflt   ", 10, 4, "dflt\0xxxxx"s},
      {"none", "  in front", 12, 10, "  in front\0x"s},  // only trailing blanks go
      {"none", "tab\t", 6, 4, "tab\t\0x"s},             // a tab is not a blank here
      {"none", nullptr, 3, 0, "\0xx"s},
      {"k", "dflt ", 6, 5, "value\0"s},
      {"k", "", 5, 4, "valu\0"s},
  };
  for (const Case& c : cases) {
    const auto [n, bytes] = Read("A", c.key, c.size, c.fallback);
    EXPECT_EQ(n, c.result) << c.key << "/" << (c.fallback ? c.fallback : "null");
    EXPECT_EQ(bytes, c.bytes) << c.key << "/" << (c.fallback ? c.fallback : "null");
  }
  EXPECT_EQ(ReadProfileString("A", "none", "d  ", path_, 100), "d");
}

TEST_F(ProfileEntryTest, NoKeyDeletesTheSectionAndNoValueTheKey) {
  Write("[A]\r\nk=1\r\nj=2\r\n[B]\r\nk=3\r\n");
  ASSERT_TRUE(WriteProfileEntry("A", "k", nullptr, path_));
  EXPECT_EQ(Contents(), "[A]\r\nj=2\r\n[B]\r\nk=3\r\n");
  ASSERT_TRUE(WriteProfileEntry("b", nullptr, nullptr, path_));
  EXPECT_EQ(Contents(), "[A]\r\nj=2\r\n");
  ASSERT_TRUE(WriteProfileEntry("A", "n", "new", path_));
  EXPECT_EQ(Contents(), "[A]\r\nj=2\r\nn=new\r\n");
  EXPECT_FALSE(WriteProfileEntry(nullptr, "k", "v", path_));
  const std::string missing = sandbox_.root() + "/never.ini";
  EXPECT_TRUE(WriteProfileEntry("A", nullptr, nullptr, missing));
  std::string none;
  EXPECT_EQ(ReadWholeFile(missing, none), ReadStatus::kMissing);
}

}  // namespace
}  // namespace qmk::platform
