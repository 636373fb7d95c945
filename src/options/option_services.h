// option_services.h: what the option dialog models ask of the world around them: texts of the
// common services, file and date checks, the stored data folder, message boxes and sub-dialogs.
#pragma once

#include <string>

#include "qmk/QmkScan.h"

namespace qmk::options {

class CAutoNameDialog;

// Text ids of the common services that the option dialogs use.
constexpr int kTextChooserTitle = 101, kTextFileFilter = 102, kTextThresholdNumbers = 106,
              kTextDiscriminationNumbers = 108, kTextToday = 131;

// One seam for everything outside the models, so that tests can drive them without a window
// and without the common services' stored state.
class OptionServices {
 public:
  virtual ~OptionServices() = default;
  // A text of the common services by id; empty when it has none.
  virtual std::string Text(int id) = 0;
  // True when `path` can be used as a file name to write.
  virtual bool FileSpecUsable(const std::string& path) = 0;
  // The normalised form of a typed date, false when it isn't one.
  virtual bool NormalizeDate(const std::string& text, std::string& normalised) = 0;
  // The last serial number used in the data file at `path`; false when it can't be read.
  virtual bool LastSerialInDataFile(const std::string& path, unsigned& last_serial) = 0;
  // The data file folder of the stored scanner configuration.
  virtual std::string DataFolder() = 0;
  // Message `id` of the library's table, formatted with `arg` when it is not null.
  virtual int ShowMessage(int id, unsigned flags, const char* arg) = 0;
  // A text the framework itself shows (its number range checks), on the framework's road.
  virtual int ShowText(const std::string& text, unsigned flags) = 0;
  // Checks a naming template, telling the user why when it is refused, over `owner`.
  virtual bool CheckAutoNameTemplate(const std::string& name_template, QMK_HWND owner) = 0;
  // Runs the automatic file naming dialog modally; returns the button that ended it.
  virtual int RunAutoNameDialog(CAutoNameDialog& dialog) = 0;
  // The platform's open-file chooser. `filter` pairs are separated by vertical bars.
  virtual bool ChooseOpenFile(const std::string& title, const std::string& filter,
                              const std::string& initial_folder, const std::string& initial_file,
                              std::string& chosen) = 0;
};

// The services of the running library: the common services' texts and checks, the library's
// message road, the automatic file naming dialog and the library's open-file chooser.
OptionServices& DefaultOptionServices();

// Splits a path at its last '/' into folder and file; false when there is no folder part.
bool SplitFolder(const std::string& path, std::string& folder, std::string& file);

// Blanks removed from both ends.
std::string Trimmed(const std::string& text);

// Equal without regard to ASCII case.
bool EqualsNoCase(const std::string& a, const std::string& b);

}  // namespace qmk::options
