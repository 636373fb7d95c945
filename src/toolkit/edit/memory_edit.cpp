// memory_edit.cpp: the windowless edit control's own handling of characters, keys and clipboard.
#include "toolkit/edit/memory_edit.h"

#include <algorithm>

namespace qmk::toolkit::edit {
namespace {

// The undo history is a convenience, not a record: the oldest steps are dropped past this depth.
constexpr size_t kUndoDepth = 100;

bool IsContinuationByte(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

}  // namespace

void MemoryEdit::SetText(const std::string& text) {
  text_ = text;
  const int size = static_cast<int>(text_.size());
  anchor_ = std::min(anchor_, size);
  caret_ = std::min(caret_, size);
}

void MemoryEdit::GetSel(int& start, int& end) const {
  start = std::min(anchor_, caret_);
  end = std::max(anchor_, caret_);
}

void MemoryEdit::SetSel(int start, int end) {
  const int size = static_cast<int>(text_.size());
  // As the system edit does, -1 stands for the end of the text.
  if (start < 0 || start > size) start = size;
  if (end < 0 || end > size) end = size;
  anchor_ = start;
  caret_ = end;
}

bool MemoryEdit::IsKeyDown(unsigned key) const {
  if (key == kKeyShift) return shift_;
  if (key == kKeyControl) return control_;
  return false;
}

void MemoryEdit::SetUndoPoint() {
  if (!undo_.empty() && undo_.back().text == text_) return;
  undo_.push_back({text_, anchor_, caret_});
  if (undo_.size() > kUndoDepth) undo_.erase(undo_.begin());
}

bool MemoryEdit::Undo() {
  if (undo_.empty()) return false;
  const State state = undo_.back();
  undo_.pop_back();
  text_ = state.text;
  anchor_ = state.anchor;
  caret_ = state.caret;
  return true;
}

void MemoryEdit::ReplaceSelection(const std::string& with) {
  int start = 0, end = 0;
  GetSel(start, end);
  text_.replace(start, end - start, with);
  anchor_ = caret_ = start + static_cast<int>(with.size());
}

int MemoryEdit::PreviousCharStart(int pos) const {
  if (pos <= 0) return 0;
  --pos;
  while (pos > 0 && IsContinuationByte(text_[pos])) --pos;
  return pos;
}

int MemoryEdit::NextCharStart(int pos) const {
  const int size = static_cast<int>(text_.size());
  if (pos >= size) return size;
  ++pos;
  while (pos < size && IsContinuationByte(text_[pos])) ++pos;
  return pos;
}

void MemoryEdit::MoveCaret(int to) {
  caret_ = to;
  if (!shift_) anchor_ = to;
}

void MemoryEdit::DefaultChar(unsigned ch, unsigned repeat, unsigned /*flags*/) {
  if (read_only_) return;
  for (unsigned i = 0; i < std::max(repeat, 1u); ++i) {
    if (ch == kKeyBack) {
      if (anchor_ == caret_) anchor_ = PreviousCharStart(caret_);
      ReplaceSelection("");
    } else if (ch >= 0x20 && ch <= 0xFF && ch != 0x7F) {
      ReplaceSelection(std::string(1, static_cast<char>(ch)));
    }
  }
}

void MemoryEdit::DefaultKeyDown(unsigned key, unsigned /*repeat*/, unsigned /*flags*/) {
  switch (key) {
    case kKeyLeft:
      MoveCaret(!shift_ && anchor_ != caret_ ? std::min(anchor_, caret_) : PreviousCharStart(caret_));
      break;
    case kKeyRight:
      MoveCaret(!shift_ && anchor_ != caret_ ? std::max(anchor_, caret_) : NextCharStart(caret_));
      break;
    case kKeyHome:
      MoveCaret(0);
      break;
    case kKeyEnd:
      MoveCaret(static_cast<int>(text_.size()));
      break;
    case kKeyDelete:
      if (read_only_) break;
      if (anchor_ == caret_) caret_ = NextCharStart(caret_);
      ReplaceSelection("");
      break;
    default:
      break;
  }
}

void MemoryEdit::DefaultCopy() {
  int start = 0, end = 0;
  GetSel(start, end);
  if (start != end) clipboard_ = text_.substr(start, end - start);
}

void MemoryEdit::DefaultTextChange(TextChange change) {
  int start = 0, end = 0;
  GetSel(start, end);
  if (change == TextChange::kCut) clipboard_ = text_.substr(start, end - start);
  if (read_only_) return;
  ReplaceSelection(change == TextChange::kPaste ? clipboard_ : std::string());
}

}  // namespace qmk::toolkit::edit
