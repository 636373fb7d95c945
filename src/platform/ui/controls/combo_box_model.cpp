// combo_box_model.cpp: how the combo box's edit and list follow each other, and what it tells.
#include "platform/ui/controls/combo_box_model.h"

#include "platform/ui/controls/control_messages.h"

namespace qmk::platform::ui::controls {

ComboBoxModel::ComboBoxModel(ComboKind kind, bool sorted)
    : kind_(kind), list_(ListBoxModel::Options{sorted, false, false}) {}

std::string ComboBoxModel::Text() const {
  if (HasEdit()) return edit_.text();
  return list_.Text(list_.CurSel());
}

void ComboBoxModel::SetText(std::string_view text) {
  if (HasEdit()) {
    edit_.SetText(text);
    return;
  }
  list_.SetCurSel(list_.FindStringExact(-1, text));
}

void ComboBoxModel::ShowSelectionInEdit() {
  if (!HasEdit()) return;
  int sel = list_.CurSel();
  edit_.SetText(sel >= 0 ? list_.Text(sel) : std::string());
  edit_.SelectAll();
}

int ComboBoxModel::SetCurSel(int index) {
  list_.SetCurSel(index);
  if (list_.CurSel() < 0) {
    if (HasEdit()) edit_.SetText("");
    return CB_ERR;
  }
  ShowSelectionInEdit();
  return index;
}

int ComboBoxModel::SelectString(int start, std::string_view prefix) {
  int found = list_.FindString(start, prefix);
  if (found < 0) return CB_ERR;
  return SetCurSel(found);
}

int ComboBoxModel::DeleteString(int index) { return list_.DeleteString(index); }

void ComboBoxModel::ResetContent() {
  list_.ResetContent();
  if (HasEdit()) edit_.SetText("");
}

ComboNotices ComboBoxModel::ShowDropDown(bool show) {
  if (kind_ == ComboKind::kSimple || show == dropped_) return {};
  if (show) {
    dropped_ = true;
    dropped_index_ = list_.CurSel();
    list_.EnsureVisible(dropped_index_);
    return {CBN_DROPDOWN};
  }
  return CloseUp(true);
}

ComboNotices ComboBoxModel::CloseUp(bool ok) {
  dropped_ = false;
  return {ok ? CBN_SELENDOK : CBN_SELENDCANCEL, CBN_CLOSEUP};
}

ComboNotices ComboBoxModel::PickWithMouse(int index) {
  if (index < 0 || index >= list_.Count()) return {};
  list_.SetCurSel(index);
  ShowSelectionInEdit();
  ComboNotices out{CBN_SELCHANGE};
  if (dropped_) {
    for (int code : CloseUp(true)) out.push_back(code);
  }
  return out;
}

ComboNotices ComboBoxModel::KeyMove(ListMove move) {
  if (list_.Count() == 0) return {};
  int before = list_.CurSel();
  // With nothing selected an edit kind starts from the item its text names.
  if (before < 0 && HasEdit()) {
    int match = list_.FindStringExact(-1, edit_.text());
    if (match >= 0) list_.SetCaret(match);
  } else if (before >= 0) {
    list_.SetCaret(before);
  }
  list_.KeyMove(move, false);
  if (list_.CurSel() == before) return {};
  ShowSelectionInEdit();
  return {CBN_SELCHANGE};
}

ComboNotices ComboBoxModel::KeyEnter() {
  if (!dropped_) return {};
  return CloseUp(true);
}

ComboNotices ComboBoxModel::KeyEscape() {
  if (!dropped_) return {};
  // The highlight moved by the keys is taken back, without telling the parent again.
  if (list_.CurSel() != dropped_index_) {
    list_.SetCurSel(dropped_index_);
    ShowSelectionInEdit();
  }
  return CloseUp(false);
}

ComboNotices ComboBoxModel::Dismiss() {
  if (!dropped_) return {};
  return CloseUp(false);
}

ComboNotices ComboBoxModel::KeyChar(char c) {
  if (!HasEdit()) {
    int before = list_.CurSel();
    if (before >= 0) list_.SetCaret(before);
    list_.KeyChar(c);
    if (list_.CurSel() == before) return {};
    return {CBN_SELCHANGE};
  }
  if (!edit_.TypeChar(c).changed) return {};
  return AfterEditChange();
}

ComboNotices ComboBoxModel::EditDelete(bool backward) {
  if (!HasEdit()) return {};
  EditResult r = backward ? edit_.DeleteBack() : edit_.DeleteForward();
  if (!r.changed) return {};
  return AfterEditChange();
}

ComboNotices ComboBoxModel::AfterEditChange() {
  // An open list highlights the first item the text begins; a closed one drops its selection,
  // since the text no longer names an item for certain.
  int match = edit_.Length() > 0 ? list_.FindString(-1, edit_.text()) : -1;
  if (dropped_ || kind_ == ComboKind::kSimple) {
    list_.SetCurSel(match);
  } else {
    list_.SetCurSel(-1);
  }
  if (match >= 0) list_.SetTopIndex(match);
  return {CBN_EDITUPDATE, CBN_EDITCHANGE};
}

}  // namespace qmk::platform::ui::controls
