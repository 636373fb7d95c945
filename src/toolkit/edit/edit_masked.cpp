// edit_masked.cpp: the masked edit control's settings, each applied to the text at once.
#include "toolkit/edit/edit_masked.h"

#include <algorithm>

namespace qmk::toolkit::edit {

CExtEditMasked::CExtEditMasked(const std::string& mask) : m_behavior(this, mask) {
  SetBehavior(&m_behavior);
  m_behavior.Reformat(false);
}

void CExtEditMasked::SetMask(const std::string& mask) {
  m_behavior.m_strMask = mask;
  m_behavior.Reformat(false);
}

void CExtEditMasked::SetPromptChar(char prompt) {
  std::string text = GetText();
  std::replace(text.begin(), text.end(), m_behavior.m_chPrompt, prompt);
  m_behavior.m_chPrompt = prompt;
  int start = 0, end = 0;
  GetSel(start, end);
  SetText(text);
  SetSel(start, end);
}

void CExtEditMasked::SetInsertMode(bool on) {
  m_behavior.m_bInsertMode = on;
  m_behavior.Reformat(false);
}

void CExtEditMasked::SetShowPrompt(bool on) {
  m_behavior.m_bShowPrompt = on;
  m_behavior.Reformat(false);
}

void CExtEditMasked::SetAdvanceToNextField(bool on) {
  m_behavior.m_bAdvanceToNextField = on;
  m_behavior.Reformat(false);
}

}  // namespace qmk::toolkit::edit
