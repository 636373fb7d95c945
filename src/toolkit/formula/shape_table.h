// shape_table.h: FormulaShapeTable, one parse tree for every formula "shape": formulas that are
// the same text once each cell name is read relative to the formula's own cell share a tree.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "toolkit/formula/alphabet.h"
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

class FormulaShapeTable {
 public:
  // The tree a cell computes with, and the cell's offset from the cell it was parsed for.
  struct Shared {
    std::shared_ptr<CExtFormulaItem> tree;
    int dx = 0, dy = 0;
  };

  // Takes the tree just parsed from `text`, the formula of the cell at `at`. A tree of the same
  // shape already in use is given instead, with the offset; otherwise this tree is kept as the
  // shape's. A formula with a cell name written other than as FormatCell prints it ("b2",
  // "$B2") or a range pairing a cell with something else keeps a tree of its own.
  Shared Share(std::unique_ptr<CExtFormulaItem> tree, const std::string& text, CellPos at,
               const CExtFormulaAlphabet& alphabet);
  // Before parsing: true, with the tree and offset in `shared`, when `text` is spelt exactly as
  // the last shape shared in the same column would be spelt at `at`. Rows of a column usually
  // repeat one formula, so most cells need no parse of their own.
  bool ShareBySpelling(const std::string& text, CellPos at, const CExtFormulaAlphabet& alphabet, Shared& shared);
  size_t size() const { return m_shapes.size(); }
  void clear() {
    m_shapes.clear();
    m_recent.assign(kRecentColumns, Recent{});
  }

  // The shape key of a tree parsed from `text` at `at`; false when the formula cannot share.
  // With `mark`, the tree's plain cell names are recorded in their nodes (m_cellName).
  // A shape's text as pieces between its cell names, and the cells they name where it was
  // parsed. Kept only where every name stands between characters that cannot join it into a
  // longer token, so that any other cell name in its place is read the same way.
  struct Spelling {
    std::vector<std::string> pieces;  // one more than names
    std::vector<CellPos> names;
  };
  static bool MakeKey(CExtFormulaItem& tree, const std::string& text, CellPos at, const CExtFormulaAlphabet& alphabet,
                      std::string& key, bool mark, Spelling* spelling = nullptr);

 private:
  struct Entry {
    std::weak_ptr<CExtFormulaItem> tree;  // the cells own it; the table only finds it
    CellPos origin;
  };
  // The shape last shared in a column (by the column's low bits).
  struct Recent {
    std::weak_ptr<CExtFormulaItem> tree;
    CellPos at;         // the cell whose text the spelling is
    int dx = 0, dy = 0;  // that cell's offset in the tree
    std::shared_ptr<const Spelling> spelling;
  };
  void Remember(const Shared& shared, CellPos at, std::shared_ptr<const Spelling> spelling);
  static constexpr size_t kRecentColumns = 64;
  // Drops the shapes no cell uses any more, when the table has doubled since the last time.
  void Prune();

  std::unordered_map<std::string, Entry> m_shapes;
  size_t m_nPruneAt = 1024;
  std::string m_key;  // kept between calls: most keys fit its storage
  std::vector<Recent> m_recent = std::vector<Recent>(kRecentColumns);
};

}  // namespace qmk::toolkit::formula
