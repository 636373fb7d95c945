// fuzz_ini_reader.cpp: arbitrary text as an INI file and as a key's values file. Lookups must not
// fail; an edit must read back as written and keep every other section's values; a values file
// must print to text that parses to the same values.
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/settings/key_store.h"
#include "platform/settings/profile_file.h"

namespace {

// A section name as the file matches it: blanks trimmed, case folded.
std::string Folded(const std::string& name) {
  const char* blanks = " \t\r\v\f";
  const size_t first = name.find_first_not_of(blanks);
  if (first == std::string::npos) return "";
  std::string out = name.substr(first, name.find_last_not_of(blanks) - first + 1);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

void CheckProfile(const std::string& text, const std::string& section, const std::string& key) {
  (void)qmk::platform::FindProfileValue(text, section, key);
  if (!qmk::platform::IsWritableProfileEntry(section, key, "42")) return;
  const std::string edited = qmk::platform::SetProfileValue(text, section, key, "42");
  const auto back = qmk::platform::FindProfileValue(edited, section, key);
  if (!back || *back != "42") __builtin_trap();
  // Another section's value is unchanged by the edit.
  const auto other_before = qmk::platform::FindProfileValue(text, "Other", "k");
  if (Folded(section) != "other" && other_before &&
      qmk::platform::FindProfileValue(edited, "Other", "k") != other_before)
    __builtin_trap();
}

void CheckValues(const std::string& text) {
  const auto values = qmk::platform::ParseKeyValues(text);
  const auto again = qmk::platform::ParseKeyValues(qmk::platform::FormatKeyValues(values));
  if (again.size() != values.size()) __builtin_trap();
  for (size_t i = 0; i < values.size(); ++i)
    if (again[i].name != values[i].name || again[i].data != values[i].data ||
        again[i].type != values[i].type)
      __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  // The first line names the section and key to look up and set; the rest is the file.
  const size_t nl = text.find('\n');
  const std::string head = nl == std::string::npos ? text : text.substr(0, nl);
  const size_t sep = head.find('|');
  const std::string section = sep == std::string::npos ? head : head.substr(0, sep);
  const std::string key = sep == std::string::npos ? "k" : head.substr(sep + 1);
  CheckProfile(text, section, key);
  CheckValues(text);
  return 0;
}
