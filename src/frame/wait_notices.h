// wait_notices.h: the notices that cover a wait; the object's life is the wait.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

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

namespace qmk::frame {

// The lamp warm-up notice of TWAIN scanners: counts the remaining time down once a second, hides
// at 0 and comes back if time is reported again, and offers Cancel. At most one exists at a time;
// building it disables the parent, destroying it gives the parent back. `remaining_seconds` asks
// the scanner how long its lamps still need.
class CScnWaitLampWarmup {
 public:
  CScnWaitLampWarmup(QMK_HWND parent, std::function<int()> remaining_seconds);
  virtual ~CScnWaitLampWarmup();
  CScnWaitLampWarmup(const CScnWaitLampWarmup&) = delete;
  CScnWaitLampWarmup& operator=(const CScnWaitLampWarmup&) = delete;

  // The dialog's Cancel was pressed; false with no dialog.
  bool Cancelled() const { return m_pDialog && m_pDialog->Cancelled(); }
  // The once-a-second work of the window system's timer, which ticks while the thread pumps.
  void Tick();

  std::unique_ptr<Notice> m_pDialog;
  uintptr_t m_nTimerId = 0;
  std::string m_strFormat;

 private:
  void ShowRemaining(int seconds);
  QMK_HWND parent_;
  std::function<int()> remaining_seconds_;
};

// The warm-up object that the timer reaches, or null.
CScnWaitLampWarmup* CurrentLampWarmup();

// Formats a remaining time with the notice's format: minutes and seconds of `seconds`.
std::string FormatLampTime(const std::string& format, int seconds);

}  // namespace qmk::frame
