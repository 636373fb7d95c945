// settings_paths.h: where a settings location lies (key paths, INI file paths) and how its
// decimal text reads as a number.
#pragma once

#include <cstdint>
#include <string>

namespace qmk::options {

// The maker's key and the product's key below the per-user root.
constexpr char kMakerKey[] = "Software\\Quillmark";
constexpr char kProductKey[] = "Software\\Quillmark\\MarkDesk Plus 8";

// Joins two key paths with one backslash, unless either side already brings one; two backslashes
// at the seam stay two. An empty `sub` gives `base`.
std::string JoinKey(const std::string& base, const std::string& sub);

// The INI file for a location name: the part after "Software\" (when present), backslashes
// turned to underscores, ".ini" added, in the "quillmark/AppSettings" folder of the shared data
// folder, or in "AppSettings" below ReadRootDirectory() when that folder is unknown. "" when the
// path would be too long.
std::string ResolveIniPath(const std::string& name);

// The "RootDirectory" value of the maker's key, or the default root when it can't be read.
std::string ReadRootDirectory();

// A stored setting's text as a number: blanks, an optional sign and the digits that follow; 0
// when there are none. Numbers beyond 32 bits stop at the nearest limit.
int32_t ParseDecimalSetting(const std::string& text);

}  // namespace qmk::options
