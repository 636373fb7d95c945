// tab_strip_model.h: the tabs of a tab strip, the current and hot ones, and scrolling when the
// tabs are wider than the strip, without a window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qmk::platform::ui::controls {

struct TabRect {
  int left = 0, right = 0;  // along the strip; the height is the strip's
};

class TabStripModel {
 public:
  struct Item {
    std::string text;
    intptr_t param = 0;
    int image = -1;
    int width = 0;  // measured by the control
  };

  int Count() const { return static_cast<int>(items_.size()); }
  // Inserts before `index` (at the end when past it); returns the index, or -1.
  int Insert(int index, Item item);
  bool Delete(int index);
  void DeleteAll();
  const Item* Get(int index) const;
  Item* Get(int index);

  int cur_sel() const { return cur_sel_; }
  // Program selection: no notification. Returns the previous selection, or -1 for a bad index
  // (nothing changes then).
  int SetCurSel(int index);
  int focus() const { return focus_; }
  void SetFocus(int index) { if (index >= -1 && index < Count()) focus_ = index; }
  int hot() const { return hot_; }
  // True if the hot tab changed.
  bool SetHot(int index);

  // Lays the tabs side by side from `margin`, starting at the first visible tab; `strip` is the
  // strip's width with the scroll arrows' room taken off when the tabs don't fit.
  void Layout(int strip, int arrows_width, int margin);
  bool scrolling() const { return scrolling_; }
  int first_visible() const { return first_visible_; }
  bool CanScrollBack() const { return scrolling_ && first_visible_ > 0; }
  bool CanScrollForward() const;
  // Moves the first visible tab by `delta`, clamped; true if it moved.
  bool Scroll(int delta);
  // Brings a tab into view (after Layout); true if the strip scrolled.
  bool EnsureVisible(int index);
  // The tab's place, empty (left == right) when scrolled out of view.
  TabRect Rect(int index) const;
  // The tab under `x`, or -1.
  int HitTest(int x) const;

 private:
  bool Valid(int index) const { return index >= 0 && index < Count(); }

  std::vector<Item> items_;
  int cur_sel_ = -1;
  int focus_ = -1;
  int hot_ = -1;
  int first_visible_ = 0;
  bool scrolling_ = false;
  int strip_ = 0;
  int view_ = 0;
  int margin_ = 0;
};

}  // namespace qmk::platform::ui::controls
