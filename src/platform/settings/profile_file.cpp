// profile_file.cpp: reading and editing sectioned text files line by line.
#include "platform/settings/profile_file.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "platform/settings/atomic_file.h"
#include "platform/text.h"

namespace qmk::platform {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

std::string Trim(const std::string& s) {
  size_t first = 0, last = s.size();
  while (first < last && IsBlank(s[first])) ++first;
  while (last > first && IsBlank(s[last - 1])) --last;
  return s.substr(first, last - first);
}

// One line of the text, without its line break, and where it starts. A line ends at LF, CR LF
// or a CR alone, so files from any system read alike.
struct Line {
  size_t start = 0;
  size_t end = 0;    // one past the last character before the line break
  size_t next = 0;   // where the next line starts (after the break)
  std::string text;
};

std::vector<Line> SplitLines(const std::string& text) {
  std::vector<Line> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find_first_of("\r\n", start);
    size_t next = text.size();
    if (end == std::string::npos) {
      end = text.size();
    } else {
      next = end + 1;
      if (text[end] == '\r' && next < text.size() && text[next] == '\n') ++next;
    }
    lines.push_back({start, end, next, text.substr(start, end - start)});
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
    if (!name || !EqualsNoCase(*name, section)) continue;
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
    if (const auto name = KeyName(lines[i].text); name && EqualsNoCase(*name, key)) return i;
  return std::nullopt;
}

// The line break the file already uses (its first one), so an added line matches its
// neighbours; a file without one gets this system's LF.
std::string LineBreakOf(const std::string& text) {
  const size_t at = text.find_first_of("\r\n");
  if (at == std::string::npos || text[at] == '\n') return "\n";
  return at + 1 < text.size() && text[at + 1] == '\n' ? "\r\n" : "\r";
}

bool EndsWithBreak(const std::string& text) {
  return !text.empty() && (text.back() == '\n' || text.back() == '\r');
}

// Appends `name` unless a name equal but for case is there already. An empty name is left out:
// in a zero-separated list it would read as the list's end.
void AddOnce(std::vector<std::string>& names, const std::string& name) {
  if (name.empty()) return;
  for (const std::string& n : names)
    if (EqualsNoCase(n, name)) return;
  names.push_back(name);
}

// The text without the lines [from, to).
std::string CutLines(const std::string& text, const std::vector<Line>& lines, size_t from,
                     size_t to) {
  if (from >= to) return text;
  const size_t begin = lines[from].start;
  const size_t end = to < lines.size() ? lines[to].start : text.size();
  return text.substr(0, begin) + text.substr(end);
}

// Copies a zero-separated list into the caller's buffer by the platform's rules: the whole list
// and its final zero when they fit, returning the count without the final zero; otherwise the
// first size - 2 bytes and two zeros, returning size - 2.
size_t CopyList(const std::string& list, char* buffer, size_t size) {
  if (size == 0 || !buffer) return 0;
  if (list.empty() || size < 3) {
    buffer[0] = '\0';
    if (size >= 2) buffer[1] = '\0';
    return 0;
  }
  if (list.size() + 1 <= size) {
    list.copy(buffer, list.size());
    buffer[list.size()] = '\0';
    return list.size();
  }
  list.copy(buffer, size - 2);
  buffer[size - 2] = '\0';
  buffer[size - 1] = '\0';
  return size - 2;
}

size_t CopyText(const std::string& text, char* buffer, size_t size) {
  if (size == 0 || !buffer) return 0;
  const size_t n = std::min(text.size(), size - 1);
  text.copy(buffer, n);
  buffer[n] = '\0';
  return n;
}

// The default text of a read loses its trailing blanks, as the platform's read does.
std::string WithoutTrailingBlanks(std::string text) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
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
    if (!out.empty() && !EndsWithBreak(out)) out += br;
    return out + "[" + Trim(section) + "]" + br + entry + br;
  }
  if (const auto at = FindKey(lines, *span, key)) {
    // The line's own break stays as it was.
    const Line& line = lines[*at];
    return text.substr(0, line.start) + entry + text.substr(line.end);
  }
  // After the section's last line that isn't blank, so blank lines stay between sections.
  size_t last = span->header;
  for (size_t i = span->header + 1; i < span->end; ++i)
    if (!Trim(lines[i].text).empty()) last = i;
  const Line& after = lines[last];
  const bool has_break = after.end < text.size();
  const size_t insert_at = after.next;
  return text.substr(0, insert_at) + (has_break ? "" : br) + entry + br + text.substr(insert_at);
}

std::vector<std::string> ListProfileSections(const std::string& text) {
  std::vector<std::string> names;
  for (const Line& line : SplitLines(text))
    if (const auto name = SectionName(line.text)) AddOnce(names, *name);
  return names;
}

std::vector<std::string> ListProfileKeys(const std::string& text, const std::string& section) {
  std::vector<std::string> names;
  const std::vector<Line> lines = SplitLines(text);
  const auto span = FindSection(lines, section);
  if (!span) return names;
  for (size_t i = span->header + 1; i < span->end; ++i)
    if (const auto name = KeyName(lines[i].text)) AddOnce(names, *name);
  return names;
}

std::string DeleteProfileSection(const std::string& text, const std::string& section) {
  std::string out = text;
  // Every section of that name goes, so a read afterwards finds none.
  while (true) {
    const std::vector<Line> lines = SplitLines(out);
    const auto span = FindSection(lines, section);
    if (!span) return out;
    out = CutLines(out, lines, span->header, span->end);
  }
}

std::string DeleteProfileKey(const std::string& text, const std::string& section,
                             const std::string& key) {
  std::string out = text;
  while (true) {
    const std::vector<Line> lines = SplitLines(out);
    const auto span = FindSection(lines, section);
    const auto at = span ? FindKey(lines, *span, key) : std::nullopt;
    if (!at) return out;
    out = CutLines(out, lines, *at, *at + 1);
  }
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
  std::string value = WithoutTrailingBlanks(fallback);
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


size_t ReadProfileEntry(const char* section, const char* key, const char* fallback, char* buffer,
                        size_t size, const std::string& path) {
  std::string text;
  const bool readable = ReadWholeFile(path, text) == ReadStatus::kOk;
  if (!readable) text.clear();
  if (!section || !key) {
    const std::vector<std::string> names =
        section ? ListProfileKeys(text, section) : ListProfileSections(text);
    std::string list;
    for (const std::string& name : names) list += name + '\0';
    return CopyList(list, buffer, size);
  }
  std::optional<std::string> found = FindProfileValue(text, section, key);
  return CopyText(found ? *found : WithoutTrailingBlanks(fallback ? fallback : ""), buffer, size);
}

bool WriteProfileEntry(const char* section, const char* key, const char* value,
                       const std::string& path) {
  if (!section) return false;
  if (key && value) return WriteProfileString(section, key, value, path);
  std::string existing;
  if (ReadWholeFile(path, existing) == ReadStatus::kMissing) return true;  // nothing to delete
  return UpdateFileLocked(path, [&](std::string& text) {
    text = key ? DeleteProfileKey(text, section, key) : DeleteProfileSection(text, section);
    return true;
  });
}

}  // namespace qmk::platform
