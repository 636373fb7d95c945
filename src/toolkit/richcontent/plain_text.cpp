// plain_text.cpp: the plain text form: a root, one paragraph and its words, with the text
// drawing flags of the operating system (single line, tabs, accelerator prefixes, ellipses).
#include <string>

#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent {
namespace {

constexpr unsigned kSingleLine = 0x20;
constexpr unsigned kExpandTabs = 0x40;
constexpr unsigned kNoPrefix = 0x800;
constexpr unsigned kHidePrefix = 0x100000;
constexpr unsigned kPrefixOnly = 0x200000;
constexpr unsigned kEllipsisMask = 0x4C000;
constexpr unsigned kEllipsisGuardMask = 0x10500;
constexpr unsigned kEllipsisGuardValue = 0x10000;

class PlainTextReader {
 public:
  PlainTextReader(CExtRichContentLayout& layout, CExtRichContentItem* paragraph, unsigned flags)
      : m_layout(layout), m_paragraph(paragraph), m_flags(flags), m_lineSource(paragraph) {}

  void Feed(std::string_view text) {
    for (size_t i = 0; i < text.size(); ++i) i = Step(text, i);
    FlushWord();
    FlushSpaces();
  }

 private:
  size_t Step(std::string_view text, size_t i) {
    const char c = text[i];
    if (c == '\r') return i;
    if (c == '\n' && !(m_flags & kSingleLine)) {
      FlushWord();
      FlushSpaces();
      CExtRichContentItem* br = Add(kKindTag, "br");
      br->m_bSelfClosed = true;
      br->m_pLineMetricSource = m_lineSource;  // line metrics of the last paragraph or break
      m_lineSource = br;
      return i;
    }
    if (c == '\t' && (m_flags & kExpandTabs)) {
      FlushWord();
      FlushSpaces();
      Add(kKindWord, "\t");
      return i;
    }
    if (c == ' ' || c == '\t' || c == '\n') {
      FlushWord();
      m_spaces += c == '\n' ? ' ' : c;
      return i;
    }
    FlushSpaces();
    if (c == '&' && !(m_flags & kNoPrefix) && i + 1 < text.size()) {
      if (text[i + 1] == '&') {
        m_word += '&';
        return i + 1;
      }
      // The accelerator character stands in an item by itself.
      FlushWord();
      CExtRichContentItem* key = Add(kKindWord, std::string(1, text[i + 1]));
      key->m_strSecondary = key->m_strName;
      if (!(m_flags & kHidePrefix)) key->m_nTextFlags |= kTextAcceleratorUnderline;
      return i + 1;
    }
    m_word += c;
    return i;
  }

  CExtRichContentItem* Add(int kind, std::string text) {
    CExtRichContentItem* item = m_layout.NewItem(kind);
    item->m_strName = std::move(text);
    item->m_pParent = m_paragraph;
    if (m_flags & kPrefixOnly) {
      item->m_nTextFlags |= kTextPrefixHidden;
      item->m_bInvisible = true;
    }
    m_paragraph->m_children.push_back(item);
    m_layout.AddToFlatList(item);
    return item;
  }
  void FlushWord() {
    if (m_word.empty()) return;
    // With an ellipsis a line may be cut at any character.
    const bool split = (m_flags & kEllipsisMask) && (m_flags & kEllipsisGuardMask) == kEllipsisGuardValue;
    if (split) {
      for (char ch : m_word) Add(kKindWord, std::string(1, ch));
    } else {
      Add(kKindWord, m_word);
    }
    m_word.clear();
  }
  void FlushSpaces() {
    if (m_spaces.empty()) return;
    Add(kKindSpace, m_spaces);
    m_spaces.clear();
  }

  CExtRichContentLayout& m_layout;
  CExtRichContentItem* m_paragraph;
  unsigned m_flags;
  const CExtRichContentItem* m_lineSource;
  std::string m_word, m_spaces;
};

}  // namespace

bool CExtRichContentLayout::ParsePlainText(std::string_view text, unsigned drawFlags, int /*reserved*/,
                                           bool /*errorKeep*/) {
  Empty();
  m_nForm = kFormPlain;
  LinkSheet(kDefaultSheetName);
  CExtRichContentItem* root = NewItem(kKindRoot);
  AddToFlatList(root);
  CExtRichContentItem* paragraph = NewItem(kKindTag);
  paragraph->m_strName.push_back('p');  // not "= \"p\"": g++ 12 warns wrongly on that form
  paragraph->m_bBlockDisplay = true;
  paragraph->m_pParent = root;
  root->m_children.push_back(paragraph);
  AddToFlatList(paragraph);
  PlainTextReader reader(*this, paragraph, drawFlags);
  reader.Feed(text);
  return true;
}

}  // namespace qmk::toolkit::richcontent
