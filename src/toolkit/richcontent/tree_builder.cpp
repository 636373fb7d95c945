// tree_builder.cpp: builds the element tree from the flat list of the markup form, with the
// implied closes of paragraphs, list items and table parts, and loads the linked style sheets.
#include <string_view>
#include <vector>

#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent {
namespace {


constexpr std::string_view kSetP[] = {"p", "colgroup"};
constexpr std::string_view kSetA[] = {"dd", "dt", "li", "option", "td", "th", "tr"};
constexpr std::string_view kSetB[] = {
    "html", "body", "p", "div", "layer", "nav", "marquee", "address", "blockquote", "center",
    "h1", "h2", "h3", "h4", "h5", "h6", "table", "thead", "tbody", "tfoot", "col", "colgroup",
    "tr", "td", "th", "caption", "ul", "menu", "dir", "ol", "dd", "dl", "dt", "pre", "xmp",
    "plaintext", "listing", "frameset", "frame"};
constexpr std::string_view kSetT[] = {"thead", "tbody", "tfoot"};
constexpr std::string_view kSetC[] = {"th", "td"};
constexpr std::string_view kSetL[] = {"ol", "ul"};
constexpr std::string_view kSetD[] = {"dd", "dt"};

template <size_t N>
bool In(const std::string_view (&set)[N], std::string_view name) {
  for (std::string_view s : set)
    if (s == name) return true;
  return false;
}

bool InAPB(std::string_view name) { return In(kSetA, name) || In(kSetP, name) || In(kSetB, name); }

// Tag names whose items get their own kinds and join the head list.
int HeadKindOf(std::string_view name) {
  constexpr std::string_view kHead[] = {"title", "style", "script", "meta", "link"};
  for (size_t i = 0; i < std::size(kHead); ++i)
    if (EqualsNoCase(name, kHead[i])) return kKindTitle + static_cast<int>(i);
  return kKindTag;
}

// The walk over the flat list: a current element and the stack of the open ones above it.
class TreeWalk {
 public:
  explicit TreeWalk(CExtRichContentItem* root) : m_root(root), m_current(root) {}

  void Pop() {
    if (m_stack.empty()) {
      m_current = m_root;
    } else {
      m_current = m_stack.back();
      m_stack.pop_back();
    }
  }
  const std::string& CurrentName() const { return m_current->m_strName; }
  void Close(CExtRichContentItem* tag, CExtRichContentLayout& layout);
  void Open(CExtRichContentItem* tag);
  void AddText(CExtRichContentItem* text) {
    text->m_pParent = m_current;
    m_current->m_children.push_back(text);
  }
  void MarkLeftOpen(CExtRichContentLayout& layout);

 private:
  CExtRichContentItem* m_root;
  CExtRichContentItem* m_current;
  std::vector<CExtRichContentItem*> m_stack;
};

void TreeWalk::Close(CExtRichContentItem* tag, CExtRichContentLayout& layout) {
  const std::string& x = tag->m_strName;
  const std::string& e = CurrentName();
  if (m_current != m_root && x == e) {
    Pop();
  } else if ((In(kSetL, x) && e == "li") || (x == "select" && e == "option") ||
             (x == "tr" && In(kSetC, e)) || (x == "table" && In(kSetT, e)) ||
             (x == "dl" && In(kSetD, e))) {
    Pop();
    Pop();
  } else if ((x == "table" || In(kSetT, x)) && (In(kSetC, e) || e == "tr")) {
    for (;;) {
      const CExtRichContentItem* popped = m_current;
      Pop();
      if (popped == m_root || popped->m_strName == x) break;
    }
  } else if (!InAPB(x) || !In(kSetP, e)) {
    layout.CountError();
    tag->m_nError = kErrorUnmatchedClose;
  } else {
    // A block closing while a "p" or "colgroup" is open closes that first.
    Pop();
    if (In(kSetA, CurrentName())) Pop();
  }
}

void TreeWalk::Open(CExtRichContentItem* tag) {
  const std::string& x = tag->m_strName;
  const std::string e = CurrentName();
  if (x == e && In(kSetA, e)) {
    Pop();
  } else if ((In(kSetD, x) && In(kSetD, e)) || (In(kSetC, x) && In(kSetC, e)) ||
             (In(kSetT, x) && In(kSetT, e)) || (x == "body" && e == "head") ||
             (x == "head" && e == "body")) {
    Pop();
  } else if (x == "tr" && In(kSetC, e)) {
    Pop();
    Pop();
  } else if (In(kSetT, x) && e == "tr") {
    Pop();
    if (In(kSetT, CurrentName())) Pop();
  } else if (In(kSetT, x) && In(kSetC, e)) {
    for (;;) {
      const CExtRichContentItem* popped = m_current;
      Pop();
      if (popped == m_root || (CurrentName() != "tr" && !In(kSetT, CurrentName()))) break;
    }
  } else if (!InAPB(x) || !In(kSetP, e)) {
    // no implied close
  } else {
    Pop();
    if (In(kSetA, CurrentName())) Pop();
  }
  tag->m_pParent = m_current;
  m_current->m_children.push_back(tag);
  if (x == "img") tag->m_bSelfClosed = true;
  if (!tag->m_bSelfClosed) {
    if (m_current != m_root) m_stack.push_back(m_current);
    m_current = tag;
  }
}

void TreeWalk::MarkLeftOpen(CExtRichContentLayout& layout) {
  for (CExtRichContentItem* open : m_stack) {
    open->m_nError = kErrorLeftOpen;
    layout.CountError();
  }
  if (m_current != m_root) {
    m_current->m_nError = kErrorLeftOpen;
    layout.CountError();
  }
}

}  // namespace

void CExtRichContentLayout::BuildTree() {
  if (m_items.empty()) return;
  CExtRichContentItem* root = NewItem(kKindRoot);
  m_items.insert(m_items.begin(), root);
  TreeWalk walk(root);
  for (size_t i = 1; i < m_items.size(); ++i) {
    CExtRichContentItem* item = m_items[i];
    if (item->m_nKind == kKindWord || item->m_nKind == kKindSpace) {
      walk.AddText(item);
      continue;
    }
    // A tag whose text failed to parse ended the run; it takes no part in the tree.
    if (item->m_nKind != kKindTag || item->m_nError == kErrorTagText) continue;
    if (item->m_bClosing) {
      walk.Close(item, *this);
      continue;
    }
    const int headKind = HeadKindOf(item->m_strName);
    if (headKind != kKindTag) {
      item->m_nKind = headKind;
      m_headItems.push_back(item);
    }
    walk.Open(item);
  }
  walk.MarkLeftOpen(*this);
}

void CExtRichContentLayout::LoadLinkedSheets() {
  constexpr std::string_view kLinkTrim = " \t\r\n'\"";
  for (CExtRichContentItem* head : m_headItems) {
    if (head->m_nKind != kKindLink) continue;
    auto value = [&](std::string_view name) {
      const CExtRichContentItem* a = head->FindAttribute(name);
      return a ? ToLower(Trim(a->m_strRaw, kLinkTrim)) : std::string();
    };
    const std::string href = value("href");
    if (value("type") != "text/css" || value("rel") != "stylesheet" || href.empty()) continue;
    if (!LinkSheet(href)) {
      head->m_nError = kErrorSheetLoad;
      CountError();
    }
  }
}

}  // namespace qmk::toolkit::richcontent
