// edit_with_behavior.h: the edit model that input behaviours work on, and the behaviour contract.
#pragma once

#include <cstdint>
#include <string>

namespace qmk::toolkit::edit {

// Virtual key codes of the keys the behaviours and the windowless edit know.
enum Key : unsigned {
  kKeyBack = 0x08,
  kKeyShift = 0x10,
  kKeyControl = 0x11,
  kKeyEnd = 0x23,
  kKeyHome = 0x24,
  kKeyLeft = 0x25,
  kKeyRight = 0x27,
  kKeyInsert = 0x2D,
  kKeyDelete = 0x2E,
  kKeyC = 'C',
  kKeyV = 'V',
  kKeyX = 'X',
};

// The clipboard operations that change the text behind a behaviour's back.
enum class TextChange { kPaste, kCut, kClear };

// An edit control that hands every character, key and clipboard change to a pluggable behaviour.
// The operations below are the whole model a behaviour may use, so the same behaviours serve a
// window on screen, a grid cell editor and the windowless `MemoryEdit`. Positions and sizes are
// byte offsets into narrow text in the process's code page.
class CExtEditWithBehavior {
 public:
  class CBehaviorBase;
  class CBehaviorMasked;

  virtual ~CExtEditWithBehavior() = default;

  // --- the model, implemented by the control ---
  virtual std::string GetText() const = 0;
  virtual void SetText(const std::string& text) = 0;
  // The selection as [start, end) with start <= end; an empty selection is the caret.
  virtual void GetSel(int& start, int& end) const = 0;
  virtual void SetSel(int start, int end) = 0;
  virtual bool IsReadOnly() const = 0;
  // Whether a key (kKeyShift, kKeyControl) is held down while a message is handled.
  virtual bool IsKeyDown(unsigned key) const = 0;
  // Marks the present text and selection as the state an undo goes back to.
  virtual void SetUndoPoint() {}
  virtual void ScrollCaret() {}
  // Whether the control takes input now (a length limit, a host's veto).
  virtual bool CanTakeInput(unsigned /*ch*/) const { return true; }
  // What the control does with a message when no behaviour takes it.
  virtual void DefaultChar(unsigned ch, unsigned repeat, unsigned flags) = 0;
  virtual void DefaultKeyDown(unsigned key, unsigned repeat, unsigned flags) = 0;
  virtual void DefaultKillFocus() {}
  virtual void DefaultTextChange(TextChange change) = 0;
  // Copies the selection to the clipboard.
  virtual void DefaultCopy() {}
  // The framework's query for the default button; 0 when nobody answers.
  virtual long DefaultQuery() const { return 0; }

  // --- routing of messages to the behaviour ---
  // The behaviour is not owned; without one, messages get the default handling.
  void SetBehavior(CBehaviorBase* behavior) { m_pBehavior = behavior; }
  CBehaviorBase* GetBehavior() const { return m_pBehavior; }
  void Char(unsigned ch, unsigned repeat = 1, unsigned flags = 0);
  void KeyDown(unsigned key, unsigned repeat = 1, unsigned flags = 0);
  void KillFocus();
  void Paste() { Change(TextChange::kPaste); }
  void Cut() { Change(TextChange::kCut); }
  void Clear() { Change(TextChange::kClear); }
  void Copy() { DefaultCopy(); }

  // The raw text, and the text without leading and trailing white space.
  std::string TextGet() const { return GetText(); }
  std::string TextGetTrimmed() const;

 private:
  void Change(TextChange change);
  // Control+C or Control+Insert copy; Control+V or Shift+Insert paste; Control+X or Shift+Delete
  // cut. A read-only control swallows paste and cut. True when the key was one of these.
  bool ClipboardKey(unsigned key);

  CBehaviorBase* m_pBehavior = nullptr;
};

// The plug-in contract of input behaviours.
class CExtEditWithBehavior::CBehaviorBase {
 public:
  explicit CBehaviorBase(CExtEditWithBehavior* edit = nullptr) : m_pEditWithBehaviorWnd(edit) {}
  virtual ~CBehaviorBase() = default;

  // The control's text reduced to what the behaviour accepts.
  virtual std::string GetValidText() const = 0;
  virtual void OnChar(unsigned ch, unsigned repeat, unsigned flags) = 0;
  virtual void OnKeyDown(unsigned key, unsigned repeat, unsigned flags);
  virtual void OnKillFocus();
  // Paste, cut and clear: the control does its work, then the text is cut back to what is valid.
  virtual long OnTextChange(TextChange change);
  virtual long OnQueryDefault();
  virtual void ReapplyValidText();
  virtual bool CanInsertChar(unsigned ch);

  CExtEditWithBehavior* GetEdit() const { return m_pEditWithBehaviorWnd; }
  void SetEdit(CExtEditWithBehavior* edit) { m_pEditWithBehaviorWnd = edit; }

 protected:
  CExtEditWithBehavior* m_pEditWithBehaviorWnd;
  // Non-zero while the behaviour itself stores text, so that the change isn't judged again.
  int32_t m_nIgnoreNextChange = 0;
};

}  // namespace qmk::toolkit::edit
