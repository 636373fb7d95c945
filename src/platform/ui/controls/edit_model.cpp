// edit_model.cpp: editing rules of the edit control: limit, refusals, line breaks, undo.
#include "platform/ui/controls/edit_model.h"

#include <algorithm>

namespace qmk::platform::ui::controls {
namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
// The caret never stops inside a UTF-8 sequence.
bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// In a multi-line edit every line break is "\r\n"; a lone "\n" or "\r" from outside becomes one.
std::string NormaliseBreaks(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
      out += "\r\n";
      ++i;
    } else if (c == '\r' || c == '\n') {
      out += "\r\n";
    } else {
      out += c;
    }
  }
  return out;
}

}  // namespace

EditModel::EditModel(EditOptions options) : options_(options) {}

void EditModel::SetText(std::string_view text) {
  text_ = std::string(text);
  lines_dirty_ = true;
  anchor_ = caret_ = 0;
  undo_ = {};
  modified_ = false;
  first_line_ = 0;
  scroll_x_ = 0;
}

std::string EditModel::DisplayText(char password_char) const {
  if (!options_.password) return text_;
  return std::string(text_.size(), password_char);
}

std::string EditModel::SelectedText() const {
  return text_.substr(SelStart(), SelEnd() - SelStart());
}

void EditModel::SetSel(int start, int end) {
  if (start == -1) {
    anchor_ = caret_;
    return;
  }
  int len = Length();
  if (end < 0 || end > len) end = len;
  start = std::clamp(start, 0, len);
  anchor_ = start;
  caret_ = end;
}

bool EditModel::IsBreakAt(int pos) const {
  return pos >= 0 && pos + 1 < Length() && text_[pos] == '\r' && text_[pos + 1] == '\n';
}

int EditModel::PrevPos(int pos) const {
  if (pos <= 0) return 0;
  if (pos >= 2 && IsBreakAt(pos - 2)) return pos - 2;
  --pos;
  while (pos > 0 && IsContinuation(text_[pos])) --pos;
  return pos;
}

int EditModel::NextPos(int pos) const {
  if (pos >= Length()) return Length();
  if (IsBreakAt(pos)) return pos + 2;
  ++pos;
  while (pos < Length() && IsContinuation(text_[pos])) ++pos;
  return pos;
}

std::string EditModel::FitToLimit(std::string_view text, bool* cut) const {
  int room = limit_ - (Length() - (SelEnd() - SelStart()));
  *cut = false;
  if (room < 0) room = 0;
  if (static_cast<int>(text.size()) <= room) return std::string(text);
  *cut = true;
  size_t keep = static_cast<size_t>(room);
  // Never keep half of a line break.
  if (keep > 0 && text[keep - 1] == '\r' && keep < text.size() && text[keep] == '\n') --keep;
  return std::string(text.substr(0, keep));
}

void EditModel::RecordUndo(int pos, const std::string& removed, const std::string& with,
                           UndoRecord::Kind kind) {
  UndoRecord& u = undo_;
  // Typing and deleting in a run make one undo step, as the platform's edit merges them.
  if (u.valid && kind == u.kind && kind == UndoRecord::kTyping && removed.empty() &&
      pos == u.pos + static_cast<int>(u.inserted.size())) {
    u.inserted += with;
    return;
  }
  if (u.valid && kind == u.kind && kind == UndoRecord::kBackspace && u.inserted.empty() &&
      pos + static_cast<int>(removed.size()) == u.pos) {
    u.removed = removed + u.removed;
    u.pos = pos;
    return;
  }
  if (u.valid && kind == u.kind && kind == UndoRecord::kDelete && u.inserted.empty() &&
      pos == u.pos) {
    u.removed += removed;
    return;
  }
  u = UndoRecord{true, pos, removed, with, kind};
}

void EditModel::Replace(int pos, int count, const std::string& with, UndoRecord::Kind kind,
                        bool can_undo) {
  std::string removed = text_.substr(pos, count);
  // A change that can't be undone empties the undo buffer, which would no longer fit the text.
  if (can_undo) RecordUndo(pos, removed, with, kind);
  else undo_ = {};
  text_.replace(pos, count, with);
  lines_dirty_ = true;
  anchor_ = caret_ = pos + static_cast<int>(with.size());
  modified_ = true;
  ClampScroll();
}

void EditModel::ClampScroll() {
  // Lines taken out above the view pull it up.
  first_line_ = std::clamp(first_line_, 0, LineCount() - 1);
}

EditResult EditModel::TypeChar(char c) {
  if (options_.read_only) return {false, EditRefusal::kReadOnly, false};
  std::string piece(1, c);
  if (c == '\r' || c == '\n') {
    if (!options_.multi_line) return {false, EditRefusal::kNothingToDo, false};
    piece = "\r\n";
  } else if (static_cast<unsigned char>(c) < 0x20) {
    return {false, EditRefusal::kNothingToDo, false};
  }
  if (options_.number_only && !IsDigit(c)) return {false, EditRefusal::kNotDigit, false};
  bool cut = false;
  std::string fit = FitToLimit(piece, &cut);
  if (cut) return {false, EditRefusal::kLimit, true};
  Replace(SelStart(), SelEnd() - SelStart(), fit, UndoRecord::kTyping, true);
  return {true, EditRefusal::kNone, false};
}

EditResult EditModel::ReplaceSel(std::string_view text, bool can_undo) {
  std::string incoming;
  if (options_.multi_line) {
    incoming = NormaliseBreaks(text);
  } else {
    // A single-line edit takes the text up to its first line break.
    incoming = std::string(text.substr(0, text.find_first_of("\r\n")));
  }
  bool cut = false;
  std::string fit = FitToLimit(incoming, &cut);
  if (fit.empty() && !HasSelection()) {
    return {false, cut ? EditRefusal::kLimit : EditRefusal::kNothingToDo, cut};
  }
  Replace(SelStart(), SelEnd() - SelStart(), fit, UndoRecord::kOther, can_undo);
  return {true, EditRefusal::kNone, cut};
}

EditResult EditModel::DeleteBack() {
  if (options_.read_only) return {false, EditRefusal::kReadOnly, false};
  if (HasSelection()) {
    Replace(SelStart(), SelEnd() - SelStart(), "", UndoRecord::kOther, true);
    return {true};
  }
  if (caret_ == 0) return {false, EditRefusal::kNothingToDo, false};
  int from = PrevPos(caret_);
  Replace(from, caret_ - from, "", UndoRecord::kBackspace, true);
  return {true};
}

EditResult EditModel::DeleteForward() {
  if (options_.read_only) return {false, EditRefusal::kReadOnly, false};
  if (HasSelection()) {
    Replace(SelStart(), SelEnd() - SelStart(), "", UndoRecord::kOther, true);
    return {true};
  }
  if (caret_ >= Length()) return {false, EditRefusal::kNothingToDo, false};
  int to = NextPos(caret_);
  Replace(caret_, to - caret_, "", UndoRecord::kDelete, true);
  return {true};
}

EditResult EditModel::Clear() {
  if (options_.read_only) return {false, EditRefusal::kReadOnly, false};
  if (!HasSelection()) return {false, EditRefusal::kNothingToDo, false};
  Replace(SelStart(), SelEnd() - SelStart(), "", UndoRecord::kOther, true);
  return {true};
}

EditResult EditModel::Cut(TextClipboard& clipboard) {
  if (options_.password) return {false, EditRefusal::kPassword, false};
  if (options_.read_only) return {false, EditRefusal::kReadOnly, false};
  if (!HasSelection()) return {false, EditRefusal::kNothingToDo, false};
  clipboard.SetText(SelectedText());
  return Clear();
}

bool EditModel::Copy(TextClipboard& clipboard) const {
  // A password never leaves the edit.
  if (options_.password || !HasSelection()) return false;
  clipboard.SetText(SelectedText());
  return true;
}

EditResult EditModel::Paste(const TextClipboard& clipboard) {
  if (options_.read_only) return {false, EditRefusal::kReadOnly, false};
  std::string text;
  if (!clipboard.GetText(&text)) return {false, EditRefusal::kNothingToDo, false};
  if (options_.number_only &&
      !std::all_of(text.begin(), text.end(), [](char c) { return IsDigit(c); })) {
    return {false, EditRefusal::kNotDigit, false};
  }
  return ReplaceSel(text, true);
}

EditResult EditModel::Undo() {
  if (!undo_.valid) return {false, EditRefusal::kNothingToDo, false};
  UndoRecord u = undo_;
  text_.replace(u.pos, u.inserted.size(), u.removed);
  lines_dirty_ = true;
  modified_ = true;
  ClampScroll();
  // The undone change becomes the one to undo, so a second undo puts it back.
  undo_ = UndoRecord{true, u.pos, u.inserted, u.removed, UndoRecord::kOther};
  // The text that came back is selected.
  anchor_ = u.pos;
  caret_ = u.pos + static_cast<int>(u.removed.size());
  return {true};
}

int EditModel::WordLeft(int pos) const {
  while (pos > 0 && IsSpace(text_[pos - 1])) --pos;
  while (pos > 0 && !IsSpace(text_[pos - 1])) --pos;
  return pos;
}

int EditModel::WordRight(int pos) const {
  int len = Length();
  if (pos < len && IsBreakAt(pos)) return pos + 2;
  while (pos < len && !IsSpace(text_[pos])) ++pos;
  while (pos < len && (text_[pos] == ' ' || text_[pos] == '\t')) ++pos;
  return pos;
}

int EditModel::VerticalMove(int lines) const {
  int line = LineFromChar(caret_);
  int column = caret_ - LineIndex(line);
  int target = std::clamp(line + lines, 0, LineCount() - 1);
  return LineIndex(target) + std::min(column, LineLength(target));
}

void EditModel::MoveCaret(CaretMove move, bool extend) {
  int pos = caret_;
  // Without shift a left or right move first collapses a selection to its side.
  if (!extend && HasSelection() && (move == CaretMove::kLeft || move == CaretMove::kRight)) {
    pos = move == CaretMove::kLeft ? SelStart() : SelEnd();
    anchor_ = caret_ = pos;
    return;
  }
  int line = LineFromChar(pos);
  switch (move) {
    case CaretMove::kLeft: pos = PrevPos(pos); break;
    case CaretMove::kRight: pos = NextPos(pos); break;
    case CaretMove::kWordLeft: pos = WordLeft(pos); break;
    case CaretMove::kWordRight: pos = WordRight(pos); break;
    case CaretMove::kLineStart: pos = LineIndex(line); break;
    case CaretMove::kLineEnd: pos = LineIndex(line) + LineLength(line); break;
    case CaretMove::kTextStart: pos = 0; break;
    case CaretMove::kTextEnd: pos = Length(); break;
    case CaretMove::kUp: pos = VerticalMove(-1); break;
    case CaretMove::kDown: pos = VerticalMove(1); break;
    case CaretMove::kPageUp: pos = VerticalMove(-visible_lines_); break;
    case CaretMove::kPageDown: pos = VerticalMove(visible_lines_); break;
  }
  caret_ = pos;
  if (!extend) anchor_ = pos;
}

void EditModel::SelectWordAt(int pos) {
  pos = std::clamp(pos, 0, Length());
  int start = pos, end = pos;
  while (start > 0 && !IsSpace(text_[start - 1])) --start;
  while (end < Length() && !IsSpace(text_[end])) ++end;
  anchor_ = start;
  caret_ = end;
}

void EditModel::SetWrap(TextWidth width, int pixels) {
  wrap_width_ = std::move(width);
  wrap_px_ = wrap_width_ && options_.multi_line ? std::max(pixels, 1) : 0;
  lines_dirty_ = true;
  ClampScroll();
}

int EditModel::WrapEnd(int from, int end) const {
  auto fits = [&](int to) {
    return wrap_width_(std::string_view(text_).substr(from, to - from)) <= wrap_px_;
  };
  if (fits(end)) return end;
  // The longest piece that fits, then back to just after its last space; a word longer than
  // the line is cut where the line ends, keeping at least one character.
  int lo = from + 1, hi = end;
  while (lo < hi) {
    int mid = (lo + hi + 1) / 2;
    if (fits(mid)) lo = mid;
    else hi = mid - 1;
  }
  int cut = lo;
  while (cut > from + 1 && cut < end && IsContinuation(text_[cut])) --cut;
  if (text_[cut] == ' ') {
    // Spaces at a break hang at the end of the line.
    while (cut < end && text_[cut] == ' ') ++cut;
    return cut;
  }
  for (int i = cut - 1; i > from; --i) {
    if (text_[i] == ' ') return i + 1;
  }
  return cut;
}

void EditModel::AddLines(int start, int end) const {
  if (wrap_px_ <= 0 || start == end) {
    line_starts_.push_back(start);
    line_lengths_.push_back(end - start);
    return;
  }
  for (int p = start; p < end;) {
    int next = WrapEnd(p, end);
    line_starts_.push_back(p);
    line_lengths_.push_back(next - p);
    p = next;
  }
}

const std::vector<int>& EditModel::LineStarts() const {
  if (!lines_dirty_) return line_starts_;
  line_starts_.clear();
  line_lengths_.clear();
  if (!options_.multi_line) {
    AddLines(0, Length());
  } else {
    int start = 0;
    for (int i = 0; i + 1 < Length(); ++i) {
      if (!IsBreakAt(i)) continue;
      AddLines(start, i);
      start = i + 2;
      ++i;
    }
    AddLines(start, Length());
  }
  lines_dirty_ = false;
  return line_starts_;
}

int EditModel::LineCount() const { return static_cast<int>(LineStarts().size()); }

int EditModel::LineIndex(int line) const {
  const auto& starts = LineStarts();
  if (line < 0 || line >= static_cast<int>(starts.size())) return -1;
  return starts[line];
}

int EditModel::LineFromChar(int pos) const {
  const auto& starts = LineStarts();
  auto it = std::upper_bound(starts.begin(), starts.end(), pos);
  int line = static_cast<int>(it - starts.begin()) - 1;
  return line < 0 ? 0 : line;
}

int EditModel::LineLength(int line) const {
  if (LineIndex(line) < 0) return 0;
  return line_lengths_[line];
}

std::string EditModel::Line(int line) const {
  int start = LineIndex(line);
  if (start < 0) return {};
  return text_.substr(start, LineLength(line));
}

int EditModel::ScrollLines(int delta) {
  int before = first_line_;
  first_line_ = std::clamp(first_line_ + delta, 0, LineCount() - 1);
  return first_line_ - before;
}

void EditModel::EnsureCaretVisible(const TextWidth& width, int view_width) {
  int line = LineFromChar(caret_);
  if (line < first_line_) first_line_ = line;
  if (line >= first_line_ + visible_lines_) first_line_ = line - visible_lines_ + 1;
  // A wrapped edit's lines fit its width: it never scrolls sideways.
  if (wrap_px_ > 0) scroll_x_ = 0;
  if (!width || view_width <= 0 || wrap_px_ > 0) return;
  std::string shown = DisplayText('*');
  int start = LineIndex(line);
  int x = width(std::string_view(shown).substr(start, caret_ - start));
  // Scroll a quarter of the view beyond the caret, so typing on doesn't scroll every key.
  if (x < scroll_x_) scroll_x_ = std::max(0, x - view_width / 4);
  if (x > scroll_x_ + view_width - 1) scroll_x_ = x - view_width + view_width / 4;
}

}  // namespace qmk::platform::ui::controls
