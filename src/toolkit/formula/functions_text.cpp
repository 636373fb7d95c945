// functions_text.cpp: the text functions; texts are byte strings and counts are in bytes.
#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>

#include "toolkit/formula/errors.h"
#include "toolkit/formula/function.h"
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

using platform::Variant;

namespace {

// Argument `index` as text (error 26).
int TextArg(FunctionCall& call, int index, std::string& out) {
  CExtFormulaValue v;
  if (int code = call.ArgumentAs(index, platform::VT_BSTR, kErrStringConversion, v)) return code;
  out = v.m_value.StringValue();
  return 0;
}

// Argument `index` as an integer (error 25).
int IntArg(FunctionCall& call, int index, long long& out) {
  CExtFormulaValue v;
  if (int code = call.ArgumentAs(index, platform::VT_I4, kErrFixedConversion, v)) return code;
  out = v.m_value.SignedValue();
  return 0;
}

int Text(FunctionCall& call, const std::string& text) { return call.Result(Variant::Str(text)); }

int Concatenate(FunctionCall& call) {
  std::string all, part;
  for (int i = 0; i < call.ArgumentCount(); ++i) {
    if (int code = TextArg(call, i, part)) return code;
    all += part;
  }
  return Text(call, all);
}

int Exact(FunctionCall& call) {
  std::string a, b;
  if (int code = TextArg(call, 0, a)) return code;
  if (int code = TextArg(call, 1, b)) return code;
  return call.Result(Variant::Bool(a == b));
}

int Len(FunctionCall& call) {
  std::string s;
  if (int code = TextArg(call, 0, s)) return code;
  return call.Result(Variant::I4(static_cast<int32_t>(s.size())));
}

// The first byte as a signed char: bytes above 127 give negative codes.
int Code(FunctionCall& call) {
  std::string s;
  if (int code = TextArg(call, 0, s)) return code;
  if (s.empty()) return call.Fail(kErrNonEmptyString);
  return call.Result(Variant::I4(static_cast<signed char>(s[0])));
}

int Char(FunctionCall& call) {
  long long n = 0;
  if (int code = IntArg(call, 0, n)) return code;
  if (n < 1 || n > 255) return call.Fail(kErrParameterRange);
  return Text(call, std::string(1, static_cast<char>(n)));
}

template <int (*Map)(int)>
int MapCase(FunctionCall& call) {
  std::string s;
  if (int code = TextArg(call, 0, s)) return code;
  for (char& c : s) c = static_cast<char>(Map(static_cast<unsigned char>(c)));
  return Text(call, s);
}

int T(FunctionCall& call) {
  CExtFormulaValue v;
  if (int code = call.Argument(0, v)) return code;
  return Text(call, v.m_value.Type() == platform::VT_BSTR ? v.m_value.StringValue() : std::string());
}

int Trim(FunctionCall& call) {
  std::string s;
  if (int code = TextArg(call, 0, s)) return code;
  const auto space = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
  while (!s.empty() && space(s.back())) s.pop_back();
  s.erase(s.begin(), std::find_if_not(s.begin(), s.end(), space));
  for (size_t at; (at = s.find("  ")) != std::string::npos;) s.erase(at, 1);
  return Text(call, s);
}

template <bool kLeft>
int Side(FunctionCall& call) {
  std::string s;
  long long n = 1;
  if (int code = TextArg(call, 0, s)) return code;
  if (call.ArgumentCount() > 1)
    if (int code = IntArg(call, 1, n)) return code;
  if (n < 1) return call.Fail(kErrParameterRange);
  const size_t count = std::min<size_t>(static_cast<size_t>(n), s.size());
  return Text(call, kLeft ? s.substr(0, count) : s.substr(s.size() - count));
}

int Mid(FunctionCall& call) {
  std::string s;
  long long start = 0, count = 0;
  if (int code = TextArg(call, 0, s)) return code;
  if (int code = IntArg(call, 1, start)) return code;
  if (int code = IntArg(call, 2, count)) return code;
  if (start < 1 || start > static_cast<long long>(s.size()) || count < 1) return call.Fail(kErrParameterRange);
  return Text(call, s.substr(static_cast<size_t>(start - 1), static_cast<size_t>(count)));
}

int Rept(FunctionCall& call) {
  std::string s;
  long long n = 0;
  if (int code = TextArg(call, 0, s)) return code;
  if (int code = IntArg(call, 1, n)) return code;
  if (n < 0) return call.Fail(kErrParameterRange);
  // Texts are capped so that a formula cannot ask for gigabytes.
  if (!s.empty() && static_cast<unsigned long long>(n) > (64ull << 20) / s.size()) return call.Fail(kErrParameterRange);
  std::string out;
  for (long long i = 0; i < n && !s.empty(); ++i) out += s;
  return Text(call, out);
}

template <bool kFoldCase>
int Find(FunctionCall& call) {
  std::string sought, text;
  if (int code = TextArg(call, 0, sought)) return code;
  if (int code = TextArg(call, 1, text)) return code;
  long long start = 1;
  if (call.ArgumentCount() > 2) {
    if (int code = IntArg(call, 2, start)) return code;
    if (start < 1 || start > static_cast<long long>(text.size()) - static_cast<long long>(sought.size()) + 1)
      return call.Fail(kErrParameterRange);
  }
  if (sought.empty()) return call.Result(Variant::I4(static_cast<int32_t>(start)));
  if (kFoldCase) {
    for (char& c : sought) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  const size_t at = static_cast<size_t>(start - 1) <= text.size() ? text.find(sought, static_cast<size_t>(start - 1))
                                                                   : std::string::npos;
  if (at == std::string::npos) return call.Fail(kErrCannotCompute);
  return call.Result(Variant::I4(static_cast<int32_t>(at + 1)));
}

int Replace(FunctionCall& call) {
  std::string s, inserted;
  long long start = 0, count = 0;
  if (int code = TextArg(call, 0, s)) return code;
  if (int code = IntArg(call, 1, start)) return code;
  if (start < 1) return call.Fail(kErrParameterRange);
  start = std::min<long long>(start, static_cast<long long>(s.size()) + 1);
  if (int code = IntArg(call, 2, count)) return code;
  if (count < 0) return call.Fail(kErrParameterRange);
  if (int code = TextArg(call, 3, inserted)) return code;
  if (s.empty()) return Text(call, inserted);
  const size_t from = static_cast<size_t>(start - 1);
  const size_t removed = std::min<size_t>(static_cast<size_t>(count), s.size() - from);
  return Text(call, s.substr(0, from) + inserted + s.substr(from + removed));
}

int Substitute(FunctionCall& call) {
  std::string s, old_text, new_text;
  if (int code = TextArg(call, 0, s)) return code;
  if (int code = TextArg(call, 1, old_text)) return code;
  if (int code = TextArg(call, 2, new_text)) return code;
  long long instance = 0;
  if (call.ArgumentCount() > 3) {
    if (int code = IntArg(call, 3, instance)) return code;
    if (instance < 1) return call.Fail(kErrParameterRange);
  }
  if (old_text.empty()) return Text(call, s);
  long long hit = 0;
  for (size_t at = 0; at < s.size();) {
    at = s.find(old_text, at);
    if (at == std::string::npos) break;
    ++hit;
    if (instance == 0 || hit == instance) {
      s.replace(at, old_text.size(), new_text);
      if (instance != 0) break;
      at += new_text.size();
    } else {
      at += old_text.size();
    }
  }
  return Text(call, s);
}

const char kText[] = "Text parameter.";

int Lower(int c) { return std::tolower(c); }
int Upper(int c) { return std::toupper(c); }

const FunctionSpec kTextFunctions[] = {
    {"CHAR", 1, 1, Char, "Returns the character specified by the code number.", "number", "Number parameter."},
    {"CODE", 1, 1, Code, "Returns a numeric code for the first character in a text string.", "text", kText},
    {"LEN", 1, 1, Len, "Returns the number of characters in a text string.", "text", kText},
    {"LOWER", 1, 1, MapCase<Lower>, "Converts all letters in a text string to lowercase.", "text", kText},
    {"T", 1, 1, T, "Checks whether a value is text, and returns the text if it is, or empty text if it is not.",
     "value", "Value parameter."},
    {"TRIM", 1, 1, Trim, "Removes all spaces from a text string except for single spaces between words.", "text",
     kText},
    {"UPPER", 1, 1, MapCase<Upper>, "Converts a text string to all uppercase letters.", "text", kText},
    {"LEFT", 1, 2, Side<true>, "Returns the specified number of characters from the start of a text string.",
     "text,num_chars", kText},
    {"RIGHT", 1, 2, Side<false>, "Returns the specified number of characters from the end of a text string.",
     "text,num_chars", kText},
    {"EXACT", 2, 2, Exact, "Checks whether two text strings are exactly the same, and returns TRUE or FALSE.",
     "text1,text2", kText},
    {"REPT", 2, 2, Rept, "Repeats text a given number of times.", "text,number_times", kText},
    {"FIND", 2, 3, Find<false>,
     "Returns the starting position of one text string withing another text string. FIND is case-sensitive.",
     "text,within_text,start_num", kText},
    {"SEARCH", 2, 3, Find<true>,
     "Returns the number of the character at which a specific text string is first found, reading left to right.",
     "find_text,within_text,start_num", kText},
    {"MID", 3, 3, Mid, "Returns the characters from the middle of a text string, given a starting position and length.",
     "text,start_num,num_chars", kText},
    {"SUBSTITUTE", 3, 4, Substitute, "Replaces existing text with new text in a text string.",
     "text,old_text,new_text,instance_num", kText},
    {"REPLACE", 4, 4, Replace, "Replaces part of a text string with a different text string.",
     "old_text,start_num,num_chars,new_text", kText},
    {"CONCATENATE", 1, -1, Concatenate, "Joins several text strings into one text string.", "text%d", kText},
};

}  // namespace

FunctionFamily TextFunctions() { return {kTextFunctions, std::size(kTextFunctions)}; }

}  // namespace qmk::toolkit::formula
