// option_services.cpp: the option dialogs' services in the running library.
#include "options/option_services.h"

#include <cctype>
#include <cstdio>
#include <filesystem>
#include <map>

#include "frame/corvid_app.h"
#include "frame/message_display.h"
#include "options/auto_name_dialog_view.h"
#include "options/data_file_metrics.h"
#include "options/file_chooser.h"
#include "options/settings_paths.h"
#include "platform/ui/window.h"
#include "qmk/QmkGen.h"

namespace qmk::options {
namespace {

// The common services' texts that these dialogs use where the common services have none of
// their own. The filter ends in its own separator, which the browse step turns into bars.
const std::map<int, std::string>& CommonTexts() {
  static const std::map<int, std::string> texts = {
      {kTextChooserTitle, "Select Conversion Output File"},
      {kTextFileFilter, "Conversion Files (*.txt)!*.txt!All Files (*.*)!*.*!"},
      {kTextThresholdNumbers, "1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;"},
      {kTextDiscriminationNumbers, "1;2;3;4;5;6;7;8;"},
      {kTextToday, "Today"},
      {253, "Normal"}, {254, "Light"}, {255, "Dark"},
      {256, "Low"}, {257, "Medium"}, {258, "High"},
  };
  return texts;
}

bool ReadNumber(const std::string& text, size_t& pos, int max_digits, int& value) {
  int digits = 0;
  value = 0;
  while (pos < text.size() && std::isdigit(static_cast<unsigned char>(text[pos])) &&
         digits < max_digits) {
    value = value * 10 + (text[pos++] - '0');
    ++digits;
  }
  return digits > 0;
}

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInMonth(int month, int year) {
  static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

class LibraryServices : public OptionServices {
 public:
  std::string Text(int id) override {
    char buffer[1024];
    if (GenLoadText(nullptr, id, buffer, sizeof buffer) > 0) return buffer;
    const auto found = CommonTexts().find(id);
    return found == CommonTexts().end() ? std::string() : found->second;
  }

  // A name to write: not empty, short enough, no character a file name may not hold, and a
  // folder part that exists.
  bool FileSpecUsable(const std::string& path) override {
    if (path.empty() || path.size() >= 260) return false;
    for (const char c : path)
      if (static_cast<unsigned char>(c) < 0x20 || std::string("<>|\"?*").find(c) != std::string::npos)
        return false;
    std::string folder, file;
    if (!SplitFolder(path, folder, file)) return true;
    if (file.empty()) return false;
    std::error_code error;
    return std::filesystem::is_directory(folder.empty() ? "/" : folder, error);
  }

  // Month, day and year separated by '/', '-' or '.'; a two-digit year is of this century
  // below 70 and of the last one from 70. The normal form is "MM/DD/YYYY".
  bool NormalizeDate(const std::string& text, std::string& normalised) override {
    const std::string t = Trimmed(text);
    size_t pos = 0;
    int month = 0, day = 0, year = 0;
    if (!ReadNumber(t, pos, 2, month) || pos >= t.size()) return false;
    const char separator = t[pos++];
    if (separator != '/' && separator != '-' && separator != '.') return false;
    if (!ReadNumber(t, pos, 2, day) || pos >= t.size() || t[pos++] != separator) return false;
    const size_t year_start = pos;
    if (!ReadNumber(t, pos, 4, year) || pos != t.size()) return false;
    const size_t year_digits = pos - year_start;
    if (year_digits == 2) year += year < 70 ? 2000 : 1900;
    else if (year_digits != 4) return false;
    if (month < 1 || month > 12 || day < 1 || day > DaysInMonth(month, year)) return false;
    char out[40];
    std::snprintf(out, sizeof out, "%02d/%02d/%04d", month, day, year);
    normalised = out;
    return true;
  }

  // A missing, unreadable or foreign file gives no serial: the record's own stands. A data
  // file without a whole record gives 0, so the next scan starts at 1.
  bool LastSerialInDataFile(const std::string& path, unsigned& last_serial) override {
    DataFileMetrics metrics;
    if (ReadDataFileMetrics(path, metrics) != DataFileRead::kRead) return false;
    last_serial = metrics.last_serial;
    return true;
  }

  std::string DataFolder() override { return ReadRootDirectory(); }

  int ShowMessage(int id, unsigned flags, const char* arg) override {
    return arg ? frame::ShowMessageFormatted(id, flags, arg) : frame::ShowMessage(id, flags);
  }
  // The framework's own messages have no caption of the application and no help topic.
  int ShowText(const std::string& text, unsigned flags) override {
    return frame::TheApp().DoMessageBox(text, flags, 0);
  }
  bool CheckAutoNameTemplate(const std::string& name_template, QMK_HWND owner) override {
    return GenCheckAutoNameCString(name_template.c_str(), owner) != 0;
  }
  int RunAutoNameDialog(CAutoNameDialog& model) override {
    view::CAutoNameDialog dialog(model, platform::ui::GetActiveWindow());
    return static_cast<int>(dialog.DoModal());
  }
  bool ChooseOpenFile(const std::string& title, const std::string& filter,
                      const std::string& initial_folder, const std::string& initial_file,
                      std::string& chosen) override {
    return RunFileChooser(title, filter, initial_folder, initial_file, chosen);
  }
};

}  // namespace

OptionServices& DefaultOptionServices() {
  static LibraryServices services;
  return services;
}

bool SplitFolder(const std::string& path, std::string& folder, std::string& file) {
  const size_t slash = path.rfind('/');
  if (slash == std::string::npos) {
    folder.clear();
    file = path;
    return false;
  }
  folder = path.substr(0, slash);
  file = path.substr(slash + 1);
  return true;
}

std::string Trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool EqualsNoCase(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

}  // namespace qmk::options
