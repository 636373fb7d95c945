// grammar_actions.h: the tree-building actions of the formula grammar's rules.
#pragma once

#include "toolkit/formula/scanner.h"

namespace qmk::toolkit::formula {

// Runs the generated parser over the scanner's text; 0 when the goal was reached.
int RunFormulaParser(CExtFormulaScanner& scanner);

// The parser's own messages in the scanner's words.
const char* ParserMessage(const char* bison_message);

// A token node that becomes a leaf of `kind`.
CExtFormulaItem* Literal(CExtFormulaItem* token, int kind);
// The operator's token node becomes the operation, over `left` and `right`.
CExtFormulaItem* Binary(CExtFormulaItem* op, int kind, CExtFormulaItem* left, CExtFormulaItem* right);
// Prefix or postfix "%", or unary minus: the sign's node over its operand.
CExtFormulaItem* Unary(CExtFormulaItem* op, int kind, CExtFormulaItem* operand, bool prefix);
// The blank's node becomes an intersection; operands that are intersections themselves give
// up their parts to it, so that the list of parts stays flat.
CExtFormulaItem* Intersection(CExtFormulaItem* blank, CExtFormulaItem* left, CExtFormulaItem* right);
CExtFormulaItem* Range(CExtFormulaScanner& scanner, CExtFormulaItem* left, CExtFormulaItem* right);
// A call node named by `name`, spanning up to the closing parenthesis, over the arguments.
CExtFormulaItem* Call(CExtFormulaScanner& scanner, CExtFormulaItem* name, CExtFormulaItem* arguments,
                      CExtFormulaItem* close);
CExtFormulaItem* Arguments(CExtFormulaScanner& scanner, CExtFormulaItem* first);
CExtFormulaItem* AddArgument(CExtFormulaItem* list, CExtFormulaItem* argument);

}  // namespace qmk::toolkit::formula
