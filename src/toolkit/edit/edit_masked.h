// edit_masked.h: the masked edit control: a windowless edit that owns a mask behaviour.
#pragma once

#include <string>

#include "toolkit/edit/behavior_masked.h"
#include "toolkit/edit/memory_edit.h"

namespace qmk::toolkit::edit {

class CExtEditMasked : public MemoryEdit {
 public:
  explicit CExtEditMasked(const std::string& mask = {});
  CExtEditMasked(const CExtEditMasked&) = delete;
  CExtEditMasked& operator=(const CExtEditMasked&) = delete;

  // Setting the mask or a flag rebuilds the text at once.
  void SetMask(const std::string& mask);
  const std::string& GetMask() const { return m_behavior.m_strMask; }
  // Each old prompt character in the text becomes the new one.
  void SetPromptChar(char prompt);
  char GetPromptChar() const { return m_behavior.m_chPrompt; }
  void SetInsertMode(bool on);
  bool GetInsertMode() const { return m_behavior.m_bInsertMode; }
  void SetShowPrompt(bool on);
  bool GetShowPrompt() const { return m_behavior.m_bShowPrompt; }
  void SetAdvanceToNextField(bool on);
  bool GetAdvanceToNextField() const { return m_behavior.m_bAdvanceToNextField; }

  std::string GetTextWithoutMask() const { return m_behavior.GetTextWithoutMask(); }
  CBehaviorMasked& Behavior() { return m_behavior; }
  const CBehaviorMasked& Behavior() const { return m_behavior; }

 private:
  CBehaviorMasked m_behavior;
};

}  // namespace qmk::toolkit::edit
