// builtin_resources.cpp: the string tables of resources/ (strings.<language>.inc) compiled into
// one resource module.
#include "toolkit/dialogs/builtin_resources.h"

#include <iterator>

#include "toolkit/dialogs/language_ids.h"

namespace qmk::toolkit {
namespace {

struct StringEntry {
  int id;
  std::string_view text;
};

constexpr StringEntry kEnglish[] = {
#define QMK_STRING(id, text) {id, text},
#include "strings.en.inc"
#undef QMK_STRING
};

constexpr StringEntry kGerman[] = {
#define QMK_STRING(id, text) {id, text},
#include "strings.de.inc"
#undef QMK_STRING
};

struct StringFile {
  const char* suffix;
  const StringEntry* entries;
  size_t count;
};

// One row per strings.<suffix>.inc file. A language file may hold only some texts: a text it
// lacks is found in English by the manager's fall-back.
constexpr StringFile kStringFiles[] = {
    {"en", kEnglish, std::size(kEnglish)},
    {"de", kGerman, std::size(kGerman)},
};

template <size_t N>
constexpr bool SortedById(const StringEntry (&table)[N]) {
  for (size_t i = 1; i < N; ++i)
    if (table[i - 1].id >= table[i].id) return false;
  return true;
}
static_assert(SortedById(kEnglish), "resources/strings.en.inc must list ids in rising order, once each");
static_assert(SortedById(kGerman), "resources/strings.de.inc must list ids in rising order, once each");

void AddStringFiles(ResourceTable& module) {
  for (const StringFile& file : kStringFiles) {
    const auto language = LanguageIdOfSuffix(file.suffix);
    for (size_t i = 0; language && i < file.count; ++i)
      module.AddView(kResourceTypeString, file.entries[i].id, *language, file.entries[i].text);
  }
}

}  // namespace

ResourceTable& BuiltinResources() {
  static ResourceTable* module = [] {
    auto* table = new ResourceTable;  // lives for the whole run: handles to it are never freed
    AddStringFiles(*table);
    return table;
  }();
  return *module;
}

bool AddDialogTemplate(ResourceTable& module, int id, const char* language, std::string_view text) {
  const auto lang = LanguageIdOfSuffix(language ? language : "");
  if (!lang) return false;
  module.AddView(kResourceTypeDialog, id, *lang, text);
  return true;
}

}  // namespace qmk::toolkit
