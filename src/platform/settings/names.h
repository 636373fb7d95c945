// names.h: small tests on names that the key store and the INI files share.
#pragma once

#include <algorithm>
#include <cctype>
#include <string>

namespace qmk::platform {

// Names of keys, values, sections and INI keys match without regard to ASCII case.
inline bool EqualsIgnoringCase(const std::string& a, const std::string& b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
           return std::tolower(x) == std::tolower(y);
         });
}

}  // namespace qmk::platform
