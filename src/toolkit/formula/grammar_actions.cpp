// grammar_actions.cpp: how each rule of the formula grammar builds the tree. Nodes that a rule
// drops (the "=", ":", "," and blank tokens, a flattened intersection, the argument list) stay
// in the scanner's pool with no parent, and the pool frees them when the parse ends.
#include "toolkit/formula/grammar_actions.h"

#include <cstring>

namespace qmk::toolkit::formula {

const char* ParserMessage(const char* bison_message) {
  if (bison_message != nullptr && std::strstr(bison_message, "exhausted") != nullptr)
    return "parser stack overflow";
  return "syntax error";
}

CExtFormulaItem* Literal(CExtFormulaItem* token, int kind) {
  token->m_nKind = kind;
  return token;
}

CExtFormulaItem* Binary(CExtFormulaItem* op, int kind, CExtFormulaItem* left, CExtFormulaItem* right) {
  op->m_nKind = kind;
  op->AddChild(left);
  op->AddChild(right);
  op->CopyLocation(op, true, true, true);
  return op;
}

CExtFormulaItem* Unary(CExtFormulaItem* op, int kind, CExtFormulaItem* operand, bool prefix) {
  op->m_nKind = kind;
  op->m_strDescription = "unary";
  op->AddChild(operand);
  op->CopyLocation(operand, false, !prefix, prefix);
  return op;
}

CExtFormulaItem* Intersection(CExtFormulaItem* blank, CExtFormulaItem* left, CExtFormulaItem* right) {
  blank->m_nKind = kKindIntersection;
  blank->m_strText = " ";
  blank->m_strDescription = "range intersection";
  for (CExtFormulaItem* operand : {left, right}) {
    if (operand->m_nKind == kKindIntersection) blank->AdoptChildren(operand, false);
    else blank->AddChild(operand);
  }
  blank->CopyLocation(blank, true, true, true);
  return blank;
}

CExtFormulaItem* Range(CExtFormulaScanner& scanner, CExtFormulaItem* left, CExtFormulaItem* right) {
  CExtFormulaItem* range = scanner.NewNode(kKindRange);
  range->m_strDescription = "range";
  range->AddChild(left);
  range->AddChild(right);
  range->CopyLocation(range, true, true, true);
  return range;
}

CExtFormulaItem* Call(CExtFormulaScanner& scanner, CExtFormulaItem* name, CExtFormulaItem* arguments,
                      CExtFormulaItem* close) {
  CExtFormulaItem* call = scanner.NewNode(kKindFunctionCall);
  call->m_strText = name->m_strText;
  call->m_strDescription = "function call";
  call->CopyLocation(name, false, true, false);
  call->CopyLocation(close, false, false, true);
  if (arguments != nullptr) call->AdoptChildren(arguments, false);
  return call;
}

CExtFormulaItem* Arguments(CExtFormulaScanner& scanner, CExtFormulaItem* first) {
  CExtFormulaItem* list = scanner.NewNode(kKindNone);
  return AddArgument(list, first);
}

CExtFormulaItem* AddArgument(CExtFormulaItem* list, CExtFormulaItem* argument) {
  list->AddChild(argument);
  list->CopyLocation(list, true, true, true);
  return list;
}

}  // namespace qmk::toolkit::formula
