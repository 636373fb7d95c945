// auto_name_dialog_model.h: the automatic file naming dialog as values, flags and rules.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "options/option_services.h"
#include "qmk/QmkScan.h"

namespace qmk::options {

// Control ids of the dialog.
constexpr int kIdcTemplate = 1969, kIdcResetDaily = 1970, kIdcResetWeekly = 1971,
              kIdcResetMonthly = 1972, kIdcNeverReset = 1973, kIdcNext = 1974,
              kIdcUseAsBatch = 1975, kIdcDescription = 1968;

// Template, sequence and reset rule, edited on the caller's variables, which change only on OK.
class CAutoNameDialog {
 public:
  static constexpr int kIdd = 208;

  CAutoNameDialog(std::string* name_template, int16_t* sequence, uint8_t* flags,
                  OptionServices& services);

  // Fills the combo (sorted, as the control sorts), selects the template and shows its
  // description.
  void OnInitDialog();
  // The user picked entry `index` of the combo.
  void OnSelChange(int index);
  // The user typed `text` into the combo's edit; no entry is selected then.
  void OnEditChange(const std::string& text);
  // Checks and stores; true when the dialog closes with OK. A refusal keeps it open.
  bool OnOK();
  // The dialog's window, over which the template check tells why it refuses.
  void SetWindow(QMK_HWND window) { window_ = window; }

  // Values the view exchanges with its controls.
  int m_nResetRule = 3;         // 0 daily, 1 weekly, 2 monthly, 3 never
  bool m_bUseAsBatch = false;
  int m_nNext = 1;              // "Next:", the sequence plus one
  std::string m_strTemplate;    // the combo's text

  const std::vector<std::string>& entries() const { return entries_; }
  int selected() const { return selected_; }
  const std::string& description() const { return description_; }
  bool description_enabled() const { return description_enabled_; }

 private:
  void ShowDescription();

  std::string* template_;
  int16_t* sequence_;
  uint8_t* flags_;
  OptionServices& services_;
  QMK_HWND window_ = nullptr;
  std::vector<std::string> presets_;
  std::map<std::string, std::string> descriptions_;
  std::vector<std::string> entries_;
  int selected_ = -1;
  std::string description_;
  bool description_enabled_ = true;
};

// Index of the first entry that starts with `prefix`, without regard to case, as a combo box
// selects by text; -1 when none does. An empty prefix finds the first entry.
int FindByPrefix(const std::vector<std::string>& entries, const std::string& prefix);

}  // namespace qmk::options
