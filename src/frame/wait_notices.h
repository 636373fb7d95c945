// wait_notices.h: the notices that cover a wait; the object's life is the wait.
#pragma once

#include <memory>

#include "frame/operator.h"

namespace qmk::frame {

// Puts `notice` in the middle of `parent` (halves truncated toward zero), size unchanged.
void CentreOver(Operator& op, QMK_HWND parent, Notice& notice);

// "Connecting to Scanner." over the parent while a scanner connects. Building it disables the
// parent; destroying it gives the parent back its input.
class CScnWaitInfoMessage {
 public:
  explicit CScnWaitInfoMessage(QMK_HWND parent);
  virtual ~CScnWaitInfoMessage();
  CScnWaitInfoMessage(const CScnWaitInfoMessage&) = delete;
  CScnWaitInfoMessage& operator=(const CScnWaitInfoMessage&) = delete;

  std::unique_ptr<Notice> m_pDialog;

 private:
  QMK_HWND parent_;
};

}  // namespace qmk::frame
