// shape_table.cpp: the shape key of a parsed formula and the table of shared trees.
#include "toolkit/formula/shape_table.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <vector>

namespace qmk::toolkit::formula {
namespace {

template <typename T>
void AppendRaw(std::string& key, T value) {
  char bytes[sizeof(T)];
  std::memcpy(bytes, &value, sizeof(T));
  key.append(bytes, sizeof(T));
}

// The cell `text` names when it is written exactly as the alphabet prints that cell; (-1, -1)
// otherwise. `cellLike` tells whether the text names a cell in any spelling.
CellPos PlainCellName(const CExtFormulaAlphabet& alphabet, const std::string& text, bool& cellLike) {
  std::string upper = text;
  for (char& c : upper) alphabet.MakeUpperChar(c);
  const char* p = upper.c_str();
  const CellPos cell = alphabet.ParseCell(p);
  cellLike = cell.column >= 0;
  if (!cellLike || *p != '\0' || alphabet.FormatCell(cell.column, cell.row) != text) return {};
  return cell;
}

struct Reference {
  CExtFormulaItem* node;
  CellPos cell;
};

// Characters that could join a cell name into a longer token: letters, digits and what names
// and numbers may hold.
bool JoinsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '!' ||
         c == '$' || c == '.' || static_cast<unsigned char>(c) >= 0x80;
}

// The pieces between the names; none at all (no spelling) when a name touches such a character.
void MakeSpelling(const std::vector<Reference>& references, const std::string& text,
                  FormulaShapeTable::Spelling& spelling) {
  spelling.pieces.clear();
  spelling.names.clear();
  size_t done = 0;
  for (const Reference& ref : references) {
    const size_t start = static_cast<size_t>(ref.node->m_location.start);
    const size_t end = static_cast<size_t>(ref.node->m_location.end);
    if ((start > 0 && JoinsName(text[start - 1])) || (end < text.size() && JoinsName(text[end]))) {
      spelling.pieces.clear();
      spelling.names.clear();
      return;
    }
    spelling.pieces.push_back(text.substr(done, start - done));
    spelling.names.push_back(ref.cell);
    done = end;
  }
  spelling.pieces.push_back(text.substr(done));
}

// Whether `text` is `spelling` with every name moved by (dx, dy).
bool SpeltAs(const FormulaShapeTable::Spelling& spelling, const std::string& text, int dx, int dy,
             const CExtFormulaAlphabet& alphabet) {
  if (spelling.pieces.size() != spelling.names.size() + 1) return false;
  size_t at = 0;
  for (size_t i = 0; i < spelling.names.size(); ++i) {
    const std::string& piece = spelling.pieces[i];
    if (text.compare(at, piece.size(), piece) != 0) return false;
    at += piece.size();
    const long long column = static_cast<long long>(spelling.names[i].column) + dx;
    const long long row = static_cast<long long>(spelling.names[i].row) + dy;
    if (column < 0 || row < 0 || column > alphabet.GetMaxColumn() || row > alphabet.GetMaxRow()) return false;
    const std::string name = alphabet.FormatCell(static_cast<int>(column), static_cast<int>(row));
    if (text.compare(at, name.size(), name) != 0) return false;
    at += name.size();
  }
  const std::string& last = spelling.pieces.back();
  return text.size() == at + last.size() && text.compare(at, last.size(), last) == 0;
}

}  // namespace

bool FormulaShapeTable::ShareBySpelling(const std::string& text, CellPos at, const CExtFormulaAlphabet& alphabet,
                                        Shared& shared) {
  if (at.column < 0 || at.row < 0) return false;
  const Recent& recent = m_recent[static_cast<size_t>(at.column) % kRecentColumns];
  if (!recent.spelling) return false;
  // The spelling is that of the cell `recent.at`, which reads the tree from (dx, dy) away.
  const long long stepColumns = static_cast<long long>(at.column) - recent.at.column;
  const long long stepRows = static_cast<long long>(at.row) - recent.at.row;
  const long long dx = recent.dx + stepColumns, dy = recent.dy + stepRows;
  if (dx < INT_MIN || dx > INT_MAX || dy < INT_MIN || dy > INT_MAX) return false;
  if (!SpeltAs(*recent.spelling, text, static_cast<int>(stepColumns), static_cast<int>(stepRows), alphabet))
    return false;
  std::shared_ptr<CExtFormulaItem> tree = recent.tree.lock();
  if (!tree) return false;
  shared.tree = std::move(tree);
  shared.dx = static_cast<int>(dx);
  shared.dy = static_cast<int>(dy);
  return true;
}

bool FormulaShapeTable::MakeKey(CExtFormulaItem& tree, const std::string& text, CellPos at,
                                const CExtFormulaAlphabet& alphabet, std::string& key, bool mark, Spelling* spelling) {
  key.clear();
  std::vector<Reference> references;
  // The structure goes into the key too (kind and child count of every node, in tree order), so
  // that two texts can only share when they parsed alike. The walk keeps its own stack: trees
  // may be thousands of levels deep.
  std::vector<CExtFormulaItem*> stack{&tree};
  while (!stack.empty()) {
    CExtFormulaItem* node = stack.back();
    stack.pop_back();
    if (node == nullptr) return false;
    AppendRaw(key, static_cast<uint8_t>(node->m_nKind));
    AppendRaw(key, static_cast<uint32_t>(node->m_children.size()));
    if (node->m_nKind == kKindIdentifier) {
      bool cellLike = false;
      const CellPos cell = PlainCellName(alphabet, node->m_strText, cellLike);
      if (cellLike) {
        const FormulaLocation& at_text = node->m_location;
        // A cell name is shared only where the tree knows exactly which letters spell it.
        if (cell.column < 0 || at_text.start < 0 || at_text.end > static_cast<int>(text.size()) ||
            text.compare(static_cast<size_t>(at_text.start), static_cast<size_t>(at_text.end - at_text.start),
                         node->m_strText) != 0)
          return false;
        references.push_back({node, cell});
      }
    } else if (node->m_nKind == kKindRange) {
      // "A1:C" pairs a cell with a column name: moving one half alone changes what it means.
      int cells = 0;
      for (const CExtFormulaItem* child : node->m_children) {
        bool cellLike = false;
        if (child != nullptr && child->m_nKind == kKindIdentifier) PlainCellName(alphabet, child->m_strText, cellLike);
        cells += cellLike ? 1 : 0;
      }
      if (cells != 0 && cells != static_cast<int>(node->m_children.size())) return false;
    }
    for (auto it = node->m_children.rbegin(); it != node->m_children.rend(); ++it) stack.push_back(*it);
  }
  std::sort(references.begin(), references.end(),
            [](const Reference& a, const Reference& b) { return a.node->m_location.start < b.node->m_location.start; });
  // Then each cell name as its distance from the formula's cell with the length of the text
  // before it, and the text between the names; the lengths make the key unambiguous.
  AppendRaw(key, static_cast<uint32_t>(references.size()));
  size_t done = 0;
  for (const Reference& ref : references) {
    const size_t start = static_cast<size_t>(ref.node->m_location.start);
    if (start < done) return false;  // overlapping names: no tree of ours, but never share one
    AppendRaw(key, static_cast<uint32_t>(start - done));
    AppendRaw(key, static_cast<int64_t>(ref.cell.column) - at.column);
    AppendRaw(key, static_cast<int64_t>(ref.cell.row) - at.row);
    key.append(text, done, start - done);
    done = static_cast<size_t>(ref.node->m_location.end);
  }
  AppendRaw(key, static_cast<uint32_t>(text.size() - done));
  key.append(text, done, std::string::npos);
  if (mark)
    for (const Reference& ref : references) ref.node->m_cellName = ref.cell;
  if (spelling != nullptr) MakeSpelling(references, text, *spelling);
  return true;
}

FormulaShapeTable::Shared FormulaShapeTable::Share(std::unique_ptr<CExtFormulaItem> tree, const std::string& text,
                                                   CellPos at, const CExtFormulaAlphabet& alphabet) {
  Shared result;
  if (!tree) return result;
  auto spelling = std::make_shared<Spelling>();
  if (!MakeKey(*tree, text, at, alphabet, m_key, false, spelling.get())) {
    result.tree = std::move(tree);
    return result;
  }
  const auto found = m_shapes.find(m_key);
  if (found != m_shapes.end()) {
    if (std::shared_ptr<CExtFormulaItem> shared = found->second.tree.lock()) {
      result.tree = std::move(shared);
      result.dx = at.column - found->second.origin.column;
      result.dy = at.row - found->second.origin.row;
      Remember(result, at, std::move(spelling));
      return result;
    }
  }
  MakeKey(*tree, text, at, alphabet, m_key, true);
  result.tree = std::move(tree);
  if (found != m_shapes.end()) {
    found->second = Entry{result.tree, at};
  } else {
    if (m_shapes.size() >= m_nPruneAt) Prune();
    m_shapes.emplace(m_key, Entry{result.tree, at});
  }
  Remember(result, at, std::move(spelling));
  return result;
}

void FormulaShapeTable::Remember(const Shared& shared, CellPos at, std::shared_ptr<const Spelling> spelling) {
  if (at.column < 0 || spelling->pieces.empty()) return;
  m_recent[static_cast<size_t>(at.column) % kRecentColumns] = Recent{shared.tree, at, shared.dx, shared.dy, std::move(spelling)};
}

void FormulaShapeTable::Prune() {
  for (auto it = m_shapes.begin(); it != m_shapes.end();)
    it = it->second.tree.expired() ? m_shapes.erase(it) : std::next(it);
  m_nPruneAt = std::max<size_t>(1024, m_shapes.size() * 2);
}

}  // namespace qmk::toolkit::formula
