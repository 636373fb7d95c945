// list_box_model.h: the items, selection, caret and scrolling of a list box, without a window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qmk::platform::ui::controls {

// Result of a list operation that found nothing or was given a bad index.
constexpr int kListError = -1;

enum class ListMove { kUp, kDown, kPageUp, kPageDown, kHome, kEnd };

struct ListBoxOptions {
  bool sorted = false;
  bool multiple = false;  // each click toggles an item
  bool extended = false;  // shift and control extend the selection
};

class ListBoxModel {
 public:
  using Options = ListBoxOptions;

  explicit ListBoxModel(Options options = {});
  const Options& options() const { return options_; }
  bool IsMultiple() const { return options_.multiple || options_.extended; }

  // Adds at the end, or at its sorted place in a sorted list; returns the index.
  int AddString(std::string_view text);
  // Inserts at `index` (-1 at the end) even in a sorted list; kListError for a bad index.
  int InsertString(int index, std::string_view text);
  // Returns the count left, or kListError.
  int DeleteString(int index);
  void ResetContent();
  int Count() const { return static_cast<int>(items_.size()); }

  // The text of an item; empty for a bad index.
  std::string Text(int index) const;
  int TextLength(int index) const;
  bool SetItemData(int index, intptr_t data);
  // kListError for a bad index.
  intptr_t ItemData(int index) const;

  // The first item after `start` (-1: from the top) whose text begins with `prefix`, case-blind,
  // searching round to the items before it; kListError when none does. An empty prefix matches
  // the first item searched.
  int FindString(int start, std::string_view prefix) const;
  // The same for a whole text, case-blind.
  int FindStringExact(int start, std::string_view text) const;

  // Single selection: the selected item or kListError. In a multiple list, the caret item,
  // selected or not.
  int CurSel() const;
  // Selects one item (single selection); -1 or a bad index clears it and the result is
  // kListError for a bad index. True if the selection changed.
  bool SetCurSel(int index);
  // Multiple selection: set or clear one item, or all with index -1 (a single-selection list
  // refuses).
  bool SetSel(int index, bool select);
  bool IsSelected(int index) const;
  int SelCount() const;
  std::vector<int> SelectedItems() const;
  // Multiple selection: selects the range first..last inclusive, or clears it.
  bool SelItemRange(int first, int last, bool select);

  int caret() const { return caret_; }
  bool SetCaret(int index);
  int anchor() const { return anchor_; }
  void SetAnchor(int index) { anchor_ = index; }

  // Rows that fit the view, for page moves and for keeping the caret in sight.
  void SetVisibleRows(int rows) { visible_rows_ = rows < 1 ? 1 : rows; }
  int visible_rows() const { return visible_rows_; }
  int top_index() const { return top_; }
  // Clamped so that the last page is full where it can be.
  bool SetTopIndex(int index);
  void EnsureVisible(int index);

  // Keyboard: moves the caret, selecting as a list box does (single: the caret's item;
  // extended with `extend`: anchor to caret; multiple: caret only). True if the selection
  // changed.
  bool KeyMove(ListMove move, bool extend);
  // Type-ahead: the next item after the caret starting with `c`. True if the selection changed.
  bool KeyChar(char c);
  // Space in a multiple list toggles the caret item.
  bool ToggleCaret();
  // A click on `index`: `toggle` is a control-click, `extend` a shift-click.
  bool Click(int index, bool toggle, bool extend);

 private:
  struct Item {
    std::string text;
    intptr_t data = 0;
    bool selected = false;
  };
  bool Valid(int index) const { return index >= 0 && index < Count(); }
  int SortedPlace(std::string_view text) const;
  int Find(int start, std::string_view text, bool exact) const;
  bool SelectOnly(int index);
  bool SelectRangeOnly(int first, int last);
  int MoveTarget(ListMove move) const;

  Options options_;
  std::vector<Item> items_;
  int caret_ = -1;
  int anchor_ = -1;
  int top_ = 0;
  int visible_rows_ = 1;
};

// Case-blind comparison of two texts byte by byte, as sorted lists and their searches use.
int CompareCaseBlind(std::string_view a, std::string_view b);

}  // namespace qmk::platform::ui::controls
