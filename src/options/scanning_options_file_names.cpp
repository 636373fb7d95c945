// scanning_options_file_names.cpp: the file names page: output and data file choices, the
// auto-naming switch and the rule that ties the page to the scanner control page.
#include "options/scanning_options_model.h"

#include <algorithm>
#include <cstring>

#include "frame/message_display.h"
#include "options/auto_name_dialog_model.h"
#include "options/conversion_options_model.h"

namespace qmk::options {
namespace {

std::string FieldText(const char* field, size_t size) {
  return std::string(field, strnlen(field, size));
}

}  // namespace

void CScanningOptionsTabFileNames::OnInitDialog() {
  const build_data& r = main_.m_data;
  m_nOutputChoice = (r.fileOptionFlags & QMK_FILEOPT_DEFAULT_CONVERSION) ? 0 : 1;
  m_strOutputFile = m_nOutputChoice == 1
                        ? FieldText(r.scanConversionFileName, sizeof r.scanConversionFileName)
                        : std::string();
  tooltip_ = m_strOutputFile;
  m_bAutoGenerate = (r.fileOptionFlags & QMK_FILEOPT_AUTONAME) != 0;
  m_strAutoTemplate = FieldText(r.autoNameTemplate, sizeof r.autoNameTemplate);
  m_nAutoSequence = r.autoNameSequence;
  m_nAutoFlags = r.autoNameFlags;
  m_nFileMode = r.dataFileMode;
  main_.m_nDataFileMode = m_nFileMode;
  m_bOnlineEdit = r.onlineEditCorrection != 0;
  ApplyCrossPageRule();
  ApplyEnableRule();
}

void CScanningOptionsTabFileNames::ApplyEnableRule() {
  enabled_.Set(kIdcOutputFile, m_nOutputChoice == 1);
  enabled_.Set(kIdcBrowse, m_nOutputChoice == 1);
  enabled_.Set(kIdcAutonameRules, m_bAutoGenerate);
}

void CScanningOptionsTabFileNames::ApplyCrossPageRule() {
  main_.m_nDataFileMode = m_nFileMode;
  main_.m_bBatchEditable = !(m_bAutoGenerate && (m_nAutoFlags & QMK_AUTONAME_USE_AS_BATCH));
  if (main_.m_tabScannerControl.ready()) main_.m_tabScannerControl.RefreshEnabled();
}

void CScanningOptionsTabFileNames::OnClick(int id) {
  switch (id) {
    case kIdcUseDefaultName:
    case kIdcUseOther:
      m_nOutputChoice = id == kIdcUseOther ? 1 : 0;
      ApplyCrossPageRule();
      ApplyEnableRule();
      break;
    case kIdcAppend:
    case kIdcReplace:
      m_nFileMode = id == kIdcReplace ? 1 : 0;
      ApplyCrossPageRule();
      break;
    case kIdcReplaceAtSerial: {
      const bool changed = m_nFileMode != 2;
      m_nFileMode = 2;
      ApplyCrossPageRule();
      if (changed)
        main_.m_strCurrentFileName =
            FieldText(main_.m_data.dataFileName, sizeof main_.m_data.dataFileName);
      break;
    }
    case kIdcAutoGenerate:
      // This click doesn't run the cross-page rule: the batch edit keeps its state until a
      // radio of the page is clicked.
      m_bAutoGenerate = !m_bAutoGenerate;
      // A Cancel in the naming dialog leaves the check on.
      if (m_bAutoGenerate) OpenAutoNameDialog();
      ApplyEnableRule();
      break;
    case kIdcAutonameRules:
      OpenAutoNameDialog();
      break;
    case kIdcOnlineEdit:
      m_bOnlineEdit = !m_bOnlineEdit;
      break;
    case kIdcBrowse:
      Browse();
      break;
    default:
      break;
  }
}

bool CScanningOptionsTabFileNames::OpenAutoNameDialog() {
  CAutoNameDialog dialog(&m_strAutoTemplate, &m_nAutoSequence, &m_nAutoFlags, main_.services());
  if (main_.services().RunAutoNameDialog(dialog) != frame::kIdOk) return false;
  main_.m_bBatchEditable = !(m_nAutoFlags & QMK_AUTONAME_USE_AS_BATCH);
  if (main_.m_tabScannerControl.ready()) main_.m_tabScannerControl.RefreshEnabled();
  ApplyEnableRule();
  return true;
}

void CScanningOptionsTabFileNames::Browse() {
  std::string chosen;
  if (BrowseConversionFile(main_.services(), m_strOutputFile, chosen)) OnOutputFileChange(chosen);
}

void CScanningOptionsTabFileNames::OnOutputFileChange(const std::string& text) {
  m_strOutputFile = text;
  tooltip_ = text;
}

bool CScanningOptionsTabFileNames::ValidateFileNames() {
  if (m_nOutputChoice != 1) return true;
  std::string folder, file;
  if (!SplitFolder(m_strOutputFile, folder, file))
    m_strOutputFile = main_.services().DataFolder() + "/" + m_strOutputFile;
  if (!main_.services().FileSpecUsable(m_strOutputFile)) {
    main_.services().ShowMessage(kMsgBadOutputName, frame::kMbIconStop, m_strOutputFile.c_str());
    return false;
  }
  return true;
}

void CScanningOptionsTabFileNames::Store(build_data& record) const {
  record.fileOptionFlags = static_cast<uint16_t>((m_bAutoGenerate ? QMK_FILEOPT_AUTONAME : 0) |
                                                 (m_nOutputChoice == 0 ? QMK_FILEOPT_DEFAULT_CONVERSION : 0));
  CopyField(record.scanConversionFileName, sizeof record.scanConversionFileName,
            m_nOutputChoice == 1 ? m_strOutputFile : std::string());
  record.dataFileMode = static_cast<int16_t>(m_nFileMode);
  CopyField(record.autoNameTemplate, sizeof record.autoNameTemplate,
            m_bAutoGenerate ? m_strAutoTemplate : std::string());
  record.autoNameFlags = m_bAutoGenerate ? m_nAutoFlags : QMK_AUTONAME_NEVER_RESET;
  record.autoNameSequence = m_bAutoGenerate ? m_nAutoSequence : 0;
  record.onlineEditCorrection = m_bOnlineEdit ? 1 : 0;
}

}  // namespace qmk::options
