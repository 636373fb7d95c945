// The option dialogs on the headless window system, played by the scripted operator through
// real clicks and keys: each reaches the record its model reaches, Cancel changes nothing, and
// no byte outside a dialog's own fields moves.
#include <gtest/gtest.h>

#include "options/conversion_options_view.h"
#include "options/option_dialogs.h"
#include "options/scanning_options_view.h"
#include "qmk/QmkGen.h"
#include "view_fixture.h"

namespace qmk::options::testing {
namespace {

using namespace platform::ui;
using ScannerPage = CScanningOptionsTabScannerControl;

// ---- edit options ----

TEST_F(OptionViewTest, EditOptionsRadiosStoreTheirModes) {
  struct Case {
    uint16_t before;
    int radio;  // 0: none clicked
    int button;
    bool ok;
    uint16_t after;
  };
  const Case cases[] = {
      {0, 0, IDOK, true, 1},  // below 1: the first radio, stored as 1
      {2, 0, IDOK, true, 2},
      {4, 0, IDOK, true, 4},
      {9, kIdcRecheckAll, IDOK, true, 2},  // above the rows: the first radio
      {4, kIdcEditNormally, IDOK, true, 1},
      {1, kIdcClearEditFlags, IDOK, true, 4},
      {4, kIdcRecheckAll, IDCANCEL, false, 4},
  };
  for (const Case& c : cases) {
    build_data record = PatternedRecord();
    record.editMode = c.before;
    const build_data before = record;
    DialogScript script(CEditOptionsDialog::kIdd);
    if (c.radio) script.Check(c.radio);
    QueueDialogScript(script.Press(c.button));
    EXPECT_EQ(ShowEditOptions(&record, 0, nullptr), c.ok) << c.before;
    EXPECT_EQ(record.editMode, c.after) << c.before;
    EXPECT_TRUE(OnlyInside(DifferingBytes(before, record), {QMK_SPAN(editMode)}));
  }
}

// ---- conversion options ----

TEST_F(OptionViewTest, ConversionScriptReachesTheModelsRecord) {
  build_data screen = PatternedRecord();
  screen.conversionFlags = 0x7F;  // the default name, and bits that must not survive
  screen.conversionReplaceExisting = 1;
  build_data model = screen;
  QueueDialogScript(DialogScript(CConvertOptionsDialog::kIdd)
                        .Check(kIdcUseOther)
                        .SetText(kIdcOutputFile, "/out/night.txt")
                        .Check(kIdcReplaceExisting, 0)
                        .Press(IDOK));
  ASSERT_TRUE(ShowConversionOptions(&screen, 0, nullptr, services_));
  ASSERT_TRUE(RunConversionOptions(&model, 0, services_, [](CConvertOptionsDialog& d) {
    d.OnInitDialog();
    d.OnClick(kIdcUseOther);
    d.file_name() = "/out/night.txt";
    d.OnClick(kIdcReplaceExisting);
    return d.OnOK() ? IDOK : IDCANCEL;
  }));
  EXPECT_EQ(DifferingBytes(screen, model), std::vector<size_t>{});
  EXPECT_STREQ(screen.postScanConversionFileName, "/out/night.txt");
  EXPECT_EQ(screen.conversionFlags, 0);
  EXPECT_EQ(screen.conversionReplaceExisting, 0);
}

TEST_F(OptionViewTest, ConversionRefusesABadNameAndStaysOpen) {
  build_data record = PatternedRecord();
  record.conversionFlags = QMK_FILEOPT_DEFAULT_CONVERSION;
  const build_data before = record;
  QueueDialogScript(DialogScript(CConvertOptionsDialog::kIdd)
                        .Check(kIdcUseOther)
                        .SetText(kIdcOutputFile, "/bad name.txt")
                        .Press(IDOK)
                        .Press(IDCANCEL));
  EXPECT_FALSE(ShowConversionOptions(&record, 0, nullptr, services_));
  EXPECT_EQ(services_.shown, std::vector<std::string>{"561 16 /bad name.txt"});
  EXPECT_EQ(DifferingBytes(before, record), std::vector<size_t>{});
}

TEST_F(OptionViewTest, ConversionChoosingTheDefaultEmptiesTheOtherName) {
  build_data record = PatternedRecord();
  record.conversionFlags = 0;
  Put(record.postScanConversionFileName, sizeof record.postScanConversionFileName, "/out/a.txt");
  const build_data before = record;
  QueueDialogScript(DialogScript(CConvertOptionsDialog::kIdd).Check(kIdcUseDefaultName).Press(IDOK));
  ASSERT_TRUE(ShowConversionOptions(&record, 0, nullptr, services_));
  EXPECT_EQ(record.conversionFlags, QMK_FILEOPT_DEFAULT_CONVERSION);
  EXPECT_EQ(std::string(record.postScanConversionFileName, sizeof record.postScanConversionFileName),
            std::string(sizeof record.postScanConversionFileName, '\0'));
  EXPECT_TRUE(OnlyInside(DifferingBytes(before, record),
                         {QMK_SPAN(conversionFlags), QMK_SPAN(conversionReplaceExisting),
                          QMK_SPAN(postScanConversionFileName)}));
}

TEST_F(OptionViewTest, ConversionUntouchedOkMovesNoByteOutsideItsFields) {
  build_data record = PatternedRecord();
  record.conversionFlags = QMK_FILEOPT_DEFAULT_CONVERSION;
  record.conversionReplaceExisting = 0;
  const build_data before = record;
  QueueDialogScript(DialogScript(CConvertOptionsDialog::kIdd).Press(IDOK));
  ASSERT_TRUE(ShowConversionOptions(&record, 0, nullptr, services_));
  EXPECT_EQ(record.conversionFlags, QMK_FILEOPT_DEFAULT_CONVERSION);
  EXPECT_EQ(record.conversionReplaceExisting, 0);
  // The other name is zero-filled with the default chosen; nothing else moves.
  EXPECT_TRUE(OnlyInside(DifferingBytes(before, record), {QMK_SPAN(postScanConversionFileName)}));
}

// ---- automatic file naming ----

TEST_F(OptionViewTest, AutoNameScriptReachesTheModelsValues) {
  std::string screen_template = "*M*D.dat", model_template = screen_template;
  int16_t screen_sequence = 4, model_sequence = 4;
  uint8_t screen_flags = QMK_AUTONAME_RESET_DAILY, model_flags = screen_flags;
  QueueDialogScript(DialogScript(CAutoNameDialog::kIdd)
                        .Choose(kIdcTemplate, "Scan*S.dat")
                        .Check(kIdcResetMonthly)
                        .SetText(kIdcNext, "0")
                        .Check(kIdcUseAsBatch)
                        .Press(IDOK));
  CAutoNameDialog screen_model(&screen_template, &screen_sequence, &screen_flags, services_);
  view::CAutoNameDialog screen(screen_model);
  ASSERT_EQ(screen.DoModal(), IDOK);

  CAutoNameDialog model(&model_template, &model_sequence, &model_flags, services_);
  model.OnInitDialog();
  const auto& entries = model.entries();
  model.OnSelChange(static_cast<int>(std::find(entries.begin(), entries.end(), "Scan*S.dat") - entries.begin()));
  model.m_nResetRule = 2;
  model.m_nNext = 0;
  model.m_bUseAsBatch = true;
  ASSERT_TRUE(model.OnOK());
  EXPECT_EQ(screen_template, model_template);
  EXPECT_EQ(screen_template, "Scan*S.dat");
  // "Next:" 0 stores -1, so that the next name takes 0.
  EXPECT_EQ(screen_sequence, -1);
  EXPECT_EQ(screen_sequence, model_sequence);
  EXPECT_EQ(screen_flags, QMK_AUTONAME_RESET_MONTHLY | QMK_AUTONAME_USE_AS_BATCH);
  EXPECT_EQ(screen_flags, model_flags);
}

TEST_F(OptionViewTest, AutoNameCancelAndRefusalsChangeNothing) {
  std::string name_template = "*W*S.dat";
  int16_t sequence = 7;
  uint8_t flags = QMK_AUTONAME_RESET_WEEKLY;
  services_.template_ok = false;
  QueueDialogScript(DialogScript(CAutoNameDialog::kIdd)
                        .SetText(kIdcNext, "1000")  // three characters only: "100"
                        .Check(kIdcNeverReset)
                        .Press(IDOK)       // refused by the template check
                        .Press(IDCANCEL));
  CAutoNameDialog model(&name_template, &sequence, &flags, services_);
  view::CAutoNameDialog screen(model);
  EXPECT_EQ(screen.DoModal(), IDCANCEL);
  EXPECT_EQ(services_.templates_checked, std::vector<std::string>{"*W*S.dat"});
  EXPECT_EQ(name_template, "*W*S.dat");
  EXPECT_EQ(sequence, 7);
  EXPECT_EQ(flags, QMK_AUTONAME_RESET_WEEKLY);
}

// ---- scanning options ----

class ScanOptionsViewTest : public OptionViewTest {
 protected:
  void SetUp() override {
    OptionViewTest::SetUp();
    record_ = PatternedRecord();
    Put(record_.dataFileName, sizeof record_.dataFileName, "batch.dat");
    Put(record_.autoNameTemplate, sizeof record_.autoNameTemplate, "");
    Put(record_.scanConversionFileName, sizeof record_.scanConversionFileName, "");
    Put(record_.serialNumberText, sizeof record_.serialNumberText, "12");
    Put(record_.batchNumberText, sizeof record_.batchNumberText, "34");
    Put(record_.runNumberText, sizeof record_.runNumberText, "5");
    Put(record_.scanDateText, sizeof record_.scanDateText, "");
    record_.fileOptionFlags = QMK_FILEOPT_DEFAULT_CONVERSION;
    record_.dataFileMode = 0;
    record_.stopFlags = QMK_STOP_SYSTEM;
    record_.printFlags = QMK_PRINT_SERIAL;
    record_.printPosition = 10;
    record_.autoNameFlags = QMK_AUTONAME_NEVER_RESET;
    record_.autoNameSequence = 0;
    record_.contextFileInUse = 0;
    record_.bubbleThreshold = record_.checkThreshold = record_.tickThreshold = 0;
    record_.bubbleDiscrimination = record_.checkDiscrimination = record_.tickDiscrimination = 0;
    std::memset(&config_, 0, sizeof config_);
    Put(reinterpret_cast<char*>(config_.host_portion), QMK_PATH_BYTES, "/hostdata");
    config_.feat_mask.transport_printer = 1;
    config_.feat_mask.select_stacker = 1;
    config_.feat_mask.image_read = 1;
  }

  // Runs the dialog on screen over `record`, keeping the view reachable while it is up.
  bool RunOnScreen(build_data& record, OptionServices& services) {
    return RunScanOptions(&record, config_, 3, services, [this](CScanningOptionsMainDlg& model) {
      view::CScanningOptionsMainDlg dialog(model);
      view_ = &dialog;
      const auto result = dialog.DoModal();
      view_ = nullptr;
      return static_cast<int>(result);
    });
  }

  build_data record_;
  sct_config config_;
  view::CScanningOptionsMainDlg* view_ = nullptr;
};

// Ctrl+Tab goes to the other page, as in any tabbed dialog.
DialogScript& NextPage(DialogScript& script) { return script.Key(VK_TAB, kModControl); }

TEST_F(ScanOptionsViewTest, ScriptThroughBothPagesReachesTheModelsRecord) {
  build_data screen = record_, model = record_;
  DialogScript script(CScanningOptionsMainDlg::kIdd);
  script.Check(kIdcUseOther).SetText(kIdcOutputFile, "/out/conv.txt").Check(kIdcReplace);
  NextPage(script)
      .Check(kIdcStopLitho)
      .SetText(kIdcBatch, "99")
      .SetText(kIdcSerial, "500")
      .Choose(kIdcBubbleThreshold, "Dark")
      .Check(kIdcPrintDate)
      .Check(kIdcFourDigitYear)
      .Press(IDOK);
  QueueDialogScript(script);
  ASSERT_TRUE(RunOnScreen(screen, services_)) << ::testing::PrintToString(DialogScriptLog());

  FakeOptionServices model_services;
  ASSERT_TRUE(RunScanOptions(&model, config_, 3, model_services, [](CScanningOptionsMainDlg& d) {
    d.OnInitDialog();
    d.m_tabFileNames.OnClick(kIdcUseOther);
    d.m_tabFileNames.OnOutputFileChange("/out/conv.txt");
    d.m_tabFileNames.OnClick(kIdcReplace);
    ScannerPage& page = d.m_tabScannerControl;
    page.OnClick(kIdcStopLitho);
    page.m_nBatch = 99;
    page.m_nSerial = 500;
    page.OnSelectRead(ScannerPage::kBubbleThreshold, 2);
    page.OnClick(kIdcPrintDate);
    page.OnClick(kIdcFourDigitYear);
    return d.OnOK() ? IDOK : IDCANCEL;
  }));
  EXPECT_EQ(DifferingBytes(screen, model), std::vector<size_t>{});
  EXPECT_STREQ(screen.scanConversionFileName, "/out/conv.txt");
  EXPECT_STREQ(screen.batchNumberText, "99");
  EXPECT_EQ(screen.bubbleThreshold, -2);
  EXPECT_EQ(screen.stopFlags, QMK_STOP_LITHO_CODE | QMK_STOP_SYSTEM);
  EXPECT_EQ(screen.printFlags, QMK_PRINT_SERIAL | QMK_PRINT_SCAN_DATE | QMK_PRINT_FOUR_DIGIT_YEAR);
}

TEST_F(ScanOptionsViewTest, NamingDialogFromTheCheckBoxTakesTheBatchNumberAway) {
  build_data screen = record_, model = record_;
  QueueDialogScript(DialogScript(CScanningOptionsMainDlg::kIdd).Check(kIdcAutoGenerate).Press(IDOK));
  QueueDialogScript(DialogScript(CAutoNameDialog::kIdd)
                        .Check(kIdcUseAsBatch)
                        .SetText(kIdcNext, "20")
                        .Press(IDOK));
  ASSERT_TRUE(RunOnScreen(screen, services_));
  EXPECT_EQ(services_.auto_name_runs, 1);

  FakeOptionServices model_services;
  model_services.auto_name_answer = IDOK;
  model_services.on_auto_name = [](CAutoNameDialog& d) {
    d.OnInitDialog();
    d.m_bUseAsBatch = true;
    d.m_nNext = 20;
    d.OnOK();
  };
  ASSERT_TRUE(RunScanOptions(&model, config_, 3, model_services, [](CScanningOptionsMainDlg& d) {
    d.OnInitDialog();
    d.m_tabFileNames.OnClick(kIdcAutoGenerate);
    return d.OnOK() ? IDOK : IDCANCEL;
  }));
  EXPECT_EQ(DifferingBytes(screen, model), std::vector<size_t>{});
  EXPECT_EQ(screen.fileOptionFlags, QMK_FILEOPT_AUTONAME | QMK_FILEOPT_DEFAULT_CONVERSION);
  EXPECT_EQ(screen.autoNameFlags, QMK_AUTONAME_NEVER_RESET | QMK_AUTONAME_USE_AS_BATCH);
  EXPECT_EQ(screen.autoNameSequence, 19);
  // The batch edit was disabled, so the old batch text stays.
  EXPECT_STREQ(screen.batchNumberText, "34");
}

TEST_F(ScanOptionsViewTest, RefusalsSelectThePageAtFaultAndKeepTheDialogOpen) {
  // A bad output name is found while the second page is shown: OK goes back to the first.
  record_.fileOptionFlags = 0;
  Put(record_.scanConversionFileName, sizeof record_.scanConversionFileName, "/bad name.txt");
  std::vector<int> pages;
  const int idle = AddIdleHandler([&](int) {
    if (view_ && services_.shown.size() > pages.size()) pages.push_back(view_->CurrentPage());
    return false;
  });
  DialogScript script(CScanningOptionsMainDlg::kIdd);
  NextPage(script).Press(IDOK);          // message 561, back to the first page
  script.Check(kIdcUseDefaultName).Check(kIdcReplace);  // replace: the serial edit is enabled
  NextPage(script).SetText(kIdcSerial, "0").Press(IDOK)  // message 2027, stays on the second
      .Press(IDCANCEL);
  QueueDialogScript(script);
  build_data record = record_;
  EXPECT_FALSE(RunOnScreen(record, services_));
  RemoveIdleHandler(idle);
  EXPECT_EQ(services_.shown, (std::vector<std::string>{"561 16 /bad name.txt",
                                                       "2027 0"}));
  EXPECT_EQ(pages, (std::vector<int>{0, 1}));
  EXPECT_EQ(DifferingBytes(record_, record), std::vector<size_t>{});
}

TEST_F(ScanOptionsViewTest, UntouchedOkLeavesEveryHostByteAsItWas) {
  build_data record = record_;
  QueueDialogScript(DialogScript(CScanningOptionsMainDlg::kIdd).Press(IDOK));
  ASSERT_TRUE(RunOnScreen(record, services_));
  // Only the fields the pages store may differ, and of those only where the stored form differs
  // from the record's own (the read levels that had no entry, the zero-filled texts).
  EXPECT_TRUE(OnlyInside(DifferingBytes(record_, record),
                         {QMK_SPAN(fileOptionFlags), QMK_SPAN(scanConversionFileName),
                          QMK_SPAN(dataFileMode), QMK_SPAN(autoNameTemplate),
                          QMK_SPAN(autoNameFlags), QMK_SPAN(autoNameSequence),
                          QMK_SPAN(onlineEditCorrection), QMK_SPAN(stopFlags),
                          QMK_SPAN(scanDateText), QMK_SPAN(batchNumberText),
                          QMK_SPAN(runNumberText), QMK_SPAN(serialNumberText),
                          QMK_SPAN(printFlags), QMK_SPAN(printPosition)}));
  EXPECT_EQ(record.onlineEditCorrection, 1);  // the patterned word was non-zero: on
}

TEST_F(ScanOptionsViewTest, CancelAfterChangesOnBothPagesLeavesTheRecord) {
  build_data record = record_;
  DialogScript script(CScanningOptionsMainDlg::kIdd);
  script.Check(kIdcUseOther).SetText(kIdcOutputFile, "/x/y.txt").Check(kIdcReplaceAtSerial);
  NextPage(script).Check(kIdcStopThickness).SetText(kIdcRun, "3").Press(IDCANCEL);
  QueueDialogScript(script);
  EXPECT_FALSE(RunOnScreen(record, services_));
  EXPECT_EQ(DifferingBytes(record_, record), std::vector<size_t>{});
}

TEST_F(ScanOptionsViewTest, LeavingTheDateBoxShowsTheNormalisedDate) {
  std::string shown_date;
  std::vector<std::string> seen;
  const int idle = AddIdleHandler([&](int) {
    if (view_) shown_date = GetDlgItemText(view_->page_container().PageHwndGet(1), kIdcDate);
    if (view_ && (seen.empty() || seen.back() != shown_date)) seen.push_back(shown_date);
    return false;
  });
  DialogScript script(CScanningOptionsMainDlg::kIdd);
  NextPage(script)
      .SetText(kIdcDate, " 6.12 ")
      .Click(kIdcStopLitho)  // the focus leaves the date box
      .Click(kIdcStopLitho)
      .Press(IDCANCEL);
  QueueDialogScript(script);
  build_data record = record_;
  EXPECT_FALSE(RunOnScreen(record, services_));
  RemoveIdleHandler(idle);
  EXPECT_EQ(shown_date, "06/012") << ::testing::PrintToString(seen) << ::testing::PrintToString(DialogScriptLog());  // trimmed, then the services' normal form
}

// ---- exports ----

TEST_F(OptionViewTest, ExportsAnswerOkAndCancelAndCarryTheirHelpIds) {
  int seen = 0;
  const int idle = AddIdleHandler([&](int) {
    if (GetActiveWindow()) seen = GenGetHelpId();
    return false;
  });
  GenSetHelpId(0);
  build_data record{};
  record.conversionFlags = QMK_FILEOPT_DEFAULT_CONVERSION;
  sct_config config{};
  struct Case {
    int template_id;
    int button;
    std::function<int()> call;
    int want_result, want_help;
  };
  const Case cases[] = {
      {CEditOptionsDialog::kIdd, IDOK, [&] { return ScnSetEditOptions(&record, 4321, nullptr); }, 1, 4321},
      {CEditOptionsDialog::kIdd, IDCANCEL, [&] { return ScnSetEditOptions(&record, 12, nullptr); }, 0, 12},
      {CConvertOptionsDialog::kIdd, IDOK, [&] { return ScnSetConversionOptions(&record, 77, nullptr); }, 1, 77},
      {CConvertOptionsDialog::kIdd, IDCANCEL, [&] { return ScnSetConversionOptions(&record, 78, nullptr); }, 0, 78},
      // The scanning options dialog ignores the ids it is given: its help id is its number.
      {CScanningOptionsMainDlg::kIdd, IDCANCEL, [&] { return ScnSetScanOptions(&record, config, 3, 99, nullptr, 98); }, 0, 2004},
  };
  for (const Case& c : cases) {
    seen = 0;
    QueueDialogScript(DialogScript(c.template_id).Press(c.button));
    EXPECT_EQ(c.call(), c.want_result) << c.template_id;
    EXPECT_EQ(seen, c.want_help) << c.template_id;
    EXPECT_EQ(GenGetHelpId(), 0) << "the help context goes back when the dialog closes";
  }
  RemoveIdleHandler(idle);
  EXPECT_EQ(ScnSetEditOptions(nullptr, 1, nullptr), 0);
  EXPECT_EQ(ScnSetConversionOptions(nullptr, 1, nullptr), 0);
  EXPECT_EQ(ScnSetScanOptions(nullptr, config, 3, 0, nullptr, 0), 0);
}

}  // namespace
}  // namespace qmk::options::testing
