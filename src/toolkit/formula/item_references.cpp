// item_references.cpp: what a formula tree refers to: shifting references, finding nodes by
// offset or rectangle, the rectangles for highlighting, and the cells a formula depends on.
#include <algorithm>
#include <climits>

#include "toolkit/formula/alphabet.h"
#include "toolkit/formula/item.h"
#include "toolkit/formula/manager.h"

namespace qmk::toolkit::formula {
namespace {

std::string Upper(const CExtFormulaAlphabet& alphabet, std::string text) {
  for (char& c : text) alphabet.MakeUpperChar(c);
  return text;
}

const CExtGridRangeSet* NamedRange(const FormulaManager* manager, const std::string& name) {
  return manager != nullptr ? manager->FindNamedRange(name) : nullptr;
}

// The cell an identifier names, or (-1, -1).
CellPos IdentifierCell(const CExtFormulaAlphabet& alphabet, const std::string& text) {
  const std::string upper = Upper(alphabet, text);
  const char* p = upper.c_str();
  return alphabet.ParseCell(p);
}

// Moves a coordinate without wrapping round: a result beyond the int range saturates, and the
// alphabet prints it as it prints any coordinate out of its limits.
int Moved(int value, int delta) {
  const long long moved = static_cast<long long>(value) + delta;
  return static_cast<int>(std::clamp<long long>(moved, INT_MIN, INT_MAX));
}

}  // namespace

bool CExtFormulaItem::ReferenceCells(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                                     CExtGridRangeSet& cells, CellRect* written, int dx, int dy) const {
  cells.Empty();
  CellRect as_written;
  std::string buffer;
  if (m_nKind == kKindIdentifier && m_cellName.column >= 0 && (manager == nullptr || manager->CellNamesAreCells())) {
    as_written = {m_cellName.column + dx, m_cellName.row + dy, m_cellName.column + dx, m_cellName.row + dy};
    cells.Add(as_written);
  } else if (m_nKind == kKindRange && m_children.size() == 2 && m_children[0]->m_cellName.column >= 0 &&
             m_children[1]->m_cellName.column >= 0) {
    // Two plain cell names: no spelling out needed.
    const CellPos a = m_children[0]->m_cellName, b = m_children[1]->m_cellName;
    as_written = {a.column + dx, a.row + dy, b.column + dx, b.row + dy};
    cells.Add(as_written);
  } else if (m_nKind == kKindIdentifier) {
    const std::string& text = ReferenceText(alphabet, dx, dy, buffer);
    if (const CExtGridRangeSet* named = NamedRange(manager, text)) {
      cells.Assign(*named);
      if (!named->IsEmpty()) as_written = named->GetAt(0);
    } else {
      const CellPos cell = IdentifierCell(alphabet, text);
      if (cell.column < 0) return false;
      as_written = {cell.column, cell.row, cell.column, cell.row};
      cells.Add(as_written);
    }
  } else if (m_nKind == kKindRange && m_children.size() == 2) {
    std::string other;
    const std::string first = Upper(alphabet, m_children[0]->ReferenceText(alphabet, dx, dy, buffer));
    const std::string second = Upper(alphabet, m_children[1]->ReferenceText(alphabet, dx, dy, other));
    bool bad1 = false, bad2 = false;
    as_written = alphabet.ParseRange(first.c_str(), second.c_str(), bad1, bad2, manager);
    if (bad1 || bad2 || as_written.left < 0) return false;
    cells.Add(as_written);
  } else {
    return false;
  }
  if (written != nullptr) *written = as_written;
  return true;
}

void CExtFormulaItem::ShiftReferences(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                                      std::string& text, int dx, int dy,
                                      const CExtGridRangeSet* filter) const {
  // Last child first: replacing a name changes the length of the text behind it only, so the
  // offsets of the nodes still to be visited stay valid.
  for (auto it = m_children.rbegin(); it != m_children.rend(); ++it)
    if (*it != nullptr) (*it)->ShiftReferences(manager, alphabet, text, dx, dy, filter);
  if (m_nKind != kKindIdentifier || NamedRange(manager, m_strText) != nullptr) return;
  const CellPos cell = IdentifierCell(alphabet, m_strText);
  if (cell.column < 0 || (filter != nullptr && !filter->Contains(cell))) return;
  // No clamping: a reference moved off the grid prints as FormatCell makes it ("A0", "1") and
  // its next evaluation reports it, so that moving it back restores the formula.
  const int start = m_location.start, end = m_location.end;
  if (start < 0 || end < start || static_cast<size_t>(end) > text.size()) return;
  text.replace(static_cast<size_t>(start), static_cast<size_t>(end - start),
               alphabet.FormatCell(Moved(cell.column, dx), Moved(cell.row, dy)));
}

const CExtFormulaItem* CExtFormulaItem::FindCallAtOffset(int offset, int& argumentIndex) const {
  for (const CExtFormulaItem* child : m_children)
    if (child != nullptr)
      if (const CExtFormulaItem* found = child->FindCallAtOffset(offset, argumentIndex)) return found;
  if (m_nKind != kKindFunctionCall || offset <= m_location.start || offset >= m_location.end)
    return nullptr;
  argumentIndex = m_children.empty() ? 0 : 1;
  for (size_t i = 0; i + 1 < m_children.size(); ++i)
    if (m_children[i] != nullptr && m_children[i]->m_location.end < offset) argumentIndex = static_cast<int>(i) + 2;
  return this;
}

const CExtFormulaItem* CExtFormulaItem::FindItemAtOffsets(int start, int end) const {
  if ((start < 0 || m_location.start == start) && (end < 0 || m_location.end == end)) return this;
  for (const CExtFormulaItem* child : m_children)
    if (child != nullptr)
      if (const CExtFormulaItem* found = child->FindItemAtOffsets(start, end)) return found;
  return nullptr;
}

const CExtFormulaItem* CExtFormulaItem::FindItemWithRect(CellPos start, CellPos end) const {
  const CellRect wanted = CellRect{start.column, start.row, end.column, end.row}.Normalized();
  if (m_rcPrimary.IsValid() && m_rcPrimary == wanted) return this;
  for (const CExtFormulaItem* child : m_children)
    if (child != nullptr)
      if (const CExtFormulaItem* found = child->FindItemWithRect(start, end)) return found;
  return nullptr;
}

void CExtFormulaItem::CollectRects(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                                   CExtGridRangeSet& result) {
  CellRect written;
  if (ReferenceCells(manager, alphabet, m_rangeSet, &written)) {
    m_rcSecondary = written;
    m_rcPrimary = written.Normalized();
    result.UnionWith(m_rangeSet);
    return;
  }
  for (CExtFormulaItem* child : m_children)
    if (child != nullptr) child->CollectRects(manager, alphabet, result);
}

void CExtFormulaItem::CollectDependencies(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                                          CExtGridRangeSet& result) const {
  CollectShiftedDependencies(manager, alphabet, result, 0, 0);
}

void CExtFormulaItem::CollectShiftedDependencies(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                                                 CExtGridRangeSet& result, int dx, int dy) const {
  CExtGridRangeSet cells;
  std::string buffer;
  switch (m_nKind) {
    case kKindIdentifier: {
      if (m_cellName.column >= 0 && manager != nullptr && manager->CellNamesAreCells()) {
        // A plain cell name of a shared tree: its moved cell, with no set made in between.
        result.Add({m_cellName.column + dx, m_cellName.row + dy, m_cellName.column + dx, m_cellName.row + dy});
        return;
      }
      const std::string& text = ReferenceText(alphabet, dx, dy, buffer);
      if (NamedRange(manager, text) == nullptr && manager != nullptr && manager->IsBareNameFunction(text)) return;
    }
      [[fallthrough]];
    case kKindRange:
      if (m_nKind == kKindRange && m_children.size() == 2 && m_children[0]->m_cellName.column >= 0 &&
          m_children[1]->m_cellName.column >= 0) {
        const CellPos a = m_children[0]->m_cellName, b = m_children[1]->m_cellName;
        result.Add({a.column + dx, a.row + dy, b.column + dx, b.row + dy});
        return;
      }
      if (ReferenceCells(manager, alphabet, cells, nullptr, dx, dy)) result.UnionWith(cells);
      return;
    case kKindIntersection: {
      // As evaluation intersects its parts; a part that names no cells ends the walk quietly,
      // and so does a part whose cells only a computed value could tell.
      CExtGridRangeSet running, part;
      for (size_t i = 0; i < m_children.size(); ++i) {
        const CExtFormulaItem* child = m_children[i];
        if (child == nullptr || (child->m_nKind != kKindIdentifier && child->m_nKind != kKindRange) ||
            !child->ReferenceCells(manager, alphabet, part, nullptr, dx, dy))
          return;
        if (i == 0) running.Assign(part);
        else running.IntersectWith(part);
      }
      result.UnionWith(running);
      return;
    }
    default:
      for (const CExtFormulaItem* child : m_children)
        if (child != nullptr) child->CollectShiftedDependencies(manager, alphabet, result, dx, dy);
  }
}

}  // namespace qmk::toolkit::formula
