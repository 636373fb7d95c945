// dialog.h: dialogs made from templates, modal and modeless, and the dialog manager's keyboard
// handling (tab stops, groups, default button, mnemonics).
#pragma once

#include <cstdint>
#include <string>

#include "platform/ui/dialog_template.h"
#include "platform/ui/messages.h"
#include "platform/ui/types.h"
#include "platform/ui/window.h"

namespace qmk::platform::ui {

// Modal dialogs: create the dialog, disable the owner, run a modal loop until EndDialog, then
// destroy the dialog and enable the owner again. Return the EndDialog result, or -1 when the
// template is missing or invalid or the dialog cannot be created.
intptr_t DialogBoxParam(int template_id, HWND owner, DLGPROC proc, LPARAM init);
intptr_t DialogBoxIndirectParam(const DialogTemplate& tpl, HWND owner, DLGPROC proc, LPARAM init,
                                int template_id = 0);
// Modeless dialogs: created and shown (when WS_VISIBLE), returned at once.
HWND CreateDialogParam(int template_id, HWND owner, DLGPROC proc, LPARAM init);
HWND CreateDialogIndirectParam(const DialogTemplate& tpl, HWND owner, DLGPROC proc, LPARAM init,
                               int template_id = 0);
// Ends a modal dialog's loop with `result` (it is destroyed by DialogBox afterwards).
bool EndDialog(HWND dlg, intptr_t result);
// Why the last dialog creation failed ("template 9000 not found", "line 3: ...", "no window
// class \"Foo\" for control 1001"); empty after a success.
std::string LastDialogError();
// The template id a dialog was created from (0 for none).
int GetDialogTemplateId(HWND dlg);

// The dialog manager: handles `msg` for the dialog `dlg` when it is keyboard navigation (Tab,
// arrows, Enter, Escape, mnemonics) and returns true; false leaves it to be dispatched.
bool IsDialogMessage(HWND dlg, MSG* msg);

HWND GetDlgItem(HWND dlg, int id);
bool SetDlgItemText(HWND dlg, int id, const char* text);
std::string GetDlgItemText(HWND dlg, int id);
bool SetDlgItemInt(HWND dlg, int id, int value, bool is_signed);
// `ok` (may be null) is false when the text is not a number in range.
int GetDlgItemInt(HWND dlg, int id, bool* ok, bool is_signed);
LRESULT SendDlgItemMessage(HWND dlg, int id, unsigned msg, WPARAM wparam, LPARAM lparam);
bool CheckDlgButton(HWND dlg, int id, unsigned check);
unsigned IsDlgButtonChecked(HWND dlg, int id);
// Checks `check` and clears the other buttons from `first` to `last`.
bool CheckRadioButton(HWND dlg, int first, int last, int check);
// The next (or previous) visible, enabled control with WS_TABSTOP, wrapping around.
HWND GetNextDlgTabItem(HWND dlg, HWND from, bool previous);
// The next (or previous) visible, enabled control of `from`'s group (WS_GROUP starts one).
HWND GetNextDlgGroupItem(HWND dlg, HWND from, bool previous);
// Dialog units to pixels with the dialog's font.
bool MapDialogRect(HWND dlg, Rect* r);
// The base units of the dialog font (the stock font when the window is not a dialog).
Size GetDialogBaseUnits(HWND dlg);
// Dialog-unit conversion for a font's base units, rounded as the platform does.
int DialogUnitsToPixelsX(int du, int base_x);
int DialogUnitsToPixelsY(int du, int base_y);

// For a dialog procedure: the answer to the message being handled (DWLP_MSGRESULT).
void SetDialogResult(HWND dlg, LRESULT result);

}  // namespace qmk::platform::ui
