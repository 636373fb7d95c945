// system_number.h: number and currency input that follows the locale's separators, grouping and
// forms of negative values.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "platform/locale.h"
#include "toolkit/edit/edit_with_behavior.h"
#include "toolkit/edit/number_text.h"

namespace qmk::toolkit::edit {

// The text is rebuilt after every key from the number's digits, and the caret is kept at the same
// digit. Separators are strings, not single bytes, because many locales' group separators are
// multibyte characters (a narrow no-break space in UTF-8 is three bytes).
class CExtEditSystemNumberCurrencyBase : public CExtEditWithBehavior::CBehaviorBase {
 public:
  static constexpr uint32_t kNoGrouping = 1;   // suppress digit grouping
  static constexpr uint32_t kScientific = 2;   // allow the exponent form
  // Exponent digits past this are refused.
  static constexpr size_t kMaxExponentDigits = 3;

  // A negative `maxWholeDigits` also allows negative values; a negative `maxFractionDigits` takes
  // the locale's count of fraction digits.
  CExtEditSystemNumberCurrencyBase(CExtEditWithBehavior* edit, int maxWholeDigits, int maxFractionDigits,
                                   const platform::Locale& locale);

  // Reads the locale's settings again and rebuilds the text.
  void ReloadLocale();
  // A change of system settings: the section "intl" (or none) means the locale changed.
  void OnSettingChange(const char* section);
  void SetLocale(const platform::Locale& locale);

  std::string GetValidText() const override;
  void OnChar(unsigned ch, unsigned repeat, unsigned flags) override;
  void OnKeyDown(unsigned key, unsigned repeat, unsigned flags) override;

  // --- text and value ---
  // The text of a value: printed as "%lf", the decimal separator put in, trailing zeros trimmed
  // on request, the negative form applied, then grouped.
  std::string ValueToText(double value, bool trimZeros) const;
  std::string IntToText(int value) const;
  // The digits, the first decimal separator (as "." or, with `keepSeparator`, as it is) and a
  // leading "-" for a negative text; everything else dropped.
  std::string GetNumericPart(const std::string& text, bool keepSeparator = false) const;
  bool IsNegative(const std::string& text) const;
  // The display text of a number, and the display index of each caret position of its logical
  // text (one more entry than the logical text has characters).
  std::string Compose(const NumberParts& parts, std::vector<int>* caretMap = nullptr) const;
  NumberParts Parse(const std::string& text) const;
  // A text cut down to the digit limits and grouped again.
  std::string Normalize(const std::string& text) const;

  void TextSet(const std::string& text);
  std::string TextGet() const;
  // False, leaving the text alone, for a value out of range or beyond the digit limits.
  bool LongDoubleSet(double value, bool trimZeros = true);
  double LongDoubleGet() const;
  bool IntSet(int value);
  int IntGet() const;
  bool IsNegative() const;
  bool NegativeAllowed() const { return m_bNegativeAllowed; }
  void SetDigitLimits(int maxWholeDigits, int maxFractionDigits);
  void SetRange(double minimum, double maximum);
  void SetFlags(uint32_t flags);

  uint32_t m_dwFlags = 0;
  int32_t m_nMaxWholeDigits;
  int32_t m_nMaxFractionDigits;
  int32_t m_nNegativeFormat = 0;
  int32_t m_nPositiveFormat = 0;  // used by the currency form
  int32_t m_nLeadingZero = -1;
  int32_t m_nGrouping = -1;
  std::string m_strNegativeSign = "-";
  std::string m_strCurrencySign = "$";
  std::string m_strDecimalSeparator = ".";
  std::string m_strGroupSeparator = ",";
  std::string m_strExponentMarker = "e";
  double m_lfMinimum = -std::numeric_limits<double>::max();
  double m_lfMaximum = std::numeric_limits<double>::max();
  bool m_bMoved = false;  // the caret skipped a separator during deletion
  std::vector<int> m_arrGroupSizes;
  // The locale's fraction digits, leading zero, negative form, positive form, and the two
  // digit limits asked for (negative: from the locale), cached as read.
  int32_t m_nLocaleNumbers[6] = {-1, -1, -1, -1, -1, -1};

 protected:
  // The settings this form reads, by locale setting number.
  struct Settings {
    int negative_sign, decimal, group, negative_format, positive_format, grouping, digits, leading_zero, currency;
  };
  virtual Settings LocaleSettings() const = 0;
  // After the reads: the form's own overrides, and a group separator equal to the decimal
  // separator made different.
  virtual void AfterLocaleRead() = 0;
  // The text in front of and behind the number for its sign.
  virtual void Affixes(bool negative, std::string& prefix, std::string& suffix) const;
  bool ScientificAllowed() const;
  void ReadLocale();
  // Spells a form such as "-$ N": "-" the negative sign, "$" the currency sign, "N" the number.
  void SplitForm(const char* form, std::string& prefix, std::string& suffix) const;

  bool m_bCurrency = false;

 private:
  bool ReadSetting(int setting, std::string& into) const;
  bool ReadNumber(int setting, int32_t& into) const;
  int FractionLimit() const;
  // Applies an edit of the logical text and puts the caret at logical position `caret`.
  void Store(const NumberParts& parts, int caret);
  // How many characters of the logical text stand in `text` before `upto`.
  int LogicalCount(const std::string& text, int upto) const;
  NumberParts Walk(const std::string& text, size_t upto, int* logical) const;
  NumberParts CutDown(NumberParts parts) const;
  bool InNegativeAffix(const std::string& text, int index) const;
  // Rebuilds a text that isn't in its composed form, keeping the caret at its digit.
  void Recompose();
  bool InsertChar(char ch);
  void DeleteAt(bool backspace);

  const platform::Locale* m_pLocale;
  bool m_bNegativeAllowed = false;
  int m_nAskedFraction;
};

class CExtEditSystemNumber : public CExtEditSystemNumberCurrencyBase {
 public:
  explicit CExtEditSystemNumber(CExtEditWithBehavior* edit = nullptr, int maxWholeDigits = -15,
                                int maxFractionDigits = -1, const platform::Locale& locale = platform::EnUsLocale());

 protected:
  Settings LocaleSettings() const override;
  void AfterLocaleRead() override;
};

class CExtEditSystemCurrency : public CExtEditSystemNumberCurrencyBase {
 public:
  explicit CExtEditSystemCurrency(CExtEditWithBehavior* edit = nullptr, int maxWholeDigits = -15,
                                  int maxFractionDigits = -1, const platform::Locale& locale = platform::EnUsLocale());

 protected:
  Settings LocaleSettings() const override;
  void AfterLocaleRead() override;
  void Affixes(bool negative, std::string& prefix, std::string& suffix) const override;
};

}  // namespace qmk::toolkit::edit
