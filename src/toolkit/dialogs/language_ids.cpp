// language_ids.cpp: the table of resource file suffixes and language identifiers, and the list of
// right-to-left languages.
#include "toolkit/dialogs/language_ids.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace qmk::toolkit {
namespace {

struct LanguageRow {
  const char* suffix;
  uint16_t id;
};

// One row per language that resource files may be written in. A bare language code stands for
// its main region, as the platform's primary sub-language does.
constexpr LanguageRow kLanguages[] = {
    {"ar", 1025},    {"bg", 1026},    {"zh-TW", 1028}, {"cs", 1029},    {"da", 1030},
    {"de", 1031},    {"el", 1032},    {"en", 1033},    {"fi", 1035},    {"fr", 1036},
    {"he", 1037},    {"hu", 1038},    {"it", 1040},    {"ja", 1041},    {"ko", 1042},
    {"nl", 1043},    {"nb", 1044},    {"pl", 1045},    {"pt-BR", 1046}, {"ro", 1048},
    {"ru", 1049},    {"hr", 1050},    {"sk", 1051},    {"sv", 1053},    {"th", 1054},
    {"tr", 1055},    {"id", 1057},    {"uk", 1058},    {"sl", 1060},    {"et", 1061},
    {"lv", 1062},    {"lt", 1063},    {"fa", 1065},    {"vi", 1066},    {"hi", 1081},
    {"zh-CN", 2052}, {"en-GB", 2057}, {"pt", 2070},    {"sr", 2074},    {"es", 3082},
};

// Right-to-left language identifiers, ascending.
constexpr uint16_t kRightToLeft[] = {1025, 1037, 1056, 1065, 1094, 1113, 1120, 2049,
                                     2080, 2144, 3073, 4097, 5121, 6145, 7169, 8193,
                                     9217, 10241, 11265, 12289, 13313, 14337, 15361, 16385};

bool SameSuffix(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
           return std::tolower(x) == std::tolower(y);
         });
}

uint16_t g_user_default = kLangEnglishUs;

}  // namespace

std::optional<uint16_t> LanguageIdOfSuffix(std::string_view suffix) {
  for (const LanguageRow& row : kLanguages)
    if (SameSuffix(row.suffix, suffix)) return row.id;
  return std::nullopt;
}

std::string_view SuffixOfLanguageId(uint16_t language) {
  for (const LanguageRow& row : kLanguages)
    if (row.id == language) return row.suffix;
  return {};
}

bool IsRightToLeftLanguageId(uint16_t language) {
  return std::binary_search(std::begin(kRightToLeft), std::end(kRightToLeft), language);
}

uint16_t UserDefaultLanguage() { return g_user_default; }
void SetUserDefaultLanguage(uint16_t language) { g_user_default = language; }

}  // namespace qmk::toolkit
