// conversion_options_model.cpp: the rules of the conversion and edit options dialogs and the
// work of their exports.
#include "options/conversion_options_model.h"

#include <algorithm>
#include <cstring>

#include "frame/message_display.h"
#include "options/scanning_options_model.h"

namespace qmk::options {

bool BrowseConversionFile(OptionServices& services, const std::string& current, std::string& chosen) {
  // The filter text ends in its own separator character, which the chooser wants as bars.
  std::string filter = services.Text(kTextFileFilter);
  if (!filter.empty()) std::replace(filter.begin(), filter.end(), filter.back(), '|');
  std::string folder, file;
  if (!services.FileSpecUsable(current) || !SplitFolder(current, folder, file)) {
    folder.clear();
    file.clear();
  } else if (folder.empty()) {
    folder = "/";  // a file in the root folder starts the chooser there, not nowhere
  }
  return services.ChooseOpenFile(services.Text(kTextChooserTitle), filter, folder, file, chosen);
}

CConvertOptionsDialog::CConvertOptionsDialog(int& choice, std::string& file_name, bool& replace,
                                             OptionServices& services)
    : choice_(choice), file_name_(file_name), replace_(replace), services_(services) {}

void CConvertOptionsDialog::OnInitDialog() { focus_ = frame::kIdOk; }

bool CConvertOptionsDialog::Enabled(int id) const {
  if (id == kIdcOutputFile || id == kIdcBrowse) return choice_ == 1;
  return true;
}

void CConvertOptionsDialog::OnClick(int id) {
  if (id == kIdcUseDefaultName) choice_ = 0;
  else if (id == kIdcUseOther) choice_ = 1;
  else if (id == kIdcReplaceExisting) replace_ = !replace_;
  else if (id == kIdcBrowse && Enabled(id)) {
    std::string chosen;
    if (BrowseConversionFile(services_, file_name_, chosen)) file_name_ = chosen;
  }
}

bool CConvertOptionsDialog::OnOK() {
  // The name is tested as typed, before any folder is put in front of it.
  if (choice_ == 1 && !services_.FileSpecUsable(file_name_)) {
    services_.ShowMessage(kMsgBadOutputName, frame::kMbIconStop, file_name_.c_str());
    return false;
  }
  return true;
}

int EditModeRadio(uint16_t edit_mode) { return edit_mode == 2 ? 1 : edit_mode == 4 ? 2 : 0; }

uint16_t EditModeOfRadio(int radio) { return radio == 1 ? 2 : radio == 2 ? 4 : 1; }

CEditOptionsDialog::CEditOptionsDialog(uint16_t& edit_mode)
    : m_nRadio(EditModeRadio(edit_mode)), edit_mode_(edit_mode) {}

void CEditOptionsDialog::OnInitDialog() {}

void CEditOptionsDialog::OnClick(int id) {
  if (id == kIdcEditNormally) m_nRadio = 0;
  else if (id == kIdcRecheckAll) m_nRadio = 1;
  else if (id == kIdcClearEditFlags) m_nRadio = 2;
}

bool CEditOptionsDialog::OnOK() {
  edit_mode_ = EditModeOfRadio(m_nRadio);
  return true;
}

bool RunConversionOptions(build_data* record, int help_id, OptionServices& services,
                          const std::function<int(CConvertOptionsDialog&)>& run) {
  int choice = (record->conversionFlags & QMK_FILEOPT_DEFAULT_CONVERSION) ? 0 : 1;
  bool replace = record->conversionReplaceExisting != 0;
  std::string name;
  if (choice == 1)
    name.assign(record->postScanConversionFileName,
                strnlen(record->postScanConversionFileName, sizeof record->postScanConversionFileName));
  CConvertOptionsDialog dialog(choice, name, replace, services);
  dialog.m_nHelpId = help_id;
  if (run(dialog) != frame::kIdOk) return false;
  // The flags word is rebuilt: the default-name bit is the only one that survives.
  record->conversionFlags = 0;
  record->conversionReplaceExisting = replace ? 1 : 0;
  std::memset(record->postScanConversionFileName, 0, sizeof record->postScanConversionFileName);
  if (choice == 0) {
    record->conversionFlags = QMK_FILEOPT_DEFAULT_CONVERSION;
    return true;
  }
  std::string folder, file;
  const std::string stored =
      SplitFolder(name, folder, file) ? name : services.DataFolder() + "/" + name;
  CopyField(record->postScanConversionFileName, sizeof record->postScanConversionFileName, stored);
  return true;
}

bool RunEditOptions(build_data* record, int help_id,
                    const std::function<int(CEditOptionsDialog&)>& run) {
  uint16_t mode = record->editMode;
  CEditOptionsDialog dialog(mode);
  dialog.m_nHelpId = help_id;
  if (run(dialog) != frame::kIdOk) return false;
  record->editMode = mode;
  return true;
}

}  // namespace qmk::options
