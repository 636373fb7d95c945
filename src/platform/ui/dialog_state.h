// dialog_state.h: what a dialog window keeps beside its window record. Private to the window
// system.
#pragma once

#include <vector>

#include "platform/ui/paint.h"
#include "platform/ui/types.h"

namespace qmk::platform::ui {

struct DialogState {
  DLGPROC proc = nullptr;
  int template_id = 0;
  intptr_t result = 0;
  bool ended = false;
  bool modal = false;
  HFONT font = nullptr;  // made for the dialog from its template, deleted with it
  Size base_units;
  int def_id = 0;        // the default push button, 0 for none
  LRESULT msg_result = 0;
  HWND saved_focus = nullptr;
  bool adopted = false;   // the window took ownership at WM_NCCREATE
  int script = 0;         // a modeless dialog's scripted operator, stopped with the window
  ~DialogState() {
    if (font) DeleteObject(font);
  }
};

// Focus given to a dialog control from the keyboard: edits get their text selected.
void SetDlgFocus(HWND dlg, HWND ctrl);
// Every control of a dialog in tab order, looking inside WS_EX_CONTROLPARENT containers.
std::vector<HWND> DialogControls(HWND dlg);
// The scripted operator's hooks: around a modal dialog's loop, or from a modeless dialog's
// making to its destruction. Start returns 0 when no script waits for the template.
int StartDialogScript(HWND dlg, int template_id);
void StopDialogScript(int handle);

}  // namespace qmk::platform::ui
