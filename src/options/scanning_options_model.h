// scanning_options_model.h: the scanning options dialog and its two pages as values, enabled
// flags and rules, which a view shows and tests drive without a window.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "options/option_services.h"
#include "qmk/QmkScan.h"

namespace qmk::options {

// File names page.
constexpr int kIdcUseDefaultName = 1912, kIdcUseOther = 1340, kIdcOutputFile = 1908,
              kIdcBrowse = 1909, kIdcAppend = 1357, kIdcReplace = 1358,
              kIdcReplaceAtSerial = 1359, kIdcAutoGenerate = 2001, kIdcAutonameRules = 1928,
              kIdcOnlineEdit = 1356;
// Scanner control page.
constexpr int kIdcStopSystem = 1927, kIdcStopLitho = 1926, kIdcStopThickness = 1935,
              kIdcSerialLabel = 1343, kIdcSerial = 1920, kIdcRun = 1922, kIdcBatchLabel = 1939,
              kIdcBatch = 1921, kIdcDate = 1344, kIdcBubbleLabel = 1346, kIdcCheckLabel = 1349,
              kIdcTickLabel = 1350, kIdcBubbleThreshold = 1952, kIdcBubbleDiscrimination = 1953,
              kIdcCheckThreshold = 1954, kIdcCheckDiscrimination = 1955,
              kIdcTickThreshold = 1956, kIdcTickDiscrimination = 1957, kIdcPrintGroup = 1351,
              kIdcPrintSerial = 1929, kIdcPrintBatch = 1930, kIdcPrintRun = 1931,
              kIdcPrintDate = 1932, kIdcFourDigitYear = 1933, kIdcOffsetEdit = 1945,
              kIdcPrintPositionLabel = 1352, kIdcPrintPosition = 1006, kIdcPrintSpin = 1007;

// Messages of the library's table that these pages show.
constexpr int kMsgBadOutputName = 561, kMsgBadSerial = 2027, kMsgBadDate = 2028,
              kMsgBadRun = 2029, kMsgBadBatch = 2030, kMsgNoReadLevel = 2032;

// Enabled flags by control id; a control never named is enabled.
class EnabledFlags {
 public:
  bool operator()(int id) const {
    const auto found = flags_.find(id);
    return found == flags_.end() || found->second;
  }
  void Set(int id, bool enabled) { flags_[id] = enabled; }

 private:
  std::map<int, bool> flags_;
};

// A read-level text and the number stored for it.
struct ReadLevelEntry {
  std::string text;
  int32_t value;
};

class CScanningOptionsMainDlg;

class CScanningOptionsTabFileNames {
 public:
  static constexpr int kIdd = 2002;
  explicit CScanningOptionsTabFileNames(CScanningOptionsMainDlg& main) : main_(main) {}

  void OnInitDialog();
  // A click on a radio selects it, on a check box toggles it; then the click's rule runs.
  void OnClick(int id);
  // The output name was edited; its tooltip follows the text.
  void OnOutputFileChange(const std::string& text);
  bool ValidateFileNames();
  void Store(build_data& record) const;

  bool Enabled(int id) const { return enabled_(id); }
  const std::string& tooltip() const { return tooltip_; }

  int m_nHelpId = 0;
  std::string m_strTitle = "&File Names";
  int m_nOutputChoice = 0;  // 0 the default conversion name, 1 the other name
  std::string m_strOutputFile;
  int m_nFileMode = 0;      // 0 append, 1 replace, 2 replace at serial number
  bool m_bAutoGenerate = false;
  bool m_bOnlineEdit = false;
  // Working copies of the auto-naming fields, edited by the naming dialog.
  std::string m_strAutoTemplate;
  int16_t m_nAutoSequence = 0;
  uint8_t m_nAutoFlags = 0;

 private:
  void ApplyEnableRule();
  void ApplyCrossPageRule();
  bool OpenAutoNameDialog();
  void Browse();

  CScanningOptionsMainDlg& main_;
  EnabledFlags enabled_;
  std::string tooltip_;
};

class CScanningOptionsTabScannerControl {
 public:
  static constexpr int kIdd = 2003;
  // The six read combos, in the order of the record's fields.
  enum ReadField { kBubbleThreshold, kBubbleDiscrimination, kCheckThreshold,
                   kCheckDiscrimination, kTickThreshold, kTickDiscrimination, kReadFields };

  explicit CScanningOptionsTabScannerControl(CScanningOptionsMainDlg& main) : main_(main) {}

  void OnInitDialog();
  // A click on one of the check boxes toggles it and refreshes the enabled states.
  void OnClick(int id);
  // The user picked entry `index` of a read combo.
  void OnSelectRead(ReadField field, int index);
  // The date box lost the focus.
  void OnDateKillFocus();
  void RefreshEnabled();
  bool ValidateBatchData();
  // The framework's range check of the print position, with its own message.
  bool CheckPrintPosition();
  // The spin's position, when the scanner prints.
  bool SpinTest() const;
  void Store(build_data& record) const;

  bool ready() const { return ready_; }
  bool Enabled(int id) const { return enabled_(id); }
  int focus() const { return focus_; }
  const std::vector<ReadLevelEntry>& thresholds() const { return thresholds_; }
  const std::vector<ReadLevelEntry>& discriminations() const { return discriminations_; }
  const std::vector<ReadLevelEntry>& ListOf(ReadField field) const;
  // The combo's selected entry, -1 for none.
  int SelectedRead(ReadField field) const { return read_selected_[field]; }
  // The text of a read combo as the view shows it: the selected entry, else empty.
  std::string& ReadText(ReadField field) { return *ReadTexts()[field]; }

  int m_nHelpId = 0;
  std::string m_strTitle = "&Scanner Control";
  bool m_bStopSystem = false, m_bStopLitho = false, m_bStopThickness = false;
  unsigned m_nSerial = 0, m_nRun = 0, m_nBatch = 0;
  std::string m_strDate;
  std::string m_strBubbleThreshold, m_strBubbleDiscrimination, m_strCheckThreshold,
      m_strCheckDiscrimination, m_strTickThreshold, m_strTickDiscrimination;
  bool m_bPrintSerial = false, m_bPrintBatch = false, m_bPrintRun = false, m_bPrintDate = false,
       m_bFourDigitYear = false, m_bOffsetEdit = false;
  int m_nPrintPosition = 1;
  int m_nSpinPosition = 1;

 private:
  std::array<std::string*, kReadFields> ReadTexts();
  void LoadValues();
  void BuildLists();
  void FindReadTexts();
  void SelectReadTexts();
  bool* CheckOf(int id);
  std::string Today() const;

  CScanningOptionsMainDlg& main_;
  EnabledFlags enabled_;
  bool ready_ = false;
  int focus_ = 0;
  std::vector<ReadLevelEntry> thresholds_, discriminations_;
  std::array<int, kReadFields> read_selected_{-1, -1, -1, -1, -1, -1};
};

class CScanningOptionsMainDlg {
 public:
  static constexpr int kIdd = 2004;
  enum Page { kFileNamesPage = 0, kScannerControlPage = 1 };

  CScanningOptionsMainDlg(const build_data& record, const sct_config& config, int read_level,
                          OptionServices& services);

  // Creates both pages (each initialised as it is made), then takes the current file name and
  // selects the first page.
  void OnInitDialog();
  // Validates the pages in order; true stores both pages into m_data and closes with OK.
  // False keeps the dialog open on the page at fault. A view passes `read_second_page`, which
  // reads the scanner control page's controls with the framework's number checks; it runs after
  // the file names are validated, and false stops on the second page.
  bool OnOK(const std::function<bool()>& read_second_page = nullptr);

  int selected_page() const { return selected_page_; }
  void SelectPage(int page) { selected_page_ = page; }
  int focus() const { return focus_; }
  OptionServices& services() { return services_; }
  const sct_config& config() const { return config_; }

  int m_nHelpId = kIdd;
  std::string m_strTitle = "Scanning Options";
  build_data m_data;
  int m_nReadLevel;
  bool m_bBatchEditable = true;
  int m_nDataFileMode = 0;
  std::string m_strCurrentFileName;
  CScanningOptionsTabFileNames m_tabFileNames{*this};
  CScanningOptionsTabScannerControl m_tabScannerControl{*this};

 private:
  const sct_config& config_;
  OptionServices& services_;
  int selected_page_ = kFileNamesPage;
  int focus_ = 0;
};

// The whole call behind the scan options export: works on copies, runs the dialog through
// `run` (which returns the button that ended it), and changes `host` only on OK. A reset of the
// naming sequence found on the way is left for the next naming call.
bool RunScanOptions(build_data* host, const sct_config& config, int read_level,
                    OptionServices& services,
                    const std::function<int(CScanningOptionsMainDlg&)>& run);

// Copies `text` into a fixed field, zero-filled, cut to leave the last byte zero.
void CopyField(char* field, size_t size, const std::string& text);

}  // namespace qmk::options
