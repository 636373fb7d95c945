// operator.h: the seam through which the library asks a person: notices, message boxes.
//
// The scanner side never draws by itself. It asks the current Operator, which may be the
// toolkit's dialogs, the terminal of the command-line host, or a scripted stand-in in tests.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qmk/QmkScan.h"

namespace qmk::frame {

struct Rect {
  int left = 0, top = 0, right = 0, bottom = 0;
  int width() const { return right - left; }
  int height() const { return bottom - top; }
};

// A modeless notice window with a label and an optional Cancel button. Destroying the object
// destroys the window.
class Notice {
 public:
  virtual ~Notice() = default;
  virtual void SetText(const std::string& text) = 0;
  virtual void Show(bool visible) = 0;
  virtual Rect Bounds() const = 0;
  // Moves the window with its size unchanged, just above its parent in the z-order.
  virtual void MoveTo(int x, int y) = 0;
  // Cancel was pressed. Pressing it changes nothing else: the owner of the wait decides.
  virtual bool Cancelled() const = 0;
};

class Operator {
 public:
  virtual ~Operator() = default;

  virtual void EnableWindow(QMK_HWND window, bool enabled) = 0;
  // The window's normal-state rectangle; for a null window, the screen's.
  virtual Rect WindowRect(QMK_HWND window) = 0;
  // Makes a hidden notice over `parent`; null when it can't be made.
  virtual std::unique_ptr<Notice> CreateNotice(QMK_HWND parent, const std::string& text,
                                               bool show_cancel) = 0;
  // Shows a message box and returns the pressed button's id (1 OK, 2 Cancel, 6 Yes, 7 No, ...).
  virtual int MessageBox(QMK_HWND parent, const std::string& text, const std::string& caption,
                         unsigned flags, int help_id) = 0;
  // Shows the fault texts of one failed sheet; returns 1 (OK: go on) or 2 (Cancel: stop), once
  // the operator has answered.
  virtual int ShowScanErrorList(const std::vector<std::string>& faults) = 0;
  // Lets pending input reach open notices (a Cancel press, say) while the library waits.
  virtual void PumpMessages() {}
};

// The operator in use: one set by SetOperator; else a host's C callbacks; else the library's own
// dialogs where a window system back end can be up; else the terminal when standard input is
// one; else the unattended operator, which answers faults with Cancel.
Operator& CurrentOperator();
// Installs `op` (not owned) and returns the previous one; null returns to the default choice.
Operator* SetOperator(Operator* op);
// Installs a copy of a host's C callbacks (checked by CheckCallbacks); null removes them.
void SetHostCallbacks(const ScnOperator* callbacks);

// What a message box answers when nobody can press a button: Cancel where the box has one,
// else No, else OK (Abort for abort/retry/ignore), so an unattended run stops rather than
// repeating.
int ClosedBoxAnswer(unsigned flags);

// The default choice when no operator is set, from what the process has.
enum class OperatorKind { kHost, kDialogs, kTerminal, kUnattended };
OperatorKind ChooseOperatorKind(bool host_callbacks, bool window_system, bool stdin_terminal);
// Whether the library's dialogs can be shown: a host or a test asks for the headless back end
// (QMK_UI=headless), or a display is there for the GTK back end and its module can be loaded.
bool WindowSystemAvailable(const char* qmk_ui, const char* display, const char* wayland,
                           bool gtk_module_found);

}  // namespace qmk::frame
