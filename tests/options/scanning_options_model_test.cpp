// The scanning options dialog driven through its model: initialisation, enable and cross-page
// rules, read levels, validation order, storing, and what reaches the host's record.
#include "options/scanning_options_model.h"

#include <gtest/gtest.h>

#include <cstring>

#include "fake_option_services.h"
#include "options/auto_name_dialog_model.h"
#include "platform/local_time.h"

namespace qmk::options {
namespace {

using Dlg = CScanningOptionsMainDlg;
using Control = CScanningOptionsTabScannerControl;

class ScanOptionsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::memset(&record_, 0, sizeof record_);
    std::memset(&config_, 0, sizeof config_);
    // Host bytes the dialog must carry along untouched.
    for (size_t i = 0; i < sizeof record_.reserved1; ++i) record_.reserved1[i] = static_cast<unsigned char>(i * 7);
    std::memset(record_.reserved9, 0xA5, sizeof record_.reserved9);
    std::strcpy(record_.dataFileName, "batch.dat");
    std::strcpy(record_.serialNumberText, "12");
    std::strcpy(record_.batchNumberText, "34");
    std::strcpy(record_.runNumberText, "5");
    record_.autoNameFlags = QMK_AUTONAME_NEVER_RESET;
    record_.fileOptionFlags = QMK_FILEOPT_DEFAULT_CONVERSION;
    record_.printPosition = 10;
    std::strcpy(reinterpret_cast<char*>(config_.host_portion), "/hostdata");
    config_.feat_mask.transport_printer = 1;
    config_.feat_mask.select_stacker = 1;
    config_.feat_mask.image_read = 1;
  }
  Dlg& Open(int level = 3) {
    dialog_ = std::make_unique<Dlg>(record_, config_, level, services_);
    dialog_->OnInitDialog();
    return *dialog_;
  }
  Control& Page() { return dialog_->m_tabScannerControl; }
  CScanningOptionsTabFileNames& Files() { return dialog_->m_tabFileNames; }

  build_data record_;
  sct_config config_;
  testing::FakeOptionServices services_;
  std::unique_ptr<Dlg> dialog_;
};

// ---- initialisation ----

TEST_F(ScanOptionsTest, PagesInitialiseBeforeTheCurrentFileNameIsTaken) {
  record_.dataFileMode = 2;
  services_.has_metrics = true;
  services_.last_serial = 41;
  Open();
  // The page asked for the data folder alone: the current name was still empty.
  ASSERT_EQ(services_.metrics_paths.size(), 1u);
  EXPECT_EQ(services_.metrics_paths[0], "/hostdata");
  EXPECT_EQ(dialog_->m_strCurrentFileName, "batch.dat");
  EXPECT_EQ(Page().m_nSerial, 42u);
  EXPECT_EQ(dialog_->selected_page(), Dlg::kFileNamesPage);
  EXPECT_EQ(dialog_->focus(), 1);
}

TEST_F(ScanOptionsTest, LastSerialOfTheDataFileIsCappedAt999998) {
  record_.dataFileMode = 2;
  services_.has_metrics = true;
  services_.last_serial = 999998;
  Open();
  EXPECT_EQ(Page().m_nSerial, 999998u);
}

TEST_F(ScanOptionsTest, StopOnSystemErrorsIsOnForScannersWithoutSelectStacker) {
  struct Case { uint16_t stop; unsigned stacker; bool want; };
  for (const Case c : {Case{0, 0, true}, {0, 1, false}, {QMK_STOP_SYSTEM, 1, true}, {QMK_STOP_SYSTEM, 0, true}}) {
    record_.stopFlags = c.stop;
    config_.feat_mask.select_stacker = c.stacker;
    Open();
    EXPECT_EQ(Page().m_bStopSystem, c.want) << "stop " << c.stop << " stacker " << c.stacker;
    EXPECT_EQ(Page().Enabled(kIdcStopSystem), c.stacker == 1);
  }
}

TEST_F(ScanOptionsTest, EmptyDateShowsTheWordForToday) {
  Open();
  EXPECT_EQ(Page().m_strDate, "Today");
}

// ---- enable and cross-page rules ----

TEST_F(ScanOptionsTest, FileNamesEnableRule) {
  struct Case { uint16_t flags; bool edit; bool rules; };
  for (const Case c : {Case{0, true, false}, {QMK_FILEOPT_DEFAULT_CONVERSION, false, false},
                       {QMK_FILEOPT_AUTONAME, true, true},
                       {QMK_FILEOPT_AUTONAME | QMK_FILEOPT_DEFAULT_CONVERSION, false, true}}) {
    record_.fileOptionFlags = c.flags;
    Open();
    EXPECT_EQ(Files().Enabled(kIdcOutputFile), c.edit) << c.flags;
    EXPECT_EQ(Files().Enabled(kIdcBrowse), c.edit) << c.flags;
    EXPECT_EQ(Files().Enabled(kIdcAutonameRules), c.rules) << c.flags;
  }
  record_.fileOptionFlags = QMK_FILEOPT_DEFAULT_CONVERSION;
  Open();
  Files().OnClick(kIdcUseOther);
  EXPECT_TRUE(Files().Enabled(kIdcOutputFile));
  Files().OnClick(kIdcUseDefaultName);
  EXPECT_FALSE(Files().Enabled(kIdcBrowse));
}

TEST_F(ScanOptionsTest, CrossPageRuleRunsOnEachFileModeAndOutputClick) {
  record_.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  record_.autoNameFlags = QMK_AUTONAME_NEVER_RESET | QMK_AUTONAME_USE_AS_BATCH;
  Open();
  EXPECT_FALSE(dialog_->m_bBatchEditable);
  EXPECT_FALSE(Page().Enabled(kIdcBatch));
  struct Case { int click; int mode; bool serial_enabled; };
  for (const Case c : {Case{kIdcReplace, 1, true}, {kIdcAppend, 0, false},
                       {kIdcReplaceAtSerial, 2, true}, {kIdcAppend, 0, false}}) {
    // Something the rule restores: only the rule brings the batch flag back in line.
    dialog_->m_bBatchEditable = true;
    Files().OnClick(c.click);
    EXPECT_EQ(dialog_->m_nDataFileMode, c.mode) << c.click;
    EXPECT_EQ(Page().Enabled(kIdcSerial), c.serial_enabled) << c.click;
    EXPECT_EQ(Page().Enabled(kIdcSerialLabel), c.serial_enabled) << c.click;
    EXPECT_FALSE(dialog_->m_bBatchEditable) << c.click;
  }
  for (const int click : {kIdcUseDefaultName, kIdcUseOther}) {
    dialog_->m_bBatchEditable = true;
    Files().OnClick(click);
    EXPECT_FALSE(dialog_->m_bBatchEditable) << click;
  }
  // The online edit check is not one of the rule's clicks.
  dialog_->m_bBatchEditable = true;
  Files().OnClick(kIdcOnlineEdit);
  EXPECT_TRUE(dialog_->m_bBatchEditable);
}

TEST_F(ScanOptionsTest, ReplaceAtSerialTakesTheFileNameOnlyWhenTheModeChanges) {
  Open();
  dialog_->m_strCurrentFileName = "other";
  Files().OnClick(kIdcReplaceAtSerial);
  EXPECT_EQ(dialog_->m_strCurrentFileName, "batch.dat");
  dialog_->m_strCurrentFileName = "other";
  Files().OnClick(kIdcReplaceAtSerial);
  EXPECT_EQ(dialog_->m_strCurrentFileName, "other");
}

TEST_F(ScanOptionsTest, AutoGenerateOpensTheNamingDialogAndItsCancelKeepsTheCheck) {
  Open();
  Files().OnClick(kIdcAutoGenerate);
  EXPECT_EQ(services_.auto_name_runs, 1);
  EXPECT_TRUE(Files().m_bAutoGenerate);
  EXPECT_TRUE(Files().Enabled(kIdcAutonameRules));
  Files().OnClick(kIdcAutoGenerate);  // off: no dialog
  EXPECT_EQ(services_.auto_name_runs, 1);
  EXPECT_FALSE(Files().Enabled(kIdcAutonameRules));
}

// The auto-generation check is not among the clicks that run the cross-page rule: turning it
// off leaves the batch edit disabled until a radio of the page is clicked.
TEST_F(ScanOptionsTest, TurningAutoGenerationOffDoesNotGiveTheBatchEditBack) {
  record_.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  std::strcpy(record_.autoNameTemplate, "Scan*S.dat");
  record_.autoNameFlags = QMK_AUTONAME_NEVER_RESET | QMK_AUTONAME_USE_AS_BATCH;
  record_.dataFileMode = 0;
  Open();
  ASSERT_FALSE(dialog_->m_bBatchEditable);
  ASSERT_FALSE(Page().Enabled(kIdcBatch));
  Files().OnClick(kIdcAutoGenerate);  // off
  EXPECT_FALSE(Files().m_bAutoGenerate);
  EXPECT_EQ(services_.auto_name_runs, 0);
  EXPECT_FALSE(dialog_->m_bBatchEditable);
  EXPECT_FALSE(Page().Enabled(kIdcBatch));
  EXPECT_EQ(dialog_->m_nDataFileMode, 0);
  Files().m_nFileMode = 1;  // a mode chosen without a click reaches the other page only by one
  Files().OnClick(kIdcAutoGenerate);  // on again, the naming dialog cancelled
  EXPECT_EQ(dialog_->m_nDataFileMode, 0);
  EXPECT_FALSE(Page().Enabled(kIdcSerial));
  Files().OnClick(kIdcAutoGenerate);  // off
  Files().OnClick(kIdcAppend);
  EXPECT_TRUE(dialog_->m_bBatchEditable);
  EXPECT_TRUE(Page().Enabled(kIdcBatch));
}

TEST_F(ScanOptionsTest, NamingDialogOkWithUseAsBatchDisablesTheBatchEdit) {
  record_.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  Open();
  EXPECT_TRUE(Page().Enabled(kIdcBatch));
  services_.auto_name_answer = frame::kIdOk;
  services_.on_auto_name = [](CAutoNameDialog& d) {
    d.OnInitDialog();
    d.m_bUseAsBatch = true;
    d.m_nNext = 5;
    ASSERT_TRUE(d.OnOK());
  };
  Files().OnClick(kIdcAutonameRules);
  EXPECT_FALSE(dialog_->m_bBatchEditable);
  EXPECT_FALSE(Page().Enabled(kIdcBatch));
  EXPECT_FALSE(Page().Enabled(kIdcBatchLabel));
  EXPECT_EQ(Files().m_nAutoSequence, 4);
  // Stored: the batch text keeps its old value.
  Page().m_nBatch = 77;
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_STREQ(dialog_->m_data.batchNumberText, "34");
  EXPECT_EQ(dialog_->m_data.autoNameFlags, QMK_AUTONAME_NEVER_RESET | QMK_AUTONAME_USE_AS_BATCH);
}

TEST_F(ScanOptionsTest, PrintGroupFollowsThePrinterAndDateClearsFourDigitYear) {
  record_.printFlags = QMK_PRINT_SCAN_DATE | QMK_PRINT_FOUR_DIGIT_YEAR | QMK_PRINT_RUN;
  config_.feat_mask.transport_printer = 0;
  Open();
  for (int id : {kIdcPrintGroup, kIdcPrintSerial, kIdcPrintDate, kIdcOffsetEdit, kIdcPrintPosition,
                 kIdcPrintSpin, kIdcPrintPositionLabel, kIdcFourDigitYear})
    EXPECT_FALSE(Page().Enabled(id)) << id;
  // Disabled, but the flags are kept as read.
  Page().m_nSerial = 3;
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_EQ(dialog_->m_data.printFlags, record_.printFlags);

  config_.feat_mask.transport_printer = 1;
  Open();
  EXPECT_TRUE(Page().Enabled(kIdcFourDigitYear));
  Page().OnClick(kIdcPrintDate);
  EXPECT_FALSE(Page().m_bPrintDate);
  EXPECT_FALSE(Page().m_bFourDigitYear);
  EXPECT_FALSE(Page().Enabled(kIdcFourDigitYear));
  Page().OnClick(kIdcPrintDate);
  EXPECT_TRUE(Page().Enabled(kIdcFourDigitYear));
  EXPECT_FALSE(Page().m_bFourDigitYear);
}

TEST_F(ScanOptionsTest, ReadCombosEnabledByLevelAndImageReading) {
  struct Case { int level; unsigned image; bool bubble; bool check; bool labels; };
  for (const Case c : {Case{1, 1, false, false, true}, {3, 1, true, true, true},
                       // Without image reading check and tick combos stay usable at level 1.
                       {1, 0, false, true, false}, {2, 0, true, true, false}}) {
    config_.feat_mask.image_read = c.image;
    Open(c.level);
    EXPECT_EQ(Page().Enabled(kIdcBubbleThreshold), c.bubble) << c.level << c.image;
    EXPECT_EQ(Page().Enabled(kIdcBubbleDiscrimination), c.bubble) << c.level << c.image;
    EXPECT_EQ(Page().Enabled(kIdcCheckThreshold), c.check) << c.level << c.image;
    EXPECT_EQ(Page().Enabled(kIdcTickDiscrimination), c.check) << c.level << c.image;
    EXPECT_EQ(Page().Enabled(kIdcCheckLabel), c.labels) << c.level << c.image;
  }
}

// ---- read levels ----

TEST_F(ScanOptionsTest, NumericListsAreSplitOnTheirLastCharacter) {
  Open(2);
  ASSERT_EQ(Page().thresholds().size(), 3u);
  EXPECT_EQ(Page().thresholds()[0].text, "2");
  EXPECT_EQ(Page().thresholds()[1].text, "5");
  EXPECT_EQ(Page().thresholds()[2].value, 9);
  ASSERT_EQ(Page().discriminations().size(), 3u);
  EXPECT_EQ(Page().discriminations()[1].value, 3);
}

TEST_F(ScanOptionsTest, ReadFieldsFindTheirTextsOrDefaults) {
  record_.bubbleThreshold = 9;
  record_.bubbleDiscrimination = 42;  // not listed: the default
  Open(2);
  EXPECT_EQ(Page().m_strBubbleThreshold, "9");
  EXPECT_EQ(Page().m_strBubbleDiscrimination, "3");
  EXPECT_EQ(Page().m_strCheckThreshold, "5");
  record_.bubbleThreshold = -2;
  record_.checkThreshold = 77;
  Open(3);
  EXPECT_EQ(Page().m_strBubbleThreshold, "Dark");
  EXPECT_EQ(Page().m_strCheckThreshold, "Normal");
  EXPECT_EQ(Page().m_strTickDiscrimination, "Medium");
  EXPECT_TRUE(services_.shown.empty());
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_EQ(dialog_->m_data.checkThreshold, 0);
  EXPECT_EQ(dialog_->m_data.bubbleThreshold, -2);
  EXPECT_EQ(dialog_->m_data.tickDiscrimination, 0);
}

TEST_F(ScanOptionsTest, MissingReadTextStopsSelectingWithMessage2032) {
  services_.texts[kTextDiscriminationNumbers] = "1;7;";  // the default "3" is not there
  Open(2);
  ASSERT_EQ(services_.shown.size(), 1u);
  EXPECT_EQ(services_.shown[0], "2032 48");
  EXPECT_EQ(Page().SelectedRead(Control::kBubbleThreshold), 1);
  EXPECT_EQ(Page().SelectedRead(Control::kBubbleDiscrimination), -1);
  EXPECT_EQ(Page().SelectedRead(Control::kCheckThreshold), -1);
}

TEST_F(ScanOptionsTest, LevelOneSelectsNothingAndKeepsTheFields) {
  record_.bubbleThreshold = 123;
  record_.tickDiscrimination = -2;
  Open(1);
  EXPECT_TRUE(services_.shown.empty());
  for (int f = 0; f < Control::kReadFields; ++f)
    EXPECT_EQ(Page().SelectedRead(static_cast<Control::ReadField>(f)), -1);
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_EQ(dialog_->m_data.bubbleThreshold, 123);
  EXPECT_EQ(dialog_->m_data.tickDiscrimination, -2);
}

TEST_F(ScanOptionsTest, ReadTextIsMatchedExactlyWhenStored) {
  Open(3);
  Page().OnSelectRead(Control::kTickThreshold, 0);
  Page().m_strBubbleThreshold = "dark";  // case counts: left as it was
  record_.bubbleThreshold = 0;
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_EQ(dialog_->m_data.tickThreshold, -1);
  EXPECT_EQ(dialog_->m_data.bubbleThreshold, 0);
}

// ---- the date ----

TEST_F(ScanOptionsTest, LeavingTheDateBox) {
  struct Case { const char* typed; const char* want; };
  for (const Case c : {Case{"  toDAY ", "Today"}, {"3.4", "03/04"}, {" junk ", "junk"}}) {
    Open();
    Page().m_strDate = c.typed;
    Page().OnDateKillFocus();
    EXPECT_EQ(Page().m_strDate, c.want) << c.typed;
  }
}

// ---- validation and the OK order ----

TEST_F(ScanOptionsTest, BatchDataValidation) {
  struct Case { unsigned run, batch, serial; const char* date; bool ok; std::vector<std::string> shown; };
  const Case cases[] = {
      {10, 1000, 5, "Today", false, {"2029 16", "2030 16"}},
      {9, 999, 999998, "tODAY", true, {}},
      {0, 0, 999999, "Today", false, {"2027 0"}},
      // Append mode still checks the serial, although the message says it is ignored.
      {0, 0, 0, "Today", false, {"2027 0"}},
      {0, 0, 1, "nonsense", false, {"2028 0 nonsense"}},
      {10, 0, 0, "x", false, {"2029 16", "2028 0 x", "2027 0"}},
  };
  for (const Case& c : cases) {
    services_.shown.clear();
    Open();
    Page().m_nRun = c.run, Page().m_nBatch = c.batch, Page().m_nSerial = c.serial;
    Page().m_strDate = c.date;
    EXPECT_EQ(dialog_->OnOK(), c.ok) << c.run << " " << c.batch << " " << c.serial << " " << c.date;
    EXPECT_EQ(services_.shown, c.shown) << c.run << " " << c.batch << " " << c.serial;
    EXPECT_EQ(dialog_->selected_page(), c.ok ? Dlg::kFileNamesPage : Dlg::kScannerControlPage);
  }
}

TEST_F(ScanOptionsTest, BadDateMovesTheFocusToTheDateBox) {
  Open();
  Page().m_strDate = "bad";
  EXPECT_FALSE(dialog_->OnOK());
  EXPECT_EQ(Page().focus(), kIdcDate);
}

TEST_F(ScanOptionsTest, FileNamesAreValidatedFirstAndStayOnTheFirstPage) {
  record_.fileOptionFlags = 0;
  std::strcpy(record_.scanConversionFileName, "bad name.txt");
  Open();
  dialog_->SelectPage(Dlg::kScannerControlPage);
  Page().m_nRun = 10;  // would fail too, but is never reached
  EXPECT_FALSE(dialog_->OnOK());
  EXPECT_EQ(dialog_->selected_page(), Dlg::kFileNamesPage);
  ASSERT_EQ(services_.shown.size(), 1u);
  EXPECT_EQ(services_.shown[0], "561 16 /data/bad name.txt");
}

TEST_F(ScanOptionsTest, OutputNameWithoutFolderGetsTheStoredDataFolder) {
  record_.fileOptionFlags = 0;
  std::strcpy(record_.scanConversionFileName, "out.txt");
  Open();
  Page().m_nSerial = 1;
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_STREQ(dialog_->m_data.scanConversionFileName, "/data/out.txt");
}

TEST_F(ScanOptionsTest, PrintPositionOutsideOneTo63StaysOnTheSecondPage) {
  struct Case { int position; int spin; bool ok; size_t messages; };
  for (const Case c : {Case{0, 5, false, 1}, {64, 5, false, 1}, {63, 5, true, 0}, {1, 0, false, 0}}) {
    services_.shown.clear();
    Open();
    Page().m_nSerial = 1;
    Page().m_nPrintPosition = c.position;
    Page().m_nSpinPosition = c.spin;
    EXPECT_EQ(dialog_->OnOK(), c.ok) << c.position;
    EXPECT_EQ(services_.shown.size(), c.messages) << c.position;
  }
  // Without a printer the spin isn't tested.
  config_.feat_mask.transport_printer = 0;
  Open();
  Page().m_nSerial = 1;
  Page().m_nSpinPosition = 0;
  EXPECT_TRUE(dialog_->OnOK());
}

// ---- storing ----

TEST_F(ScanOptionsTest, StoringRebuildsFlagsAndClearsNamingWhenAutoGenerationIsOff) {
  record_.fileOptionFlags = QMK_FILEOPT_DEFAULT_CONVERSION | 0x8000;
  std::strcpy(record_.autoNameTemplate, "*M*D.dat");
  record_.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  record_.autoNameSequence = 12;
  record_.stopFlags = 0xFF;
  record_.onlineEditCorrection = 7;
  Open();
  Page().m_strDate = "TODAY";
  Page().m_nSerial = 999998;
  ASSERT_TRUE(dialog_->OnOK());
  const build_data& d = dialog_->m_data;
  EXPECT_EQ(d.fileOptionFlags, QMK_FILEOPT_DEFAULT_CONVERSION);
  EXPECT_EQ(d.autoNameTemplate[0], 0);
  EXPECT_EQ(d.autoNameFlags, QMK_AUTONAME_NEVER_RESET);
  EXPECT_EQ(d.autoNameSequence, 0);
  EXPECT_EQ(d.stopFlags, QMK_STOP_LITHO_CODE | QMK_STOP_SYSTEM | QMK_STOP_THICKNESS);
  EXPECT_EQ(d.onlineEditCorrection, 1);
  EXPECT_STREQ(d.scanDateText, "");
  EXPECT_STREQ(d.serialNumberText, "999998");
  EXPECT_STREQ(d.runNumberText, "5");
  EXPECT_EQ(std::memcmp(d.reserved1, record_.reserved1, sizeof d.reserved1), 0);
}

TEST_F(ScanOptionsTest, NormalisedDateIsStored) {
  Open();
  Page().m_strDate = "7.9";
  Page().m_nSerial = 1;
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_STREQ(dialog_->m_data.scanDateText, "07/09");
}

// ---- the export's work on copies ----

class RunScanOptionsTest : public ScanOptionsTest {};

TEST_F(RunScanOptionsTest, CancelLeavesTheHostRecordBitForBit) {
  build_data before = record_;
  const bool ok = RunScanOptions(&record_, config_, 3, services_, [](Dlg& d) {
    d.OnInitDialog();
    d.m_tabScannerControl.m_nRun = 3;
    return frame::kIdCancel;
  });
  EXPECT_FALSE(ok);
  EXPECT_EQ(std::memcmp(&before, &record_, sizeof record_), 0);
}

TEST_F(RunScanOptionsTest, OkWithoutChangesKeepsEveryUntouchedByte) {
  std::strcpy(record_.scanDateText, "01/02/1999");
  build_data before = record_;
  ASSERT_TRUE(RunScanOptions(&record_, config_, 3, services_, [](Dlg& d) {
    d.OnInitDialog();
    return d.OnOK() ? frame::kIdOk : frame::kIdCancel;
  }));
  EXPECT_EQ(std::memcmp(before.reserved1, record_.reserved1, sizeof before.reserved1), 0);
  EXPECT_EQ(std::memcmp(before.reserved9, record_.reserved9, sizeof before.reserved9), 0);
  EXPECT_STREQ(record_.scanDateText, "01/02/1999");
  EXPECT_STREQ(record_.dataFileName, "batch.dat");
}

TEST_F(RunScanOptionsTest, ResetDueTodayDropsTheTypedSequence) {
  platform::FixedWallClock clock(2024, 3, 15);
  platform::ScopedWallClock use(&clock);
  record_.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  std::strcpy(record_.autoNameTemplate, "Scan*S.dat");
  record_.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  record_.autoNameSequence = 30;
  record_.autoNameResetDay = 14, record_.autoNameResetMonth = 3;
  services_.auto_name_answer = frame::kIdOk;
  services_.on_auto_name = [](CAutoNameDialog& d) { d.OnInitDialog(); d.m_nNext = 90; d.OnOK(); };
  build_data cancelled = record_;
  EXPECT_FALSE(RunScanOptions(&cancelled, config_, 3, services_, [](Dlg&) { return frame::kIdCancel; }));
  EXPECT_EQ(std::memcmp(&cancelled, &record_, sizeof record_), 0);
  ASSERT_TRUE(RunScanOptions(&record_, config_, 3, services_, [](Dlg& d) {
    d.OnInitDialog();
    EXPECT_EQ(d.m_tabFileNames.m_nAutoSequence, 0);  // the copy saw the reset
    d.m_tabFileNames.OnClick(kIdcAutonameRules);
    d.m_tabScannerControl.m_nSerial = 1;
    return d.OnOK() ? frame::kIdOk : frame::kIdCancel;
  }));
  EXPECT_EQ(record_.autoNameSequence, 30);
  EXPECT_EQ(record_.autoNameResetDay, 14);
  EXPECT_EQ(record_.autoNameResetMonth, 3);
}

// A reset found at opening lives only in the dialog's copy: a Cancel after a whole edit session,
// with a typed sequence and a copy that passed OK, leaves every byte of the host's record.
TEST_F(RunScanOptionsTest, CancelWhenAResetFellDueLeavesTheRecordBitForBit) {
  platform::FixedWallClock clock(2024, 3, 15);
  platform::ScopedWallClock use(&clock);
  auto* bytes = reinterpret_cast<unsigned char*>(&record_.reserved9);
  for (size_t i = 0; i < sizeof record_.reserved9; ++i) bytes[i] = static_cast<unsigned char>(i * 13);
  record_.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  std::strcpy(record_.autoNameTemplate, "Scan*S.dat");
  record_.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  record_.autoNameSequence = 30;
  record_.autoNameResetDay = 14, record_.autoNameResetMonth = 3;
  services_.auto_name_answer = frame::kIdOk;
  services_.on_auto_name = [](CAutoNameDialog& d) { d.OnInitDialog(); d.m_nNext = 90; d.OnOK(); };
  const build_data before = record_;
  bool reset_seen = false, copy_changed = false;
  EXPECT_FALSE(RunScanOptions(&record_, config_, 3, services_, [&](Dlg& d) {
    d.OnInitDialog();
    reset_seen = d.m_data.autoNameResetDay == 15 && d.m_tabFileNames.m_nAutoSequence == 0;
    d.m_tabFileNames.OnClick(kIdcAutonameRules);
    d.m_tabScannerControl.m_nSerial = 1;
    d.m_tabScannerControl.m_nRun = 8;
    copy_changed = d.OnOK() && d.m_data.autoNameSequence == 89;
    return frame::kIdCancel;
  }));
  EXPECT_TRUE(reset_seen);
  EXPECT_TRUE(copy_changed);
  EXPECT_EQ(std::memcmp(&before, &record_, sizeof record_), 0);
}

TEST_F(RunScanOptionsTest, WithoutResetTheTypedSequenceIsKept) {
  record_.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  std::strcpy(record_.autoNameTemplate, "Scan*S.dat");
  services_.auto_name_answer = frame::kIdOk;
  services_.on_auto_name = [](CAutoNameDialog& d) { d.OnInitDialog(); d.m_nNext = 90; d.OnOK(); };
  ASSERT_TRUE(RunScanOptions(&record_, config_, 3, services_, [](Dlg& d) {
    d.OnInitDialog();
    d.m_tabFileNames.OnClick(kIdcAutonameRules);
    d.m_tabScannerControl.m_nSerial = 1;
    return d.OnOK() ? frame::kIdOk : frame::kIdCancel;
  }));
  EXPECT_EQ(record_.autoNameSequence, 89);
}

// ---- browsing ----

TEST_F(ScanOptionsTest, BrowseFromAFileInTheRootFolderStartsThere) {
  record_.fileOptionFlags = 0;
  std::strcpy(record_.scanConversionFileName, "/conv.txt");
  Open();
  Files().OnClick(kIdcBrowse);
  ASSERT_EQ(services_.chooser_calls.size(), 1u);
  EXPECT_EQ(services_.chooser_calls[0], "Pick|Text (*.txt)|*.txt||/|conv.txt");
}

TEST_F(ScanOptionsTest, BrowseStartsAtTheOutputFileAndTakesTheChoice) {
  record_.fileOptionFlags = 0;
  std::strcpy(record_.scanConversionFileName, "/out/dir/conv.txt");
  Open();
  services_.chooser_answer = "/picked/file.txt";
  Files().OnClick(kIdcBrowse);
  ASSERT_EQ(services_.chooser_calls.size(), 1u);
  EXPECT_EQ(services_.chooser_calls[0], "Pick|Text (*.txt)|*.txt||/out/dir|conv.txt");
  EXPECT_EQ(Files().m_strOutputFile, "/picked/file.txt");
  EXPECT_EQ(Files().tooltip(), "/picked/file.txt");
  // An unusable name starts the chooser nowhere.
  Files().OnOutputFileChange("bad name");
  services_.chooser_answer.clear();
  Files().OnClick(kIdcBrowse);
  EXPECT_EQ(services_.chooser_calls[1], "Pick|Text (*.txt)|*.txt|||");
  EXPECT_EQ(Files().m_strOutputFile, "bad name");
}

}  // namespace
}  // namespace qmk::options
