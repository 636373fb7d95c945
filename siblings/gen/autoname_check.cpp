// autoname_check.cpp: GenCheckAutoNameCString, the check that a file name template is usable,
// and the message sink through which the common services tell the user why one isn't.
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

#include "qmk/QmkGen.h"

namespace {

constexpr int kCodeTableId = 109;
constexpr int kMaxNameLength = 259;
constexpr unsigned kIconExclamation = 0x30;

GenMessageSink g_sink = nullptr;

// Characters that a data file name may not hold, on any system the data files travel to. The
// star is refused too, except as the lead of a code, which the walk below tells apart.
bool IsForbidden(unsigned char c) {
  return c < 0x20 || c == 0x7F || std::strchr("\\/:?\"<>|", c) != nullptr;
}

// Width of the field that a code letter writes.
int FieldWidth(char letter) {
  switch (letter) {
    case 'J': case 'M': case 'S': case 'W': return 3;
    default: return 2;
  }
}

std::string Format(int id, ...) {
  char format[512];
  if (GenLoadText(nullptr, id, format, sizeof format) == 0) return "";
  va_list args, again;
  va_start(args, id);
  va_copy(again, args);
  const int length = std::vsnprintf(nullptr, 0, format, args);
  va_end(args);
  std::string text(length > 0 ? static_cast<size_t>(length) : 0, '\0');
  if (length > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  return text;
}

bool Refuse(QMK_HWND owner, const std::string& text) {
  if (g_sink) g_sink(owner, text.c_str(), kIconExclamation);
  else std::fprintf(stderr, "%s\n", text.c_str());
  return false;
}

// How long the expansion of `upper` is: the naming walk over field widths. Each star position
// tries the code pairs once, in table order, and a match moves on by two characters before the
// next pair is tried. Returns -1 when the walk would stop on a star that no pair matches.
long ExpandedLength(const std::string& upper, const std::string& codes) {
  if (codes.empty()) return static_cast<long>(upper.size());
  long length = 0;
  size_t read = 0;
  while (read < upper.size()) {
    if (upper[read] != codes[0]) {
      ++length;
      ++read;
      continue;
    }
    bool matched = false;
    for (size_t pair = 0; pair + 1 < codes.size(); pair += 2) {
      if (read + 1 < upper.size() && upper[read + 1] == codes[pair + 1]) {
        length += FieldWidth(codes[pair + 1]);
        read += 2;
        matched = true;
      }
    }
    if (!matched) return -1;
  }
  return length;
}

std::string Describe(unsigned char c) {
  char text[32];
  if (c < 0x20 || c == 0x7F) std::snprintf(text, sizeof text, "the control character 0x%02X", c);
  else std::snprintf(text, sizeof text, "the character '%c'", c);
  return text;
}

}  // namespace

extern "C" {

QMK_API GenMessageSink GenSetMessageSink(GenMessageSink sink) {
  GenMessageSink previous = g_sink;
  g_sink = sink;
  return previous;
}

QMK_API int GenCheckAutoNameCString(const char* name_template, QMK_HWND owner) {
  if (!name_template || !*name_template) return Refuse(owner, Format(2100));
  std::string upper = name_template;
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  char codes[64];
  GenLoadText(nullptr, kCodeTableId, codes, sizeof codes);

  for (size_t i = 0; i < upper.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(upper[i]);
    if (c == '*') {
      const bool is_code = i + 1 < upper.size() && upper[i + 1] != '*' &&
                           std::strchr(codes, upper[i + 1]) != nullptr;
      if (!is_code) return Refuse(owner, Format(2101, name_template));
      ++i;  // the code letter
    } else if (IsForbidden(c)) {
      return Refuse(owner, Format(2102, name_template, Describe(c).c_str()));
    }
  }
  const long length = ExpandedLength(upper, codes);
  if (length < 0) return Refuse(owner, Format(2101, name_template));
  if (length > kMaxNameLength)
    return Refuse(owner, Format(2103, name_template, static_cast<int>(length)));
  return 1;
}

}
