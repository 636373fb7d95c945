// build_data_text.cpp: writing and reading the text form of a build_data record.
#include "options/build_data_text.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace qmk::options {
namespace {

enum class Kind { Text, U8, I16, U16, I32 };

struct Field {
  const char* name;
  size_t offset;
  size_t size;
  Kind kind;
};

#define QMK_FIELD(name, kind) {#name, offsetof(build_data, name), sizeof(build_data::name), Kind::kind}
constexpr Field kFields[] = {
    QMK_FIELD(formNumber, I16),           QMK_FIELD(dataFileName, Text),
    QMK_FIELD(autoNameTemplate, Text),    QMK_FIELD(scanConversionFileName, Text),
    QMK_FIELD(serialNumberText, Text),    QMK_FIELD(batchNumberText, Text),
    QMK_FIELD(scanDateText, Text),        QMK_FIELD(runNumberText, Text),
    QMK_FIELD(fileOptionFlags, U16),      QMK_FIELD(bubbleThreshold, I32),
    QMK_FIELD(bubbleDiscrimination, I32), QMK_FIELD(checkThreshold, I32),
    QMK_FIELD(checkDiscrimination, I32),  QMK_FIELD(tickThreshold, I32),
    QMK_FIELD(tickDiscrimination, I32),   QMK_FIELD(printFlags, U16),
    QMK_FIELD(printPosition, I16),        QMK_FIELD(dataFileMode, I16),
    QMK_FIELD(stopFlags, U16),            QMK_FIELD(autoNameFlags, U8),
    QMK_FIELD(autoNameSequence, I16),     QMK_FIELD(autoNameResetMonth, U8),
    QMK_FIELD(autoNameResetDay, U8),      QMK_FIELD(postScanConversionFileName, Text),
    QMK_FIELD(conversionFlags, U16),      QMK_FIELD(conversionReplaceExisting, U16),
    QMK_FIELD(editMode, U16),             QMK_FIELD(onlineEditCorrection, I32),
    QMK_FIELD(contextFileInUse, U8),
};
#undef QMK_FIELD

constexpr size_t kBytesPerLine = 32;

long long ReadInteger(const unsigned char* at, Kind kind) {
  switch (kind) {
    case Kind::U8: return *at;
    case Kind::I16: { int16_t v; std::memcpy(&v, at, 2); return v; }
    case Kind::U16: { uint16_t v; std::memcpy(&v, at, 2); return v; }
    default: { int32_t v; std::memcpy(&v, at, 4); return v; }
  }
}

bool WriteInteger(unsigned char* at, Kind kind, long long value) {
  const auto fits = [value](long long lo, long long hi) { return value >= lo && value <= hi; };
  switch (kind) {
    case Kind::U8:
      if (!fits(0, 255)) return false;
      *at = static_cast<unsigned char>(value);
      return true;
    case Kind::I16: {
      if (!fits(INT16_MIN, INT16_MAX)) return false;
      const auto v = static_cast<int16_t>(value);
      std::memcpy(at, &v, 2);
      return true;
    }
    case Kind::U16: {
      if (!fits(0, UINT16_MAX)) return false;
      const auto v = static_cast<uint16_t>(value);
      std::memcpy(at, &v, 2);
      return true;
    }
    default: {
      if (!fits(INT32_MIN, INT32_MAX)) return false;
      const auto v = static_cast<int32_t>(value);
      std::memcpy(at, &v, 4);
      return true;
    }
  }
}

std::string Quoted(const char* text, size_t size) {
  std::string out = "\"";
  for (size_t i = 0; i < size && text[i]; ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c < 0x20 || c >= 0x7F) {
      char hex[8];
      std::snprintf(hex, sizeof hex, "\\x%02X", c);
      out += hex;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out + "\"";
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// A quoted text with \" \\ and \xHH escapes, and nothing after it.
bool Unquote(const std::string& value, std::string& text) {
  if (value.size() < 2 || value.front() != '"') return false;
  text.clear();
  size_t i = 1;
  for (; i < value.size() && value[i] != '"'; ++i) {
    if (value[i] != '\\') {
      text += value[i];
      continue;
    }
    if (++i >= value.size()) return false;
    if (value[i] == '"' || value[i] == '\\') {
      text += value[i];
    } else if (value[i] == 'x' && i + 2 < value.size() && HexDigit(value[i + 1]) >= 0 &&
               HexDigit(value[i + 2]) >= 0) {
      text += static_cast<char>(HexDigit(value[i + 1]) * 16 + HexDigit(value[i + 2]));
      i += 2;
    } else {
      return false;
    }
  }
  return i == value.size() - 1;
}

bool ParseInteger(const std::string& value, long long& number) {
  if (value.empty() || value.size() > 12) return false;
  char* end = nullptr;
  number = std::strtoll(value.c_str(), &end, 10);
  return end && *end == '\0' && value.find_first_of("0123456789") != std::string::npos &&
         value.find(' ') == std::string::npos;
}

const Field* FindField(const std::string& name) {
  for (const Field& field : kFields)
    if (name == field.name) return &field;
  return nullptr;
}

// Applies one named field to `bytes`; false when the value doesn't suit the field.
bool ApplyField(const Field& field, const std::string& value, unsigned char* bytes) {
  unsigned char* at = bytes + field.offset;
  if (field.kind != Kind::Text) {
    long long number = 0;
    return ParseInteger(value, number) && WriteInteger(at, field.kind, number);
  }
  std::string text;
  if (!Unquote(value, text) || text.size() > field.size || text.find('\0') != std::string::npos)
    return false;
  std::memset(at, 0, field.size);
  std::memcpy(at, text.data(), text.size());
  return true;
}

bool ApplyBytes(const std::string& value, unsigned char* bytes) {
  const size_t space = value.find(' ');
  if (space == std::string::npos) return false;
  long long offset = 0;
  const std::string hex = value.substr(space + 1);
  if (!ParseInteger(value.substr(0, space), offset) || offset < 0 || hex.empty() ||
      hex.size() % 2 != 0 || static_cast<unsigned long long>(offset) + hex.size() / 2 > sizeof(build_data))
    return false;
  for (size_t i = 0; i < hex.size(); i += 2) {
    const int high = HexDigit(hex[i]), low = HexDigit(hex[i + 1]);
    if (high < 0 || low < 0) return false;
    bytes[offset + i / 2] = static_cast<unsigned char>(high * 16 + low);
  }
  return true;
}

}  // namespace

std::string BuildDataToText(const build_data& record) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(&record);
  std::string out = "# build_data record: one field a line; \"bytes OFFSET HEX\" for the rest\n";
  build_data rebuilt{};
  auto* rebuilt_bytes = reinterpret_cast<unsigned char*>(&rebuilt);
  for (const Field& field : kFields) {
    std::string value;
    if (field.kind == Kind::Text)
      value = Quoted(reinterpret_cast<const char*>(bytes + field.offset), field.size);
    else
      value = std::to_string(ReadInteger(bytes + field.offset, field.kind));
    out += std::string(field.name) + " " + value + "\n";
    ApplyField(field, value, rebuilt_bytes);
  }
  for (size_t i = 0; i < sizeof(build_data);) {
    if (bytes[i] == rebuilt_bytes[i]) {
      ++i;
      continue;
    }
    size_t end = i;
    while (end < sizeof(build_data) && end - i < kBytesPerLine && bytes[end] != rebuilt_bytes[end]) ++end;
    out += "bytes " + std::to_string(i) + " ";
    for (size_t k = i; k < end; ++k) {
      char hex[4];
      std::snprintf(hex, sizeof hex, "%02x", bytes[k]);
      out += hex;
    }
    out += "\n";
    i = end;
  }
  return out;
}

bool BuildDataFromText(const std::string& text, build_data& record, std::string& error) {
  record = build_data{};
  auto* bytes = reinterpret_cast<unsigned char*>(&record);
  size_t pos = 0;
  for (int line_number = 1; pos < text.size(); ++line_number) {
    size_t end = text.find('\n', pos);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(pos, end - pos);
    pos = end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const size_t first = line.find_first_not_of(" \t");
    if (first == std::string::npos || line[first] == '#') continue;
    const size_t space = line.find(' ', first);
    const std::string key = line.substr(first, space == std::string::npos ? std::string::npos : space - first);
    const std::string value = space == std::string::npos ? std::string() : line.substr(space + 1);
    const auto fail = [&](const std::string& why) {
      error = "line " + std::to_string(line_number) + ": " + why;
      return false;
    };
    if (key == "bytes") {
      if (!ApplyBytes(value, bytes)) return fail("expected \"bytes OFFSET HEX\" inside the record");
      continue;
    }
    const Field* field = FindField(key);
    if (!field) return fail("unknown field \"" + key + "\"");
    if (!ApplyField(*field, value, bytes))
      return fail(field->kind == Kind::Text ? "bad text for " + key + " (quoted, at most " + std::to_string(field->size) + " bytes)"
                                            : "bad number for " + key);
  }
  return true;
}

}  // namespace qmk::options
