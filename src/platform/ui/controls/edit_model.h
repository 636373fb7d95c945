// edit_model.h: the text, caret, selection, limit and undo of an edit control, without a window.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/controls/clipboard.h"

namespace qmk::platform::ui::controls {

// What an edit did with a request: changed the text, refused it, or cut it at the limit.
enum class EditRefusal { kNone, kReadOnly, kNotDigit, kLimit, kNothingToDo, kPassword };

struct EditResult {
  bool changed = false;
  EditRefusal refusal = EditRefusal::kNone;
  // The text reached the limit and part of the input was dropped (the control says so to its
  // parent).
  bool hit_limit = false;
};

enum class CaretMove {
  kLeft, kRight, kWordLeft, kWordRight, kLineStart, kLineEnd, kTextStart, kTextEnd,
  kUp, kDown, kPageUp, kPageDown
};

struct EditOptions {
  bool multi_line = false;
  bool read_only = false;
  bool number_only = false;
  bool password = false;
};

// Width in pixels of a piece of text, as the control's font draws it.
using TextWidth = std::function<int(std::string_view)>;

class EditModel {
 public:
  // The largest text an edit takes when no limit was set.
  static constexpr int kDefaultLimit = 0x7FFFFFFE;

  explicit EditModel(EditOptions options = {});

  const EditOptions& options() const { return options_; }
  void SetReadOnly(bool on) { options_.read_only = on; }
  void SetNumberOnly(bool on) { options_.number_only = on; }
  void SetPassword(bool on) { options_.password = on; }

  // Replaces the whole text, ignoring the limit; the caret goes to the start, the undo buffer
  // empties and the modified flag clears, as a window-text change does.
  void SetText(std::string_view text);
  const std::string& text() const { return text_; }
  int Length() const { return static_cast<int>(text_.size()); }
  // The text as shown: the password character in place of every byte.
  std::string DisplayText(char password_char) const;

  // Selection: the anchor stays put while the caret moves with a shift key held.
  int anchor() const { return anchor_; }
  int caret() const { return caret_; }
  int SelStart() const { return anchor_ < caret_ ? anchor_ : caret_; }
  int SelEnd() const { return anchor_ < caret_ ? caret_ : anchor_; }
  bool HasSelection() const { return anchor_ != caret_; }
  std::string SelectedText() const;
  // A start of -1 removes the selection and leaves the caret; an end of -1 (or past the end)
  // means the end of the text. The caret goes to `end`.
  void SetSel(int start, int end);
  void SelectAll() { SetSel(0, -1); }

  // Typing one character: replaces the selection; refused on read-only, on non-digits when
  // numbers only, and when the limit would be passed. A typed line break is "\r\n" in a
  // multi-line edit and refused in a single-line one.
  EditResult TypeChar(char c);
  // Replaces the selection with `text`. Works on read-only edits too (programs may change
  // them); cut at the limit and, in a single-line edit, at the first line break.
  EditResult ReplaceSel(std::string_view text, bool can_undo = true);
  EditResult DeleteBack();     // Backspace
  EditResult DeleteForward();  // Delete
  EditResult Clear();          // removes the selection

  EditResult Cut(TextClipboard& clipboard);
  bool Copy(TextClipboard& clipboard) const;
  EditResult Paste(const TextClipboard& clipboard);

  // One level of undo: the last change, and undoing again restores it.
  bool CanUndo() const { return undo_.valid; }
  EditResult Undo();
  void EmptyUndo() { undo_ = {}; }

  void SetLimit(int limit) { limit_ = limit <= 0 ? kDefaultLimit : limit; }
  int limit() const { return limit_; }

  bool modified() const { return modified_; }
  void SetModified(bool on) { modified_ = on; }

  void MoveCaret(CaretMove move, bool extend);
  // Selects the word around `pos` (a double click).
  void SelectWordAt(int pos);

  // Word wrap of a multi-line edit: lines also break where the next word would pass `pixels`
  // as `width` measures; a null `width` turns wrapping off.
  void SetWrap(TextWidth width, int pixels);
  bool wraps() const { return wrap_px_ > 0; }

  // Lines of a multi-line edit, split at "\r\n" and, when wrapping, where a line is full; a
  // single-line edit has one line.
  int LineCount() const;
  int LineIndex(int line) const;  // start of a line; -1 past the last
  int LineFromChar(int pos) const;
  int LineLength(int line) const;  // without its break
  std::string Line(int line) const;

  // Vertical scrolling of a multi-line edit: the first line shown and how many fit.
  int first_line() const { return first_line_; }
  void SetVisibleLines(int n) { visible_lines_ = n < 1 ? 1 : n; }
  int visible_lines() const { return visible_lines_; }
  // Scrolls by `delta` lines, clamped so that the last line can be at the top; returns the
  // lines actually scrolled.
  int ScrollLines(int delta);
  // Horizontal scroll offset in pixels.
  int scroll_x() const { return scroll_x_; }
  void SetScrollX(int x) { scroll_x_ = x < 0 ? 0 : x; }
  // Scrolls so that the caret shows in a view of `view_width` pixels and the visible lines.
  void EnsureCaretVisible(const TextWidth& width, int view_width);

 private:
  struct UndoRecord {
    bool valid = false;
    int pos = 0;
    std::string removed;   // text the change took out
    std::string inserted;  // text the change put in
    enum Kind { kTyping, kBackspace, kDelete, kOther } kind = kOther;
  };

  bool IsBreakAt(int pos) const;
  int PrevPos(int pos) const;
  int NextPos(int pos) const;
  int WordLeft(int pos) const;
  int WordRight(int pos) const;
  int VerticalMove(int lines) const;
  // The text that fits the limit in place of the selection.
  std::string FitToLimit(std::string_view text, bool* cut) const;
  void Replace(int pos, int count, const std::string& with, UndoRecord::Kind kind, bool can_undo);
  void RecordUndo(int pos, const std::string& removed, const std::string& with,
                  UndoRecord::Kind kind);
  const std::vector<int>& LineStarts() const;
  // Adds the lines of the text from `start` to the hard break at `end`.
  void AddLines(int start, int end) const;
  // Where the wrapped line that starts at `from` ends, before the hard break at `end`.
  int WrapEnd(int from, int end) const;
  void ClampScroll();

  EditOptions options_;
  std::string text_;
  int anchor_ = 0, caret_ = 0;
  int limit_ = kDefaultLimit;
  bool modified_ = false;
  UndoRecord undo_;
  int first_line_ = 0;
  int visible_lines_ = 1;
  int scroll_x_ = 0;
  TextWidth wrap_width_;
  int wrap_px_ = 0;
  mutable std::vector<int> line_starts_;
  mutable std::vector<int> line_lengths_;
  mutable bool lines_dirty_ = true;
};

}  // namespace qmk::platform::ui::controls
