// conversion_options_model.h: the conversion options and edit options dialogs as values and
// rules, and the work of their exports on a build_data record.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "options/option_services.h"
#include "qmk/QmkScan.h"

namespace qmk::options {

constexpr int kIdcReplaceExisting = 1911;
constexpr int kIdcEditNormally = 1889, kIdcRecheckAll = 1888, kIdcClearEditFlags = 1342;

// The output file of the conversion after scanning: the default name or another one, and
// whether existing files are replaced. Works on its caller's three values.
class CConvertOptionsDialog {
 public:
  static constexpr int kIdd = 204;

  CConvertOptionsDialog(int& choice, std::string& file_name, bool& replace,
                        OptionServices& services);

  void OnInitDialog();
  // A click on a radio selects it, on the check box toggles it; the browse button browses.
  void OnClick(int id);
  // True closes with OK; a refused name keeps the dialog open.
  bool OnOK();

  bool Enabled(int id) const;
  int focus() const { return focus_; }
  // The caller's values, which a view shows and reads.
  int& choice() { return choice_; }
  std::string& file_name() { return file_name_; }
  bool& replace() { return replace_; }

  int m_nHelpId = -1;
  std::string m_strTitle = "Conversion Options ";

 private:
  int& choice_;
  std::string& file_name_;
  bool& replace_;
  OptionServices& services_;
  int focus_ = 0;
};

// How the next edit pass treats the records: three radios over the editMode values 1, 2, 4.
class CEditOptionsDialog {
 public:
  static constexpr int kIdd = 205;

  explicit CEditOptionsDialog(uint16_t& edit_mode);

  void OnInitDialog();
  void OnClick(int id);
  // Stores the radio's value into the caller's copy; always closes.
  bool OnOK();

  int m_nHelpId = -1;
  std::string m_strTitle = "Edit Options ";
  int m_nRadio = 0;

 private:
  uint16_t& edit_mode_;
};

// The radio shown for an editMode value (2 the second, 4 the third, every other the first), and
// the value that a radio stores.
int EditModeRadio(uint16_t edit_mode);
uint16_t EditModeOfRadio(int radio);

// Opens a dialog file chooser with the conversion name's filter and title, starting at `current`;
// true and the chosen path when the user picked one.
bool BrowseConversionFile(OptionServices& services, const std::string& current, std::string& chosen);

// The work behind the two exports: copies out, runs the dialog through `run` (which returns the
// button that ended it), writes `record` only on OK. The help id becomes the dialog's.
bool RunConversionOptions(build_data* record, int help_id, OptionServices& services,
                          const std::function<int(CConvertOptionsDialog&)>& run);
bool RunEditOptions(build_data* record, int help_id,
                    const std::function<int(CEditOptionsDialog&)>& run);

}  // namespace qmk::options
