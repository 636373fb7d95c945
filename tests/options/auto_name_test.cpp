// Automatic file names: the template walk, the sequence and its wrap, commits, resets, contexts.
#include "options/auto_name.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "frame/scripted_operator.h"
#include "options/settings_mgr.h"
#include "platform/local_time.h"
#include "support/settings_sandbox.h"

namespace qmk::options {
namespace {

namespace fs = std::filesystem;

const QMK_HWND kOwner = reinterpret_cast<QMK_HWND>(0x10);

class AutoNameTest : public ::testing::Test {
 protected:
  void SetUp() override {
    previous_ = frame::SetOperator(&op_);
    std::memset(&record_, 0, sizeof record_);
    record_.formNumber = 7;
    record_.fileOptionFlags = QMK_FILEOPT_AUTONAME;
    record_.autoNameFlags = QMK_AUTONAME_NEVER_RESET;
    data_dir_ = sandbox_.root() + "/data";
    fs::create_directories(data_dir_);
  }
  void TearDown() override { frame::SetOperator(previous_); }

  void UseTemplate(const char* text) {
    std::memset(record_.autoNameTemplate, 0, sizeof record_.autoNameTemplate);
    std::strncpy(record_.autoNameTemplate, text, sizeof record_.autoNameTemplate - 1);
  }
  // Names through the export, as a host does.
  std::string Name(int commit, int* result = nullptr, QMK_HWND owner = kOwner) {
    char out[QMK_NAME_BYTES] = {};
    const int r = ScnMakeAutoName(owner, data_dir_.c_str(), out, &record_, commit);
    if (result) *result = r;
    return out;
  }
  size_t MessagesShown() const {
    size_t n = 0;
    for (const std::string& e : op_.events()) n += e.rfind("message", 0) == 0;
    return n;
  }

  testing::SettingsSandbox sandbox_;
  platform::FixedWallClock clock_{1993, 6, 29, 14, 55};
  platform::ScopedWallClock use_clock_{&clock_};
  frame::ScriptedOperator op_;
  frame::Operator* previous_ = nullptr;
  build_data record_;
  std::string data_dir_;
};

// ---- the template walk ----

TEST_F(AutoNameTest, PresetTemplatesOnTheTwentyNinthOfJune) {
  struct Case {
    const char* name_template;
    const char* want;
  };
  record_.autoNameSequence = 0;  // the next name takes 1
  const Case cases[] = {
      {"*M*D.dat", "JUN29.DAT"},       {"*m*d.DAT", "JUN29.DAT"},
      {"Scan*S.dat", "SCAN001.DAT"},   {"*W*S.dat", "TUE001.DAT"},
      {"*D*M*S.dat", "29JUN001.DAT"},  {"*M*S.dat", "JUN001.DAT"},
      {"Scan*N*D.dat", "SCAN0629.DAT"}, {"*N*D*W.dat", "0629TUE.DAT"},
      {"*W*H*T.dat", "TUE1455.DAT"},   {"AP*J-*Y.dat", "AP180-93.DAT"},
  };
  for (const Case& c : cases) {
    UseTemplate(c.name_template);
    EXPECT_EQ(Name(0), c.want) << c.name_template;
  }
}

TEST_F(AutoNameTest, DayOneHundredTwentyOneOf1993) {
  clock_.Set(1993, 5, 1);
  UseTemplate("AP*J-*Y.dat");
  EXPECT_EQ(Name(0), "AP121-93.DAT");
  clock_.Set(2000, 1, 1);
  EXPECT_EQ(Name(0), "AP001-00.DAT");
}

TEST_F(AutoNameTest, AMatchKeepsThePassGoingOverTheNextCharacter) {
  // After *D the pass goes on: the Y behind the A is taken as the year's code and the A is lost.
  struct Case {
    const char* name_template;
    const char* want;
  };
  const Case cases[] = {
      {"*DAY", "2993"},       // day, then "AY" as the year
      {"*DAD", "29AD"},       // D comes before the day pair's successors: no second match
      {"*YAD", "93AD"},       // Y is the last pair: nothing left to match
      {"*S*D", "00129"},      // a star after a match is tried as a letter, matches nothing
      {"*D*S", "29001"},
      {"X*DXS.dat", "X29001.DAT"},  // "XS" taken as the sequence after the day
  };
  for (const Case& c : cases) {
    UseTemplate(c.name_template);
    EXPECT_EQ(Name(0), c.want) << c.name_template;
  }
}

TEST_F(AutoNameTest, FieldsKeepTheirWidthWhateverTheirText) {
  record_.autoNameSequence = 1233;  // four digits: the next field overwrites the fourth
  UseTemplate("*S*D");
  EXPECT_EQ(Name(0), "12329");
  UseTemplate("*S.x");
  EXPECT_EQ(Name(0), "123.X");
  UseTemplate("A*S");
  EXPECT_EQ(Name(0), "A123");  // the closing zero lands at the field's width
}

TEST_F(AutoNameTest, ALocalTimeFailureGivesTheFallbackFields) {
  clock_.SetFailing(true);
  UseTemplate("*D*H*J*N*T*Y");
  EXPECT_EQ(Name(0), "00-100000-100");
  UseTemplate("*M*W");
  EXPECT_EQ(Name(0), "UNKUNK");
}

TEST_F(AutoNameTest, NoTemplateEverWritesPastTheNameBuffer) {
  struct Guarded {
    char out[QMK_NAME_BYTES];
    char canary[32];
  } guarded;
  // 129 sequence codes would make 387 characters; a template field with no zero in it at all.
  std::string many;
  for (int i = 0; i < 129; ++i) many += "*S";
  for (const std::string& t : {many, std::string(QMK_NAME_BYTES, 'A')}) {
    std::memset(&guarded, 0x5A, sizeof guarded);
    std::memcpy(record_.autoNameTemplate, t.data(), std::min(t.size(), sizeof record_.autoNameTemplate));
    ExpandAutoNameTemplate(record_.autoNameTemplate, 1, guarded.out);
    EXPECT_EQ(std::string(guarded.canary, sizeof guarded.canary), std::string(32, 0x5A));
    EXPECT_EQ(std::strlen(guarded.out), QMK_NAME_BYTES - 1u);
  }
}

TEST_F(AutoNameTest, UncheckedStarsEndAsLiteralsInsteadOfHanging) {
  struct Case {
    std::string name_template;
    const char* want;
  };
  const Case cases[] = {
      {"A*Q", "A*Q"}, {"A*", "A*"}, {"**D", "*29"},
      // The byte behind the zero is not part of the template, even if it is a code letter.
      {std::string("X*\0D", 4), "X*"},
  };
  for (const Case& c : cases) {
    std::memset(record_.autoNameTemplate, 0, sizeof record_.autoNameTemplate);
    std::memcpy(record_.autoNameTemplate, c.name_template.data(), c.name_template.size());
    EXPECT_EQ(Name(0), c.want);
  }
}

// ---- sequence, wrap and commit ----

TEST_F(AutoNameTest, The998thNumberWrapsToOneOnAnySequenceTemplate) {
  struct Case {
    const char* name_template;
    bool batch;
    QMK_HWND owner;
    const char* want_name;
    int want_result;
    size_t want_messages;
  };
  const Case cases[] = {
      {"Scan*S.dat", false, kOwner, "SCAN001.DAT", 1, 1},
      {"Scan*S.dat", false, nullptr, "SCAN001.DAT", 1, 0},  // no owner: no box, same result
      {"*M*D.dat", false, kOwner, "JUN29.DAT", 0, 0},       // no *S: silent
      {"*M*D.dat", true, kOwner, "JUN29.DAT", 1, 1},        // batch mode reports it
  };
  for (const Case& c : cases) {
    UseTemplate(c.name_template);
    record_.autoNameSequence = 998;
    record_.autoNameFlags = QMK_AUTONAME_NEVER_RESET | (c.batch ? QMK_AUTONAME_USE_AS_BATCH : 0);
    op_.ClearEvents();
    int result = -1;
    EXPECT_EQ(Name(1, &result, c.owner), c.want_name) << c.name_template;
    EXPECT_EQ(result, c.want_result) << c.name_template;
    EXPECT_EQ(record_.autoNameSequence, 1) << c.name_template;
    EXPECT_EQ(MessagesShown(), c.want_messages) << c.name_template;
  }
  ASSERT_FALSE(op_.events().empty());
  EXPECT_NE(op_.events().back().find("exceeds 999; sequence number is reset to 001."),
            std::string::npos);
  EXPECT_NE(op_.events().back().find("flags=0x40"), std::string::npos);
}

TEST_F(AutoNameTest, APreviewStoresNothingAndSaysNothingEvenWhenItWraps) {
  UseTemplate("Scan*S.dat");
  record_.autoNameSequence = 998;
  record_.contextFileInUse = 1;
  int result = -1;
  EXPECT_EQ(Name(0, &result), "SCAN001.DAT");
  EXPECT_EQ(result, 0);
  EXPECT_EQ(record_.autoNameSequence, 998);  // not advanced
  EXPECT_EQ(MessagesShown(), 0u);
  EXPECT_FALSE(CSettingsMgr::OpenContext(ContextName(7).c_str()).m_bOpen);
}

TEST_F(AutoNameTest, ANumberAboveTheWrapClimbsOnUnwrapped) {
  // The wrap tests for equality with 999, so a stored 999 or more is never caught.
  UseTemplate("N*S");
  for (const auto& [stored, next] : {std::pair{998, 1}, {999, 1000}, {1500, 1501}, {32767, -32768}}) {
    record_.autoNameSequence = static_cast<int16_t>(stored);
    int result = -1;
    Name(1, &result);
    EXPECT_EQ(record_.autoNameSequence, next) << stored;
    EXPECT_EQ(result, stored == 998 ? 1 : 0) << stored;
  }
}

TEST_F(AutoNameTest, BatchModeAdvancesTheNumberWithoutASequenceField) {
  UseTemplate("*M*D.dat");
  record_.autoNameFlags = QMK_AUTONAME_NEVER_RESET | QMK_AUTONAME_USE_AS_BATCH;
  record_.autoNameSequence = 41;
  std::memcpy(record_.batchNumberText, "999", 4);
  Name(1);
  EXPECT_EQ(record_.autoNameSequence, 42);
  EXPECT_STREQ(record_.batchNumberText, "42");
  record_.autoNameSequence = 1233;  // a number too long for the field is cut, not spilled
  Name(1);
  EXPECT_STREQ(record_.batchNumberText, "123");
  EXPECT_EQ(record_.scanDateText[0], '\0');
}

TEST_F(AutoNameTest, ACommitWithoutBatchModeLeavesTheBatchNumber) {
  UseTemplate("Scan*S.dat");
  std::memcpy(record_.batchNumberText, "77", 3);
  Name(1);
  EXPECT_STREQ(record_.batchNumberText, "77");
  EXPECT_EQ(record_.autoNameSequence, 1);
}

TEST_F(AutoNameTest, CommittingCreatesNoDataFile) {
  UseTemplate("Scan*S.dat");
  const fs::path cwd = fs::current_path();
  fs::current_path(sandbox_.root());
  Name(1);
  fs::current_path(cwd);
  EXPECT_TRUE(fs::is_empty(data_dir_));
  EXPECT_FALSE(fs::exists(fs::path(sandbox_.root()) / "*D*H*J*M*N*S*T*W*Y"));
}

// ---- reset rules ----

struct ResetCase {
  const char* what;
  uint8_t flags;
  int year, month, day;  // today
  uint8_t last_day, last_month;
  bool want_reset;
};

TEST_F(AutoNameTest, ResetRules) {
  const ResetCase cases[] = {
      {"daily, new day", QMK_AUTONAME_RESET_DAILY, 2026, 11, 18, 17, 11, true},
      {"daily, same day", QMK_AUTONAME_RESET_DAILY, 2026, 11, 18, 18, 11, false},
      {"daily, same date a year on", QMK_AUTONAME_RESET_DAILY, 2027, 11, 18, 18, 11, false},
      {"weekly on a Wednesday", QMK_AUTONAME_RESET_WEEKLY, 2026, 11, 18, 1, 1, false},
      {"weekly on the Sunday", QMK_AUTONAME_RESET_WEEKLY, 2026, 11, 22, 18, 11, true},
      {"monthly mid-month", QMK_AUTONAME_RESET_MONTHLY, 2026, 11, 18, 1, 10, false},
      {"monthly on the first", QMK_AUTONAME_RESET_MONTHLY, 2026, 12, 1, 18, 11, true},
      {"never", QMK_AUTONAME_NEVER_RESET | QMK_AUTONAME_RESET_DAILY, 2026, 11, 18, 1, 1, false},
      {"no rule at all", 0, 2026, 11, 18, 1, 1, false},
      {"batch flag only", QMK_AUTONAME_USE_AS_BATCH, 2026, 11, 22, 1, 1, false},
  };
  for (const ResetCase& c : cases) {
    clock_.Set(c.year, c.month, c.day);
    record_.autoNameFlags = c.flags;
    record_.autoNameSequence = 50;
    record_.autoNameResetDay = c.last_day;
    record_.autoNameResetMonth = c.last_month;
    EXPECT_EQ(LoadAutoNameContext(&record_), c.want_reset) << c.what;
    EXPECT_EQ(record_.autoNameSequence, c.want_reset ? 0 : 50) << c.what;
    if (c.want_reset) {
      EXPECT_EQ(record_.autoNameResetDay, c.day) << c.what;
      EXPECT_EQ(record_.autoNameResetMonth, c.month) << c.what;
    }
  }
}

TEST_F(AutoNameTest, NoRuleFiresWhenNamesAreNotGenerated) {
  record_.fileOptionFlags = QMK_FILEOPT_DEFAULT_CONVERSION;
  record_.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  record_.autoNameSequence = 5;
  EXPECT_FALSE(LoadAutoNameContext(&record_));
  EXPECT_EQ(record_.autoNameSequence, 5);
}

TEST_F(AutoNameTest, DailyResetFiresOnceADay) {
  clock_.Set(2026, 11, 18);
  UseTemplate("*S");
  record_.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  record_.autoNameSequence = 9;
  EXPECT_EQ(Name(1), "001");
  EXPECT_EQ(Name(1), "002");  // the second call finds the reset date equal to today
  clock_.Set(2026, 11, 19);
  EXPECT_EQ(Name(1), "001");
}

TEST_F(AutoNameTest, AWeeklyRuleFirstRunOnAWednesdayWaitsForSunday) {
  record_.contextFileInUse = 1;  // a first run: nothing stored yet
  record_.autoNameFlags = QMK_AUTONAME_RESET_WEEKLY;
  UseTemplate("*S");
  std::vector<std::string> names;
  for (int day = 18; day <= 23; ++day) {  // Wednesday to Monday
    clock_.Set(2026, 11, day);
    names.push_back(Name(1));
  }
  EXPECT_EQ(names, (std::vector<std::string>{"001", "002", "003", "004", "001", "002"}));
}

// ---- the context store ----

TEST_F(AutoNameTest, TheContextKeepsTheSequenceBetweenRecords) {
  UseTemplate("Scan*S.dat");
  record_.contextFileInUse = 1;
  record_.autoNameSequence = 500;  // nothing stored yet: the record's number stands
  record_.autoNameResetDay = 3;
  record_.autoNameResetMonth = 4;
  EXPECT_EQ(Name(1), "SCAN501.DAT");
  EXPECT_EQ(Name(1), "SCAN502.DAT");

  build_data other{};
  other.formNumber = 7;
  other.contextFileInUse = 1;
  other.autoNameSequence = 100;  // once stored, the store wins over the record
  std::memcpy(other.autoNameTemplate, "Scan*S.dat", 11);
  char out[QMK_NAME_BYTES];
  ScnMakeAutoName(nullptr, data_dir_.c_str(), out, &other, 0);
  EXPECT_STREQ(out, "SCAN503.DAT");
  other.formNumber = 8;  // another form, another context, nothing stored for it
  other.autoNameSequence = 100;
  ScnMakeAutoName(nullptr, data_dir_.c_str(), out, &other, 0);
  EXPECT_STREQ(out, "SCAN101.DAT");

  const CSettingsMgr store = CSettingsMgr::OpenContext("Form007");
  EXPECT_EQ(store.GetInt("ContextFileAutonameSequenceNumber", -1), 502);
  EXPECT_EQ(store.GetInt("ContextFileAutonameResetDay", -1), 3);
  EXPECT_EQ(store.GetInt("ContextFileAutonameResetMonth", -1), 4);
}

TEST_F(AutoNameTest, AResetFoundByAPreviewReachesTheStoreOnlyWithACommit) {
  record_.contextFileInUse = 1;
  record_.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  {
    CSettingsMgr store = CSettingsMgr::OpenContextForWrite("Form007");
    store.SetInt("ContextFileAutonameSequenceNumber", 40);
    store.SetInt("ContextFileAutonameResetDay", 28);
    store.SetInt("ContextFileAutonameResetMonth", 6);
  }
  UseTemplate("*S");
  EXPECT_EQ(Name(0), "001");
  EXPECT_EQ(CSettingsMgr::OpenContext("Form007").GetInt("ContextFileAutonameSequenceNumber", -1), 40);
  EXPECT_EQ(Name(1), "001");
  const CSettingsMgr store = CSettingsMgr::OpenContext("Form007");
  EXPECT_EQ(store.GetInt("ContextFileAutonameSequenceNumber", -1), 1);
  EXPECT_EQ(store.GetInt("ContextFileAutonameResetDay", -1), 29);
}

TEST_F(AutoNameTest, AStoreThatCantBeOpenedLeavesTheRecordsNumbers) {
  record_.contextFileInUse = 1;
  record_.autoNameSequence = 12;
  sandbox_.Set("XDG_CONFIG_HOME", "/proc/no-such-folder");
  UseTemplate("*S");
  int result = -1;
  EXPECT_EQ(Name(1, &result), "013");
  EXPECT_EQ(result, 0);
  EXPECT_EQ(record_.autoNameSequence, 13);
}

TEST_F(AutoNameTest, AContextWithoutItsValuesStartsFromNumberZeroResetToday) {
  CSettingsMgr::OpenContextForWrite("Form007").SetInt("Unrelated", 1);  // the key exists
  record_.contextFileInUse = 1;
  record_.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  record_.autoNameSequence = 77;
  EXPECT_FALSE(LoadAutoNameContext(&record_));  // the reset date defaults to today
  EXPECT_EQ(record_.autoNameSequence, 0);
  EXPECT_EQ(record_.autoNameResetDay, 29);
  EXPECT_EQ(record_.autoNameResetMonth, 6);
  clock_.SetFailing(true);  // no date: the defaults are 0
  EXPECT_FALSE(LoadAutoNameContext(&record_));
  EXPECT_EQ(record_.autoNameResetDay, 0);
  EXPECT_EQ(record_.autoNameResetMonth, 0);
}

TEST_F(AutoNameTest, StoredNumbersNarrowToTheRecordsFields) {
  {
    CSettingsMgr store = CSettingsMgr::OpenContextForWrite("Form007");
    store.SetInt("ContextFileAutonameSequenceNumber", 65536 + 20);
    store.SetInt("ContextFileAutonameResetDay", 256 + 29);
    store.SetInt("ContextFileAutonameResetMonth", 6);
  }
  record_.contextFileInUse = 1;
  record_.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  EXPECT_FALSE(LoadAutoNameContext(&record_));  // 285 keeps its low byte: the 29th
  EXPECT_EQ(record_.autoNameSequence, 20);
}

TEST(AutoNameContext, NameComesFromTheFormNumber) {
  EXPECT_EQ(ContextName(7), "Form007");
  EXPECT_EQ(ContextName(-3), "Form-03");
  EXPECT_EQ(ContextName(32767), "Form32767");
}

TEST(AutoNameExport, NullRecordOrBufferIsRefused) {
  build_data record{};
  char out[QMK_NAME_BYTES];
  EXPECT_EQ(ScnMakeAutoName(nullptr, "/tmp", nullptr, &record, 1), 0);
  EXPECT_EQ(ScnMakeAutoName(nullptr, "/tmp", out, nullptr, 1), 0);
}

}  // namespace
}  // namespace qmk::options
