// file_chooser.cpp: the open-file chooser's folder listing, name resolution and window.
#include "options/file_chooser.h"

#include <fnmatch.h>

#include <algorithm>
#include <filesystem>

#include "frame/corvid_dialog.h"
#include "options/dialog_exchange.h"
#include "options/option_services.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/window.h"

namespace qmk::options {
namespace {

namespace fs = std::filesystem;
namespace ui = platform::ui;

constexpr int kChooserTemplate = 2090;
constexpr int kIdcFolder = 2091, kIdcEntries = 2092, kIdcName = 2093, kIdcType = 2094;

// Built in memory: the chooser is the platform's part, not one of the library's dialogs.
constexpr const char* kChooserText = R"(dialog 2090
caption "Open"
position 0 0 260 178
font "DejaVu Sans" 8
style WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER
label          -1       "Look in:"        8   8   40  8
label          2091     ""                50  8   202 8 style SS_NOPREFIX
list           2092     ""                8   20  244 98
label          -1       "File &name:"     8   124 50  8
edit           2093     ""                60  122 192 12
label          -1       "Files of &type:" 8   140 50  8
combo          2094     ""                60  138 192 60
default-button IDOK     "OK"              146 158 50  14
button         IDCANCEL "Cancel"          202 158 50  14
end
)";

bool Matches(const std::string& name, const std::string& patterns) {
  size_t start = 0;
  while (start <= patterns.size()) {
    size_t end = patterns.find(';', start);
    if (end == std::string::npos) end = patterns.size();
    const std::string pattern = Trimmed(patterns.substr(start, end - start));
    if (!pattern.empty() && fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0) return true;
    start = end + 1;
  }
  return false;
}

class FileChooserDialog : public frame::CCorvidDialog {
 public:
  FileChooserDialog(std::string title, std::vector<FileFilter> filters, std::string folder,
                    std::string file)
      : CCorvidDialog(kChooserTemplate, ui::GetActiveWindow()), filters_(std::move(filters)),
        folder_(std::move(folder)), file_(std::move(file)) {
    m_strTitle = std::move(title);
  }

  intptr_t Run() {
    ui::DialogTemplate tpl;
    if (!ui::ParseDialogTemplate(kChooserText, &tpl, nullptr)) return -1;
    return RunModalIndirect(tpl);
  }
  const std::string& chosen() const { return chosen_; }

 protected:
  bool OnInitDialog() override {
    CCorvidDialog::OnInitDialog();
    std::vector<std::string> types;
    for (const FileFilter& f : filters_) types.push_back(f.description);
    view::FillCombo(m_hWnd, kIdcType, types, types.empty() ? -1 : 0);
    view::ShowText(m_hWnd, kIdcName, file_);
    Refill();
    ui::SetFocus(ui::GetDlgItem(m_hWnd, kIdcName));
    return false;
  }

  void OnOK() override {
    const ChooserTarget target = ResolveChooserName(folder_, view::ReadText(m_hWnd, kIdcName));
    if (target.is_folder) {
      Enter(target.path);
    } else if (target.folder_exists && !target.path.empty()) {
      chosen_ = target.path;
      EndDialog(ui::IDOK);
    } else {
      ui::MessageBeep(0);
    }
  }

  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override {
    if (msg == ui::WM_COMMAND) {
      const int id = ui::LOWORD(wp);
      const unsigned code = ui::HIWORD(wp);
      if (id == kIdcType && code == ui::CBN_SELCHANGE) Refill();
      if (id == kIdcEntries && (code == ui::LBN_SELCHANGE || code == ui::LBN_DBLCLK)) Picked(code);
    }
    return CCorvidDialog::WindowProc(msg, wp, lp, handled);
  }

 private:
  std::string Patterns() {
    const int type = view::ReadComboSelection(m_hWnd, kIdcType);
    return type >= 0 && type < static_cast<int>(filters_.size()) ? filters_[type].patterns : "*";
  }

  void Refill() {
    if (folder_.empty()) folder_ = fs::current_path().string();
    view::ShowText(m_hWnd, kIdcFolder, folder_);
    ui::SendDlgItemMessage(m_hWnd, kIdcEntries, ui::LB_RESETCONTENT, 0, 0);
    for (const std::string& entry : ListFolder(folder_, Patterns()))
      ui::SendDlgItemMessage(m_hWnd, kIdcEntries, ui::LB_ADDSTRING, 0,
                             reinterpret_cast<ui::LPARAM>(entry.c_str()));
  }

  void Enter(const std::string& folder) {
    folder_ = folder;
    view::ShowText(m_hWnd, kIdcName, "");
    Refill();
  }

  void Picked(unsigned code) {
    const auto index = ui::SendDlgItemMessage(m_hWnd, kIdcEntries, ui::LB_GETCURSEL, 0, 0);
    if (index < 0) return;
    std::string entry(static_cast<size_t>(ui::SendDlgItemMessage(m_hWnd, kIdcEntries, ui::LB_GETTEXTLEN, index, 0)), '\0');
    entry.resize(entry.size() + 1);
    ui::SendDlgItemMessage(m_hWnd, kIdcEntries, ui::LB_GETTEXT, index, reinterpret_cast<ui::LPARAM>(entry.data()));
    entry.resize(entry.size() - 1);
    const bool folder = entry.size() >= 2 && entry.front() == '[' && entry.back() == ']';
    if (!folder) {
      view::ShowText(m_hWnd, kIdcName, entry);
      if (code == ui::LBN_DBLCLK) OnOK();
    } else if (code == ui::LBN_DBLCLK) {
      Enter(ResolveChooserName(folder_, entry.substr(1, entry.size() - 2)).path);
    }
  }

  std::vector<FileFilter> filters_;
  std::string folder_, file_, chosen_;
};

}  // namespace

std::vector<FileFilter> ParseFileFilter(const std::string& bars) {
  std::vector<std::string> parts;
  size_t start = 0;
  while (start < bars.size()) {
    size_t end = bars.find('|', start);
    if (end == std::string::npos) end = bars.size();
    parts.push_back(bars.substr(start, end - start));
    start = end + 1;
  }
  std::vector<FileFilter> filters;
  for (size_t i = 0; i + 1 < parts.size(); i += 2)
    if (!parts[i].empty()) filters.push_back({parts[i], parts[i + 1]});
  return filters;
}

std::vector<std::string> ListFolder(const std::string& folder, const std::string& patterns) {
  std::vector<std::string> folders, files;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    const std::string name = it->path().filename().string();
    if (name.empty() || name[0] == '.') continue;
    std::error_code kind_error;
    if (it->is_directory(kind_error)) folders.push_back("[" + name + "]");
    else if (Matches(name, patterns)) files.push_back(name);
  }
  std::sort(folders.begin(), folders.end());
  std::sort(files.begin(), files.end());
  std::vector<std::string> entries;
  if (fs::path(folder).has_relative_path()) entries.push_back("[..]");
  entries.insert(entries.end(), folders.begin(), folders.end());
  entries.insert(entries.end(), files.begin(), files.end());
  return entries;
}

ChooserTarget ResolveChooserName(const std::string& folder, const std::string& name) {
  ChooserTarget target;
  const std::string typed = Trimmed(name);
  if (typed.empty()) return target;
  fs::path path = typed[0] == '/' ? fs::path(typed) : fs::path(folder) / typed;
  path = path.lexically_normal();
  std::string text = path.string();
  if (text.size() > 1 && text.back() == '/') text.pop_back();
  std::error_code error;
  target.path = text;
  target.is_folder = fs::is_directory(path, error);
  const fs::path parent = fs::path(text).parent_path();
  target.folder_exists = target.is_folder || fs::is_directory(parent.empty() ? "." : parent, error);
  return target;
}

bool RunFileChooser(const std::string& title, const std::string& filter,
                    const std::string& initial_folder, const std::string& initial_file,
                    std::string& chosen) {
  FileChooserDialog dialog(title, ParseFileFilter(filter), initial_folder, initial_file);
  if (dialog.Run() != ui::IDOK) return false;
  chosen = dialog.chosen();
  return true;
}

}  // namespace qmk::options
