// string_table.cpp: the English string table generated from resources/strings.en.inc.
#include "toolkit/dialogs/string_table.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <map>

namespace qmk::toolkit {
namespace {

struct StringEntry {
  int id;
  const char* text;
};

constexpr StringEntry kEnglish[] = {
#define QMK_STRING(id, text) {id, text},
#include "strings.en.inc"
#undef QMK_STRING
};

constexpr bool SortedById() {
  for (size_t i = 1; i < std::size(kEnglish); ++i)
    if (kEnglish[i - 1].id >= kEnglish[i].id) return false;
  return true;
}
static_assert(SortedById(), "resources/strings.en.inc must list ids in rising order, once each");

std::map<int, std::optional<std::string>>& Overrides() {
  static std::map<int, std::optional<std::string>> overrides;
  return overrides;
}

// The text of `id`, or null.
const char* Find(int id) {
  if (!Overrides().empty()) {
    auto o = Overrides().find(id);
    if (o != Overrides().end()) return o->second ? o->second->c_str() : nullptr;
  }
  auto it = std::lower_bound(std::begin(kEnglish), std::end(kEnglish), id,
                             [](const StringEntry& e, int key) { return e.id < key; });
  return (it != std::end(kEnglish) && it->id == id) ? it->text : nullptr;
}

}  // namespace

bool LoadString(int id, std::string& out) {
  const char* text = Find(id);
  out = text ? text : "";
  return text != nullptr;
}

bool LoadString(int id, char* buffer, size_t size) {
  const char* text = Find(id);
  if (size == 0) return text != nullptr;
  const size_t length = text ? std::min(std::strlen(text), size - 1) : 0;
  if (length) std::memcpy(buffer, text, length);
  buffer[length] = '\0';
  return text != nullptr;
}

ScopedStringOverride::ScopedStringOverride(int id, std::optional<std::string> text) : id_(id) {
  auto it = Overrides().find(id);
  if (it != Overrides().end()) previous_ = it->second;
  Overrides()[id] = std::move(text);
}

ScopedStringOverride::~ScopedStringOverride() {
  if (previous_)
    Overrides()[id_] = *previous_;
  else
    Overrides().erase(id_);
}

}  // namespace qmk::toolkit
