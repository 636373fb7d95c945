// string_table.cpp: the English string table generated from resources/strings.en.inc.
#include "toolkit/dialogs/string_table.h"

#include <algorithm>
#include <iterator>

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

}  // namespace

bool LoadString(int id, std::string& out) {
  auto it = std::lower_bound(std::begin(kEnglish), std::end(kEnglish), id,
                             [](const StringEntry& e, int key) { return e.id < key; });
  if (it == std::end(kEnglish) || it->id != id) {
    out.clear();
    return false;
  }
  out = it->text;
  return true;
}

}  // namespace qmk::toolkit
