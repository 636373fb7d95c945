// script.cpp: RunGridScript. One command per line; '#' starts a comment.
//   size COLUMNS ROWS              reserved COLUMNS ROWS
//   cell C R TYPE [TEXT]           join C R COLUMNS ROWS
//   (TYPE is a value type such as i4 or text, or a cell kind such as duration or ipaddress)
//   order columns|rows [N+|N- ...] insert|remove columns|rows POSITION COUNT
//   move columns|rows FROM TO      sort columns|rows
#include "toolkit/grid/script.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <sstream>
#include <vector>

#include "toolkit/grid/cell_combo_lists.h"
#include "toolkit/grid/cell_duration.h"
#include "toolkit/grid/cell_font.h"
#include "toolkit/grid/cell_header_filter.h"
#include "toolkit/grid/cell_hotkey.h"
#include "toolkit/grid/cell_ip_address.h"
#include "toolkit/grid/cell_ll.h"
#include "toolkit/grid/cell_number_forms.h"
#include "toolkit/grid/cell_object_size.h"
#include "toolkit/grid/cell_path.h"
#include "toolkit/grid/cell_updown.h"
#include "toolkit/grid/cell_variant.h"
#include "toolkit/grid/provider_mixins.h"
#include "toolkit/grid/provider_sparse.h"

namespace qmk::toolkit::grid {

using namespace platform;

namespace {

using Grid = CExtGDPJ<CExtGridDataProviderSparse>;

struct TypeName {
  const char* name;
  VarType type;
};
constexpr TypeName kTypes[] = {
    {"empty", VT_EMPTY}, {"null", VT_NULL}, {"i1", VT_I1},     {"i2", VT_I2},     {"i4", VT_I4},
    {"i8", VT_I8},       {"ui1", VT_UI1},   {"ui2", VT_UI2},   {"ui4", VT_UI4},   {"ui8", VT_UI8},
    {"int", VT_INT},     {"uint", VT_UINT}, {"r4", VT_R4},     {"r8", VT_R8},     {"cy", VT_CY},
    {"date", VT_DATE},   {"bool", VT_BOOL}, {"text", VT_BSTR}, {"error", VT_ERROR}, {"decimal", VT_DECIMAL},
};

// Cells of a kind of their own, made from their text.
struct CellKind {
  const char* name;
  const CellClass* cellClass;
};
const CellKind kCellKinds[] = {
    {"file", &CExtGridCellFile::kClass},
    {"fileimage", &CExtGridCellFileImage::kClass},
    {"folder", &CExtGridCellFolder::kClass},
    {"fontface", &CExtGridCellFontFaceName::kClass},
    {"fraction", &CExtGridCellFraction::kClass},
    {"scientific", &CExtGridCellScientific::kClass},
    {"size", &CExtGridCellObjectSize::kClass},
    {"updown", &CExtGridCellUpDown::kClass},
    {"fontweight", &CExtGridCellUpDownFontWeight::kClass},
    {"rectpart", &CExtGridCellUpDownRectPart::kClass},
    {"colorpart", &CExtGridCellUpDownColorPart::kClass},
    {"duration", &CExtGridCellDuration::kClass},
    {"latlong", &CExtGridCellLL::kClass},
    {"font", &CExtGridCellFont::kClass},
    {"hotkey", &CExtGridCellHotKey::kClass},
    {"ipaddress", &CExtGridCellIPAddress::kClass},
    {"headerfilter", &CExtGridCellHeaderFilter::kClass},
};

const char* KindOf(const CellClass* cellClass) {
  for (const CellKind& k : kCellKinds)
    if (k.cellClass == cellClass) return k.name;
  return nullptr;
}

const char* NameOf(VarType type) {
  for (const TypeName& t : kTypes)
    if (t.type == type) return t.name;
  return "?";
}

bool ReadInt(const std::string& word, int& value) {
  char* end = nullptr;
  const long v = std::strtol(word.c_str(), &end, 10);
  if (word.empty() || *end || v < -1000000000L || v > 1000000000L) return false;
  value = static_cast<int>(v);
  return true;
}

bool ReadDirection(const std::string& word, bool& columns) {
  if (word != "columns" && word != "rows") return false;
  columns = word == "columns";
  return true;
}

class Runner {
 public:
  bool Line(const std::string& line, std::string& error);
  std::string Print();

 private:
  bool Ints(const std::vector<std::string>& w, size_t from, size_t count, std::vector<int>& out) const {
    if (w.size() != from + count) return false;
    out.clear();
    for (size_t i = from; i < w.size(); ++i) {
      int v = 0;
      if (!ReadInt(w[i], v)) return false;
      out.push_back(v);
    }
    return true;
  }
  bool Cell(const std::vector<std::string>& w, const std::string& line, std::string& error);
  bool KindCell(int column, int row, const CellKind& kind, const std::string& text, std::string& error);
  bool Order(const std::vector<std::string>& w, std::string& error);

  Grid grid_;
};

bool Runner::Line(const std::string& raw, std::string& error) {
  const std::string line = raw.substr(0, raw.find('#'));
  std::istringstream words(line);
  std::vector<std::string> w;
  for (std::string word; words >> word;) w.push_back(word);
  if (w.empty()) return true;
  const std::string& verb = w[0];
  std::vector<int> n;
  bool columns = false;
  if (verb == "size" && Ints(w, 1, 2, n)) {
    if (n[0] < 0 || n[1] < 0 || grid_.ColumnCountGet() || grid_.RowCountGet()) {
      error = "size: once, before anything else, and not negative";
      return false;
    }
    return grid_.ColumnInsert(0, n[0]) && grid_.RowInsert(0, n[1]);
  }
  if (verb == "reserved" && Ints(w, 1, 2, n)) {
    if (!grid_.CacheReservedCountsSet(n[0], n[1])) error = "reserved: counts refused";
    return error.empty();
  }
  if (verb == "cell") return Cell(w, line, error);
  if (verb == "join" && Ints(w, 1, 4, n)) {
    if (!grid_.JoinSet(n[0], n[1], n[2], n[3])) error = "join: outside the grid or too large";
    return error.empty();
  }
  if (verb == "order") return Order(w, error);
  if ((verb == "insert" || verb == "remove" || verb == "move") && w.size() > 1 && ReadDirection(w[1], columns) &&
      Ints(w, 2, 2, n)) {
    bool done = false;
    if (verb == "insert") done = columns ? grid_.ColumnInsert(n[0], n[1]) : grid_.RowInsert(n[0], n[1]);
    if (verb == "remove") done = columns ? grid_.ColumnRemove(n[0], n[1]) : grid_.RowRemove(n[0], n[1]);
    if (verb == "move") done = grid_.MoveSeries(columns, n[0], n[1]);
    if (!done) error = verb + ": refused (outside the grid)";
    return done;
  }
  if (verb == "sort" && w.size() == 2 && ReadDirection(w[1], columns)) {
    grid_.SortRun(columns);
    return true;
  }
  error = "cannot read \"" + line + "\"";
  return false;
}

bool Runner::Cell(const std::vector<std::string>& w, const std::string& line, std::string& error) {
  int column = 0, row = 0;
  if (w.size() < 4 || !ReadInt(w[1], column) || !ReadInt(w[2], row)) {
    error = "cell: wants C R TYPE [TEXT]";
    return false;
  }
  // The text is the rest of the line after the type, as written, without the blanks around it.
  std::istringstream rest(line);
  std::string skip, text;
  for (int i = 0; i < 4; ++i) rest >> skip;
  std::getline(rest, text);
  const size_t first = text.find_first_not_of(" \t");
  text = first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
  const TypeName* type = nullptr;
  for (const TypeName& t : kTypes)
    if (w[3] == t.name) type = &t;
  for (const CellKind& k : kCellKinds)
    if (w[3] == k.name) return KindCell(column, row, k, text, error);
  if (!type) {
    error = "cell: unknown type \"" + w[3] + "\"";
    return false;
  }
  auto* cell = dynamic_cast<CExtGridCellVariant*>(grid_.CellGet(column, row, &CExtGridCellVariant::kClass));
  if (!cell) {
    error = "cell: outside the grid, or not a value cell";
    return false;
  }
  if (type->type == VT_EMPTY) {
    cell->SetEmpty();
    return true;
  }
  cell->VariantSet(type->type == VT_NULL ? Variant::Null() : Variant::Str(text));
  if (type->type != VT_BSTR && type->type != VT_NULL && !cell->ChangeType(type->type)) {
    error = "cell: \"" + text + "\" is no " + type->name;
    return false;
  }
  return true;
}

bool Runner::KindCell(int column, int row, const CellKind& kind, const std::string& text, std::string& error) {
  std::unique_ptr<CExtGridCell> cell(kind.cellClass->CreateObject(nullptr));
  if (!cell || cell->OnParseText(text.c_str()) != S_OK) {
    error = "cell: \"" + text + "\" is no " + kind.name;
    return false;
  }
  cell->TextSet(text.c_str());
  // The position gets a cell first, so that the range set has one to replace.
  if (!grid_.CellGet(column, row, kind.cellClass) || !grid_.CellRangeSet(column, row, 1, 1, cell.get(), true)) {
    error = "cell: outside the grid";
    return false;
  }
  return true;
}

bool Runner::Order(const std::vector<std::string>& w, std::string& error) {
  bool columns = false;
  if (w.size() < 2 || !ReadDirection(w[1], columns)) {
    error = "order: wants columns or rows";
    return false;
  }
  CExtGridDataSortOrder order;
  for (size_t i = 2; i < w.size(); ++i) {
    const std::string& item = w[i];
    int index = 0;
    if (item.size() < 2 || (item.back() != '+' && item.back() != '-') || !ReadInt(item.substr(0, item.size() - 1), index)) {
      error = "order: \"" + item + "\" is not N+ or N-";
      return false;
    }
    order.m_arrItems.push_back({index, item.back() == '+'});
  }
  grid_.SortOrderGet(columns) = order;
  return true;
}

std::string Runner::Print() {
  std::ostringstream out;
  int rc = 0, rr = 0;
  grid_.CacheReservedCountsGet(rc, rr);
  out << "grid " << grid_.ColumnCountGet() << " columns, " << grid_.RowCountGet() << " rows, reserved " << rc << ", "
      << rr << "\n";
  // Stored cells in reading order.
  std::map<std::pair<int, int>, CExtGridCell*> cells;
  for (POSITION p = grid_.PositionMapGet().GetStartPosition(); p;) {
    int64_t key;
    CExtGridCell* cell;
    grid_.PositionMapGet().GetNextAssoc(p, key, cell);
    if (KeyColumn(key) && KeyRow(key))
      cells[{static_cast<int>(KeyRow(key)) - 1, static_cast<int>(KeyColumn(key)) - 1}] = cell;
  }
  for (auto& [pos, cell] : cells) {
    out << "cell " << pos.second << " " << pos.first;
    if (const char* kind = KindOf(cell->GetRuntimeClass())) {
      std::string text;
      cell->TextGet(text);
      out << " " << kind;
      if (!text.empty()) out << " \"" << text << "\"";
    } else if (auto* v = dynamic_cast<CExtGridCellVariant*>(cell)) {
      std::string text;
      v->TextGet(text);
      out << " " << (v->IsEmpty() ? "empty" : NameOf(v->GetVariantPtr()->Type()));
      if (!text.empty()) out << " \"" << text << "\"";
      const CSize extent = v->JoinGet();
      if (!(extent == CSize{1, 1})) out << " extent " << extent.cx << "," << extent.cy;
    }
    out << "\n";
  }
  std::map<std::pair<int, int>, CSize> joins;
  for (POSITION p = grid_.JoinManagerGet().MapGet().GetStartPosition(); p;) {
    int64_t key;
    CSize size;
    grid_.JoinManagerGet().MapGet().GetNextAssoc(p, key, size);
    joins[{static_cast<int>(KeyRow(key)), static_cast<int>(KeyColumn(key))}] = size;
  }
  for (auto& [pos, size] : joins)
    out << "join " << pos.second << " " << pos.first << " " << size.cx << "x" << size.cy << "\n";
  for (bool columns : {true, false}) {
    out << "order " << (columns ? "columns" : "rows") << ":";
    const CExtGridDataSortOrder& order = grid_.SortOrderGet(columns);
    if (order.IsEmpty()) out << " none";
    for (const auto& item : order.m_arrItems) out << " " << item.m_nRowColNo << (item.m_bAscending ? "+" : "-");
    out << "\n";
  }
  return out.str();
}

}  // namespace

bool RunGridScript(std::istream& in, std::string& out, std::string& error) {
  out.clear();
  error.clear();
  Runner runner;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (!runner.Line(line, error)) {
      if (error.empty()) error = "refused";
      error = "line " + std::to_string(number) + ": " + error;
      return false;
    }
  }
  out = runner.Print();
  return true;
}

}  // namespace qmk::toolkit::grid
