// system_number.cpp: reading the locale's number settings, and typing and deleting in a number
// whose text is rebuilt after every key.
#include "toolkit/edit/system_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace qmk::toolkit::edit {
namespace {

constexpr const char* kNumberNegativeForms[] = {"(N)", "-N", "- N", "N-", "N -"};
constexpr const char* kCurrencyPositiveForms[] = {"$N", "N$", "$ N", "N $"};
constexpr const char* kCurrencyNegativeForms[] = {"($N)", "-$N", "$-N", "$N-", "(N$)", "-N$", "N-$", "N$-",
                                                  "-N $", "-$ N", "N $-", "$ N-", "$ -N", "N- $", "($ N)", "(N $)"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool StartsAt(const std::string& text, size_t i, const std::string& what) {
  return !what.empty() && text.compare(i, what.size(), what) == 0;
}

}  // namespace

CExtEditSystemNumberCurrencyBase::CExtEditSystemNumberCurrencyBase(CExtEditWithBehavior* edit, int maxWholeDigits,
                                                                   int maxFractionDigits,
                                                                   const platform::Locale& locale)
    : CBehaviorBase(edit),
      m_nMaxWholeDigits(maxWholeDigits < 0 ? -maxWholeDigits : maxWholeDigits),
      m_nMaxFractionDigits(maxFractionDigits),
      m_pLocale(&locale),
      m_bNegativeAllowed(maxWholeDigits < 0),
      m_nAskedFraction(maxFractionDigits) {}

// ---- locale reads ----

bool CExtEditSystemNumberCurrencyBase::ReadSetting(int setting, std::string& into) const {
  if (setting < 0) return false;
  const std::optional<std::string> value = m_pLocale->NumberSetting(setting);
  if (!value) return false;
  into = *value;
  return true;
}

bool CExtEditSystemNumberCurrencyBase::ReadNumber(int setting, int32_t& into) const {
  std::string text = "0";
  if (!ReadSetting(setting, text)) return false;
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() && !text.empty()) return false;
  (void)end;
  into = value;
  return true;
}

void CExtEditSystemNumberCurrencyBase::ReadLocale() {
  const Settings s = LocaleSettings();
  ReadSetting(s.negative_sign, m_strNegativeSign);
  std::string decimal;
  if (ReadSetting(s.decimal, decimal) && !decimal.empty()) m_strDecimalSeparator = decimal;
  if (m_dwFlags & kNoGrouping)
    m_strGroupSeparator.clear();
  else
    ReadSetting(s.group, m_strGroupSeparator);
  const int forms = m_bCurrency ? 16 : 5;
  int32_t form = 0;
  if (ReadNumber(s.negative_format, form) && form >= 0 && form < forms) m_nNegativeFormat = form;
  if (ReadNumber(s.positive_format, form) && form >= 0 && form < 4) m_nPositiveFormat = form;
  std::string grouping;
  if (ReadSetting(s.grouping, grouping)) {
    m_arrGroupSizes = ParseGroupSizes(grouping);
    m_nGrouping = m_arrGroupSizes.empty() ? 0 : m_arrGroupSizes.front();
  }
  int32_t digits = 0;
  if (ReadNumber(s.digits, digits) && digits >= 0) m_nLocaleNumbers[0] = digits;
  if (ReadNumber(s.leading_zero, m_nLeadingZero)) m_nLocaleNumbers[1] = m_nLeadingZero;
  ReadSetting(s.currency, m_strCurrencySign);
  AfterLocaleRead();
  m_nLocaleNumbers[2] = m_nNegativeFormat;
  m_nLocaleNumbers[3] = m_nPositiveFormat;
  m_nMaxFractionDigits = FractionLimit();
  m_nLocaleNumbers[4] = m_nMaxWholeDigits;
  m_nLocaleNumbers[5] = m_nAskedFraction;
}

int CExtEditSystemNumberCurrencyBase::FractionLimit() const {
  if (m_nAskedFraction >= 0) return m_nAskedFraction;
  return m_nLocaleNumbers[0] >= 0 ? m_nLocaleNumbers[0] : 2;
}

void CExtEditSystemNumberCurrencyBase::ReloadLocale() {
  const NumberParts parts = m_pEditWithBehaviorWnd ? Parse(m_pEditWithBehaviorWnd->GetText()) : NumberParts();
  ReadLocale();
  if (m_pEditWithBehaviorWnd && !m_pEditWithBehaviorWnd->GetText().empty())
    m_pEditWithBehaviorWnd->SetText(Compose(CutDown(parts)));
}

void CExtEditSystemNumberCurrencyBase::OnSettingChange(const char* section) {
  if (!section || std::strcmp(section, "intl") == 0) ReloadLocale();
}

void CExtEditSystemNumberCurrencyBase::SetLocale(const platform::Locale& locale) {
  m_pLocale = &locale;
  ReloadLocale();
}

void CExtEditSystemNumberCurrencyBase::SetFlags(uint32_t flags) {
  m_dwFlags = flags;
  ReloadLocale();
}

void CExtEditSystemNumberCurrencyBase::SetDigitLimits(int maxWholeDigits, int maxFractionDigits) {
  m_nMaxWholeDigits = maxWholeDigits < 0 ? -maxWholeDigits : maxWholeDigits;
  m_bNegativeAllowed = maxWholeDigits < 0;
  m_nAskedFraction = maxFractionDigits;
  m_nMaxFractionDigits = FractionLimit();
}

void CExtEditSystemNumberCurrencyBase::SetRange(double minimum, double maximum) {
  m_lfMinimum = std::min(minimum, maximum);
  m_lfMaximum = std::max(minimum, maximum);
}

bool CExtEditSystemNumberCurrencyBase::ScientificAllowed() const { return (m_dwFlags & kScientific) && !m_bCurrency; }

// ---- text forms ----

void CExtEditSystemNumberCurrencyBase::SplitForm(const char* form, std::string& prefix, std::string& suffix) const {
  std::string* out = &prefix;
  for (const char* p = form; *p; ++p) {
    if (*p == 'N') out = &suffix;
    else if (*p == '-') *out += m_strNegativeSign;
    else if (*p == '$') *out += m_strCurrencySign;
    else *out += *p;
  }
}

void CExtEditSystemNumberCurrencyBase::Affixes(bool negative, std::string& prefix, std::string& suffix) const {
  prefix.clear();
  suffix.clear();
  if (negative) SplitForm(kNumberNegativeForms[std::clamp(m_nNegativeFormat, 0, 4)], prefix, suffix);
}

void CExtEditSystemCurrency::Affixes(bool negative, std::string& prefix, std::string& suffix) const {
  prefix.clear();
  suffix.clear();
  SplitForm(negative ? kCurrencyNegativeForms[std::clamp(m_nNegativeFormat, 0, 15)]
                     : kCurrencyPositiveForms[std::clamp(m_nPositiveFormat, 0, 3)],
            prefix, suffix);
}

bool CExtEditSystemNumberCurrencyBase::IsNegative(const std::string& text) const {
  std::string prefix, suffix;
  Affixes(true, prefix, suffix);
  if ((prefix + suffix).find('(') != std::string::npos) return text.find('(') != std::string::npos;
  if (m_strNegativeSign.empty()) return false;
  if (StartsAt(prefix, 0, m_strNegativeSign)) return StartsAt(text, 0, m_strNegativeSign);
  return text.find(m_strNegativeSign) != std::string::npos;
}

NumberParts CExtEditSystemNumberCurrencyBase::Walk(const std::string& text, size_t upto, int* logical) const {
  NumberParts parts;
  int count = 0;
  const bool scientific = ScientificAllowed();
  bool after_marker = false;
  for (size_t i = 0; i < std::min(upto, text.size());) {
    const char c = text[i];
    const bool was_after_marker = after_marker;
    after_marker = false;
    if (m_bCurrency && StartsAt(text, i, m_strCurrencySign)) {
      i += m_strCurrencySign.size();
      continue;
    }
    if (!parts.point && !parts.exponent && StartsAt(text, i, m_strDecimalSeparator)) {
      parts.point = true;
      ++count;
      i += m_strDecimalSeparator.size();
      continue;
    }
    if (IsDigit(c)) {
      (parts.exponent ? parts.exponent_digits : parts.point ? parts.fraction : parts.whole) += c;
      ++count;
    } else if (scientific && !parts.exponent && (c == 'e' || c == 'E')) {
      parts.exponent = after_marker = true;
      ++count;
    } else if (was_after_marker && c == '-') {
      parts.exponent_negative = true;
      ++count;
    }
    ++i;
  }
  if (logical) *logical = count;
  return parts;
}

int CExtEditSystemNumberCurrencyBase::LogicalCount(const std::string& text, int upto) const {
  int count = 0;
  Walk(text, std::max(upto, 0), &count);
  return count;
}

NumberParts CExtEditSystemNumberCurrencyBase::Parse(const std::string& text) const {
  NumberParts parts = Walk(text, text.size(), nullptr);
  parts.negative = IsNegative(text);
  return parts;
}

std::string CExtEditSystemNumberCurrencyBase::GetNumericPart(const std::string& text, bool keepSeparator) const {
  const NumberParts parts = Parse(text);
  std::string out = parts.negative ? "-" : "";
  out += parts.whole;
  if (parts.point) out += keepSeparator ? m_strDecimalSeparator : ".";
  out += parts.fraction;
  if (parts.exponent) out += (parts.exponent_negative ? "e-" : "e") + parts.exponent_digits;
  return out;
}

std::string CExtEditSystemNumberCurrencyBase::Compose(const NumberParts& parts, std::vector<int>* caretMap) const {
  if (caretMap) caretMap->assign(1, 0);
  if (parts.Empty() && !parts.negative) return {};
  std::string prefix, suffix, body;
  Affixes(parts.negative, prefix, suffix);
  std::vector<int> map;
  auto mark = [&] { map.push_back(static_cast<int>(prefix.size() + body.size())); };
  const bool grouped = !(m_dwFlags & kNoGrouping) && !m_strGroupSeparator.empty();
  const std::vector<size_t> breaks = grouped ? GroupBreaks(parts.whole.size(), m_arrGroupSizes) : std::vector<size_t>();
  for (size_t i = 0, b = 0; i < parts.whole.size(); ++i) {
    if (b < breaks.size() && breaks[b] == i) {
      body += m_strGroupSeparator;
      ++b;
    }
    mark();
    body += parts.whole[i];
  }
  if (parts.point) {
    // The leading zero is shown, not typed: it is no stop of the caret.
    if (parts.whole.empty() && m_nLeadingZero == 1) body += '0';
    mark();
    body += m_strDecimalSeparator;
  }
  for (const char c : parts.fraction) {
    mark();
    body += c;
  }
  if (parts.exponent) {
    mark();
    body += m_strExponentMarker;
    if (parts.exponent_negative) {
      mark();
      body += '-';
    }
    for (const char c : parts.exponent_digits) {
      mark();
      body += c;
    }
  }
  mark();
  if (caretMap) *caretMap = map;
  return prefix + body + suffix;
}

NumberParts CExtEditSystemNumberCurrencyBase::CutDown(NumberParts parts) const {
  if (parts.whole.size() > static_cast<size_t>(m_nMaxWholeDigits)) parts.whole.resize(m_nMaxWholeDigits);
  if (parts.fraction.size() > static_cast<size_t>(std::max(m_nMaxFractionDigits, 0)))
    parts.fraction.resize(std::max(m_nMaxFractionDigits, 0));
  if (m_nMaxFractionDigits <= 0) parts.point = false;
  if (!ScientificAllowed()) parts.exponent = parts.exponent_negative = false, parts.exponent_digits.clear();
  if (parts.exponent_digits.size() > kMaxExponentDigits) parts.exponent_digits.resize(kMaxExponentDigits);
  if (!m_bNegativeAllowed) parts.negative = false;
  return parts;
}

std::string CExtEditSystemNumberCurrencyBase::Normalize(const std::string& text) const {
  return Compose(CutDown(Parse(text)));
}

std::string CExtEditSystemNumberCurrencyBase::GetValidText() const {
  return m_pEditWithBehaviorWnd ? Normalize(m_pEditWithBehaviorWnd->GetText()) : std::string();
}

std::string CExtEditSystemNumberCurrencyBase::ValueToText(double value, bool trimZeros) const {
  if (!std::isfinite(value)) return {};
  if (value == 0) value = 0;  // no negative zero
  char buffer[400];
  // "%lf" without the process locale's say: the separator is put in below.
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 6);
  std::string text(buffer, result.ptr);
  if (trimZeros && text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  const bool negative = !text.empty() && text[0] == '-';
  if (negative) text.erase(0, 1);
  NumberParts parts = NumberParts::FromLogical(text, negative);
  if (m_nLeadingZero == 0 && parts.whole == "0" && parts.point) parts.whole.clear();
  return Compose(parts);
}

std::string CExtEditSystemNumberCurrencyBase::IntToText(int value) const {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%d", value);
  const bool negative = buffer[0] == '-';
  return Compose(NumberParts::FromLogical(buffer + (negative ? 1 : 0), negative));
}

// ---- value access ----

void CExtEditSystemNumberCurrencyBase::TextSet(const std::string& text) {
  if (m_pEditWithBehaviorWnd) m_pEditWithBehaviorWnd->SetText(Normalize(text));
}

std::string CExtEditSystemNumberCurrencyBase::TextGet() const {
  return m_pEditWithBehaviorWnd ? m_pEditWithBehaviorWnd->GetText() : std::string();
}

bool CExtEditSystemNumberCurrencyBase::LongDoubleSet(double value, bool trimZeros) {
  if (!m_pEditWithBehaviorWnd || !std::isfinite(value) || value < m_lfMinimum || value > m_lfMaximum) return false;
  if (value < 0 && !m_bNegativeAllowed) return false;
  const std::string text = ValueToText(value, trimZeros);
  if (Parse(text).whole.size() > static_cast<size_t>(m_nMaxWholeDigits)) return false;
  m_pEditWithBehaviorWnd->SetText(Normalize(text));
  return true;
}

double CExtEditSystemNumberCurrencyBase::LongDoubleGet() const {
  std::string numeric = GetNumericPart(TextGet());
  // A number cut off after its marker ("12e", "12e-") is worth its mantissa.
  if (const size_t marker = numeric.find('e'); marker != std::string::npos &&
                                               numeric.find_first_of("0123456789", marker) == std::string::npos)
    numeric.erase(marker);
  double value = 0;
  const auto result = std::from_chars(numeric.data(), numeric.data() + numeric.size(), value);
  return result.ec == std::errc() ? value : 0.0;
}

bool CExtEditSystemNumberCurrencyBase::IntSet(int value) {
  if (!m_pEditWithBehaviorWnd || value < m_lfMinimum || value > m_lfMaximum || (value < 0 && !m_bNegativeAllowed))
    return false;
  const std::string text = IntToText(value);
  if (Parse(text).whole.size() > static_cast<size_t>(m_nMaxWholeDigits)) return false;
  m_pEditWithBehaviorWnd->SetText(text);
  return true;
}

int CExtEditSystemNumberCurrencyBase::IntGet() const {
  const double value = std::trunc(LongDoubleGet());
  return static_cast<int>(std::clamp(value, -2147483648.0, 2147483647.0));
}

bool CExtEditSystemNumberCurrencyBase::IsNegative() const { return Parse(TextGet()).negative; }

// ---- keys ----

void CExtEditSystemNumberCurrencyBase::Store(const NumberParts& parts, int caret) {
  std::vector<int> map;
  const std::string text = Compose(parts, &map);
  const int at = map[std::clamp(caret, 0, static_cast<int>(map.size()) - 1)];
  ++m_nIgnoreNextChange;
  m_pEditWithBehaviorWnd->SetText(text);
  --m_nIgnoreNextChange;
  m_pEditWithBehaviorWnd->SetSel(at, at);
}

void CExtEditSystemNumberCurrencyBase::Recompose() {
  const std::string text = m_pEditWithBehaviorWnd->GetText();
  const NumberParts parts = CutDown(Parse(text));
  if (Compose(parts) == text) return;
  int start = 0, end = 0;
  m_pEditWithBehaviorWnd->GetSel(start, end);
  Store(parts, LogicalCount(text, start));
}

bool CExtEditSystemNumberCurrencyBase::InNegativeAffix(const std::string& text, int index) const {
  if (!IsNegative(text) || index < 0 || index >= static_cast<int>(text.size())) return false;
  std::string prefix, suffix;
  Affixes(true, prefix, suffix);
  const int from_end = static_cast<int>(text.size()) - index;
  const bool in_affix = index < static_cast<int>(prefix.size()) || from_end <= static_cast<int>(suffix.size());
  const char c = text[index];
  return in_affix && (c == '(' || c == ')' || m_strNegativeSign.find(c) != std::string::npos);
}

bool CExtEditSystemNumberCurrencyBase::InsertChar(char ch) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  const std::string text = edit->GetText();
  int start = 0, end = 0;
  edit->GetSel(start, end);
  const NumberParts parts = Parse(text);
  const std::string logical = parts.Logical();
  const int ls = LogicalCount(text, start), le = std::max(ls, LogicalCount(text, end));
  const size_t marker = logical.find('e');
  const bool in_exponent = marker != std::string::npos && static_cast<size_t>(ls) > marker;
  std::string changed = logical;
  int caret = ls + 1;
  if (IsDigit(ch)) {
    changed.replace(ls, le - ls, 1, ch);
  } else if (!m_strDecimalSeparator.empty() && ch == m_strDecimalSeparator[0] && !in_exponent) {
    if (m_nMaxFractionDigits <= 0) return false;
    const size_t point = logical.find('.');
    if (point != std::string::npos && (point < static_cast<size_t>(ls) || point >= static_cast<size_t>(le))) {
      Store(parts, static_cast<int>(point) + 1);  // a second separator just moves the caret behind the first
      return true;
    }
    changed.replace(ls, le - ls, 1, '.');
  } else if (in_exponent && ch == '-' && static_cast<size_t>(ls) == marker + 1) {
    changed.replace(ls, le - ls, 1, '-');
  } else if ((!m_strNegativeSign.empty() && ch == m_strNegativeSign[0]) || (ch == '(' && m_nNegativeFormat == 0)) {
    if (!m_bNegativeAllowed) return false;
    changed.erase(ls, le - ls);
    Store(CutDown(NumberParts::FromLogical(changed, true)), ls);
    return true;
  } else if (ScientificAllowed() && (ch == 'e' || ch == 'E') && marker == std::string::npos &&
             static_cast<size_t>(ls) == logical.size() && !(parts.whole + parts.fraction).empty()) {
    changed += 'e';
  } else {
    return false;
  }
  const NumberParts next = NumberParts::FromLogical(changed, parts.negative);
  // Digits past a limit are refused, unless the part didn't grow (a selection was replaced).
  auto grew_past = [](const std::string& before, const std::string& after, size_t limit) {
    return after.size() > limit && after.size() > before.size();
  };
  if (grew_past(parts.whole, next.whole, m_nMaxWholeDigits) ||
      grew_past(parts.fraction, next.fraction, std::max(m_nMaxFractionDigits, 0)) ||
      grew_past(parts.exponent_digits, next.exponent_digits, kMaxExponentDigits))
    return false;
  // A shown leading zero counts as a digit once typed over, so the limits are applied again.
  Store(CutDown(next), caret);
  return true;
}

void CExtEditSystemNumberCurrencyBase::OnChar(unsigned ch, unsigned repeat, unsigned flags) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  if (!edit || edit->IsReadOnly()) return;
  if (ch == 3) {
    edit->DefaultChar(ch, repeat, flags);  // Ctrl+C copies
    return;
  }
  if (ch < 0x20 || ch > 0xFF) return;
  edit->SetUndoPoint();
  Recompose();
  InsertChar(static_cast<char>(ch));
}

void CExtEditSystemNumberCurrencyBase::DeleteAt(bool backspace) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  const std::string text = edit->GetText();
  int start = 0, end = 0;
  edit->GetSel(start, end);
  NumberParts parts = Parse(text);
  std::string logical = parts.Logical();
  int ls = LogicalCount(text, start), le = LogicalCount(text, end);
  m_bMoved = false;
  if (start != end) {
    for (int i = start; i < end; ++i)
      if (InNegativeAffix(text, i)) parts.negative = false;
    // Separators alone selected go with the digit beside them.
    if (ls == le && backspace && ls > 0) --ls;
    else if (ls == le && !backspace && le < static_cast<int>(logical.size())) ++le;
  } else if (InNegativeAffix(text, backspace ? start - 1 : start)) {
    Store(CutDown(NumberParts::FromLogical(logical, false)), ls);  // the sign goes as a whole
    return;
  } else if (backspace) {
    if (ls == 0) return;
    m_bMoved = LogicalCount(text, start - 1) == ls;  // the caret stepped back over a separator
    --ls;
  } else {
    if (ls >= static_cast<int>(logical.size())) return;
    m_bMoved = LogicalCount(text, start + 1) == ls;
    le = ls + 1;
  }
  if (start == end && backspace) le = ls + 1;
  logical.erase(ls, std::max(le - ls, 0));
  Store(CutDown(NumberParts::FromLogical(logical, parts.negative)), ls);
}

void CExtEditSystemNumberCurrencyBase::OnKeyDown(unsigned key, unsigned repeat, unsigned flags) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  if (!edit) return;
  if (key != kKeyBack && key != kKeyDelete) {
    CBehaviorBase::OnKeyDown(key, repeat, flags);
    return;
  }
  if (edit->IsReadOnly()) return;
  edit->SetUndoPoint();
  Recompose();
  DeleteAt(key == kKeyBack);
}

// ---- the two forms ----

CExtEditSystemNumber::CExtEditSystemNumber(CExtEditWithBehavior* edit, int maxWholeDigits, int maxFractionDigits,
                                           const platform::Locale& locale)
    : CExtEditSystemNumberCurrencyBase(edit, maxWholeDigits, maxFractionDigits, locale) {
  ReadLocale();
}

CExtEditSystemNumberCurrencyBase::Settings CExtEditSystemNumber::LocaleSettings() const {
  return {platform::kLocaleNegativeSign, platform::kLocaleDecimal, platform::kLocaleThousand,
          platform::kLocaleNegativeNumber, -1, platform::kLocaleGrouping, platform::kLocaleDigits,
          platform::kLocaleLeadingZero, -1};
}

void CExtEditSystemNumber::AfterLocaleRead() {
  if (ScientificAllowed()) {
    // The exponent's own minus must not read as the number's sign.
    m_strNegativeSign = "-";
    m_nNegativeFormat = 1;
  }
  if (m_dwFlags & kNoGrouping) return;
  // Only the two usual separators are told apart; any other equal pair stays equal.
  if (!m_strGroupSeparator.empty() && m_strGroupSeparator == m_strDecimalSeparator) {
    if (m_strDecimalSeparator == ".") m_strGroupSeparator = ",";
    else if (m_strDecimalSeparator == ",") m_strGroupSeparator = ".";
  }
}

CExtEditSystemCurrency::CExtEditSystemCurrency(CExtEditWithBehavior* edit, int maxWholeDigits, int maxFractionDigits,
                                               const platform::Locale& locale)
    : CExtEditSystemNumberCurrencyBase(edit, maxWholeDigits, maxFractionDigits, locale) {
  m_bCurrency = true;
  ReadLocale();
}

CExtEditSystemNumberCurrencyBase::Settings CExtEditSystemCurrency::LocaleSettings() const {
  return {platform::kLocaleNegativeSign,     platform::kLocaleMonDecimal,      platform::kLocaleMonThousand,
          platform::kLocaleCurrencyNegative, platform::kLocaleCurrencyPositive, platform::kLocaleMonGrouping,
          platform::kLocaleCurrencyDigits,   platform::kLocaleLeadingZero,      platform::kLocaleCurrency};
}

void CExtEditSystemCurrency::AfterLocaleRead() {
  if (m_dwFlags & kNoGrouping) return;
  if (m_strGroupSeparator == m_strDecimalSeparator) m_strGroupSeparator = m_strDecimalSeparator == "," ? "." : ",";
}

}  // namespace qmk::toolkit::edit
