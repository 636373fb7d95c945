// markup_reader.cpp: the tag tokenizer of the markup form, which turns the text into the flat
// list of tag and text items.
#include <cctype>
#include <string>

#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/readers.h"

namespace qmk::toolkit::richcontent {
namespace {

constexpr std::string_view kVoidNames[] = {"br", "hr", "meta", "link", "![if", "![endif]", "!--",
                                           // Compared with lower-cased names, so this entry never
                                           // matches: a doctype is read as an ordinary element.
                                           "!DOCTYPE"};

bool IsQuote(char c) { return c == '"' || c == '\''; }

}  // namespace

bool IsVoidName(std::string_view name) {
  const std::string lower = ToLower(name);
  for (std::string_view v : kVoidNames)
    if (lower == v) return true;
  return false;
}

// One pass over the bytes with a state inside a tag and one text buffer.
class MarkupReader {
 public:
  explicit MarkupReader(CExtRichContentLayout& layout) : m_layout(layout) {}
  bool Run(std::string_view text);

 private:
  bool StartsAt(std::string_view text, size_t i, std::string_view what) const {
    return text.compare(i, what.size(), what) == 0;
  }
  bool LastIsOpenStyle() const;
  bool FlushText();
  bool FlushTag(bool selfClosed);

  CExtRichContentLayout& m_layout;
  std::string m_buffer;
  bool m_bInTag = false, m_bPre = false, m_bStyle = false;
};

bool MarkupReader::LastIsOpenStyle() const {
  const auto& items = m_layout.Items();
  if (items.empty()) return false;
  const CExtRichContentItem* last = items.back();
  return last->m_nKind == kKindTag && !last->m_bClosing && EqualsNoCase(last->m_strName, "style");
}

bool MarkupReader::Run(std::string_view text) {
  const size_t n = text.size();
  size_t i = 0;
  while (i < n) {
    if (!m_bInTag && StartsAt(text, i, "<!--")) {
      if (LastIsOpenStyle()) {
        // The sheet hidden in the comment is read as the style element's text.
        m_layout.Items().back()->m_bCommentInsideStyle = true;
        i += 4;
        continue;
      }
      const size_t end = text.find("-->", i + 4);
      if (end == std::string_view::npos) break;
      i = end + 3;
      continue;
    }
    // "/*" starts a comment anywhere, body text included.
    if (StartsAt(text, i, "/*")) {
      const size_t end = text.find("*/", i + 2);
      if (end == std::string_view::npos) break;
      i = end + 2;
      continue;
    }
    const char c = text[i];
    if (m_bInTag) {
      if (c == '>') {
        m_bInTag = false;
        ++i;
        if (!FlushTag(false)) return false;
        continue;
      }
      if (c == '/' && i + 1 < n && text[i + 1] == '>' && !(i + 2 < n && IsQuote(text[i + 2]))) {
        m_bInTag = false;
        i += 2;
        if (!FlushTag(true)) return false;
        continue;
      }
      m_buffer += c;
      ++i;
      continue;
    }
    if (c == '<' && i + 1 < n &&
        (std::isalpha(static_cast<unsigned char>(text[i + 1])) || text[i + 1] == '/' || text[i + 1] == '!')) {
      if (!FlushText()) return false;
      m_bInTag = true;
      ++i;
      continue;
    }
    m_buffer += c;
    ++i;
  }
  // An unterminated tag is dropped; trailing text is an ordinary run.
  if (m_bInTag) return true;
  return FlushText();
}

bool MarkupReader::FlushText() {
  // The blank is not in the trim set; the buffer is kept when nothing is left, and the trim of
  // the coming tag removes it.
  if (Trim(m_buffer, "\t\r\n").empty()) return true;
  if (m_bStyle) {
    CExtRichContentItem* sheet = m_layout.NewItem(kKindWord);
    sheet->m_strName = m_buffer;
    m_layout.AddToFlatList(sheet);
    m_layout.ReadSheet(m_buffer);
  } else if (!ParseTextRun(m_layout, m_buffer, m_bPre)) {
    CExtRichContentItem* failed = m_layout.NewItem(kKindWord);
    failed->m_strName = m_buffer;
    failed->m_nError = kErrorTextRun;
    m_layout.AddToFlatList(failed);
    return false;
  }
  m_buffer.clear();
  return true;
}

bool MarkupReader::FlushTag(bool selfClosed) {
  std::string_view tag = Trim(m_buffer);
  if (tag.empty()) {
    m_buffer.clear();
    return true;
  }
  const bool closing = tag.front() == '/';
  if (closing) tag.remove_prefix(1);
  // The whole tag text is lower-cased, attribute values included.
  std::string lower = ToLower(tag);
  m_buffer.clear();

  CExtRichContentItem* item = m_layout.NewItem(kKindTag);
  item->m_bClosing = closing;
  item->m_bSelfClosed = selfClosed;
  if (closing) {
    const size_t blank = lower.find_first_of(" \t\r\n");
    item->m_strName = Trim(std::string_view(lower).substr(0, blank));
  } else {
    item->m_strName = std::move(lower);
    if (!item->ParseTagText()) {
      item->m_nError = kErrorTagText;
      m_layout.AddToFlatList(item);
      return false;
    }
  }
  if (item->IsVoid()) {
    if (closing) return true;  // a closing tag of a void element is discarded
    item->m_bSelfClosed = true;
  }
  const std::string& name = item->m_strName;
  if (name == "pre") m_bPre = !closing;
  if (name == "style") m_bStyle = !closing;
  m_layout.AddToFlatList(item);
  return true;
}

bool CExtRichContentLayout::ParseHtml(std::string_view text, bool /*errorKeep*/) {
  Empty();
  m_nForm = kFormHtml;
  LinkSheet(kDefaultSheetName);
  if (text.empty()) return true;
  MarkupReader reader(*this);
  const bool read = reader.Run(text);
  BuildTree();
  if (!read) return false;
  LoadLinkedSheets();
  return m_nErrors == 0;
}

}  // namespace qmk::toolkit::richcontent
