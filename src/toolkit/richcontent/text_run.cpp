// text_run.cpp: cuts a run of body text into word and space items, resolving entities.
#include <string>

#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/readers.h"
#include "toolkit/richcontent/resolve.h"

namespace qmk::toolkit::richcontent {
namespace {

class TextRunSplitter {
 public:
  TextRunSplitter(CExtRichContentLayout& layout, bool pre) : m_layout(layout), m_bPre(pre) {}

  void Feed(std::string_view text) {
    for (const char c : text) Step(c);
    // An "&" without ";" loses the name gathered behind it.
    FlushWord();
    FlushSpaces();
  }

 private:
  void Step(char c) {
    if (c == '\r') return;
    if (m_bInEntity) {
      if (c == ';') {
        EndEntity();
        return;
      }
      if (c != ' ' && c != '\t' && c != '\n') {
        m_entity += c;
        return;
      }
      m_bInEntity = false;  // the name is lost
    }
    if (c == ' ' || c == '\t' || c == '\n') {
      FlushWord();
      if (c == '\n' && m_bPre) {
        FlushSpaces();
        AddBreak();
        return;
      }
      m_spaces += c;
      return;
    }
    FlushSpaces();
    if (c == '&') {
      m_bInEntity = true;
      m_entity.clear();
      return;
    }
    m_word += c;
  }

  void EndEntity() {
    m_bInEntity = false;
    const int code = ResolveEntity(m_entity);
    if (code != 0) {
      m_word += static_cast<char>(code & 0xFF);  // the low eight bits, one byte
    } else {
      m_word += '&';
      m_word += m_entity;
      m_word += ';';
    }
  }

  void Add(int kind, std::string& text) {
    CExtRichContentItem* item = m_layout.NewItem(kind);
    item->m_strName = std::move(text);
    text.clear();
    m_layout.AddToFlatList(item);
  }
  void FlushWord() {
    if (!m_word.empty()) Add(kKindWord, m_word);
  }
  void FlushSpaces() {
    if (!m_spaces.empty()) Add(kKindSpace, m_spaces);
  }
  void AddBreak() {
    CExtRichContentItem* br = m_layout.NewItem(kKindTag);
    br->m_strName = "br";
    br->m_bSelfClosed = true;
    m_layout.AddToFlatList(br);
  }

  CExtRichContentLayout& m_layout;
  bool m_bPre;
  bool m_bInEntity = false;
  std::string m_word, m_spaces, m_entity;
};

}  // namespace

bool ParseTextRun(CExtRichContentLayout& layout, std::string_view text, bool pre) {
  TextRunSplitter splitter(layout, pre);
  splitter.Feed(text);
  return true;
}

}  // namespace qmk::toolkit::richcontent
