// dialog_keyboard.h: the keyboard care of the toolkit's dialogs beyond the window system's dialog
// manager: Tab traversal that descends into nested child dialogs, and mnemonic keys offered to
// the toolkit's buttons.
#pragma once

#include <vector>

#include "platform/ui/types.h"

namespace qmk::toolkit {

// Offered to each direct child of a dialog for a key pressed while a control that doesn't want
// characters has the focus: wParam is the key's upper-case character. A button that answers
// mnemonics and whose text carries that one ("&O") returns nonzero; the dialog then gives it the
// focus on the key-down and its click on the key-up.
constexpr unsigned kMsgOfferMnemonic = 0xC0F2;

// The tab stops of `dialog` in tab order, descending into nested dialogs, control parents and
// tab-page containers (windows that are no tab stop and hold dialogs), without invisible or
// disabled windows (nor what lies inside them).
std::vector<platform::ui::HWND> NestedTabStops(platform::ui::HWND dialog);

// The tab stop after (or before) `from` across nested dialogs, wrapping round; `from` may lie
// outside the list (the first or the last one then). Null when there is none.
platform::ui::HWND NextNestedTabStop(platform::ui::HWND dialog, platform::ui::HWND from,
                                     bool previous);

// Gives `control` the focus the way Tab does: an edit's text is selected.
void FocusAndSelect(platform::ui::HWND control);

// The direct child of `dialog` that claims the character `upper`, or null.
platform::ui::HWND ClaimMnemonic(platform::ui::HWND dialog, char upper);

}  // namespace qmk::toolkit
