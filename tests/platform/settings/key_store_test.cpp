// The key store: opening and creating keys, value bytes and limits, names, the values file.
#include "platform/settings/key_store.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/settings/paths.h"
#include "support/settings_sandbox.h"

namespace qmk::platform {
namespace {

class KeyStoreTest : public ::testing::Test {
 protected:
  testing::SettingsSandbox sandbox_;
};

TEST_F(KeyStoreTest, ReadOnlyOpenOfAMissingKeyFailsAndCreatesNothing) {
  EXPECT_EQ(KeyHandle::Open(KeyRoot::kCurrentUser, "Software\\Quillmark", false), nullptr);
  EXPECT_FALSE(std::filesystem::exists(sandbox_.UserRoot()));
}

TEST_F(KeyStoreTest, WritableOpenCreatesEachLevel) {
  auto key = KeyHandle::Open(KeyRoot::kCurrentUser, "Software\\Quillmark\\MarkDesk Plus 8", true);
  ASSERT_NE(key, nullptr);
  EXPECT_EQ(key->folder(), sandbox_.UserRoot() + "/Software/Quillmark/MarkDesk Plus 8");
  EXPECT_NE(KeyHandle::Open(KeyRoot::kCurrentUser, "Software\\Quillmark", false), nullptr);
  EXPECT_NE(KeyHandle::Open(KeyRoot::kCurrentUser, "", false), nullptr);  // the root itself
}

TEST_F(KeyStoreTest, RootsFollowTheEnvironment) {
  auto machine = KeyHandle::Open(KeyRoot::kLocalMachine, "Software", true);
  ASSERT_NE(machine, nullptr);
  EXPECT_EQ(machine->folder(), sandbox_.root() + "/machine/Software");
  sandbox_.Unset("XDG_CONFIG_HOME");
  sandbox_.Set("HOME", sandbox_.root() + "/home");
  EXPECT_EQ(UserKeyRootFolder(), sandbox_.root() + "/home/.config/quillmark/registry");
}

TEST_F(KeyStoreTest, KeyAndValueNamesMatchWithoutRegardToCase) {
  auto key = KeyHandle::Open(KeyRoot::kCurrentUser, "Software\\Quillmark", true);
  ASSERT_TRUE(key->SetString("RootDirectory", "/data"));
  auto again = KeyHandle::Open(KeyRoot::kCurrentUser, "SOFTWARE\\quillmark", false);
  ASSERT_NE(again, nullptr);
  std::string data;
  EXPECT_EQ(again->Query("rootdirectory", data, 100), QueryResult::kOk);
  EXPECT_EQ(data, std::string("/data\0", 6));
  ASSERT_TRUE(again->SetString("ROOTDIRECTORY", "/other"));
  ASSERT_EQ(key->Values().size(), 1u);
  EXPECT_EQ(key->Values()[0].name, "RootDirectory");  // the first spelling stays
}

TEST_F(KeyStoreTest, StringValuesCountTheirTerminatorAndReadWithinALimit) {
  auto key = KeyHandle::Open(KeyRoot::kCurrentUser, "K", true);
  ASSERT_TRUE(key->SetString("v", "12"));
  std::string data;
  uint32_t type = 0;
  ASSERT_EQ(key->Query("v", data, 3, &type), QueryResult::kOk);
  EXPECT_EQ(data, std::string("12\0", 3));
  EXPECT_EQ(type, kValueString);
  EXPECT_EQ(key->Query("v", data, 2), QueryResult::kMoreData);
  EXPECT_TRUE(data.empty());
  EXPECT_EQ(key->Query("absent", data, 100), QueryResult::kMissing);
}

TEST_F(KeyStoreTest, AnyBytesSurviveTheValuesFile) {
  auto key = KeyHandle::Open(KeyRoot::kCurrentUser, "K", true);
  std::string bytes;
  for (int c = 0; c < 256; ++c) bytes += static_cast<char>(c);
  ASSERT_TRUE(key->SetValue("odd\tname\\x", kValueBinary, bytes));
  std::string data;
  ASSERT_EQ(key->Query("ODD\tNAME\\X", data, 256), QueryResult::kOk);
  EXPECT_EQ(data, bytes);
  EXPECT_TRUE(key->DeleteValue("odd\tname\\x"));
  EXPECT_EQ(key->Query("odd\tname\\x", data, 256), QueryResult::kMissing);
  EXPECT_FALSE(key->DeleteValue("odd\tname\\x"));
}

TEST_F(KeyStoreTest, EveryKeyNameIsASafeDistinctFolder) {
  struct Case {
    const char* level;
    const char* folder;
  };
  for (const Case c : {Case{"plain name", "plain name"}, {"a/b", "a%2Fb"}, {"..", "%2E."},
                       {".values", "%2Evalues"}, {"100%", "100%25"}, {"x.y", "x.y"}}) {
    EXPECT_EQ(KeyFolderName(c.level), c.folder);
    EXPECT_EQ(KeyNameFromFolder(c.folder), c.level);
  }
  auto key = KeyHandle::Open(KeyRoot::kCurrentUser, "A\\..\\b/c", true);
  ASSERT_NE(key, nullptr);
  EXPECT_EQ(key->folder(), sandbox_.UserRoot() + "/A/%2E./b%2Fc");
  auto parent = KeyHandle::Open(KeyRoot::kCurrentUser, "A", false);
  EXPECT_EQ(parent->SubKeys(), std::vector<std::string>{".."});
}

TEST_F(KeyStoreTest, EmptyLevelsNameNoKey) {
  for (const char* path : {"\\A", "A\\\\B", "A\\"})
    EXPECT_EQ(KeyHandle::Open(KeyRoot::kCurrentUser, path, true), nullptr) << path;
}

TEST_F(KeyStoreTest, AnUnwritableRootGivesNoKey) {
  sandbox_.Set("QMK_MACHINE_ROOT", "/proc/no-such-root");
  EXPECT_EQ(KeyHandle::Open(KeyRoot::kLocalMachine, "Software", true), nullptr);
}

TEST(KeyValuesFile, DamagedLinesCostOnlyTheirOwnValue) {
  const std::string text =
      "# header\n"
      "good\t1\t42\\x00\n"
      "no tabs at all\n"
      "badtype\tx\t1\n"
      "badescape\t1\t\\q1\n"
      "cut\t1\t\\x4\n"
      "GOOD\t1\tlater duplicate\n"
      "last\t4\t\\x01\\x00\\x00\\x00";
  const std::vector<KeyValue> values = ParseKeyValues(text);
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[0].name, "good");
  EXPECT_EQ(values[0].data, std::string("42\0", 3));
  EXPECT_EQ(values[1].type, kValueDword);
  EXPECT_EQ(values[1].data, std::string("\x01\0\0\0", 4));
  EXPECT_EQ(ParseKeyValues(FormatKeyValues(values)).size(), 2u);
}

}  // namespace
}  // namespace qmk::platform
