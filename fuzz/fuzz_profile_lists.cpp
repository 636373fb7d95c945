// fuzz_profile_lists.cpp: arbitrary text as a sectioned file: every listed section and key can be
// found, and deleting one removes it alone.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/text.h"
#include "platform/settings/profile_file.h"

namespace {

using qmk::platform::EqualsNoCase;

bool Holds(const std::vector<std::string>& names, const std::string& name) {
  for (const std::string& n : names)
    if (EqualsNoCase(n, name)) return true;
  return false;
}

void CheckSection(const std::string& text, const std::string& section,
                  const std::vector<std::string>& sections) {
  const std::vector<std::string> keys = qmk::platform::ListProfileKeys(text, section);
  for (size_t k = 0; k < keys.size() && k < 4; ++k) {
    if (!qmk::platform::FindProfileValue(text, section, keys[k])) __builtin_trap();
    const std::string cut = qmk::platform::DeleteProfileKey(text, section, keys[k]);
    if (qmk::platform::FindProfileValue(cut, section, keys[k])) __builtin_trap();
    if (qmk::platform::ListProfileSections(cut) != sections) __builtin_trap();
  }
  const std::string without = qmk::platform::DeleteProfileSection(text, section);
  const std::vector<std::string> left = qmk::platform::ListProfileSections(without);
  if (Holds(left, section) || left.size() + 1 != sections.size()) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 8192) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> sections = qmk::platform::ListProfileSections(text);
  for (size_t s = 0; s < sections.size() && s < 6; ++s) CheckSection(text, sections[s], sections);
  return 0;
}
