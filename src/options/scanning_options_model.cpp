// scanning_options_model.cpp: the main scanning options dialog: page set-up, the OK order and
// the export's work on copies.
#include "options/scanning_options_model.h"

#include <cstring>

#include "frame/message_display.h"
#include "options/auto_name.h"

namespace qmk::options {

void CopyField(char* field, size_t size, const std::string& text) {
  std::memset(field, 0, size);
  std::memcpy(field, text.data(), std::min(text.size(), size - 1));
}

CScanningOptionsMainDlg::CScanningOptionsMainDlg(const build_data& record,
                                                 const sct_config& config, int read_level,
                                                 OptionServices& services)
    : m_data(record), m_nReadLevel(read_level), config_(config), services_(services) {}

void CScanningOptionsMainDlg::OnInitDialog() {
  // The pages are made, and so initialised, before the current file name is taken: their
  // initialisation sees it empty.
  m_tabFileNames.m_nHelpId = 0;
  m_tabScannerControl.m_nHelpId = 0;
  m_tabFileNames.OnInitDialog();
  m_tabScannerControl.OnInitDialog();
  m_strCurrentFileName = std::string(m_data.dataFileName,
                                     strnlen(m_data.dataFileName, sizeof m_data.dataFileName));
  selected_page_ = kFileNamesPage;
  focus_ = frame::kIdOk;
}

bool CScanningOptionsMainDlg::OnOK(const std::function<bool()>& read_second_page) {
  if (!m_tabFileNames.ValidateFileNames()) {
    selected_page_ = kFileNamesPage;
    return false;
  }
  CScanningOptionsTabScannerControl& control = m_tabScannerControl;
  if ((read_second_page && !read_second_page()) || !control.CheckPrintPosition() ||
      !control.ValidateBatchData() || !control.SpinTest()) {
    selected_page_ = kScannerControlPage;
    return false;
  }
  m_tabFileNames.Store(m_data);
  control.Store(m_data);
  return true;
}

bool RunScanOptions(build_data* host, const sct_config& config, int read_level,
                    OptionServices& services,
                    const std::function<int(CScanningOptionsMainDlg&)>& run) {
  build_data copy = *host;
  const bool reset = LoadAutoNameContext(&copy);
  CScanningOptionsMainDlg dialog(copy, config, read_level, services);
  if (run(dialog) != frame::kIdOk) return false;
  build_data result = dialog.m_data;
  if (reset) {
    // A number typed on the very day a reset falls due is dropped; the reset itself is left
    // for the next naming call.
    result.autoNameSequence = host->autoNameSequence;
    result.autoNameResetDay = host->autoNameResetDay;
    result.autoNameResetMonth = host->autoNameResetMonth;
  }
  *host = result;
  return true;
}

}  // namespace qmk::options
