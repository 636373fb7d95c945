// tree_text.h: a document's tree as one line of text, so tests can state whole trees.
#pragma once

#include <string>

#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent::testing {

// Elements as name(children), words as their text, spaces as "_", an error code as "!n" behind
// the element's name: "p(one) p!3(two)".
inline std::string TreeText(const CExtRichContentItem* item) {
  std::string out;
  for (const CExtRichContentItem* child : item->m_children) {
    if (!out.empty()) out += ' ';
    if (child->m_nKind == kKindWord) {
      out += child->m_strName;
    } else if (child->m_nKind == kKindSpace) {
      out += '_';
    } else {
      out += child->m_strName;
      if (child->m_nError) out += "!" + std::to_string(child->m_nError);
      if (!child->m_children.empty()) out += "(" + TreeText(child) + ")";
    }
  }
  return out;
}

inline std::string ParseToTree(const std::string& html, bool* ok = nullptr) {
  CExtRichContentLayout layout;
  const bool result = layout.ParseHtml(html);
  if (ok) *ok = result;
  return layout.Root() ? TreeText(layout.Root()) : std::string();
}

}  // namespace qmk::toolkit::richcontent::testing
