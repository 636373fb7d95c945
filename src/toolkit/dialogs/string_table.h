// string_table.h: the library's texts by id, in the resource manager's language.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace qmk::toolkit {

// Copies text `id` of the library's own table into `out`. Returns false, leaving `out` empty,
// when the table has no such text.
bool LoadString(int id, std::string& out);

// The same into a fixed buffer of `size` bytes: the text is cut at size - 1 and zero-ended.
// A missing text leaves the buffer empty (when size > 0) and returns false.
bool LoadString(int id, char* buffer, size_t size);

// For the life of the object, text `id` reads as `text`, or is missing when `text` is nullopt.
// Lets tests stand on a table that lacks a text, or holds one where ours has none.
class ScopedStringOverride {
 public:
  ScopedStringOverride(int id, std::optional<std::string> text);
  ~ScopedStringOverride();
  ScopedStringOverride(const ScopedStringOverride&) = delete;
  ScopedStringOverride& operator=(const ScopedStringOverride&) = delete;

 private:
  int id_;
  std::optional<std::optional<std::string>> previous_;
};

}  // namespace qmk::toolkit
