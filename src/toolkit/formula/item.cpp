// item.cpp: CExtFormulaItem's ownership of its children and its location in the text.
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

namespace {
// Subtrees are freed by recursion up to this depth, and below it through a work list: a chain
// such as "=1+1+1+..." makes a tree as deep as the text is long.
constexpr int kRecursiveDeleteDepth = 256;
thread_local int t_deleteDepth = 0;
}  // namespace

CExtFormulaItem::~CExtFormulaItem() {
  if (m_children.empty()) return;
  if (t_deleteDepth < kRecursiveDeleteDepth) {
    ++t_deleteDepth;
    for (CExtFormulaItem* child : m_children) delete child;
    --t_deleteDepth;
    return;
  }
  std::vector<CExtFormulaItem*> pending;
  pending.swap(m_children);
  while (!pending.empty()) {
    CExtFormulaItem* node = pending.back();
    pending.pop_back();
    if (node == nullptr) continue;
    pending.insert(pending.end(), node->m_children.begin(), node->m_children.end());
    node->m_children.clear();
    delete node;
  }
}

int CExtFormulaItem::InsertChild(CExtFormulaItem* child, int index) {
  if (index < 0 || index > GetChildCount()) index = GetChildCount();
  m_children.insert(m_children.begin() + index, child);
  if (child != nullptr) child->m_pParent = this;
  return index;
}

void CExtFormulaItem::AdoptChildren(CExtFormulaItem* other, bool deleteOther) {
  if (other == nullptr || other == this) return;
  for (CExtFormulaItem* child : other->m_children) AddChild(child);
  other->m_children.clear();
  if (deleteOther) delete other;
}

void CExtFormulaItem::CopyLocation(const CExtFormulaItem* other, bool fromChildren, bool copyStart,
                                   bool copyEnd) {
  if (other == nullptr) return;
  const CExtFormulaItem* first = other;
  const CExtFormulaItem* last = other;
  if (fromChildren && !other->m_children.empty()) {
    first = other->m_children.front();
    last = other->m_children.back();
  }
  if (copyStart && first != nullptr) {
    m_location.start = first->m_location.start;
    m_location.start_column = first->m_location.start_column;
    m_location.start_line = first->m_location.start_line;
  }
  if (copyEnd && last != nullptr) {
    m_location.end = last->m_location.end;
    m_location.end_column = last->m_location.end_column;
    m_location.end_line = last->m_location.end_line;
  }
}

void CExtFormulaItem::RemoveAllChildren() {
  for (CExtFormulaItem* child : m_children) {
    if (child != nullptr) child->m_pParent = nullptr;
    delete child;
  }
  m_children.clear();
}

void CExtFormulaItem::DetachAllChildren() {
  for (CExtFormulaItem* child : m_children)
    if (child != nullptr) child->m_pParent = nullptr;
  m_children.clear();
}

CExtFormulaItem* CExtFormulaItem::GetChildAt(int index) const {
  if (index < 0 || index >= GetChildCount()) return nullptr;
  return m_children[static_cast<size_t>(index)];
}

}  // namespace qmk::toolkit::formula
