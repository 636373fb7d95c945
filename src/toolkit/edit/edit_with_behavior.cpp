// edit_with_behavior.cpp: message routing of the behaviour-driven edit and the behaviour defaults.
#include "toolkit/edit/edit_with_behavior.h"

namespace qmk::toolkit::edit {

void CExtEditWithBehavior::Char(unsigned ch, unsigned repeat, unsigned flags) {
  if (m_pBehavior)
    m_pBehavior->OnChar(ch, repeat, flags);
  else
    DefaultChar(ch, repeat, flags);
}

bool CExtEditWithBehavior::ClipboardKey(unsigned key) {
  const bool control = IsKeyDown(kKeyControl), shift = IsKeyDown(kKeyShift);
  if (control && (key == kKeyInsert || key == kKeyC)) {
    Copy();
    return true;
  }
  const bool paste = (control && key == kKeyV) || (shift && key == kKeyInsert);
  const bool cut = (control && key == kKeyX) || (shift && key == kKeyDelete);
  if (!paste && !cut) return false;
  if (!IsReadOnly()) Change(paste ? TextChange::kPaste : TextChange::kCut);
  return true;
}

void CExtEditWithBehavior::KeyDown(unsigned key, unsigned repeat, unsigned flags) {
  if (ClipboardKey(key)) return;
  if (m_pBehavior)
    m_pBehavior->OnKeyDown(key, repeat, flags);
  else
    DefaultKeyDown(key, repeat, flags);
}

void CExtEditWithBehavior::KillFocus() {
  if (m_pBehavior)
    m_pBehavior->OnKillFocus();
  else
    DefaultKillFocus();
}

void CExtEditWithBehavior::Change(TextChange change) {
  if (m_pBehavior)
    m_pBehavior->OnTextChange(change);
  else
    DefaultTextChange(change);
}

std::string CExtEditWithBehavior::TextGetTrimmed() const {
  const std::string text = GetText();
  const char* blanks = " \t\r\n\v\f";
  const size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

void CExtEditWithBehavior::CBehaviorBase::OnKeyDown(unsigned key, unsigned repeat, unsigned flags) {
  if (m_pEditWithBehaviorWnd) m_pEditWithBehaviorWnd->DefaultKeyDown(key, repeat, flags);
}

void CExtEditWithBehavior::CBehaviorBase::OnKillFocus() {
  if (m_pEditWithBehaviorWnd) m_pEditWithBehaviorWnd->DefaultKillFocus();
}

long CExtEditWithBehavior::CBehaviorBase::OnTextChange(TextChange change) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  if (!edit || edit->IsReadOnly() || m_nIgnoreNextChange) return 0;
  int start = 0, end = 0;
  edit->GetSel(start, end);
  edit->SetUndoPoint();
  edit->DefaultTextChange(change);
  const std::string valid = GetValidText();
  if (edit->GetText() != valid) {
    ++m_nIgnoreNextChange;
    edit->SetText(valid);
    --m_nIgnoreNextChange;
  }
  edit->SetSel(start, end);
  return 0;
}

long CExtEditWithBehavior::CBehaviorBase::OnQueryDefault() {
  return m_pEditWithBehaviorWnd ? m_pEditWithBehaviorWnd->DefaultQuery() : 0;
}

void CExtEditWithBehavior::CBehaviorBase::ReapplyValidText() {
  if (!m_pEditWithBehaviorWnd) return;
  const std::string valid = GetValidText();
  if (m_pEditWithBehaviorWnd->GetText() != valid) m_pEditWithBehaviorWnd->SetText(valid);
}

bool CExtEditWithBehavior::CBehaviorBase::CanInsertChar(unsigned ch) {
  return !m_pEditWithBehaviorWnd || m_pEditWithBehaviorWnd->CanTakeInput(ch);
}

}  // namespace qmk::toolkit::edit
