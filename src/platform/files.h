// files.h: the user's folders, folder tests, and saving a whole file so that a reader never sees
// half of it.
#pragma once

#include <string>

namespace qmk::platform {

bool IsFolder(const std::string& path);

// $HOME, else the account's home folder, else "/".
std::string HomeFolder();
// $XDG_CONFIG_HOME when set and absolute, else HomeFolder()/.config.
std::string ConfigFolder();

// Replaces the file at `path` by `text`: written to a temporary file beside it, flushed and
// renamed over it, under the folder's lock. On failure the file holds what it held before and
// `error` says why.
bool SaveFileAtomically(const std::string& path, const std::string& text, std::string& error);

}  // namespace qmk::platform
