// paths.cpp: settings folders from the environment, bounded path joins, folder creation.
#include "platform/settings/paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "platform/files.h"

namespace qmk::platform {

bool PathAppend(std::string& path, const std::string& more) {
  std::string joined;
  if (more.empty()) joined = path;
  else if (more.front() == '/' || path.empty()) joined = more;
  else joined = path + (path.back() == '/' ? "" : "/") + more;
  if (joined.size() >= kMaxPath) return false;
  path = std::move(joined);
  return true;
}

std::string ParentFolder(const std::string& path) {
  const size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) return "";
  return slash == 0 ? "/" : path.substr(0, slash);
}

bool CreateFolders(const std::string& folder) {
  if (folder.empty()) return false;
  // Each prefix up to a "/" in turn; a folder made meanwhile by another process is fine.
  for (size_t at = folder.find('/', 1);; at = folder.find('/', at + 1)) {
    const std::string prefix = folder.substr(0, at);
    if (!prefix.empty() && mkdir(prefix.c_str(), 0755) != 0 && errno != EEXIST) return false;
    if (at == std::string::npos) break;
  }
  return IsFolder(folder);
}

std::string CommonDataFolder() {
  const char* value = std::getenv("QMK_COMMON_DATA");
  return value ? value : "/var/lib";
}

std::string UserKeyRootFolder() {
  return ConfigFolder() + "/quillmark/registry";
}

std::string MachineKeyRootFolder() {
  const char* value = std::getenv("QMK_MACHINE_ROOT");
  return value && *value ? value : "/etc/quillmark/registry";
}

}  // namespace qmk::platform
