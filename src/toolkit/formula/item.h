// item.h: CExtFormulaItem, one node of a parsed formula, and the node kinds.
#pragma once

#include <string>
#include <vector>

#include "platform/variant/variant.h"
#include "toolkit/formula/alphabet.h"
#include "toolkit/formula/range_set.h"
#include "toolkit/formula/value.h"

namespace qmk::toolkit::formula {

class CExtFormulaAlphabet;
class FormulaManager;
class CExtFormulaDataManager;
class CExtFormulaFunction;
class CExtFormulaFunctionSet;

// Node kinds; the numbers are those the editor and the evaluator test.
enum FormulaKind : int {
  kKindNone = 0,  // also the argument list while a call is being parsed
  kKindIdentifier = 1,
  kKindInteger = 2,
  kKindReal = 3,
  kKindString = 4,
  kKindMultiply = 5,
  kKindDivide = 6,
  kKindPercent = 7,
  kKindAdd = 8,
  kKindSubtract = 9,
  kKindLess = 10,
  kKindGreater = 11,
  kKindGreaterOrEqual = 12,
  kKindLessOrEqual = 13,
  kKindNotEqual = 14,
  kKindConcatenate = 15,
  kKindPower = 16,
  kKindEqual = 17,
  kKindNegate = 18,
  kKindFunctionCall = 19,
  kKindRange = 20,
  kKindIntersection = 21,
};

// Where a node stands in the formula text: offsets, and lines and columns counted from 0.
struct FormulaLocation {
  int start = 0, end = 0;
  int start_column = 0, start_line = 0, end_column = 0, end_line = 0;
};

class CExtFormulaItem {
 public:
  CExtFormulaItem() = default;
  CExtFormulaItem(const CExtFormulaItem&) = delete;
  CExtFormulaItem& operator=(const CExtFormulaItem&) = delete;
  // Deletes the whole subtree, without recursion, so that a very deep tree cannot exhaust the stack.
  virtual ~CExtFormulaItem();
  // Nodes come and go by the dozen for every formula parsed: freed nodes are kept for reuse by
  // the same thread (see node_cache.cpp).
  static void* operator new(size_t size);
  static void operator delete(void* block, size_t size);

  // Inserts `child` at `index`, or appends it when the index is below 0 or past the count.
  // Returns the index used.
  virtual int InsertChild(CExtFormulaItem* child, int index);
  virtual int AddChild(CExtFormulaItem* child) { return InsertChild(child, -1); }
  // Moves the children of `other` behind this node's own; deletes `other` when asked.
  virtual void AdoptChildren(CExtFormulaItem* other, bool deleteOther);
  // Copies the start and/or end of `other`'s location; with `fromChildren` and an `other` that
  // has children, the start comes from its first child and the end from its last.
  virtual void CopyLocation(const CExtFormulaItem* other, bool fromChildren, bool copyStart, bool copyEnd);
  virtual void RemoveAllChildren();
  virtual void DetachAllChildren();
  virtual int GetChildCount() const { return static_cast<int>(m_children.size()); }
  virtual CExtFormulaItem* GetChildAt(int index) const;

  // Computes the node into `value`: 0, or an error code with `errorItem` on the node that
  // caused it (the first one set stays).
  virtual int Compute(FormulaContext& context, CExtFormulaValue& value, CExtFormulaDataManager& manager,
                      const CExtFormulaItem*& errorItem) const;
  // The value of an integer, real or string literal; false for any other kind.
  virtual bool LiteralToValue(platform::Variant& value) const;
  // The tree printed back as a fully parenthesised formula, for diagnostics.
  virtual std::string ToText() const;
  // Moves every cell reference of the tree by (dx, dy) in `text`, the formula this tree was
  // parsed from. With a filter, only references to cells inside it move.
  virtual void ShiftReferences(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                               std::string& text, int dx, int dy, const CExtGridRangeSet* filter) const;
  // The innermost call whose text holds `offset`, and the 1-based argument the offset falls
  // into (0 for a call without arguments); null when the offset is in no call.
  virtual const CExtFormulaItem* FindCallAtOffset(int offset, int& argumentIndex) const;
  // The first node, in tree order, starting at `start` and ending at `end`; a negative bound is
  // not compared.
  virtual const CExtFormulaItem* FindItemAtOffsets(int start, int end) const;
  // The first reference node whose rectangle, filled by CollectRects, has these corners.
  virtual const CExtFormulaItem* FindItemWithRect(CellPos start, CellPos end) const;
  // Stores in each cell, range and named-range node the rectangle it refers to, and adds the
  // cells to `result`.
  virtual void CollectRects(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                            CExtGridRangeSet& result);
  // Adds to `result` the cells this formula reads, as far as they are known without computing
  // values.
  virtual void CollectDependencies(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                                   CExtGridRangeSet& result) const;
  // The same for a cell reading this tree from (dx, dy) away from the cell it was parsed for:
  // its plain cell names point that much further (see m_cellName).
  void CollectShiftedDependencies(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                                  CExtGridRangeSet& result, int dx, int dy) const;
  // The text of this node as a cell (dx, dy) away would have it: the node's own text, or for a
  // plain cell name of a shared tree the name of the moved cell, made in `buffer`.
  const std::string& ReferenceText(const CExtFormulaAlphabet& alphabet, int dx, int dy,
                                   std::string& buffer) const {
    if ((dx == 0 && dy == 0) || m_cellName.column < 0) return m_strText;
    buffer = alphabet.FormatCell(m_cellName.column + dx, m_cellName.row + dy);
    return buffer;
  }

  CExtFormulaItem* GetParent() const { return m_pParent; }
  bool IsRangeKind() const { return m_nKind == kKindRange || m_nKind == kKindIntersection; }

  std::vector<CExtFormulaItem*> m_children;
  CExtFormulaItem* m_pParent = nullptr;
  std::string m_strText;
  std::string m_strDescription;
  int m_nKind = kKindNone;
  FormulaLocation m_location;
  bool m_bBold = false;
  bool m_bItalic = false;
  int m_nColorIndex = -1;
  CellRect m_rcPrimary;    // normalised
  CellRect m_rcSecondary;  // as written
  CExtGridRangeSet m_rangeSet;
  // Set in trees shared by cells of one shape: the cell this identifier names, written exactly
  // as FormatCell prints it. Each sharing cell reads it moved by its offset from the first.
  CellPos m_cellName;

 private:
  // A number literal's value, read from its text on the first computation: a shared tree
  // computes it for every cell of its shape.
  mutable platform::Variant m_number;
  mutable bool m_bNumberKnown = false;
  // A call's function as of the function set's stamp (0: not looked up).
  friend class CExtFormulaFunctionSet;
  mutable const CExtFormulaFunction* m_pFunction = nullptr;
  mutable uint64_t m_nFunctionStamp = 0;
  void AppendText(std::string& out) const;
  // The cells an identifier or a range names, through the manager's named ranges or the
  // alphabet; false when the node names none.
  bool ReferenceCells(const FormulaManager* manager, const CExtFormulaAlphabet& alphabet,
                      CExtGridRangeSet& cells, CellRect* written, int dx = 0, int dy = 0) const;
};

}  // namespace qmk::toolkit::formula
