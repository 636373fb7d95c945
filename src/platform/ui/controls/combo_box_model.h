// combo_box_model.h: a combo box as an edit and a list that keep each other up to date, with
// the notifications each user action owes the parent.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/controls/edit_model.h"
#include "platform/ui/controls/list_box_model.h"

namespace qmk::platform::ui::controls {

enum class ComboKind {
  kSimple,        // edit with its list always shown below
  kDropDown,      // edit with a list that drops down
  kDropDownList,  // a fixed choice shown as text, with a list that drops down
};

// Notification codes (CBN_...) in the order the parent receives them.
using ComboNotices = std::vector<unsigned>;

class ComboBoxModel {
 public:
  ComboBoxModel(ComboKind kind, bool sorted);

  ComboKind kind() const { return kind_; }
  bool HasEdit() const { return kind_ != ComboKind::kDropDownList; }
  EditModel& edit() { return edit_; }
  const EditModel& edit() const { return edit_; }
  ListBoxModel& list() { return list_; }
  const ListBoxModel& list() const { return list_; }

  // The text shown: the edit's, or the selected item's in a drop-down list.
  std::string Text() const;
  // Window-text change: a drop-down list selects the exact item (or nothing); the others put
  // the text in their edit. No notification.
  void SetText(std::string_view text);

  int CurSel() const { return list_.CurSel(); }
  // Program selection: no notification. Returns the index, or CB_ERR for -1 or a bad index
  // (and the selection and the edit are cleared, as the platform does).
  int SetCurSel(int index);
  // Selects the first item after `start` starting with `prefix`; CB_ERR when none does and the
  // selection stays.
  int SelectString(int start, std::string_view prefix);
  // An item removed: the edit keeps its text.
  int DeleteString(int index);
  void ResetContent();

  bool dropped() const { return dropped_; }
  // Opening and closing the list (F4, Alt+Down, the button, CB_SHOWDROPDOWN). Closing this way
  // keeps the selection.
  ComboNotices ShowDropDown(bool show);

  // A click on an item of the open list (or the simple kind's list).
  ComboNotices PickWithMouse(int index);
  // Arrow, page and home/end keys: closed, they choose the next item and tell the parent;
  // open, they move the highlight and tell the parent too.
  ComboNotices KeyMove(ListMove move);
  // Enter: an open list closes and keeps its selection.
  ComboNotices KeyEnter();
  // Escape: an open list closes and the selection goes back to what it was when it opened.
  ComboNotices KeyEscape();
  // The combo lost the focus or the mouse went down elsewhere: an open list closes, keeping the
  // highlighted selection, and the parent hears that the choice was not confirmed.
  ComboNotices Dismiss();
  // A typed character: in a drop-down list, the next item starting with it; in the others it
  // goes to the edit.
  ComboNotices KeyChar(char c);
  // Backspace and Delete in the edit.
  ComboNotices EditDelete(bool backward);
  // The edit changed by the user (typing, paste, cut): the list follows the text.
  ComboNotices AfterEditChange();

 private:
  // The edit shows the selected item's text, all selected.
  void ShowSelectionInEdit();
  ComboNotices CloseUp(bool ok);

  ComboKind kind_;
  EditModel edit_;
  ListBoxModel list_;
  bool dropped_ = false;
  int dropped_index_ = -1;
};

}  // namespace qmk::platform::ui::controls
