// up_down_model.cpp: stepping with clamp or wrap, and the buddy's number text both ways.
#include "platform/ui/controls/up_down_model.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace qmk::platform::ui::controls {

void UpDownModel::SetRange(int lower, int upper) {
  lower_ = lower;
  upper_ = upper;
}

int UpDownModel::SetPos(int pos) {
  int before = pos_;
  pos_ = std::clamp(pos, Low(), High());
  return before;
}

int UpDownModel::SetBase(int base) {
  if (base != 10 && base != 16) return 0;
  int before = base_;
  base_ = base;
  return before;
}

bool UpDownModel::InRange(int value) const { return value >= Low() && value <= High(); }

int UpDownModel::RawDelta(int clicks) const {
  if (lower_ == upper_) return 0;
  return upper_ > lower_ ? clicks : -clicks;
}

int UpDownModel::Adjust(int raw_delta) const {
  if (raw_delta == 0) return 0;
  long long delta = raw_delta;
  long long target = static_cast<long long>(pos_) + delta;
  long long low = Low(), high = High();
  if (target >= low && target <= high) return static_cast<int>(delta);
  if (!wrap_) return static_cast<int>(std::clamp(target, low, high) - pos_);
  // Past an end the count comes round to the other end, as far beyond it as it went over.
  long long span = high - low + 1;
  long long wrapped = ((target - low) % span + span) % span + low;
  return static_cast<int>(wrapped - pos_);
}

bool UpDownModel::Offset(int delta) {
  long long target = static_cast<long long>(pos_) + delta;
  int next = static_cast<int>(std::clamp<long long>(target, Low(), High()));
  bool changed = next != pos_;
  pos_ = next;
  return changed;
}

std::string UpDownModel::FormatBuddy(char thousands_separator) const {
  char buf[32];
  if (base_ == 16) {
    std::snprintf(buf, sizeof buf, "0x%04X", static_cast<unsigned>(pos_));
    return buf;
  }
  std::snprintf(buf, sizeof buf, "%d", pos_);
  if (!thousands_) return buf;
  std::string digits = buf;
  bool negative = !digits.empty() && digits[0] == '-';
  if (negative) digits.erase(0, 1);
  std::string out;
  for (size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) out += thousands_separator;
    out += digits[i];
  }
  return negative ? "-" + out : out;
}

bool UpDownModel::ParseBuddy(std::string_view text, int* value, char thousands_separator) const {
  std::string clean;
  for (char c : text) {
    if (c == thousands_separator && base_ == 10) continue;
    if (c == ' ') continue;
    clean += c;
  }
  if (clean.empty() || clean.size() > 20) return false;
  const char* begin = clean.c_str();
  char* end = nullptr;
  long long v = std::strtoll(begin, &end, base_ == 16 ? 16 : 10);
  if (end == begin || *end != '\0') return false;
  if (v < Low() || v > High()) return false;
  *value = static_cast<int>(v);
  return true;
}

}  // namespace qmk::platform::ui::controls
