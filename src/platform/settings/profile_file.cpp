// profile_file.cpp: reading and editing sectioned text files line by line.
#include "platform/settings/profile_file.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "platform/settings/atomic_file.h"
#include "platform/settings/names.h"

namespace qmk::platform {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

std::string Trim(const std::string& s) {
  size_t first = 0, last = s.size();
  while (first < last && IsBlank(s[first])) ++first;
  while (last > first && IsBlank(s[last - 1])) --last;
  return s.substr(first, last - first);
}

// One line of the text, without its line break, and where it starts.
struct Line {
  size_t start = 0;
  size_t end = 0;  // one past the last character before the line break
  std::string text;
};

std::vector<Line> SplitLines(const std::string& text) {
  std::vector<Line> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    const size_t next = end == std::string::npos ? text.size() : end + 1;
    if (end == std::string::npos) end = text.size();
    lines.push_back({start, end, text.substr(start, end - start)});
    start = next;
  }
  return lines;
}

// The section name of a "[name]" line, or nullopt for other lines.
std::optional<std::string> SectionName(const std::string& line) {
  const std::string t = Trim(line);
  if (t.empty() || t[0] != '[') return std::nullopt;
  const size_t close = t.find(']');
  return Trim(t.substr(1, close == std::string::npos ? std::string::npos : close - 1));
}

// The key of a "key=value" line, or nullopt for comments and lines without "=".
std::optional<std::string> KeyName(const std::string& line) {
  const std::string t = Trim(line);
  if (t.empty() || t[0] == ';') return std::nullopt;
  const size_t eq = t.find('=');
  if (eq == std::string::npos) return std::nullopt;
  return Trim(t.substr(0, eq));
}

std::string ValueOf(const std::string& line) {
  std::string v = Trim(line.substr(line.find('=') + 1));
  if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
    v = v.substr(1, v.size() - 2);
  return v;
}

// Where a section's lines are: the header line's index and one past its last line.
struct SectionSpan {
  size_t header = 0, end = 0;
};

// The section and key arguments are trimmed as the file's names are, so that what a write adds
// is what a read with the same arguments finds.
std::optional<SectionSpan> FindSection(const std::vector<Line>& lines, const std::string& raw) {
  const std::string section = Trim(raw);
  for (size_t i = 0; i < lines.size(); ++i) {
    const auto name = SectionName(lines[i].text);
    if (!name || !EqualsIgnoringCase(*name, section)) continue;
    size_t end = i + 1;
    while (end < lines.size() && !SectionName(lines[end].text)) ++end;
    return SectionSpan{i, end};
  }
  return std::nullopt;
}

std::optional<size_t> FindKey(const std::vector<Line>& lines, SectionSpan span,
                              const std::string& raw) {
  const std::string key = Trim(raw);
  for (size_t i = span.header + 1; i < span.end; ++i)
    if (const auto name = KeyName(lines[i].text); name && EqualsIgnoringCase(*name, key)) return i;
  return std::nullopt;
}

// The line break the file already uses, so an added line matches its neighbours.
std::string LineBreakOf(const std::string& text) {
  const size_t nl = text.find('\n');
  return nl != std::string::npos && nl > 0 && text[nl - 1] == '\r' ? "\r\n" : "\n";
}

}  // namespace

std::optional<std::string> FindProfileValue(const std::string& text, const std::string& section,
                                            const std::string& key) {
  const std::vector<Line> lines = SplitLines(text);
  const auto span = FindSection(lines, section);
  if (!span) return std::nullopt;
  const auto at = FindKey(lines, *span, key);
  if (!at) return std::nullopt;
  return ValueOf(lines[*at].text);
}

std::string SetProfileValue(const std::string& text, const std::string& section,
                            const std::string& key, const std::string& value) {
  const std::vector<Line> lines = SplitLines(text);
  const std::string br = LineBreakOf(text);
  const std::string entry = Trim(key) + "=" + value;
  const auto span = FindSection(lines, section);
  if (!span) {
    std::string out = text;
    if (!out.empty() && out.back() != '\n') out += br;
    return out + "[" + Trim(section) + "]" + br + entry + br;
  }
  if (const auto at = FindKey(lines, *span, key)) {
    const Line& line = lines[*at];
    // Keep the line's own break (and a "\r" before it) as it was.
    const size_t keep = line.text.size() && line.text.back() == '\r' ? line.end - 1 : line.end;
    return text.substr(0, line.start) + entry + text.substr(keep);
  }
  // After the section's last line that isn't blank, so blank lines stay between sections.
  size_t last = span->header;
  for (size_t i = span->header + 1; i < span->end; ++i)
    if (!Trim(lines[i].text).empty()) last = i;
  const Line& after = lines[last];
  const bool has_break = after.end < text.size();
  const size_t insert_at = has_break ? after.end + 1 : text.size();
  return text.substr(0, insert_at) + (has_break ? "" : br) + entry + br + text.substr(insert_at);
}

bool IsWritableProfileEntry(const std::string& section, const std::string& key,
                            const std::string& value) {
  auto has_break = [](const std::string& s) {
    return s.find_first_of("\r\n") != std::string::npos || s.find('\0') != std::string::npos;
  };
  const std::string k = Trim(key), s = Trim(section);
  return !has_break(section) && !has_break(key) && !has_break(value) && !s.empty() &&
         s.find(']') == std::string::npos && !k.empty() && k.find('=') == std::string::npos &&
         k[0] != '[' && k[0] != ';';
}

std::string ReadProfileString(const std::string& section, const std::string& key,
                              const std::string& fallback, const std::string& path, size_t size) {
  std::string text;
  std::string value = fallback;
  if (ReadWholeFile(path, text) == ReadStatus::kOk)
    if (auto found = FindProfileValue(text, section, key)) value = std::move(*found);
  if (size == 0) return "";
  if (value.size() > size - 1) value.resize(size - 1);
  return value;
}

bool WriteProfileString(const std::string& section, const std::string& key,
                        const std::string& value, const std::string& path) {
  if (!IsWritableProfileEntry(section, key, value)) return false;
  return UpdateFileLocked(path, [&](std::string& text) {
    text = SetProfileValue(text, section, key, value);
    return true;
  });
}

}  // namespace qmk::platform
