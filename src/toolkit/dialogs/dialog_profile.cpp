// dialog_profile.cpp: where dialogs keep their few settings.
#include "toolkit/dialogs/dialog_profile.h"

#include <charconv>
#include <cstdlib>

#include "platform/settings/paths.h"
#include "platform/settings/profile_file.h"

namespace qmk::toolkit {
namespace {

std::string& PathOverride() {
  static std::string path;
  return path;
}

constexpr size_t kValueLimit = 1024;

}  // namespace

std::string DialogProfilePath() {
  if (!PathOverride().empty()) return PathOverride();
  const char* xdg = std::getenv("XDG_CONFIG_HOME");
  const char* home = std::getenv("HOME");
  std::string folder = xdg && *xdg ? xdg : std::string(home ? home : "/tmp") + "/.config";
  return folder + "/quillmark/dialogs.ini";
}

void SetDialogProfilePath(const std::string& path) { PathOverride() = path; }

std::string ReadDialogProfileString(const std::string& section, const std::string& key,
                                    const std::string& fallback) {
  return platform::ReadProfileString(section, key, fallback, DialogProfilePath(), kValueLimit);
}

bool WriteDialogProfileString(const std::string& section, const std::string& key,
                              const std::string& value) {
  const std::string path = DialogProfilePath();
  platform::CreateFolders(platform::ParentFolder(path));
  return platform::WriteProfileString(section, key, value, path);
}

int ReadDialogProfileInt(const std::string& section, const std::string& key, int fallback) {
  const std::string text = ReadDialogProfileString(section, key, "");
  int value = 0;
  const char* end = text.data() + text.size();
  const auto [ptr, ec] = std::from_chars(text.data(), end, value);
  return (text.empty() || ec != std::errc() || ptr != end) ? fallback : value;
}

}  // namespace qmk::toolkit
