// list_box_model.cpp: sorted insert, case-blind search, selection kinds and keyboard moves.
#include "platform/ui/controls/list_box_model.h"

#include <algorithm>
#include <cctype>

namespace qmk::platform::ui::controls {

int CompareCaseBlind(std::string_view a, std::string_view b) {
  size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    int ca = std::tolower(static_cast<unsigned char>(a[i]));
    int cb = std::tolower(static_cast<unsigned char>(b[i]));
    if (ca != cb) return ca < cb ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

ListBoxModel::ListBoxModel(Options options) : options_(options) {}

int ListBoxModel::SortedPlace(std::string_view text) const {
  // After every item that sorts equal, so equal texts keep the order they came in.
  auto it = std::upper_bound(items_.begin(), items_.end(), text,
                             [](std::string_view t, const Item& item) {
                               return CompareCaseBlind(t, item.text) < 0;
                             });
  return static_cast<int>(it - items_.begin());
}

int ListBoxModel::AddString(std::string_view text) {
  return InsertString(options_.sorted ? SortedPlace(text) : -1, text);
}

int ListBoxModel::InsertString(int index, std::string_view text) {
  if (index == -1) index = Count();
  if (index < 0 || index > Count()) return kListError;
  items_.insert(items_.begin() + index, Item{std::string(text), 0, false});
  if (caret_ >= index) ++caret_;
  if (anchor_ >= index) ++anchor_;
  return index;
}

int ListBoxModel::DeleteString(int index) {
  if (!Valid(index)) return kListError;
  items_.erase(items_.begin() + index);
  auto shift = [&](int& i) {
    if (i > index) --i;
    else if (i == index) i = std::min(i, Count() - 1);
  };
  shift(caret_);
  shift(anchor_);
  SetTopIndex(top_);
  return Count();
}

void ListBoxModel::ResetContent() {
  items_.clear();
  caret_ = anchor_ = -1;
  top_ = 0;
}

std::string ListBoxModel::Text(int index) const { return Valid(index) ? items_[index].text : ""; }

int ListBoxModel::TextLength(int index) const {
  return Valid(index) ? static_cast<int>(items_[index].text.size()) : kListError;
}

bool ListBoxModel::SetItemData(int index, intptr_t data) {
  if (!Valid(index)) return false;
  items_[index].data = data;
  return true;
}

intptr_t ListBoxModel::ItemData(int index) const {
  return Valid(index) ? items_[index].data : kListError;
}

int ListBoxModel::Find(int start, std::string_view text, bool exact) const {
  int n = Count();
  if (n == 0) return kListError;
  if (start < 0 || start >= n) start = -1;
  for (int k = 1; k <= n; ++k) {
    int i = (start + k) % n;
    std::string_view item = items_[i].text;
    if (exact ? CompareCaseBlind(item, text) == 0
              : (item.size() >= text.size() && CompareCaseBlind(item.substr(0, text.size()), text) == 0)) {
      return i;
    }
  }
  return kListError;
}

int ListBoxModel::FindString(int start, std::string_view prefix) const {
  return Find(start, prefix, false);
}

int ListBoxModel::FindStringExact(int start, std::string_view text) const {
  return Find(start, text, true);
}

int ListBoxModel::CurSel() const {
  // A multiple-selection list answers with its caret item, selected or not (0 before any).
  if (IsMultiple()) return Count() == 0 ? kListError : std::max(caret_, 0);
  for (int i = 0; i < Count(); ++i) {
    if (items_[i].selected) return i;
  }
  return kListError;
}

bool ListBoxModel::SelectOnly(int index) {
  bool changed = false;
  for (int i = 0; i < Count(); ++i) {
    bool want = i == index;
    if (items_[i].selected != want) changed = true;
    items_[i].selected = want;
  }
  return changed;
}

bool ListBoxModel::SetCurSel(int index) {
  if (!Valid(index)) {
    SelectOnly(-1);
    return false;
  }
  bool changed = SelectOnly(index);
  caret_ = anchor_ = index;
  EnsureVisible(index);
  return changed;
}

bool ListBoxModel::SetSel(int index, bool select) {
  // A single-selection list has SetCurSel instead.
  if (!IsMultiple()) return false;
  if (index == -1) {
    bool changed = false;
    for (auto& item : items_) {
      changed |= item.selected != select;
      item.selected = select;
    }
    return changed;
  }
  if (!Valid(index)) return false;
  bool changed = items_[index].selected != select;
  items_[index].selected = select;
  return changed;
}

bool ListBoxModel::IsSelected(int index) const { return Valid(index) && items_[index].selected; }

int ListBoxModel::SelCount() const {
  return static_cast<int>(std::count_if(items_.begin(), items_.end(),
                                        [](const Item& item) { return item.selected; }));
}

std::vector<int> ListBoxModel::SelectedItems() const {
  std::vector<int> out;
  for (int i = 0; i < Count(); ++i) {
    if (items_[i].selected) out.push_back(i);
  }
  return out;
}

bool ListBoxModel::SelItemRange(int first, int last, bool select) {
  if (!IsMultiple()) return false;
  if (first > last) std::swap(first, last);
  first = std::max(first, 0);
  last = std::min(last, Count() - 1);
  bool changed = false;
  for (int i = first; i <= last; ++i) changed |= SetSel(i, select);
  return changed;
}

bool ListBoxModel::SetCaret(int index) {
  if (!Valid(index)) return false;
  caret_ = index;
  EnsureVisible(index);
  return true;
}

bool ListBoxModel::SetTopIndex(int index) {
  int max_top = std::max(0, Count() - visible_rows_);
  int before = top_;
  top_ = std::clamp(index, 0, max_top);
  return top_ != before;
}

void ListBoxModel::EnsureVisible(int index) {
  if (!Valid(index)) return;
  if (index < top_) SetTopIndex(index);
  else if (index >= top_ + visible_rows_) SetTopIndex(index - visible_rows_ + 1);
}

int ListBoxModel::MoveTarget(ListMove move) const {
  int last = Count() - 1;
  int from = caret_ < 0 ? -1 : caret_;
  int page = std::max(1, visible_rows_ - 1);
  switch (move) {
    case ListMove::kUp: return from < 0 ? 0 : std::max(0, from - 1);
    case ListMove::kDown: return std::min(last, from + 1);
    case ListMove::kPageUp: return std::max(0, from - page);
    case ListMove::kPageDown: return std::min(last, std::max(from, 0) + page);
    case ListMove::kHome: return 0;
    case ListMove::kEnd: return last;
  }
  return from;
}

bool ListBoxModel::SelectRangeOnly(int first, int last) {
  if (first > last) std::swap(first, last);
  bool changed = false;
  for (int i = 0; i < Count(); ++i) {
    bool want = i >= first && i <= last;
    changed |= items_[i].selected != want;
    items_[i].selected = want;
  }
  return changed;
}

bool ListBoxModel::KeyMove(ListMove move, bool extend) {
  if (Count() == 0) return false;
  int target = MoveTarget(move);
  caret_ = target;
  EnsureVisible(target);
  if (options_.extended) {
    if (extend && Valid(anchor_)) return SelectRangeOnly(anchor_, target);
    anchor_ = target;
    return SelectOnly(target);
  }
  // A multiple-selection list moves only its caret; space toggles.
  if (options_.multiple) return false;
  anchor_ = target;
  return SelectOnly(target);
}

bool ListBoxModel::KeyChar(char c) {
  int found = FindString(caret_, std::string_view(&c, 1));
  if (found == kListError) return false;
  caret_ = anchor_ = found;
  EnsureVisible(found);
  if (options_.multiple) return false;
  return SelectOnly(found);
}

bool ListBoxModel::ToggleCaret() {
  if (!IsMultiple() || !Valid(caret_)) return false;
  items_[caret_].selected = !items_[caret_].selected;
  anchor_ = caret_;
  return true;
}

bool ListBoxModel::Click(int index, bool toggle, bool extend) {
  if (!Valid(index)) return false;
  caret_ = index;
  EnsureVisible(index);
  if (options_.multiple) {
    items_[index].selected = !items_[index].selected;
    anchor_ = index;
    return true;
  }
  if (options_.extended) {
    if (extend && Valid(anchor_)) return SelectRangeOnly(anchor_, index);
    anchor_ = index;
    if (toggle) {
      items_[index].selected = !items_[index].selected;
      return true;
    }
    return SelectOnly(index);
  }
  anchor_ = index;
  return SelectOnly(index);
}

}  // namespace qmk::platform::ui::controls
