// Sectioned text files: how values are found, and what an edit keeps.
#include "platform/settings/profile_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/settings/atomic_file.h"
#include "support/settings_sandbox.h"

namespace qmk::platform {
namespace {

constexpr char kSample[] =
    "; the scanner's settings\n"
    "[Scan]\n"
    "  Level = 7  \n"
    "Name=\"  quoted  \"\n"
    "Other='single'\n"
    "Half=\"open\n"
    "Empty=\n"
    ";Hidden=1\n"
    "Level=second\n"
    "\n"
    "[Other Section]\n"
    "Level=99\n";

TEST(ProfileRead, FindsValuesByTheFileRules) {
  struct Case {
    const char* section;
    const char* key;
    std::optional<std::string> want;
  };
  const Case cases[] = {
      {"Scan", "Level", "7"},                 // blanks around key and value trimmed
      {"sCAN", "LEVEL", "7"},                 // case doesn't matter; the first of two wins
      {"Scan", "Name", "  quoted  "},         // quotes removed, the blanks inside kept
      {"Scan", "Other", "single"},            // single quotes too
      {"Scan", "Half", "\"open"},             // an unmatched quote stays
      {"Scan", "Empty", ""},                  // present and empty is not absent
      {"Scan", "Hidden", std::nullopt},       // comment lines hold no keys
      {"Scan", ";Hidden", std::nullopt},
      {"Other Section", "Level", "99"},
      {" other section ", " level", "99"},  // the arguments are trimmed like the file's names
      {"Missing", "Level", std::nullopt},
      {"Scan", "Absent", std::nullopt},
  };
  for (const Case& c : cases)
    EXPECT_EQ(FindProfileValue(kSample, c.section, c.key), c.want) << c.section << "/" << c.key;
}

TEST(ProfileRead, WindowsLineBreaksReadTheSame) {
  EXPECT_EQ(FindProfileValue("[A]\r\nx = 5\r\n", "a", "X"), "5");
  EXPECT_EQ(FindProfileValue("[A]\r\nx=\r\n", "A", "x"), "");
}

TEST(ProfileEdit, ReplacingAValueKeepsEveryOtherLine) {
  const std::string out = SetProfileValue(kSample, "SCAN", "level", "8");
  std::string want = kSample;
  want.replace(want.find("  Level = 7  "), 13, "level=8");
  EXPECT_EQ(out, want);
}

TEST(ProfileEdit, NewKeysAndSectionsGoWhereAReaderLooks) {
  struct Case {
    const char* before;
    const char* section;
    const char* after;
  };
  const Case cases[] = {
      // After the section's last line, before the blank line that parts it from the next.
      {"[A]\nx=1\n\n[B]\ny=2\n", "A", "[A]\nx=1\nk=v\n\n[B]\ny=2\n"},
      {"[A]\nx=1", "A", "[A]\nx=1\nk=v\n"},
      {"[A]\n", "a", "[A]\nk=v\n"},
      {"", "New", "[New]\nk=v\n"},
      {"; note\n", "New", "; note\n[New]\nk=v\n"},
      {"; note", "New", "; note\n[New]\nk=v\n"},
      {"[A]\r\nx=1\r\n", "B", "[A]\r\nx=1\r\n[B]\r\nk=v\r\n"},
      {"[A]\r\nk=old\r\n", "A", "[A]\r\nk=v\r\n"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(SetProfileValue(c.before, c.section, "k", "v"), c.after) << c.before;
}

TEST(ProfileEdit, RefusesEntriesThatWouldChangeTheFilesShape) {
  EXPECT_TRUE(IsWritableProfileEntry("Scan", "Level", "any text = ok"));
  EXPECT_FALSE(IsWritableProfileEntry("Scan", "Level", "1\n[Evil]"));
  EXPECT_FALSE(IsWritableProfileEntry("Scan", "a=b", "1"));
  EXPECT_FALSE(IsWritableProfileEntry("Scan", "[x", "1"));
  EXPECT_FALSE(IsWritableProfileEntry("Scan", ";x", "1"));
  EXPECT_FALSE(IsWritableProfileEntry("Scan", "  ", "1"));
  EXPECT_FALSE(IsWritableProfileEntry("Sc]an", "x", "1"));
  EXPECT_FALSE(IsWritableProfileEntry("", "x", "1"));
}

class ProfileFileTest : public ::testing::Test {
 protected:
  testing::SettingsSandbox sandbox_;
  std::string path_ = sandbox_.root() + "/settings.ini";
};

TEST_F(ProfileFileTest, MissingFileGivesTheFallbackCutToSize) {
  EXPECT_EQ(ReadProfileString("A", "k", "fallback", path_, 100), "fallback");
  EXPECT_EQ(ReadProfileString("A", "k", "fallback", path_, 5), "fall");
  EXPECT_EQ(ReadProfileString("A", "k", "fallback", path_, 0), "");
}

TEST_F(ProfileFileTest, WriteCreatesTheFileButNotItsFolders) {
  ASSERT_TRUE(WriteProfileString("A", "k", "1", path_));
  EXPECT_EQ(ReadProfileString("a", "K", "", path_, 100), "1");
  EXPECT_FALSE(WriteProfileString("A", "k", "1", sandbox_.root() + "/no/such/folder/x.ini"));
}

TEST_F(ProfileFileTest, ARefusedWriteLeavesTheFileAlone) {
  ASSERT_TRUE(WriteProfileString("A", "k", "1", path_));
  std::string before;
  ASSERT_EQ(ReadWholeFile(path_, before), ReadStatus::kOk);
  EXPECT_FALSE(WriteProfileString("A", "k", "2\n[B]", path_));
  std::string after;
  ASSERT_EQ(ReadWholeFile(path_, after), ReadStatus::kOk);
  EXPECT_EQ(after, before);
}

TEST_F(ProfileFileTest, AnOversizedFileIsNeitherReadNorRewritten) {
  {
    std::ofstream out(path_);
    out << "[A]\nk=1\n" << std::string(kMaxSettingsFileBytes, ';');
  }
  EXPECT_EQ(ReadProfileString("A", "k", "d", path_, 100), "d");
  EXPECT_FALSE(WriteProfileString("A", "k", "2", path_));
  EXPECT_GT(std::filesystem::file_size(path_), kMaxSettingsFileBytes);
}

}  // namespace
}  // namespace qmk::platform
