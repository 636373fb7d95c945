// dialog_exchange.h: moves plain values between a dialog's controls and the members of a model,
// the way each view of the option dialogs shows and reads its values.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/types.h"

namespace qmk::options::view {

using HWND = platform::ui::HWND;

void ShowCheck(HWND dlg, int id, bool checked);
bool ReadCheck(HWND dlg, int id);
// Checks the radio `ids[value]` and clears the others of the group.
void ShowRadio(HWND dlg, const std::vector<int>& ids, int value);
// The index of the checked radio in `ids`, or `fallback` when none is.
int ReadRadio(HWND dlg, const std::vector<int>& ids, int fallback);
// Sets a control's text only when it differs, so that an edit keeps its caret while typed in.
void ShowText(HWND dlg, int id, const std::string& text);
std::string ReadText(HWND dlg, int id);
// A decimal number typed into an edit; false when the text is not one (empty included).
bool ReadNumber(HWND dlg, int id, long long& value);
void ShowEnabled(HWND dlg, int id, bool enabled);
// Fills a combo box or list with `items` in order and selects `selected` (-1 for none).
void FillCombo(HWND dlg, int id, const std::vector<std::string>& items, int selected);
void SelectCombo(HWND dlg, int id, int selected);
int ReadComboSelection(HWND dlg, int id);
// The text of entry `index` of a combo box.
std::string ComboItemText(HWND dlg, int id, int index);
void LimitText(HWND dlg, int id, int characters);

}  // namespace qmk::options::view
