// operator.cpp: the operator in use, and the default choice among the ones that need no setup.
#include "frame/operator.h"

#include <unistd.h>

#include <optional>

#include "frame/callback_operator.h"
#include "frame/terminal_operator.h"
#include "frame/unattended_operator.h"

namespace qmk::frame {

namespace {
Operator* g_operator = nullptr;
std::optional<CallbackOperator> g_host;

Operator& DefaultOperator() {
  static TerminalOperator terminal;
  static UnattendedOperator unattended;
  if (g_host) return *g_host;
  // Asked on each use: a host may detach its terminal after loading the library.
  if (isatty(STDIN_FILENO)) return terminal;
  return unattended;
}
}  // namespace

Operator& CurrentOperator() { return g_operator ? *g_operator : DefaultOperator(); }

Operator* SetOperator(Operator* op) {
  Operator* previous = g_operator;
  g_operator = op;
  return previous;
}

void SetHostCallbacks(const ScnOperator* callbacks) {
  if (callbacks) g_host.emplace(*callbacks);
  else g_host.reset();
}

int ClosedBoxAnswer(unsigned flags) {
  // Indexed by the button set in the low four bits; unknown sets behave as OK alone.
  constexpr int kAnswers[] = {1, 2, 3, 2, 7, 2};
  const unsigned set = flags & 0x0F;
  return set < std::size(kAnswers) ? kAnswers[set] : 1;
}

}  // namespace qmk::frame
