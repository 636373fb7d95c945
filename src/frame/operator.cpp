// operator.cpp: the operator in use.
#include "frame/operator.h"

#include "frame/terminal_operator.h"

namespace qmk::frame {

namespace {
TerminalOperator g_terminal;
Operator* g_operator = &g_terminal;
}  // namespace

Operator& CurrentOperator() { return *g_operator; }

Operator* SetOperator(Operator* op) {
  Operator* previous = g_operator;
  g_operator = op ? op : &g_terminal;
  return previous;
}

}  // namespace qmk::frame
