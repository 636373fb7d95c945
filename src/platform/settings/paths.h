// paths.h: the folders where settings live, and the path helpers that build names in them.
//
// File paths are "/"-separated. Every combination is limited to kMaxPath - 1 characters, as
// the library's fixed path buffers are.
#pragma once

#include <string>

namespace qmk::platform {

constexpr size_t kMaxPath = 260;

// Joins `more` to `path` with one "/" between them. Returns false and leaves `path` as it was
// when the result would not fit in kMaxPath - 1 characters. An absolute `more` replaces `path`.
bool PathAppend(std::string& path, const std::string& more);

// The folder part of a file path: everything before the last "/", or "" when there is none.
std::string ParentFolder(const std::string& path);

// Creates every missing folder of `folder`. True when the folder exists afterwards.
bool CreateFolders(const std::string& folder);

// The data folder shared by all users: $QMK_COMMON_DATA, "/var/lib" when that is unset. An
// empty $QMK_COMMON_DATA stands for a system where the folder can't be found: "" is returned.
std::string CommonDataFolder();

// The default base folder of the scanner's files when the shared data folder is unknown.
constexpr char kDefaultRootDirectory[] = "/var/lib/quillmark/scanner";

// Roots of the key store: the per-user tree ($XDG_CONFIG_HOME/quillmark/registry, else
// ~/.config/quillmark/registry) and the per-machine tree ($QMK_MACHINE_ROOT, else
// /etc/quillmark/registry).
std::string UserKeyRootFolder();
std::string MachineKeyRootFolder();

}  // namespace qmk::platform
