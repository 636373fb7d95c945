// tag_text.cpp: the attribute splitter of a tag's text and the splitter of "style" attributes
// into declarations, with the three value splitters.
#include <cctype>
#include <string>

#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/readers.h"

namespace qmk::toolkit::richcontent {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsEscapable(char c) { return c == '"' || c == '\'' || c == '\\'; }

// Reads a value that starts at `i` (bare, or quoted by `"` or `'`); returns the index behind it.
size_t ReadAttributeValue(std::string_view raw, size_t i, std::string& value) {
  const size_t n = raw.size();
  const char quote = raw[i];
  if (quote != '"' && quote != '\'') {
    while (i < n && !IsBlank(raw[i])) {
      if (raw[i] == '\\' && i + 1 < n && IsEscapable(raw[i + 1])) ++i;
      value += raw[i++];
    }
    return i;
  }
  const char other = quote == '"' ? '\'' : '"';
  for (++i; i < n; ++i) {
    const char c = raw[i];
    if (c == '\\' && i + 1 < n && IsEscapable(raw[i + 1])) {
      value += raw[++i];
    } else if (c == quote) {
      return i + 1;
    } else if (c == other) {
      // A nested run of the other quote: its quotes are dropped, its content is verbatim.
      const size_t close = raw.find(other, i + 1);
      const size_t stop = close == std::string_view::npos ? n : close;
      value.append(raw.substr(i + 1, stop - i - 1));
      i = close == std::string_view::npos ? n - 1 : close;
    } else {
      value += c;
    }
  }
  return n;
}

// Turns every \" back into a plain quote, in one pass.
void UnescapeQuotes(std::string& text) {
  if (text.find("\\\"") == std::string::npos) return;
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == '"') continue;
    out += text[i];
  }
  text = std::move(out);
}

}  // namespace

std::string CExtRichContentItem::TagNameLower() const {
  return IsElement() ? ToLower(m_strName) : std::string();
}

bool CExtRichContentItem::IsVoid() {
  if (m_nKind == kKindRoot || m_nKind == kKindWord || m_nKind == kKindSpace) return false;
  if (m_nVoid < 0) m_nVoid = IsVoidName(m_strName) ? 1 : 0;
  return m_nVoid == 1;
}

CExtRichContentItem* CExtRichContentItem::FindAttribute(std::string_view name,
                                                         const CExtRichContentItem* after) const {
  bool past = after == nullptr;
  for (CExtRichContentItem* a : m_attributes) {
    if (!past) {
      past = a == after;
      continue;
    }
    if (EqualsNoCase(a->m_strName, name)) return a;
  }
  return nullptr;
}

bool CExtRichContentItem::ParseTagText() {
  if (m_nKind != kKindTag && m_nKind != kKindRule) return true;
  if (m_bClosing || m_strName.empty()) return true;
  const std::string text = m_strName;
  const size_t blank = text.find_first_of(" \t\r\n");
  m_strName = text.substr(0, blank);
  if (m_strName.empty()) return false;
  m_strRaw = blank == std::string::npos ? std::string() : text.substr(blank + 1);

  const std::string_view raw = m_strRaw;
  const size_t n = raw.size();
  const size_t firstNew = m_attributes.size();  // a rule key may be read again for a later rule
  std::string name;
  size_t i = 0;
  while (i < n) {
    const char c = raw[i];
    if (c == '/' && i + 1 < n && raw[i + 1] == '*') {
      const size_t end = raw.find("*/", i + 2);
      i = end == std::string_view::npos ? n : end + 2;
      continue;
    }
    if (c == '\\' && i + 1 < n && IsEscapable(raw[i + 1])) {
      name += raw[i + 1];
      i += 2;
      continue;
    }
    if (IsBlank(c)) {
      size_t next = i;
      while (next < n && IsBlank(raw[next])) ++next;
      // A name with no value produces nothing.
      if (next >= n || raw[next] != '=') name.clear();
      i = next;
      continue;
    }
    if (c != '=') {
      name += c;
      ++i;
      continue;
    }
    const std::string_view trimmed = Trim(name);
    if (trimmed.empty()) {
      m_nError = kErrorEmptyName;
      return false;
    }
    for (++i; i < n && IsBlank(raw[i]);) ++i;
    std::string value;
    if (i < n) i = ReadAttributeValue(raw, i, value);
    CExtRichContentItem* attribute = m_pLayout->NewItem(kKindAttribute);
    attribute->m_pParent = this;
    attribute->m_strName = ToLower(trimmed);
    attribute->m_strRaw = Trim(value);
    m_attributes.push_back(attribute);
    name.clear();
  }
  for (size_t k = firstNew; k < m_attributes.size(); ++k) {
    UnescapeQuotes(m_attributes[k]->m_strRaw);
    m_attributes[k]->ParseStyleAttribute();
  }
  m_strRaw.clear();
  return true;
}

bool CExtRichContentItem::FlushStyleDeclaration(std::string& name, std::string& value) {
  CExtRichContentItem* declaration = m_pLayout->NewItem(kKindValue);
  declaration->m_pParent = this;
  declaration->m_strName = ToLower(Trim(name));
  declaration->m_strRaw = Trim(value);
  std::vector<std::string> tokens;
  if (declaration->m_strName == "content")
    tokens = SplitContentValue(value);
  else if (declaration->m_strName == "font-family")
    tokens = SplitFontFamilyValue(value);
  else
    tokens = SplitGeneralValue(value);
  for (std::string& token : tokens) {
    CExtRichContentItem* v = m_pLayout->NewItem(kKindValue);
    v->m_pParent = declaration;
    v->m_strName = std::move(token);
    declaration->m_children.push_back(v);
  }
  m_attributes.push_back(declaration);
  name.clear();
  value.clear();
  return true;
}

bool CExtRichContentItem::ParseStyleAttribute() {
  if (m_nKind != kKindAttribute || m_strName != "style") return true;
  m_nKind = kKindStyleAttribute;
  const std::string_view text = m_strRaw;
  const size_t n = text.size();
  std::string name, value;
  bool inValue = false;
  for (size_t i = 0; i < n; ++i) {
    const char c = text[i];
    std::string& buffer = inValue ? value : name;
    if (c == '\\' && i + 1 < n && IsEscapable(text[i + 1])) {
      buffer += text[++i];
    } else if (c == '"') {
      const size_t close = text.find('"', i + 1);
      const size_t stop = close == std::string_view::npos ? n : close;
      buffer.append(text.substr(i + 1, stop - i - 1));
      i = stop;
    } else if (!inValue && c == ':') {
      if (Trim(name).empty()) {
        m_nError = kErrorEmptyName;
        return false;
      }
      inValue = true;
    } else if (c == ';') {
      if (inValue) FlushStyleDeclaration(name, value);
      name.clear();
      inValue = false;
    } else {
      buffer += c;
    }
  }
  if (inValue) FlushStyleDeclaration(name, value);
  return true;
}

std::vector<std::string> SplitContentValue(std::string_view value) {
  const std::string_view v = Trim(value);
  if (v.empty() || v == "\"\"" || v == "''") return {"none"};
  const char q = v.front();
  if (v.size() < 2 || (q != '"' && q != '\'') || v.back() != q) return {std::string(v)};
  // Literal parts lose their quotes; attr(name) outside quotes is kept, lower-cased.
  std::string out;
  char open = 0;
  for (size_t i = 0; i < v.size(); ++i) {
    const char c = v[i];
    if (open) {
      if (c == open)
        open = 0;
      else
        out += c;
    } else if (c == '"' || c == '\'') {
      open = c;
    } else if (v.compare(i, 5, "attr(") == 0 || EqualsNoCase(v.substr(i, 5), "attr(")) {
      const size_t close = v.find(')', i);
      const size_t stop = close == std::string_view::npos ? v.size() : close + 1;
      out += ToLower(v.substr(i, stop - i));
      i = stop - 1;
    }
  }
  return {out};
}

std::vector<std::string> SplitFontFamilyValue(std::string_view value) {
  std::vector<std::string> out;
  size_t start = 0;
  while (start <= value.size()) {
    const size_t comma = value.find(',', start);
    const std::string_view piece = Trim(value.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start));
    if (!piece.empty()) out.emplace_back(piece);
    if (comma == std::string_view::npos) break;
    start = comma + 1;
  }
  return out;
}

std::vector<std::string> SplitGeneralValue(std::string_view value) {
  std::vector<std::string> out;
  std::string token;
  auto finish = [&] {
    if (!token.empty()) out.push_back(std::move(token));
    token.clear();
  };
  int depth = 0;
  char quote = 0;
  const size_t n = value.size();
  for (size_t i = 0; i < n; ++i) {
    const char c = value[i];
    if (quote) {
      if (c == quote) quote = 0; else token += c;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '(') {
      ++depth;
      token += c;
    } else if (c == ')') {
      if (depth > 0) --depth;
      token += c;
    } else if (depth > 0) {
      token += c;
    } else if (c == ',') {
      finish();
    } else if (IsBlank(c)) {
      // Blanks around "/" and "," do not split.
      size_t next = i;
      while (next < n && IsBlank(value[next])) ++next;
      const bool nearSlash = (!token.empty() && token.back() == '/') || (next < n && (value[next] == '/' || value[next] == ','));
      if (!nearSlash) finish();
      i = next - 1;
    } else {
      token += c;
    }
  }
  finish();
  return out;
}

}  // namespace qmk::toolkit::richcontent
