// memory_edit.h: an edit control without a window: text, selection, clipboard and undo in memory.
#pragma once

#include <string>
#include <vector>

#include "toolkit/edit/edit_with_behavior.h"

namespace qmk::toolkit::edit {

// Behaves as a single-line system edit does: characters replace the selection, Backspace arrives
// as the character 8, Delete as a key, arrows and Home/End move the caret (with Shift held they
// stretch the selection from its anchor), the clipboard is a string of its own.
class MemoryEdit : public CExtEditWithBehavior {
 public:
  std::string GetText() const override { return text_; }
  void SetText(const std::string& text) override;
  void GetSel(int& start, int& end) const override;
  void SetSel(int start, int end) override;
  bool IsReadOnly() const override { return read_only_; }
  bool IsKeyDown(unsigned key) const override;
  void SetUndoPoint() override;
  void DefaultChar(unsigned ch, unsigned repeat, unsigned flags) override;
  void DefaultKeyDown(unsigned key, unsigned repeat, unsigned flags) override;
  void DefaultTextChange(TextChange change) override;
  void DefaultCopy() override;

  void SetReadOnly(bool read_only) { read_only_ = read_only; }
  void SetShift(bool down) { shift_ = down; }
  void SetControl(bool down) { control_ = down; }
  void SetClipboard(const std::string& text) { clipboard_ = text; }
  const std::string& Clipboard() const { return clipboard_; }
  // The caret is the moving end of the selection.
  int Caret() const { return caret_; }
  // Goes back to the last undo point; false when there is none.
  bool Undo();
  size_t UndoDepth() const { return undo_.size(); }

 private:
  struct State {
    std::string text;
    int anchor, caret;
  };
  void ReplaceSelection(const std::string& with);
  void MoveCaret(int to);
  int PreviousCharStart(int pos) const;
  int NextCharStart(int pos) const;

  std::string text_;
  int anchor_ = 0, caret_ = 0;
  bool read_only_ = false, shift_ = false, control_ = false;
  std::string clipboard_;
  std::vector<State> undo_;
};

}  // namespace qmk::toolkit::edit
