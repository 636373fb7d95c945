// compute.cpp: evaluation of a parse tree: references, operators, calls, ranges and intersections.
#include <cmath>

#include "toolkit/formula/data_manager.h"
#include "toolkit/formula/errors.h"
#include "toolkit/formula/function.h"
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

using platform::Variant;
using platform::VarType;

namespace {

int Fail(const CExtFormulaItem*& errorItem, const CExtFormulaItem* at, int code) {
  if (errorItem == nullptr) errorItem = at;
  return code;
}

std::string Upper(const CExtFormulaAlphabet& alphabet, std::string text) {
  for (char& c : text) alphabet.MakeUpperChar(c);
  return text;
}

CellPos ParseCellName(const CExtFormulaAlphabet& alphabet, const std::string& text) {
  const std::string upper = Upper(alphabet, text);
  const char* p = upper.c_str();
  return alphabet.ParseCell(p);
}

// The text of a reference node for the cell being computed.
const std::string& NodeText(CExtFormulaDataManager& manager, const FormulaContext& context, const CExtFormulaItem& node,
                            std::string& buffer) {
  return node.ReferenceText(manager.GetAlphabet(), context.m_nShiftColumns, context.m_nShiftRows, buffer);
}

// The cells an intersection operand names without computing it: a named range or a cell.
bool NamedCells(CExtFormulaDataManager& manager, const FormulaContext& context, const CExtFormulaItem& node,
                CExtGridRangeSet& cells) {
  std::string buffer;
  const std::string& text = NodeText(manager, context, node, buffer);
  if (const CExtGridRangeSet* named = manager.FindNamedRange(text)) {
    cells.Assign(*named);
    return true;
  }
  const CellPos cell = ParseCellName(manager.GetAlphabet(), text);
  if (cell.column < 0) return false;
  cells.Empty();
  cells.Add({cell.column, cell.row, cell.column, cell.row});
  return true;
}

class Evaluator {
 public:
  Evaluator(const CExtFormulaItem& node, FormulaContext& context, CExtFormulaValue& value,
            CExtFormulaDataManager& manager, const CExtFormulaItem*& errorItem)
      : node_(node), context_(context), value_(value), manager_(manager), errorItem_(errorItem) {}

  int Identifier();
  int Arithmetic();
  int Comparison();
  int Concatenate();
  int PercentOrNegate();
  int Call();
  int Range();
  int Intersection();

 private:
  int Child(int index, CExtFormulaValue& out) {
    const CExtFormulaItem* child = node_.GetChildAt(index);
    if (child == nullptr) return Fail(errorItem_, &node_, kErrSyntax);
    const int code = child->Compute(context_, out, manager_, errorItem_);
    if (code != 0) Fail(errorItem_, child, code);
    return code;
  }
  int ReadCell(int column, int row) {
    if (!manager_.GetCellValue(context_, column, row, value_, &node_)) return Fail(errorItem_, &node_, kErrDependency);
    value_.m_nKind = CExtFormulaValue::kScalar;
    return 0;
  }

  const CExtFormulaItem& node_;
  FormulaContext& context_;
  CExtFormulaValue& value_;
  CExtFormulaDataManager& manager_;
  const CExtFormulaItem*& errorItem_;
};

int Evaluator::Identifier() {
  // A plain cell name of a shared tree reads its (moved) cell straight away when nothing else
  // could answer to its name.
  if (node_.m_cellName.column >= 0 && manager_.CellNamesAreCells())
    return ReadCell(node_.m_cellName.column + context_.m_nShiftColumns, node_.m_cellName.row + context_.m_nShiftRows);
  std::string buffer;
  const std::string& text = NodeText(manager_, context_, node_, buffer);
  if (const CExtGridRangeSet* named = manager_.FindNamedRange(text)) {
    if (named->IsSingleCell()) return ReadCell(named->GetAt(0).left, named->GetAt(0).top);
    value_.SetRange(*named);
    return 0;
  }
  const CExtFormulaFunction* function = manager_.GetFunctionSet().Find(text.c_str());
  if (function != nullptr && function->AllowsBareName())
    return function->Evaluate(context_, value_, manager_, node_, errorItem_);
  const CellPos cell = ParseCellName(manager_.GetAlphabet(), text);
  if (cell.column < 0) {
    // A function named without its parentheses says so.
    if (function != nullptr) return function->Evaluate(context_, value_, manager_, node_, errorItem_);
    return Fail(errorItem_, &node_, kErrUnknownIdentifier);
  }
  return ReadCell(cell.column, cell.row);
}

int Evaluator::Arithmetic() {
  CExtFormulaValue left, right;
  if (int code = Child(0, left)) return code;
  if (int code = Child(1, right)) return code;
  const bool leftWasDate = left.NormalizeDate();
  right.NormalizeDate();
  if (left.m_nKind != CExtFormulaValue::kScalar || right.m_nKind != CExtFormulaValue::kScalar)
    return Fail(errorItem_, &node_, kErrInvalidType);
  if (!left.ChangeType(platform::VT_R8)) return Fail(errorItem_, &node_, kErrFloatConversionLeft);
  if (!right.ChangeType(platform::VT_R8)) return Fail(errorItem_, &node_, kErrFloatConversionRight);
  const double x = left.m_value.DoubleValue(), y = right.m_value.DoubleValue();
  double result = 0.0;
  switch (node_.m_nKind) {
    case kKindMultiply: result = x * y; break;
    case kKindDivide:
      if (y == 0.0) return Fail(errorItem_, &node_, kErrDivisionByZero);
      result = x / y;
      break;
    case kKindAdd: result = x + y; break;
    case kKindSubtract: result = x - y; break;
    default: result = std::pow(x, y); break;
  }
  const bool asDate = leftWasDate && node_.m_nKind != kKindPower;
  value_.SetScalar(asDate ? Variant::Date(result) : Variant::R8(result));
  return 0;
}

int Evaluator::Comparison() {
  CExtFormulaValue left, right;
  if (int code = Child(0, left)) return code;
  if (int code = Child(1, right)) return code;
  if (left.m_nKind != CExtFormulaValue::kScalar || right.m_nKind != CExtFormulaValue::kScalar)
    return Fail(errorItem_, &node_, kErrInvalidType);
  const int order = left.Compare(right);
  bool result = false;
  switch (node_.m_nKind) {
    case kKindLess: result = order < 0; break;
    case kKindGreater: result = order > 0; break;
    case kKindGreaterOrEqual: result = order >= 0; break;
    case kKindLessOrEqual: result = order <= 0; break;
    case kKindNotEqual: result = order != 0; break;
    default: result = order == 0; break;
  }
  value_.SetScalar(Variant::Bool(result));
  return 0;
}

int Evaluator::Concatenate() {
  CExtFormulaValue left, right;
  if (int code = Child(0, left)) return code;
  if (int code = Child(1, right)) return code;
  if (!left.ChangeType(platform::VT_BSTR)) return Fail(errorItem_, &node_, kErrStringLeft);
  if (!right.ChangeType(platform::VT_BSTR)) return Fail(errorItem_, &node_, kErrStringRight);
  value_.SetScalar(Variant::Str(left.m_value.StringValue() + right.m_value.StringValue()));
  return 0;
}

int Evaluator::PercentOrNegate() {
  if (int code = Child(0, value_)) return code;
  if (value_.m_nKind != CExtFormulaValue::kScalar) return Fail(errorItem_, &node_, kErrInvalidType);
  const Variant& v = value_.m_value;
  if (node_.m_nKind == kKindPercent) {
    if (!value_.ChangeType(platform::VT_R8)) return Fail(errorItem_, &node_, kErrFloatConversion);
    value_.SetScalar(Variant::R8(value_.m_value.DoubleValue() / 100.0));
    return 0;
  }
  switch (v.Type()) {
    case platform::VT_I4: value_.SetScalar(Variant::I4(static_cast<int32_t>(0u - static_cast<uint32_t>(v.SignedValue())))); return 0;
    case platform::VT_I8: value_.SetScalar(Variant::I8(static_cast<int64_t>(0ull - static_cast<uint64_t>(v.SignedValue())))); return 0;
    case platform::VT_R4: value_.SetScalar(Variant::R4(-v.SingleValue())); return 0;
    case platform::VT_R8: value_.SetScalar(Variant::R8(-v.DoubleValue())); return 0;
    default: return Fail(errorItem_, &node_, kErrInvalidType);
  }
}

int Evaluator::Call() {
  // Function names are matched exactly as written.
  const CExtFormulaFunction* function = manager_.GetFunctionSet().FindForCall(node_);
  if (function == nullptr) return Fail(errorItem_, &node_, kErrUnknownFunction);
  return function->Evaluate(context_, value_, manager_, node_, errorItem_);
}

int Evaluator::Range() {
  const CExtFormulaItem* first = node_.GetChildAt(0);
  const CExtFormulaItem* second = node_.GetChildAt(1);
  if (first == nullptr || second == nullptr) return Fail(errorItem_, &node_, kErrUnknownIdentifier);
  if (first->m_cellName.column >= 0 && second->m_cellName.column >= 0) {
    const int dx = context_.m_nShiftColumns, dy = context_.m_nShiftRows;
    value_.SetRange(CExtGridRangeSet(CellRect{first->m_cellName.column + dx, first->m_cellName.row + dy,
                                              second->m_cellName.column + dx, second->m_cellName.row + dy}));
    return 0;
  }
  const CExtFormulaAlphabet& alphabet = manager_.GetAlphabet();
  std::string buffer1, buffer2;
  const std::string a = Upper(alphabet, NodeText(manager_, context_, *first, buffer1));
  const std::string b = Upper(alphabet, NodeText(manager_, context_, *second, buffer2));
  bool bad1 = false, bad2 = false;
  const CellRect rect = alphabet.ParseRange(a.c_str(), b.c_str(), bad1, bad2, &manager_);
  if (bad1 || bad2) return Fail(errorItem_, &node_, kErrUnknownIdentifier);
  value_.SetRange(CExtGridRangeSet(rect));
  return 0;
}

int Evaluator::Intersection() {
  CExtGridRangeSet running, part;
  for (int i = 0; i < node_.GetChildCount(); ++i) {
    const CExtFormulaItem* child = node_.GetChildAt(i);
    if (child->m_nKind == kKindIdentifier) {
      if (!NamedCells(manager_, context_, *child, part)) return Fail(errorItem_, child, kErrUnknownIdentifier);
    } else {
      CExtFormulaValue computed;
      if (int code = Child(i, computed)) return code;
      if (computed.m_nKind != CExtFormulaValue::kRange) return Fail(errorItem_, child, kErrInvalidType);
      part.Assign(computed.m_range);
    }
    if (i == 0) running.Assign(part);
    else running.IntersectWith(part);
  }
  value_.SetRange(running);
  return 0;
}

}  // namespace

int CExtFormulaItem::Compute(FormulaContext& context, CExtFormulaValue& value, CExtFormulaDataManager& manager,
                             const CExtFormulaItem*& errorItem) const {
  value.Clear();
  errorItem = nullptr;
  if (m_nKind == kKindInteger || m_nKind == kKindReal) {
    if (!m_bNumberKnown) m_bNumberKnown = LiteralToValue(m_number);
    if (m_bNumberKnown) {
      value.SetScalar(m_number);
      return 0;
    }
  }
  Variant literal;
  if (LiteralToValue(literal)) {
    value.SetScalar(literal);
    return 0;
  }
  Evaluator eval(*this, context, value, manager, errorItem);
  switch (m_nKind) {
    case kKindIdentifier: return eval.Identifier();
    case kKindMultiply:
    case kKindDivide:
    case kKindAdd:
    case kKindSubtract:
    case kKindPower: return eval.Arithmetic();
    case kKindLess:
    case kKindGreater:
    case kKindGreaterOrEqual:
    case kKindLessOrEqual:
    case kKindNotEqual:
    case kKindEqual: return eval.Comparison();
    case kKindConcatenate: return eval.Concatenate();
    case kKindPercent:
    case kKindNegate: return eval.PercentOrNegate();
    case kKindFunctionCall: return eval.Call();
    case kKindRange: return eval.Range();
    case kKindIntersection: return eval.Intersection();
    default: return Fail(errorItem, this, kErrNotImplemented);
  }
}

}  // namespace qmk::toolkit::formula
