// language_ids.h: the platform's 16-bit language identifiers, the suffixes of our resource files
// that stand for them, and which of them are written right to left.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qmk::toolkit {

constexpr uint16_t kLangEnglishUs = 1033;
// The language every resource exists in, and the last one a search tries.
constexpr uint16_t kLangIdNeutral = kLangEnglishUs;
// "The user's default language" as a lookup argument; resolved by UserDefaultLanguage().
constexpr uint16_t kLangUserDefault = 1024;
constexpr uint16_t kLangSystemDefault = 2048;

// The identifier of a resource file suffix ("en", "de", "pt-BR"; case-blind), or nullopt.
std::optional<uint16_t> LanguageIdOfSuffix(std::string_view suffix);
// The suffix of an identifier, or an empty view for one we have no files for.
std::string_view SuffixOfLanguageId(uint16_t language);

// True for the languages written right to left (Arabic in all its regions, Hebrew, Urdu, Farsi,
// Syriac, Divehi, Sindhi, Pashto and their relatives).
bool IsRightToLeftLanguageId(uint16_t language);

// The language a lookup "with no language" prefers. US English unless the host says otherwise:
// the library never guesses it from the environment, so every caller gets the same texts until
// a language is chosen on purpose.
uint16_t UserDefaultLanguage();
void SetUserDefaultLanguage(uint16_t language);

}  // namespace qmk::toolkit
