// profile_file.h: values in sectioned text files ("[section]" lines, then "key=value" lines).
//
// Sections and keys match without regard to case; names (in the file and as arguments) and
// values are trimmed of blanks; a value in matching single or double quotes reads without them.
// Lines end in LF, CR LF or a CR alone; a line that a write adds ends as the file's first line
// does (LF in a file that has none).
// Writing changes one line (or adds one) and keeps every other line, comments included, byte for
// byte.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qmk::platform {

// The value of `key` in `section` of the file's text, or nullopt when either is absent.
std::optional<std::string> FindProfileValue(const std::string& text, const std::string& section,
                                            const std::string& key);

// The text with `key` of `section` set to `value`: the key's line is replaced, or a line is added
// at the end of the section, or the section is added at the end of the text.
std::string SetProfileValue(const std::string& text, const std::string& section,
                            const std::string& key, const std::string& value);

// The names of the sections, and of the keys of one section, in file order; a name that occurs
// twice (in any case) is listed once, as first written.
std::vector<std::string> ListProfileSections(const std::string& text);
std::vector<std::string> ListProfileKeys(const std::string& text, const std::string& section);

// The text without the section (header and lines), or without the key's line; every copy of
// the name goes. Other lines are kept byte for byte.
std::string DeleteProfileSection(const std::string& text, const std::string& section);
std::string DeleteProfileKey(const std::string& text, const std::string& section,
                             const std::string& key);

// True when a section, key and value can be written without changing the file's structure: no
// line breaks anywhere, no "]" in the section, no "=" in the key, no key that starts as a section
// or a comment, no empty key or section.
bool IsWritableProfileEntry(const std::string& section, const std::string& key,
                            const std::string& value);

// Reads `key` of `section` from the file at `path`: `fallback` without its trailing blanks when
// the file, the section or the key is missing; the text cut to `size` - 1 characters.
std::string ReadProfileString(const std::string& section, const std::string& key,
                              const std::string& fallback, const std::string& path, size_t size);

// Writes `key` of `section` in the file at `path`, creating the file (not its folders) when
// missing. Atomic and locked. False when the entry isn't writable or the file can't be changed.
bool WriteProfileString(const std::string& section, const std::string& key,
                        const std::string& value, const std::string& path);

// The private-profile read with the platform's buffer rules, into `buffer` of `size` bytes:
// - a null `section` lists the section names, a null `key` the keys of `section`: each name
//   zero-ended and a final zero after the last; when the list does not fit, its first size - 2
//   bytes and two zeros, returning size - 2; otherwise the count without the final zero;
// - else the value (or `fallback` without trailing blanks) cut to size - 1 and zero-ended,
//   returning its length. Nothing is written when `size` is 0.
size_t ReadProfileEntry(const char* section, const char* key, const char* fallback, char* buffer,
                        size_t size, const std::string& path);

// The private-profile write: a null `key` deletes the section, a null `value` deletes the key,
// otherwise as WriteProfileString. Deleting from a missing file succeeds and creates nothing.
bool WriteProfileEntry(const char* section, const char* key, const char* value,
                       const std::string& path);

}  // namespace qmk::platform
