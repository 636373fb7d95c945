// host_parent.h: how the library reaches the GTK module's parent-window call. A host that gives
// its GtkWindow* as the parent of our dialogs calls the library's export, which finds this
// function in the loaded module (dlopen of the module path with RTLD_NOLOAD, then dlsym).
#pragma once

namespace qmk::platform::ui::gtk3 {

// int qmk_ui_gtk3_set_parent_window(void* gtk_window): from then on, top-level windows without
// an owner of ours and without a native parent are transient for `gtk_window` (a GtkWindow* of
// this process; null ends it). Returns 0, changing nothing, when the pointer is not a GtkWindow.
// The window is held weakly: destroying it ends it too.
using SetParentWindowFn = int (*)(void* gtk_window);
inline constexpr const char* kSetParentWindowSymbol = "qmk_ui_gtk3_set_parent_window";

}  // namespace qmk::platform::ui::gtk3
