// CSettingsMgr and CQMKRegistry: opening each kind, the decimal rule, the stored form, paths.
#include "options/settings_mgr.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "options/settings_paths.h"
#include "platform/settings/key_store.h"
#include "support/settings_sandbox.h"

namespace qmk::options {
namespace {

namespace fs = std::filesystem;
using platform::KeyHandle;
using platform::KeyRoot;

class SettingsMgrTest : public ::testing::Test {
 protected:
  // Stores raw bytes under a key of the per-user root, as an installer or another program would.
  void Seed(const std::string& key, const std::string& name, const std::string& bytes) {
    auto handle = KeyHandle::Open(KeyRoot::kCurrentUser, key, true);
    ASSERT_NE(handle, nullptr);
    ASSERT_TRUE(handle->SetValue(name, platform::kValueString, bytes));
  }
  std::string Raw(const std::string& key, const std::string& name) {
    auto handle = KeyHandle::Open(KeyRoot::kCurrentUser, key, false);
    std::string bytes;
    if (handle) handle->Query(name, bytes, 1000);
    return bytes;
  }
  std::string ContextKey(const std::string& name) { return std::string(kProductKey) + "\\" + name; }

  testing::SettingsSandbox sandbox_;
};

TEST(DecimalSetting, ReadsSignAndLeadingDigitsOnly) {
  struct Case {
    const char* text;
    int32_t want;
  };
  const Case cases[] = {
      {"12", 12},          {"-7", -7},         {"+5", 5},          {"  42", 42},
      {"\t-3x", -3},       {"12abc", 12},      {"abc", 0},         {"", 0},
      {"-", 0},            {"+-1", 0},         {"1 2", 1},         {"007", 7},
      {"2147483647", 2147483647},              {"2147483648", 2147483647},
      {"-2147483648", -2147483647 - 1},        {"-99999999999999999999", -2147483647 - 1},
      {"99999999999999999999999", 2147483647},
  };
  for (const Case& c : cases) EXPECT_EQ(ParseDecimalSetting(c.text), c.want) << '"' << c.text << '"';
}

TEST(KeyJoin, AddsOneBackslashUnlessASideBringsOne) {
  struct Case {
    const char* base;
    const char* sub;
    const char* want;
  };
  const Case cases[] = {
      {"A\\B", "C", "A\\B\\C"},  {"A\\B\\", "C", "A\\B\\C"}, {"A\\B", "\\C", "A\\B\\C"},
      {"A\\B\\", "\\C", "A\\B\\\\C"},  // two at the seam stay two
      {"A", "", "A"},            {"", "C", "C"},             {"", "\\C", "\\C"},
  };
  for (const Case& c : cases) EXPECT_EQ(JoinKey(c.base, c.sub), c.want) << c.base << " + " << c.sub;
}

TEST_F(SettingsMgrTest, TextWithoutDigitsReadsZeroButAnAbsentValueReadsTheDefault) {
  Seed(ContextKey("Ctx"), "Letters", std::string("abc\0", 4));
  Seed(ContextKey("Ctx"), "Number", std::string("12\0", 3));
  Seed(ContextKey("Ctx"), "Unterminated", "34");
  Seed(ContextKey("Ctx"), "Huge", std::string(101, '9'));
  const CSettingsMgr store = CSettingsMgr::OpenContext("Ctx");
  ASSERT_TRUE(store.m_bOpen);
  EXPECT_EQ(store.GetInt("Letters", 55), 0);
  EXPECT_EQ(store.GetInt("Absent", 55), 55);
  EXPECT_EQ(store.GetInt("number", 55), 12);
  EXPECT_EQ(store.GetInt("Unterminated", 55), 34);
  EXPECT_EQ(store.GetInt("Huge", 55), 55);  // more than the 100 bytes a number is read with
}

TEST_F(SettingsMgrTest, TwelveIsStoredAsTwoDigitsAndATerminator) {
  CSettingsMgr store = CSettingsMgr::OpenContextForWrite("Ctx");
  ASSERT_TRUE(store.SetInt("Seq", 12));
  EXPECT_EQ(Raw(ContextKey("Ctx"), "Seq"), std::string("12\0", 3));
  EXPECT_EQ(Raw(ContextKey("Ctx"), "Seq").size(), 3u);
  ASSERT_TRUE(store.SetInt("Seq", -2147483647 - 1));
  EXPECT_EQ(store.GetInt("Seq", 0), -2147483647 - 1);
}

TEST_F(SettingsMgrTest, ContextOpensTreatAnEmptyNameDifferently) {
  Seed(ContextKey("Settings"), "V", std::string("1\0", 2));
  Seed(kProductKey, "V", std::string("2\0", 2));
  struct Case {
    const char* name;
    bool write;
    int want;
  };
  const Case cases[] = {
      {nullptr, false, 1}, {"", false, 1},  // read: null and empty both open "Settings"
      {nullptr, true, 1},  {"", true, 2},   // write: only null does; empty opens the product key
  };
  for (const Case& c : cases) {
    CSettingsMgr store = c.write ? CSettingsMgr::OpenContextForWrite(c.name)
                                 : CSettingsMgr::OpenContext(c.name);
    ASSERT_TRUE(store.m_bOpen);
    EXPECT_EQ(store.GetInt("V", 0), c.want) << (c.name ? "empty" : "null") << " write=" << c.write;
    EXPECT_EQ(store.m_bReadOnly, !c.write);
  }
}

TEST_F(SettingsMgrTest, AReadOnlyOpenOfAMissingKeyIsClosedAndGivesDefaults) {
  CSettingsMgr store = CSettingsMgr::OpenContext("Never written");
  EXPECT_FALSE(store.m_bOpen);
  EXPECT_EQ(store.m_pRegistry, nullptr);
  EXPECT_EQ(store.GetInt("Anything", -9), -9);
  EXPECT_FALSE(store.SetInt("Anything", 1));
  EXPECT_FALSE(fs::exists(sandbox_.UserRoot()));
}

TEST_F(SettingsMgrTest, ReadOnlyStoresRefuseWritesAndKeepTheValue) {
  Seed(ContextKey("Ctx"), "V", std::string("5\0", 2));
  CSettingsMgr store = CSettingsMgr::OpenContext("Ctx");
  ASSERT_TRUE(store.m_bOpen);
  EXPECT_FALSE(store.SetInt("V", 6));
  EXPECT_EQ(Raw(ContextKey("Ctx"), "V"), std::string("5\0", 2));
  // A writable manager over a key opened read-only is refused by the key itself.
  CSettingsMgr writable = CSettingsMgr::OpenContextForWrite("Ctx");
  writable.m_pRegistry->m_bReadOnly = 1;
  EXPECT_FALSE(writable.SetInt("V", 6));
}

TEST_F(SettingsMgrTest, ASectionWithALeadingBackslashJoinsWithoutAnother) {
  CSettingsMgr store(StoreKindUserKey, "\\Sub", "Software\\Maker", false);
  ASSERT_TRUE(store.m_bOpen);
  EXPECT_EQ(store.m_pRegistry->m_strKeyName, "Software\\Maker\\Sub");
  ASSERT_TRUE(store.SetInt("V", 3));
  EXPECT_EQ(Raw("Software\\Maker\\Sub", "V"), std::string("3\0", 2));
}

TEST_F(SettingsMgrTest, EachRegistryKindOpensItsRootAndKey) {
  CSettingsMgr maker(StoreKindMakerKey, "Sub", "ignored", false);
  CSettingsMgr machine(StoreKindMachineKey, "Sub", "Software\\M", false);
  ASSERT_TRUE(maker.m_bOpen && machine.m_bOpen);
  EXPECT_EQ(maker.m_pRegistry->m_strKeyName, "Software\\Quillmark\\Sub");
  EXPECT_EQ(machine.m_pRegistry->m_hRoot, KeyRoot::kLocalMachine);
  ASSERT_TRUE(machine.SetInt("V", 4));
  EXPECT_TRUE(fs::exists(sandbox_.root() + "/machine/Software/M/Sub/.values"));
  EXPECT_EQ(CSettingsMgr(StoreKindUserKey, "Sub", "Software\\M", true).GetInt("V", 0), 0);
}

TEST_F(SettingsMgrTest, AnUnwritableMachineRootGivesAClosedStore) {
  sandbox_.Set("QMK_MACHINE_ROOT", "/proc/no-such-root");
  CSettingsMgr store(StoreKindMachineKey, "Sub", "Software\\M", false);
  EXPECT_FALSE(store.m_bOpen);
  EXPECT_FALSE(store.SetInt("V", 1));
}

TEST_F(SettingsMgrTest, AKindOutsideTheFiveIsOpenButHoldsNothing) {
  for (int kind : {0, 6, -1}) {
    CSettingsMgr store(kind, "S", "K", false);
    EXPECT_TRUE(store.m_bOpen) << kind;
    EXPECT_EQ(store.GetInt("V", 8), 8);
    EXPECT_FALSE(store.SetInt("V", 1));
  }
}

// ---- INI kinds ----

TEST_F(SettingsMgrTest, WithoutASharedFolderTheGlobalFileFollowsTheRootDirectory) {
  sandbox_.Set("QMK_COMMON_DATA", "");
  EXPECT_EQ(ResolveIniPath("Global"), "/var/lib/quillmark/scanner/AppSettings/Global.ini");
  Seed(kMakerKey, "RootDirectory", "/srv/scanner" + std::string(1, '\0'));
  EXPECT_EQ(ReadRootDirectory(), "/srv/scanner");
  EXPECT_EQ(ResolveIniPath("Global"), "/srv/scanner/AppSettings/Global.ini");
}

TEST_F(SettingsMgrTest, FilesLieInTheSharedDataFolderAndKeyPathsBecomeFlatNames) {
  const std::string folder = sandbox_.root() + "/common/quillmark/AppSettings/";
  EXPECT_EQ(ResolveIniPath("Global"), folder + "Global.ini");
  EXPECT_EQ(ResolveIniPath("HKCU\\Software\\Quillmark\\Plus 8"), folder + "Quillmark_Plus 8.ini");
  EXPECT_EQ(ResolveIniPath("Plain"), folder + "Plain.ini");
  EXPECT_EQ(ResolveIniPath(std::string(300, 'x')), "");  // too long for a path
}

TEST_F(SettingsMgrTest, AWritableIniStoreCreatesFileAndFolders) {
  CSettingsMgr store(StoreKindGlobalIni, "Scan", "", false);
  ASSERT_TRUE(store.m_bOpen);
  EXPECT_TRUE(fs::exists(store.m_strIniPath));
  EXPECT_EQ(store.m_pRegistry, nullptr);
  ASSERT_TRUE(store.SetInt("Level", 12));
  EXPECT_EQ(CSettingsMgr(StoreKindGlobalIni, "SCAN", "", true).GetInt("level", 0), 12);
}

TEST_F(SettingsMgrTest, AReadOnlyIniStoreTouchesNothing) {
  CSettingsMgr store(StoreKindNamedIni, "Scan", "Software\\Q\\P", true);
  EXPECT_TRUE(store.m_bOpen);
  EXPECT_EQ(store.GetInt("Level", 3), 3);
  EXPECT_FALSE(store.SetInt("Level", 4));
  EXPECT_FALSE(fs::exists(sandbox_.root() + "/common"));
}

TEST_F(SettingsMgrTest, AnEmptyIniValueReadsAsTheDefault) {
  CSettingsMgr store(StoreKindGlobalIni, "Scan", "", false);
  std::ofstream(store.m_strIniPath) << "[Scan]\nEmpty=\nQuoted=\"\"\nLetters=abc\nNumber= 12 \n";
  EXPECT_EQ(store.GetInt("Empty", 7), 7);
  EXPECT_EQ(store.GetInt("Quoted", 7), 7);
  EXPECT_EQ(store.GetInt("Letters", 7), 0);
  EXPECT_EQ(store.GetInt("Number", 7), 12);
  EXPECT_EQ(store.GetInt("Absent", 7), 7);
}

TEST_F(SettingsMgrTest, AnIniStoreThatCantBeCreatedStaysClosed) {
  std::ofstream(sandbox_.root() + "/common") << "a file where the folder should be";
  CSettingsMgr store(StoreKindGlobalIni, "Scan", "", false);
  EXPECT_FALSE(store.m_bOpen);
  EXPECT_EQ(store.GetInt("V", 5), 5);
  EXPECT_FALSE(store.SetInt("V", 1));
}

}  // namespace
}  // namespace qmk::options
