// module_entry.cpp: the two C functions qmkscan-ui-gtk3.so exports: the back end's entry point,
// and the call that makes a host's GtkWindow the parent of our dialogs.
#include <gtk/gtk.h>

#include "platform/ui/gtk3/gtk_backend.h"
#include "platform/ui/gtk3/host_parent.h"
#include "qmk/QmkTypes.h"

using qmk::platform::ui::Backend;
using qmk::platform::ui::kBackendAbiVersion;

extern "C" QMK_API Backend* qmk_ui_create_backend(int abi_version) {
  if (abi_version != kBackendAbiVersion) return nullptr;
  return new qmk::platform::ui::gtk3::GtkBackend();
}

extern "C" QMK_API int qmk_ui_gtk3_set_parent_window(void* gtk_window) {
  if (gtk_window && !GTK_IS_WINDOW(gtk_window)) return 0;
  qmk::platform::ui::gtk3::SetHostParentWindow(static_cast<GtkWindow*>(gtk_window));
  return 1;
}
