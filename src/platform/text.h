// text.h: small text services that every area shares: case-blind matching of ASCII letters, hex
// digits, bounded integers, and copying into a caller's fixed buffer.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qmk::platform {

// Letters compare without regard to case (ASCII only: names, keys, file suffixes).
bool EqualsNoCase(std::string_view a, std::string_view b);
bool EndsWithNoCase(std::string_view text, std::string_view tail);
// Upper-cases ASCII letters in place and returns the text.
std::string& ToUpperAscii(std::string& text);

// The value of one hex digit, or -1 for any other character.
int HexDigitValue(char c);
// Two hex digits of a byte, lower or upper case.
std::string HexByte(unsigned char byte, bool upper = false);

// Reads a whole text as an integer in [low, high]: no blanks, no trailing characters, no
// overflow. base 0 accepts 0x and leading-zero octal, as strtol does.
bool ParseBoundedInt(std::string_view text, long low, long high, long* value, int base = 10);

// Copies `text` into a caller's buffer of `size` bytes, cut to size - 1 and zero-ended. A null
// buffer or a size of 0 takes nothing. Returns the number of characters copied.
size_t CopyCut(std::string_view text, char* buffer, size_t size);

}  // namespace qmk::platform
