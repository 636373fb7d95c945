// auto_name.cpp: the naming context, the reset rules, the template walk and the commit.
#include "options/auto_name.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>

#include "frame/message_display.h"
#include "options/settings_mgr.h"
#include "platform/local_time.h"
#include "platform/settings/paths.h"
#include "qmk/QmkGen.h"
#include "platform/text.h"

namespace qmk::options {
namespace {

constexpr int kCodeTableId = 109;
constexpr int kWeekdayBaseId = 151;  // + weekday, Sunday = 0; 150 when the time can't be split
constexpr int kMonthBaseId = 175;    // + month 1 to 12; 175 alone when it can't be split
constexpr int kContextNameId = 216;
constexpr int kWrapMessageId = 2034;
constexpr int16_t kWrapAt = 999;
constexpr size_t kLast = QMK_NAME_BYTES - 1;  // the last byte of a name buffer: its zero

constexpr char kSequenceValue[] = "ContextFileAutonameSequenceNumber";
constexpr char kResetDayValue[] = "ContextFileAutonameResetDay";
constexpr char kResetMonthValue[] = "ContextFileAutonameResetMonth";

// The code pairs' places in the code table; the branch goes by place, not by letter.
enum CodePlace { kDay, kHour, kJulian, kMonthName, kMonth, kSequence, kMinute, kWeekday, kYear };

struct Today {
  bool split = false;
  platform::LocalTime t;
};

Today ReadToday() {
  Today today;
  today.split = platform::CurrentWallClock().Now(today.t);
  return today;
}

std::string GenText(int id) {
  char text[QMK_NAME_BYTES];
  GenLoadText(nullptr, id, text, sizeof text);
  return text;
}

// A month or weekday name as a name field: three letters, in capitals like the rest of the name.
std::string NameField(int id) {
  std::string s = GenText(id).substr(0, 3);
  return platform::ToUpperAscii(s);
}

std::string Number(const char* format, int value) {
  char text[16];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

// The text of one code's field. Each field reads the clock for itself, so a name made across a
// minute's turn can mix two readings.
std::string FieldText(int place, int16_t sequence) {
  if (place == kSequence) return Number("%03d", sequence);
  const Today now = ReadToday();
  const platform::LocalTime& t = now.t;
  switch (place) {
    case kDay: return Number("%02d", now.split ? t.day : 0);
    case kHour: return Number("%02d", now.split ? t.hour : -1);
    case kJulian: return Number("%03d", now.split ? t.yearday + 1 : 0);
    case kMonthName: return NameField(kMonthBaseId + (now.split ? t.month : 0));
    case kMonth: return Number("%02d", now.split ? t.month : 0);
    case kMinute: return Number("%02d", now.split ? t.minute : -1);
    case kWeekday: return NameField(now.split ? kWeekdayBaseId + t.weekday : kWeekdayBaseId - 1);
    case kYear: return Number("%02d", now.split ? t.year % 100 : 0);
    default: return "";
  }
}

// Copies `text` and its zero at `at`, as a string copy would, but never past the name buffer.
void PutText(char* out, size_t at, const std::string& text) {
  for (size_t i = 0; i < text.size() && at + i < kLast; ++i) out[at + i] = text[i];
  out[std::min(at + text.size(), kLast)] = '\0';
}

// A name that a data file may carry: no wildcard or path characters.
bool IsDataFileName(const std::string& name) {
  return !name.empty() && name.find_first_of("*?\\/:\"<>|") == std::string::npos;
}

// Creates the data file's placeholder holding the form number, when the data file is missing.
// The placeholder is created under the name of the code table, not of the path just tested;
// that name holds stars, which no data file name may hold, so the create is refused and nothing
// is made. Hosts rely on that: the data file doesn't exist when naming returns.
void PlaceholderStep(const char* dataPath, const char* outName, int16_t formNumber) {
  std::string full = dataPath ? dataPath : "";
  if (!platform::PathAppend(full, outName)) return;
  struct stat st {};
  if (stat(full.c_str(), &st) == 0) return;
  const std::string placeholder = GenText(kCodeTableId);
  if (!IsDataFileName(placeholder)) return;
  if (std::FILE* f = std::fopen(placeholder.c_str(), "w+")) {
    std::fprintf(f, "%03d", formNumber);
    std::fclose(f);
  }
}

// The batch number field holds three digits and its zero; a longer number is cut, not spilled
// into the scan date behind it.
void WriteBatchNumber(build_data& record, int16_t number) {
  const std::string text = std::to_string(number);
  std::memset(record.batchNumberText, 0, sizeof record.batchNumberText);
  std::memcpy(record.batchNumberText, text.data(),
              std::min(text.size(), sizeof record.batchNumberText - 1));
}

void StoreContext(const build_data& record) {
  const std::string name = ContextName(record.formNumber);
  CSettingsMgr store = CSettingsMgr::OpenContextForWrite(name.c_str());
  if (!store.m_bOpen) return;
  // A failed write is let go: the name is made, and the next load reads what is there.
  store.SetInt(kSequenceValue, record.autoNameSequence);
  store.SetInt(kResetDayValue, record.autoNameResetDay);
  store.SetInt(kResetMonthValue, record.autoNameResetMonth);
}

}  // namespace

std::string ContextName(int16_t formNumber) {
  const std::string format = GenText(kContextNameId);
  char name[QMK_NAME_BYTES];
  std::snprintf(name, sizeof name, format.c_str(), formNumber);
  return name;
}

bool LoadAutoNameContext(build_data* record) {
  const Today today = ReadToday();
  const int day = today.split ? today.t.day : 0;
  const int month = today.split ? today.t.month : 0;
  if (record->contextFileInUse) {
    const std::string name = ContextName(record->formNumber);
    const CSettingsMgr store = CSettingsMgr::OpenContext(name.c_str());
    if (store.m_bOpen) {
      // The record's fields are narrower than the stored numbers; they keep the low bits.
      record->autoNameSequence = static_cast<int16_t>(store.GetInt(kSequenceValue, 0));
      record->autoNameResetDay = static_cast<uint8_t>(store.GetInt(kResetDayValue, day));
      record->autoNameResetMonth = static_cast<uint8_t>(store.GetInt(kResetMonthValue, month));
    }
  }
  if (!(record->fileOptionFlags & QMK_FILEOPT_AUTONAME) ||
      (record->autoNameFlags & QMK_AUTONAME_NEVER_RESET))
    return false;
  // The year isn't compared: the same day and month of another year count as the same date.
  if (record->autoNameResetDay == day && record->autoNameResetMonth == month) return false;
  const uint8_t flags = record->autoNameFlags;
  // The weekly and monthly rules fire on that very day only; a day missed isn't caught up.
  const bool reset = (flags & QMK_AUTONAME_RESET_DAILY) ||
                     ((flags & QMK_AUTONAME_RESET_WEEKLY) && today.split && today.t.weekday == 0) ||
                     ((flags & QMK_AUTONAME_RESET_MONTHLY) && day == 1);
  if (!reset) return false;
  record->autoNameSequence = 0;
  record->autoNameResetDay = static_cast<uint8_t>(day);
  record->autoNameResetMonth = static_cast<uint8_t>(month);
  return true;
}

bool ExpandAutoNameTemplate(const char* name_template, int16_t sequence, char* out) {
  std::string upper(name_template, strnlen(name_template, kLast));
  platform::ToUpperAscii(upper);
  const std::string codes = GenText(kCodeTableId);
  const size_t pairs = codes.size() / 2;

  bool used_sequence = false;
  size_t read = 0, write = 0;
  while (read < upper.size()) {
    if (codes.empty() || upper[read] != codes[0]) {
      if (write < kLast) out[write] = upper[read];
      ++write;
      ++read;
      continue;
    }
    // One pass over the pairs. A match doesn't end the pass: the character now one past the
    // read position is tried against the pairs still to come, star or not, so "*DAY" gives the
    // day, then the year, and its "A" is lost. Kept: the preset templates are written for it.
    bool matched = false;
    for (size_t pair = 0; pair < pairs; ++pair) {
      if (read + 1 >= upper.size() || upper[read + 1] != codes[2 * pair + 1]) continue;
      const std::string field = FieldText(static_cast<int>(pair), sequence);
      PutText(out, write, field);
      // Fields are fixed-width: a longer text is overwritten by what follows, a shorter one
      // leaves its zero inside the field.
      write += pair == kDay || pair == kHour || pair == kMonth || pair == kMinute || pair == kYear
                   ? 2 : 3;
      read += 2;
      matched = true;
      if (pair == kSequence) used_sequence = true;
    }
    // A star that no pair matches would hold the walk for ever; the template check keeps such
    // templates out, and here the star is taken as a literal so that no template can hang.
    if (!matched) {
      if (write < kLast) out[write] = upper[read];
      ++write;
      ++read;
    }
  }
  // The closing zero goes at the write position, so it cuts a long last field to its width.
  out[std::min(write, kLast)] = '\0';
  return used_sequence;
}

AutoNameOutcome MakeAutoName(QMK_HWND owner, const char* dataPath, char* outName,
                             build_data* record, int commit) {
  AutoNameOutcome outcome;
  outcome.reset = LoadAutoNameContext(record);
  outcome.sequence_before = record->autoNameSequence;
  // The count wraps by equality: a stored number above 998 climbs on past 999 unwrapped.
  int16_t next = static_cast<int16_t>(record->autoNameSequence + 1);
  if (next == kWrapAt) {
    next = 1;
    outcome.wrapped = true;
  }
  outcome.sequence_next = next;
  outcome.used_sequence = ExpandAutoNameTemplate(record->autoNameTemplate, next, outName);
  if (!commit) return outcome;

  record->autoNameSequence = next;
  const bool batch = record->autoNameFlags & QMK_AUTONAME_USE_AS_BATCH;
  if (batch) WriteBatchNumber(*record, next);
  if ((batch || outcome.used_sequence) && outcome.wrapped) {
    if (owner) frame::ShowMessage(kWrapMessageId, frame::kMbOk | frame::kMbIconInformation);
    outcome.result = 1;
  }
  PlaceholderStep(dataPath, outName, record->formNumber);
  if (record->contextFileInUse) StoreContext(*record);
  return outcome;
}

}  // namespace qmk::options
