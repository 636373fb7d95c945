// css_reader.cpp: the style sheet reader and the selector reader with its pseudo states. A sheet
// rule becomes a pseudo tag "selector style=\"declarations\"" read by the tag splitter.
#include <string>

#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent {
namespace {

struct PseudoWord {
  std::string_view word;
  PseudoField field;
};

// Tested by exact text when the selector has one ":".
constexpr PseudoWord kPseudoElements[] = {
    {":after", kPseudoAfter}, {":before", kPseudoBefore}, {":first-child", kPseudoFirstChild},
    {":first-letter", kPseudoFirstLetter}, {":first-line", kPseudoFirstLine}};

// Any combination of these may be named, "a:hover:active".
constexpr PseudoWord kStateWords[] = {
    {"active", kPseudoActive}, {"focus", kPseudoFocus}, {"selection", kPseudoSelection},
    {"selected", kPseudoSelection}, {"hover", kPseudoHover}, {"pressed", kPseudoPressed},
    {"link", kPseudoLink}, {"visited", kPseudoVisited}, {"disabled", kPseudoDisabled}};

// Quotes of the declarations survive the second reading by the tag splitter.
std::string EscapeQuotes(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) {
    if (c == '"') out += '\\';
    out += c;
  }
  return out;
}

PseudoStateSet ReadPseudoStates(std::string_view rest) {
  PseudoStateSet set;
  if (rest.find(':', 1) == std::string_view::npos) {
    for (const PseudoWord& p : kPseudoElements)
      if (rest == p.word) {
        set.m_fields[p.field] = 2;
        return set;
      }
  }
  size_t start = 1;
  while (start <= rest.size()) {
    const size_t colon = rest.find(':', start);
    const std::string_view word = rest.substr(start, colon == std::string_view::npos ? std::string_view::npos : colon - start);
    for (const PseudoWord& p : kStateWords)
      if (word == p.word) set.m_fields[p.field] = 2;
    if (colon == std::string_view::npos) break;
    start = colon + 1;
  }
  return set;
}

}  // namespace

bool CExtRichContentLayout::ParseCss(std::string_view text, bool /*errorKeep*/) {
  Empty();
  m_nForm = kFormCss;
  ReadSheet(text);
  return true;
}

CExtRichContentItem* CExtRichContentLayout::ReadSelector(std::string_view selector) {
  const std::string s = ToLower(Trim(selector, " \t\r\n'\"."));
  if (s.empty() || s.front() == ':') return nullptr;
  const size_t colon = s.find(':');
  const std::string key = s.substr(0, colon);
  CExtRichContentItem*& keyItem = m_rules[key];
  if (!keyItem) {
    keyItem = NewItem(kKindRule);
    keyItem->m_strName = key;
    AddToFlatList(keyItem);
  }
  if (colon == std::string::npos) return keyItem;
  const PseudoStateSet set = ReadPseudoStates(std::string_view(s).substr(colon));
  // Unknown words only: the declarations go to the plain key.
  if (set.IsEmpty()) return keyItem;
  CExtRichContentItem* stateRule = NewItem(kKindRule);
  stateRule->m_strName = s;
  stateRule->m_state = set;
  keyItem->m_ruleChildren.push_back(stateRule);
  AddToFlatList(stateRule);
  return stateRule;
}

void CExtRichContentLayout::ReadSheet(std::string_view text) {
  text = Trim(text);
  std::string selector, declarations;
  bool inDeclarations = false;
  const size_t n = text.size();
  for (size_t i = 0; i < n; ++i) {
    if (text.compare(i, 3, "-->") == 0) {
      i += 2;
      continue;
    }
    if (text.compare(i, 2, "/*") == 0) {
      const size_t end = text.find("*/", i + 2);
      if (end == std::string_view::npos) break;
      i = end + 1;
      continue;
    }
    const char c = text[i];
    if (c == '{') {
      inDeclarations = true;
    } else if (c == '}') {
      if (!selector.empty() && !declarations.empty()) {
        const std::string escaped = EscapeQuotes(declarations);
        size_t start = 0;
        for (;;) {
          const size_t comma = selector.find(',', start);
          const std::string piece = ToLower(Trim(std::string_view(selector).substr(
              start, comma == std::string::npos ? std::string::npos : comma - start)));
          if (CExtRichContentItem* rule = ReadSelector(piece)) {
            rule->m_strName = piece + " style=\"" + escaped + "\"";
            rule->ParseTagText();
          }
          if (comma == std::string::npos) break;
          start = comma + 1;
        }
      }
      selector.clear();
      declarations.clear();
      inDeclarations = false;
    } else {
      (inDeclarations ? declarations : selector) += c;
    }
  }
}

}  // namespace qmk::toolkit::richcontent
