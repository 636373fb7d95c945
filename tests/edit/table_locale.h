// table_locale.h: a locale for tests: US English but for the number settings a test gives.
#pragma once

#include <map>
#include <string>

#include "platform/locale.h"

namespace qmk::toolkit::edit::testing {

class TableLocale : public platform::Locale {
 public:
  explicit TableLocale(std::map<int, std::string> numbers) : numbers_(std::move(numbers)) {}
  char DecimalSeparator() const override { return en().DecimalSeparator(); }
  char ThousandsSeparator() const override { return en().ThousandsSeparator(); }
  std::string CurrencySymbol() const override { return en().CurrencySymbol(); }
  std::string TrueName() const override { return en().TrueName(); }
  std::string FalseName() const override { return en().FalseName(); }
  platform::DateOrder GetDateOrder() const override { return en().GetDateOrder(); }
  char DateSeparator() const override { return en().DateSeparator(); }
  char TimeSeparator() const override { return en().TimeSeparator(); }
  std::string AmDesignator() const override { return en().AmDesignator(); }
  std::string PmDesignator() const override { return en().PmDesignator(); }
  bool Uses24HourClock() const override { return en().Uses24HourClock(); }
  std::string MonthName(int month, bool abbreviated) const override { return en().MonthName(month, abbreviated); }
  std::optional<std::string> NumberSetting(int setting) const override {
    const auto it = numbers_.find(setting);
    if (it == numbers_.end()) return Locale::NumberSetting(setting);
    if (it->second == "<none>") return std::nullopt;
    return it->second;
  }
  void Set(int setting, const std::string& value) { numbers_[setting] = value; }

 private:
  static const platform::Locale& en() { return platform::EnUsLocale(); }
  std::map<int, std::string> numbers_;
};

// Comma for decimals, dot for groups, the euro sign (three bytes) behind the amount.
inline TableLocale CommaDecimalLocale() {
  using namespace platform;
  return TableLocale({{kLocaleDecimal, ","}, {kLocaleThousand, "."}, {kLocaleMonDecimal, ","},
                      {kLocaleMonThousand, "."}, {kLocaleCurrency, "\xE2\x82\xAC"},
                      {kLocaleCurrencyPositive, "3"}, {kLocaleCurrencyNegative, "8"}});
}

// Groups of three, then of two: 12,34,56,789.
inline TableLocale TwoDigitGroupLocale() {
  using namespace platform;
  return TableLocale({{kLocaleGrouping, "3;2"}, {kLocaleMonGrouping, "3;2"}, {kLocaleCurrency, "Rs"},
                      {kLocaleCurrencyPositive, "2"}, {kLocaleCurrencyNegative, "12"}});
}

}  // namespace qmk::toolkit::edit::testing
