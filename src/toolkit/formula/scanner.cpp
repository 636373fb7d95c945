// scanner.cpp: CExtFormulaScanner's reader with its line and column counting, its node pool,
// and Parse.
#include "toolkit/formula/scanner.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "toolkit/formula/grammar_actions.h"

namespace qmk::toolkit::formula {

CExtFormulaScanner::~CExtFormulaScanner() {
  ReleasePool();
  delete m_pRoot;
}

void CExtFormulaScanner::SetText(const char* text, int length) {
  ReleasePool();
  delete m_pRoot;
  m_pRoot = nullptr;
  m_pText = text != nullptr ? text : "";
  const size_t size = length >= 1 ? static_cast<size_t>(length) : std::strlen(m_pText);
  m_bTooLong = size > static_cast<size_t>(kMaxTextLength);
  m_nLength = m_bTooLong ? 0 : static_cast<int>(size);
  Reset();
}

void CExtFormulaScanner::Reset() {
  m_nPos = m_nLine = m_nColumn = m_nTokens = 0;
  m_strToken.clear();
  m_tokenLocation = {};
  m_strError.clear();
}

bool CExtFormulaScanner::Parse() {
  ReleasePool();
  delete m_pRoot;
  m_pRoot = nullptr;
  Reset();
  if (m_bTooLong) {
    m_strError = "formula too long";
    return false;
  }
  bool parsed = false;
  try {
    parsed = RunFormulaParser(*this) == 0 && m_pRoot != nullptr;
    if (!parsed && m_strError.empty()) m_strError = "syntax error";
    if (parsed && RootIsTooDeep()) {
      parsed = false;
      m_strError = "formula nested too deeply";
    }
  } catch (const FormulaSyntaxError& error) {
    m_strError = error.message;
  } catch (const std::bad_alloc&) {
    m_strError = "out of memory";
  }
  if (!parsed) m_pRoot = nullptr;
  ReleasePool();
  return parsed;
}

bool CExtFormulaScanner::RootIsTooDeep() const {
  // A tree is never deeper than it has nodes: short formulas need no walk.
  if (m_pool.size() <= static_cast<size_t>(kMaxTreeDepth)) return false;
  std::vector<std::pair<const CExtFormulaItem*, int>> pending{{m_pRoot, 1}};
  while (!pending.empty()) {
    const auto [node, depth] = pending.back();
    pending.pop_back();
    if (depth > kMaxTreeDepth) return true;
    for (const CExtFormulaItem* child : node->m_children)
      if (child != nullptr) pending.emplace_back(child, depth + 1);
  }
  return false;
}

CExtFormulaItem* CExtFormulaScanner::DetachRoot() {
  CExtFormulaItem* root = m_pRoot;
  m_pRoot = nullptr;
  return root;
}

CExtFormulaItem* CExtFormulaScanner::NewNode(int kind) {
  // Room is made first, so that push_back below cannot throw and leak the node.
  if (m_pool.size() == m_pool.capacity()) m_pool.reserve(m_pool.empty() ? 32 : m_pool.size() * 2);
  auto* node = new CExtFormulaItem;
  node->m_nKind = kind;
  m_pool.push_back(node);
  return node;
}

CExtFormulaItem* CExtFormulaScanner::TokenNode() {
  CExtFormulaItem* node = NewNode(kKindNone);
  node->m_strText = m_strToken;
  node->m_location = m_tokenLocation;
  return node;
}

void CExtFormulaScanner::ReleasePool() {
  // Every pooled node is either in the root's tree or under a node that has no parent: deleting
  // those tops frees everything else exactly once. They are all found before any is deleted.
  m_tops.clear();
  for (CExtFormulaItem* node : m_pool)
    if (node->GetParent() == nullptr && node != m_pRoot) m_tops.push_back(node);
  m_pool.clear();
  for (CExtFormulaItem* node : m_tops) delete node;
}

void CExtFormulaScanner::UnreadChar() {
  if (m_nPos <= 0) return;
  if (CharAt(--m_nPos) != '\n') {
    --m_nColumn;
    return;
  }
  // Back over a line feed: the column is the distance from the line feed before it.
  --m_nLine;
  int p = m_nPos;
  while (p > 0 && CharAt(p - 1) != '\n') --p;
  m_nColumn = m_nPos - p;
}

void CExtFormulaScanner::SeekTo(int position) {
  if (position < 0 || position > m_nLength + kOverrun) return;
  while (m_nPos < position) ReadChar();
  while (m_nPos > position) UnreadChar();
}

}  // namespace qmk::toolkit::formula
