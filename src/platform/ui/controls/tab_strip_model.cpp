// tab_strip_model.cpp: tab insertion and removal with the selection kept on its tab, and layout.
#include "platform/ui/controls/tab_strip_model.h"

#include <algorithm>

namespace qmk::platform::ui::controls {

int TabStripModel::Insert(int index, Item item) {
  if (index < 0) return -1;
  index = std::min(index, Count());
  items_.insert(items_.begin() + index, std::move(item));
  if (cur_sel_ >= index) ++cur_sel_;
  if (focus_ >= index) ++focus_;
  // The first tab of a strip becomes its selection.
  if (Count() == 1 && cur_sel_ < 0) cur_sel_ = focus_ = 0;
  return index;
}

bool TabStripModel::Delete(int index) {
  if (!Valid(index)) return false;
  items_.erase(items_.begin() + index);
  // Deleting the selected tab leaves no selection; the program chooses the next one.
  auto shift = [index](int& i) {
    if (i == index) i = -1;
    else if (i > index) --i;
  };
  shift(cur_sel_);
  shift(focus_);
  shift(hot_);
  first_visible_ = std::clamp(first_visible_, 0, std::max(0, Count() - 1));
  return true;
}

void TabStripModel::DeleteAll() {
  items_.clear();
  cur_sel_ = focus_ = hot_ = -1;
  first_visible_ = 0;
  scrolling_ = false;
}

const TabStripModel::Item* TabStripModel::Get(int index) const {
  return Valid(index) ? &items_[index] : nullptr;
}

TabStripModel::Item* TabStripModel::Get(int index) {
  return Valid(index) ? &items_[index] : nullptr;
}

int TabStripModel::SetCurSel(int index) {
  if (!Valid(index)) return -1;
  int before = cur_sel_;
  cur_sel_ = focus_ = index;
  return before;
}

bool TabStripModel::SetHot(int index) {
  if (!Valid(index)) index = -1;
  if (index == hot_) return false;
  hot_ = index;
  return true;
}

void TabStripModel::Layout(int strip, int arrows_width, int margin) {
  strip_ = strip;
  margin_ = margin;
  int total = margin;
  for (const Item& item : items_) total += item.width;
  scrolling_ = total > strip;
  view_ = scrolling_ ? std::max(0, strip - arrows_width) : strip;
  if (!scrolling_) first_visible_ = 0;
  first_visible_ = std::clamp(first_visible_, 0, std::max(0, Count() - 1));
}

bool TabStripModel::CanScrollForward() const {
  if (!scrolling_ || Count() == 0) return false;
  TabRect last = Rect(Count() - 1);
  return last.left == last.right || last.right > view_;
}

bool TabStripModel::Scroll(int delta) {
  int before = first_visible_;
  if (delta > 0 && !CanScrollForward()) return false;
  first_visible_ = std::clamp(first_visible_ + delta, 0, std::max(0, Count() - 1));
  return first_visible_ != before;
}

bool TabStripModel::EnsureVisible(int index) {
  if (!Valid(index) || !scrolling_) return false;
  int before = first_visible_;
  if (index < first_visible_) first_visible_ = index;
  while (first_visible_ < index) {
    TabRect r = Rect(index);
    if (r.left != r.right && r.right <= view_) break;
    ++first_visible_;
  }
  return first_visible_ != before;
}

TabRect TabStripModel::Rect(int index) const {
  if (!Valid(index) || index < first_visible_) return {};
  int x = margin_;
  for (int i = first_visible_; i < index; ++i) x += items_[i].width;
  if (scrolling_ && x >= view_) return {};
  return {x, x + items_[index].width};
}

int TabStripModel::HitTest(int x) const {
  for (int i = first_visible_; i < Count(); ++i) {
    TabRect r = Rect(i);
    if (r.left == r.right) break;
    if (scrolling_ && x >= view_) return -1;
    if (x >= r.left && x < r.right) return i;
  }
  return -1;
}

}  // namespace qmk::platform::ui::controls
