// locale_info.cpp: numbered locale information types answered from the Locale interface.
#include "toolkit/dialogs/locale_info.h"

#include <cstdio>
#include <memory>

#include "toolkit/dialogs/language_ids.h"

namespace qmk::toolkit {
namespace {

const platform::Locale* DefaultLocaleSource(uint32_t language) {
  if (language == kLangEnglishUs) return &platform::EnUsLocale();
  if (language == 0 || language == kLangUserDefault || language == kLangSystemDefault) {
    static const std::unique_ptr<platform::Locale> process = platform::ProcessLocale();
    return process.get();
  }
  return nullptr;
}

LocaleSource g_source = &DefaultLocaleSource;

const char* DateOrderDigit(platform::DateOrder order) {
  switch (order) {
    case platform::DateOrder::kMonthDayYear: return "0";
    case platform::DateOrder::kDayMonthYear: return "1";
    case platform::DateOrder::kYearMonthDay: return "2";
  }
  return "0";
}

}  // namespace

const platform::Locale* LocaleOfLanguage(uint32_t language) { return g_source(language); }

void SetLocaleSource(LocaleSource source) { g_source = source ? source : &DefaultLocaleSource; }

bool LocaleInfoText(const platform::Locale& locale, uint32_t language, uint32_t type,
                    std::string& out) {
  if (type >= kLocaleMonthName1 && type < kLocaleMonthName1 + 12) {
    out = locale.MonthName(static_cast<int>(type - kLocaleMonthName1) + 1, false);
    return true;
  }
  if (type >= kLocaleAbbrevMonthName1 && type < kLocaleAbbrevMonthName1 + 12) {
    out = locale.MonthName(static_cast<int>(type - kLocaleAbbrevMonthName1) + 1, true);
    return true;
  }
  switch (type) {
    case kLocaleLanguageId: {
      char hex[8];
      std::snprintf(hex, sizeof hex, "%04x", static_cast<unsigned>(language & 0xFFFF));
      out = hex;
      return true;
    }
    case kLocaleDecimal: out = std::string(1, locale.DecimalSeparator()); return true;
    case kLocaleThousand: out = std::string(1, locale.ThousandsSeparator()); return true;
    case kLocaleCurrency: out = locale.CurrencySymbol(); return true;
    case kLocaleDateSeparator: out = std::string(1, locale.DateSeparator()); return true;
    case kLocaleTimeSeparator: out = std::string(1, locale.TimeSeparator()); return true;
    case kLocaleDateOrder: out = DateOrderDigit(locale.GetDateOrder()); return true;
    case kLocaleTimeFormat: out = locale.Uses24HourClock() ? "1" : "0"; return true;
    case kLocaleAm: out = locale.AmDesignator(); return true;
    case kLocalePm: out = locale.PmDesignator(); return true;
    default: return false;
  }
}

}  // namespace qmk::toolkit
