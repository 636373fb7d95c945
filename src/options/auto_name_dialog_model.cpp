// auto_name_dialog_model.cpp: the rules of the automatic file naming dialog.
#include "options/auto_name_dialog_model.h"

#include <algorithm>
#include <cctype>

#include "frame/message_display.h"
#include "toolkit/dialogs/string_table.h"

namespace qmk::options {
namespace {

constexpr int kFirstPresetText = 110, kFirstDescriptionText = 120, kPresetCount = 10;

bool LessNoCase(const std::string& a, const std::string& b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) < std::tolower(static_cast<unsigned char>(y));
  });
}

// A sorted combo inserts each entry before the first that sorts after it.
int InsertSorted(std::vector<std::string>& entries, const std::string& text) {
  const auto at = std::upper_bound(entries.begin(), entries.end(), text, LessNoCase);
  return static_cast<int>(entries.insert(at, text) - entries.begin());
}

}  // namespace

int FindByPrefix(const std::vector<std::string>& entries, const std::string& prefix) {
  for (size_t i = 0; i < entries.size(); ++i) {
    const std::string& entry = entries[i];
    if (entry.size() < prefix.size()) continue;
    if (EqualsNoCase(entry.substr(0, prefix.size()), prefix)) return static_cast<int>(i);
  }
  return -1;
}

CAutoNameDialog::CAutoNameDialog(std::string* name_template, int16_t* sequence, uint8_t* flags,
                                 OptionServices& services)
    : template_(name_template), sequence_(sequence), flags_(flags), services_(services) {
  const uint8_t f = *flags_;
  m_nResetRule = (f & QMK_AUTONAME_RESET_DAILY) ? 0 : (f & QMK_AUTONAME_RESET_WEEKLY) ? 1
                 : (f & QMK_AUTONAME_RESET_MONTHLY) ? 2 : 3;
  m_bUseAsBatch = (f & QMK_AUTONAME_USE_AS_BATCH) != 0;
  m_nNext = *sequence_ + 1;
  m_strTemplate = *template_;
  for (int i = 0; i < kPresetCount; ++i) {
    std::string preset, description;
    toolkit::LoadString(kFirstPresetText + i, preset);
    toolkit::LoadString(kFirstDescriptionText + i, description);
    presets_.push_back(preset);
    descriptions_[preset] = description;
  }
}

void CAutoNameDialog::OnInitDialog() {
  entries_.clear();
  for (const std::string& preset : presets_) InsertSorted(entries_, preset);
  selected_ = FindByPrefix(entries_, m_strTemplate);
  if (selected_ < 0) selected_ = InsertSorted(entries_, m_strTemplate);
  m_strTemplate = entries_[selected_];
  ShowDescription();
}

void CAutoNameDialog::ShowDescription() {
  if (selected_ < 0) return;
  const auto found = descriptions_.find(entries_[selected_]);
  if (found == descriptions_.end()) return;
  description_enabled_ = true;
  description_ = found->second;
}

void CAutoNameDialog::OnSelChange(int index) {
  if (index < 0 || index >= static_cast<int>(entries_.size())) return;
  selected_ = index;
  m_strTemplate = entries_[index];
  ShowDescription();
}

void CAutoNameDialog::OnEditChange(const std::string& text) {
  m_strTemplate = text;
  selected_ = -1;
  // The combo finds an exact entry without regard to case.
  description_enabled_ = std::any_of(entries_.begin(), entries_.end(),
                                     [&](const std::string& e) { return EqualsNoCase(e, text); });
}

bool CAutoNameDialog::OnOK() {
  if (m_nNext < 0 || m_nNext > 999) {
    services_.ShowText("Please enter an integer between 0 and 999.", frame::kMbIconExclamation);
    return false;
  }
  if (!services_.CheckAutoNameTemplate(m_strTemplate, window_)) return false;
  *template_ = m_strTemplate;
  // "Next:" 0 stores -1, so that the next name takes 0.
  *sequence_ = static_cast<int16_t>(m_nNext - 1);
  static const uint8_t kRuleFlags[] = {QMK_AUTONAME_RESET_DAILY, QMK_AUTONAME_RESET_WEEKLY,
                                       QMK_AUTONAME_RESET_MONTHLY, QMK_AUTONAME_NEVER_RESET};
  *flags_ = static_cast<uint8_t>(kRuleFlags[m_nResetRule >= 0 && m_nResetRule < 4 ? m_nResetRule : 3] |
                                 (m_bUseAsBatch ? QMK_AUTONAME_USE_AS_BATCH : 0));
  return true;
}

}  // namespace qmk::options
