// settings_paths.cpp: key joins, INI file paths, the root folder value and the decimal rule.
#include "options/settings_paths.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "options/qmk_registry.h"
#include "platform/settings/paths.h"

namespace qmk::options {

std::string JoinKey(const std::string& base, const std::string& sub) {
  if (sub.empty()) return base;
  std::string joined = base;
  if (!base.empty() && base.back() != '\\' && sub.front() != '\\') joined += '\\';
  return joined + sub;
}

std::string ResolveIniPath(const std::string& name) {
  std::string file = name;
  if (const size_t at = file.find("Software\\"); at != std::string::npos)
    file = file.substr(at + std::strlen("Software\\"));
  for (char& c : file)
    if (c == '\\') c = '_';
  file += ".ini";

  const std::string common = platform::CommonDataFolder();
  std::string folder = common.empty() ? ReadRootDirectory() : common;
  if (!platform::PathAppend(folder, common.empty() ? "AppSettings" : "quillmark/AppSettings"))
    return "";
  if (!platform::PathAppend(folder, file)) return "";
  return folder;
}

std::string ReadRootDirectory() {
  constexpr size_t kRootBytes = 10240;
  std::string root = platform::kDefaultRootDirectory;
  CQMKRegistry key(kMakerKey, platform::KeyRoot::kCurrentUser, true);
  std::string bytes;
  if (key.m_hKey &&
      key.m_hKey->Query("RootDirectory", bytes, kRootBytes) == platform::QueryResult::kOk)
    root = bytes.substr(0, bytes.find('\0'));
  return root;
}

int32_t ParseDecimalSetting(const std::string& text) {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r'))) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
  int64_t value = 0;
  constexpr int64_t kLimit = int64_t{std::numeric_limits<int32_t>::max()} + 1;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
    value = std::min<int64_t>(value * 10 + (text[i] - '0'), kLimit);
  if (negative) return static_cast<int32_t>(-value);
  return static_cast<int32_t>(std::min<int64_t>(value, kLimit - 1));
}

}  // namespace qmk::options
