// operator.cpp: the operator in use, and the default choice among the ones that need no setup.
#include "frame/operator.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>

#include "frame/callback_operator.h"
#include "frame/dialog_operator.h"
#include "frame/terminal_operator.h"
#include "frame/unattended_operator.h"
#include "platform/ui/backend.h"

namespace qmk::frame {

namespace {
Operator* g_operator = nullptr;
std::optional<CallbackOperator> g_host;

bool GtkModuleFound() {
  std::error_code ec;
  for (const std::string& dir : platform::ui::ModuleSearchPath())
    if (std::filesystem::is_regular_file(std::filesystem::path(dir) / "qmkscan-ui-gtk3.so", ec))
      return true;
  return false;
}

bool WindowSystemHere() {
  const char* ui = std::getenv("QMK_UI");
  const char* display = std::getenv("DISPLAY");
  const char* wayland = std::getenv("WAYLAND_DISPLAY");
  // Looking for the module costs a few file tests; without a display it isn't needed.
  const bool has_display = (display && *display) || (wayland && *wayland);
  return WindowSystemAvailable(ui, display, wayland, has_display && GtkModuleFound());
}

Operator& DefaultOperator() {
  static DialogOperator dialogs;
  static TerminalOperator terminal;
  static UnattendedOperator unattended;
  // Asked on each use: a host may detach its terminal, or open a display, after loading us.
  switch (ChooseOperatorKind(g_host.has_value(), WindowSystemHere(), isatty(STDIN_FILENO))) {
    case OperatorKind::kHost: return *g_host;
    case OperatorKind::kDialogs: return dialogs;
    case OperatorKind::kTerminal: return terminal;
    case OperatorKind::kUnattended: break;
  }
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

OperatorKind ChooseOperatorKind(bool host_callbacks, bool window_system, bool stdin_terminal) {
  if (host_callbacks) return OperatorKind::kHost;
  if (window_system) return OperatorKind::kDialogs;
  if (stdin_terminal) return OperatorKind::kTerminal;
  return OperatorKind::kUnattended;
}

bool WindowSystemAvailable(const char* qmk_ui, const char* display, const char* wayland,
                           bool gtk_module_found) {
  if (qmk_ui && !std::strcmp(qmk_ui, "headless")) return true;
  const bool has_display = (display && *display) || (wayland && *wayland);
  // Otherwise only GTK on a display will do: QMK_UI=gtk3 without one falls back to a headless
  // screen that nobody sees, where the terminal or the unattended answers serve better.
  return has_display && gtk_module_found;
}

}  // namespace qmk::frame
