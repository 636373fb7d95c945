// files.cpp: the user's folders and whole-file saves.
#include "platform/files.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "platform/settings/atomic_file.h"

namespace qmk::platform {

bool IsFolder(const std::string& path) {
  struct stat st {};
  return stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

std::string HomeFolder() {
  if (const char* home = std::getenv("HOME"); home && *home) return home;
  if (const passwd* pw = getpwuid(getuid()); pw && pw->pw_dir && *pw->pw_dir) return pw->pw_dir;
  return "/";
}

std::string ConfigFolder() {
  // A relative value is to be ignored, by the rules of the XDG folders.
  if (const char* config = std::getenv("XDG_CONFIG_HOME"); config && config[0] == '/') return config;
  const std::string home = HomeFolder();
  return (home == "/" ? "" : home) + "/.config";
}

bool SaveFileAtomically(const std::string& path, const std::string& text, std::string& error) {
  errno = 0;
  if (UpdateFileLocked(path, [&](std::string& contents) {
        contents = text;
        return true;
      }))
    return true;
  error = "cannot write " + path + (errno ? std::string(": ") + std::strerror(errno) : "");
  return false;
}

}  // namespace qmk::platform
