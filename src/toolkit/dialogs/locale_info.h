// locale_info.h: locale facts by the platform's numbered information types, for a language.
#pragma once

#include <cstdint>
#include <string>

#include "platform/locale.h"

namespace qmk::toolkit {

// Information types, by their platform numbers.
constexpr uint32_t kLocaleLanguageId = 0x01;       // the language as four hex digits, "0409"
constexpr uint32_t kLocaleDecimal = 0x0E;
constexpr uint32_t kLocaleThousand = 0x0F;
constexpr uint32_t kLocaleCurrency = 0x14;
constexpr uint32_t kLocaleDateSeparator = 0x1D;
constexpr uint32_t kLocaleTimeSeparator = 0x1E;
constexpr uint32_t kLocaleDateOrder = 0x21;        // "0" month first, "1" day first, "2" year first
constexpr uint32_t kLocaleTimeFormat = 0x23;       // "0" 12-hour, "1" 24-hour
constexpr uint32_t kLocaleAm = 0x28;
constexpr uint32_t kLocalePm = 0x29;
constexpr uint32_t kLocaleMonthName1 = 0x38;       // to 0x43 for December
constexpr uint32_t kLocaleAbbrevMonthName1 = 0x44; // to 0x4F

// The locale facts of a language, or null when none are known for it. The default source knows
// US English (1033) and, for the default forms (0, 1024, 2048), the process's locale.
using LocaleSource = const platform::Locale* (*)(uint32_t language);
const platform::Locale* LocaleOfLanguage(uint32_t language);
// Installs another source (tests, hosts with more locales); null restores the default.
void SetLocaleSource(LocaleSource source);

// The text of information `type` in `locale`; false for a type it does not answer.
bool LocaleInfoText(const platform::Locale& locale, uint32_t language, uint32_t type,
                    std::string& out);

}  // namespace qmk::toolkit
