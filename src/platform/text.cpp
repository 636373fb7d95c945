// text.cpp: the shared text services.
#include "platform/text.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace qmk::platform {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  return true;
}

bool EndsWithNoCase(std::string_view text, std::string_view tail) {
  return text.size() >= tail.size() && EqualsNoCase(text.substr(text.size() - tail.size()), tail);
}

std::string& ToUpperAscii(std::string& text) {
  for (char& c : text)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return text;
}

int HexDigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  c = LowerAscii(c);
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

std::string HexByte(unsigned char byte, bool upper) {
  const char* digits = upper ? "0123456789ABCDEF" : "0123456789abcdef";
  return {digits[byte >> 4], digits[byte & 0x0F]};
}

bool ParseBoundedInt(std::string_view text, long low, long high, long* value, int base) {
  // strtol skips leading blanks and takes a sign; a whole-text number has neither blank.
  if (text.empty() || text.front() == ' ' || text.front() == '\t') return false;
  const std::string copy(text);
  char* end = nullptr;
  errno = 0;
  const long n = std::strtol(copy.c_str(), &end, base);
  if (errno != 0 || *end != '\0' || n < low || n > high) return false;
  *value = n;
  return true;
}

size_t CopyCut(std::string_view text, char* buffer, size_t size) {
  if (!buffer || size == 0) return 0;
  const size_t n = text.size() < size - 1 ? text.size() : size - 1;
  if (n) std::memcpy(buffer, text.data(), n);
  buffer[n] = '\0';
  return n;
}

}  // namespace qmk::platform
