// functions_date.cpp: the date and time functions over Automation dates.
#include <cmath>
#include <ctime>
#include <iterator>

#include "platform/variant/date_time.h"
#include "toolkit/formula/errors.h"
#include "toolkit/formula/function.h"
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

using platform::DateFields;
using platform::Variant;

namespace {

// 1 January 1900, the day TIME's results fall on.
constexpr double kDay1900 = 2.0;
constexpr double kMaxDaySpan = 3615897.0;

int IntArg(FunctionCall& call, int index, long long& out) {
  CExtFormulaValue v;
  if (int code = call.ArgumentAs(index, platform::VT_I4, kErrFixedConversion, v)) return code;
  out = v.m_value.SignedValue();
  return 0;
}

// The argument as a date. An error of the argument itself comes after the conversion's own.
int DateArg(FunctionCall& call, int index, CExtFormulaValue& v) {
  const int computed = call.Argument(index, v);
  if (!v.ChangeType(platform::VT_DATE)) return call.Fail(kErrDateConversion, call.ArgumentItem(index));
  return computed;
}

int DateResult(FunctionCall& call, double date) { return call.Result(Variant::Date(date)); }

int Date(FunctionCall& call) {
  long long year = 0, month = 0, day = 0;
  if (int code = IntArg(call, 0, year)) return code;
  if (int code = IntArg(call, 1, month)) return code;
  if (int code = IntArg(call, 2, day)) return code;
  if (year < 0) return call.Fail(kErrParameterRange);
  if (year < 1900) year += 1900;
  if (month < 1) {
    year += (month - 13) / 12;
    month = (month - 1) % 12 + 13;
  } else if (month > 12) {
    year += (month - 1) / 12;
    month = (month - 1) % 12 + 1;
  }
  DateFields fields;
  fields.year = static_cast<int>(std::min<long long>(year, 1000000));
  fields.month = static_cast<int>(month);
  fields.day = 1;
  double first = 0.0;
  const double span = static_cast<double>(day - 1);
  // An impossible date has no number; the call reports it.
  if (!platform::FieldsToDate(fields, first) || span > kMaxDaySpan || span < -kMaxDaySpan)
    return call.Fail(kErrCannotCompute);
  return DateResult(call, first + span);
}

int Time(FunctionCall& call) {
  long long hour = 0, minute = 0, second = 0;
  if (int code = IntArg(call, 0, hour)) return code;
  if (int code = IntArg(call, 1, minute)) return code;
  if (int code = IntArg(call, 2, second)) return code;
  if (hour % 24 < 0) return call.Fail(kErrParameterRange);
  minute += second / 60;
  second %= 60;
  hour += minute / 60;
  minute %= 60;
  hour %= 24;
  const long long total = hour * 3600 + minute * 60 + second;
  if (total < 0) return call.Fail(kErrParameterRange);
  return DateResult(call, kDay1900 + static_cast<double>(total) / 86400.0);
}

int DateValue(FunctionCall& call) {
  CExtFormulaValue v;
  if (int code = DateArg(call, 0, v)) return code;
  return call.Result(Variant::I4(static_cast<int32_t>(std::floor(v.m_value.DoubleValue()))));
}

int TimeValue(FunctionCall& call) {
  CExtFormulaValue v;
  const int computed = call.Argument(0, v);
  if (v.m_value.Type() == platform::VT_DATE) {
    if (computed) return computed;
    return call.Result(Variant::R8(v.m_value.DoubleValue() - kDay1900));
  }
  if (!v.ChangeType(platform::VT_DATE)) return call.Fail(kErrDateConversion, call.ArgumentItem(0));
  if (computed) return computed;
  return call.Result(Variant::R8(v.m_value.DoubleValue()));
}

template <int DateFields::*kField>
int Part(FunctionCall& call) {
  CExtFormulaValue v;
  if (int code = DateArg(call, 0, v)) return code;
  DateFields fields;
  const bool ok = platform::DateToFields(v.m_value.DoubleValue(), fields);
  return call.Result(Variant::I4(ok ? fields.*kField : -1));
}

template <bool kWithTime>
int Now(FunctionCall& call) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  DateFields fields;
  double date = 0.0;
  if (now == static_cast<std::time_t>(-1) || localtime_r(&now, &local) == nullptr) return call.Fail(kErrCannotCompute);
  fields.year = local.tm_year + 1900;
  fields.month = local.tm_mon + 1;
  fields.day = local.tm_mday;
  if (kWithTime) {
    fields.hour = local.tm_hour;
    fields.minute = local.tm_min;
    fields.second = std::min(local.tm_sec, 59);
  }
  if (!platform::FieldsToDate(fields, date)) return call.Fail(kErrCannotCompute);
  return DateResult(call, date);
}

// The weekday (Sunday 1) and day of year (1 January 0) of a date argument, and the type.
int WeekArgs(FunctionCall& call, int maxType, int& weekday, int& dayOfYear, long long& type, int& year) {
  CExtFormulaValue v;
  if (int code = DateArg(call, 0, v)) return code;
  type = 1;
  if (call.ArgumentCount() > 1)
    if (int code = IntArg(call, 1, type)) return code;
  if (type < 1 || type > maxType) return call.Fail(kErrParameterRange);
  DateFields fields;
  if (!platform::DateToFields(v.m_value.DoubleValue(), fields)) return call.Fail(kErrDateConversion);
  weekday = fields.day_of_week + 1;
  dayOfYear = fields.day_of_year - 1;
  year = fields.year;
  return 0;
}

int Weekday(FunctionCall& call) {
  int w = 0, d = 0, year = 0;
  long long type = 1;
  if (int code = WeekArgs(call, 3, w, d, type, year)) return code;
  int result = w;
  if (type == 2) result = w - 1 == 0 ? 7 : w - 1;
  if (type == 3) result = w - 2 < 0 ? w + 5 : w - 2;
  return call.Result(Variant::I4(result));
}

// The product's week number: a year that begins on a Sunday has 1 January in week 2 under
// type 1. Kept, as sheets depend on it.
int WeekNum(FunctionCall& call) {
  int w = 0, d = 0, year = 0;
  long long type = 1;
  if (int code = WeekArgs(call, 2, w, d, type, year)) return code;
  DateFields jan1;
  jan1.year = year;
  jan1.month = 1;
  jan1.day = 1;
  double jan1Date = 0.0;
  DateFields jan1Fields;
  if (!platform::FieldsToDate(jan1, jan1Date) || !platform::DateToFields(jan1Date, jan1Fields))
    return call.Fail(kErrDateConversion);
  const int j = jan1Fields.day_of_week + 1;
  return call.Result(Variant::I4((d + (type != 2 ? 1 : 0) - j + 8) / 7 + 1));
}

const char kSerial[] = "Serial number parameter.";
const char kNumber[] = "Number parameter.";

const FunctionSpec kDate[] = {
    {"DATEVALUE", 1, 1, DateValue, "Converts a date in the form of text to a serial number.", "date_text",
     "Text parameter."},
    {"DAY", 1, 1, Part<&DateFields::day>, "Returns the day of the month, a number from 1 to 31.", "serial_number",
     kSerial},
    {"HOUR", 1, 1, Part<&DateFields::hour>, "Returns the hour as a number from 0 to 23.", "serial_number", kSerial},
    {"MINUTE", 1, 1, Part<&DateFields::minute>, "Returns the minute, a number from 0 to 59.", "serial_number",
     kSerial},
    {"MONTH", 1, 1, Part<&DateFields::month>, "Returns the month, a number from 1 (January) to 12 (December).",
     "serial_number", kSerial},
    {"SECOND", 1, 1, Part<&DateFields::second>, "Returns the second, a number from 0 to 59.", "serial_number",
     kSerial},
    {"TIMEVALUE", 1, 1, TimeValue, "Converts a text time to a serial number for a time.", "time_text",
     "Text parameter."},
    {"YEAR", 1, 1, Part<&DateFields::year>, "Returns the year of a date, an integrer in the range 1900 - 9999.",
     "serial_number", kSerial},
    {"WEEKDAY", 1, 2, Weekday, "Returns a number from 1 to 7 identifying the day of the week of a date.",
     "serial_number,return_type", kSerial},
    {"WEEKNUM", 1, 2, WeekNum, "Returns the week number in the year.", "serial_number,return_type", kSerial},
    {"DATE", 3, 3, Date, "Returns the number that represents the date code.", "year,month,day", kNumber},
    {"TIME", 3, 3, Time,
     "Convets hours, minutes and seconds given as numbers to a serial number, formatted with a time format.",
     "hour,minute,second", kNumber},
    {"NOW", 0, 0, Now<true>, "Returns the current date and time.", "", kNumber, false, true},
    {"TODAY", 0, 0, Now<false>, "Returns the current date.", "", kNumber, false, true},
};

}  // namespace

FunctionFamily DateFunctions() { return {kDate, std::size(kDate)}; }

}  // namespace qmk::toolkit::formula
