// exports.cpp: the frame's exports. The forwarders switch no module state: they add nothing to
// the recognition library's calls.
#include "frame/callback_operator.h"
#include "frame/module_state_guard.h"
#include "frame/operator.h"
#include "platform/ui/backend.h"
#include "qmk/QmkRecog.h"
#include "qmk/QmkScan.h"
#include "toolkit/theme/selection.h"

extern "C" {

QMK_API void ScnSetPaintManager(int theme_id) {
  qmk::frame::ModuleStateGuard guard;
  qmk::toolkit::theme::SelectPaintManagerById(theme_id, [](int id) { QrcrSetPaintManager(id); });
}

QMK_API int ScnSetParentGtkWindow(void* gtk_window) {
  qmk::frame::ModuleStateGuard guard;
  return qmk::platform::ui::SetHostGtkParentWindow(gtk_window) ? 1 : 0;
}

QMK_API void ScnShowOptionalComponents(void) { ShowOptionalComponents(); }

QMK_API int ScnOptionalComponentCount(void) { return OptionalComponentCount(); }

QMK_API int ScnSetOperator(const ScnOperator* op) {
  if (op) {
    if (const int refused = qmk::frame::CheckCallbacks(*op)) return refused;
  }
  qmk::frame::SetHostCallbacks(op);
  return 0;
}

}
