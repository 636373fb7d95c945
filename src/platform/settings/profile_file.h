// profile_file.h: values in sectioned text files ("[section]" lines, then "key=value" lines).
//
// Sections and keys match without regard to case; names (in the file and as arguments) and
// values are trimmed of blanks; a value in matching single or double quotes reads without them.
// Writing changes one line (or adds one) and keeps every other line, comments included, byte for
// byte.
#pragma once

#include <optional>
#include <string>

namespace qmk::platform {

// The value of `key` in `section` of the file's text, or nullopt when either is absent.
std::optional<std::string> FindProfileValue(const std::string& text, const std::string& section,
                                            const std::string& key);

// The text with `key` of `section` set to `value`: the key's line is replaced, or a line is added
// at the end of the section, or the section is added at the end of the text.
std::string SetProfileValue(const std::string& text, const std::string& section,
                            const std::string& key, const std::string& value);

// True when a section, key and value can be written without changing the file's structure: no
// line breaks anywhere, no "]" in the section, no "=" in the key, no key that starts as a section
// or a comment, no empty key or section.
bool IsWritableProfileEntry(const std::string& section, const std::string& key,
                            const std::string& value);

// Reads `key` of `section` from the file at `path`: `fallback` when the file, the section or the
// key is missing; the text cut to `size` - 1 characters.
std::string ReadProfileString(const std::string& section, const std::string& key,
                              const std::string& fallback, const std::string& path, size_t size);

// Writes `key` of `section` in the file at `path`, creating the file (not its folders) when
// missing. Atomic and locked. False when the entry isn't writable or the file can't be changed.
bool WriteProfileString(const std::string& section, const std::string& key,
                        const std::string& value, const std::string& path);

}  // namespace qmk::platform
