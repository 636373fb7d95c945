// scripted_operator.h: an operator that answers from a script and records what it was shown.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "frame/operator.h"

namespace qmk::frame {

// Every request becomes one line of events(): "disable 16", "notice create \"text\" cancel=0",
// "notice move 10,20", "notice show 1", "notice text \"...\"", "notice destroy", "enable 16",
// "message \"caption\" \"text\" flags=0x30 help=0", "scan errors \"a\" \"b\"". Windows show as
// their handle's number.
class ScriptedOperator : public Operator {
 public:
  // Answers for message boxes and scan error lists, taken in order; with none left the answer
  // is 2 (Cancel).
  void QueueAnswer(int button) { answers_.push_back(button); }
  void SetWindowRect(QMK_HWND window, Rect rect) { rects_[window] = rect; }
  void SetNoticeSize(int width, int height) { notice_width_ = width, notice_height_ = height; }
  // The next notice can't be made.
  void FailNextNotice() { fail_next_notice_ = true; }
  // The open notice's Cancel is pressed during the n-th PumpMessages from now (1 = the next).
  void PressCancelAfterPumps(int n) { cancel_countdown_ = n; }

  const std::vector<std::string>& events() const { return events_; }
  // The name of the module that was current when each request arrived.
  const std::vector<std::string>& modules_seen() const { return modules_seen_; }
  bool Enabled(QMK_HWND window) const { return !disabled_.count(window); }
  void ClearEvents() { events_.clear(), modules_seen_.clear(); }

  void EnableWindow(QMK_HWND window, bool enabled) override;
  Rect WindowRect(QMK_HWND window) override;
  std::unique_ptr<Notice> CreateNotice(QMK_HWND parent, const std::string& text,
                                       bool show_cancel) override;
  int MessageBox(QMK_HWND parent, const std::string& text, const std::string& caption,
                 unsigned flags, int help_id) override;
  int ShowScanErrorList(const std::vector<std::string>& faults) override;
  void PumpMessages() override;

  // Used by the notices it makes.
  void Record(const std::string& event);
  bool cancel_pressed() const { return cancel_pressed_; }

 private:
  void NoteModule();

  std::deque<int> answers_;
  std::map<QMK_HWND, Rect> rects_;
  std::map<QMK_HWND, bool> disabled_;
  int notice_width_ = 200, notice_height_ = 60;
  bool fail_next_notice_ = false;
  int cancel_countdown_ = 0;
  bool cancel_pressed_ = false;
  std::vector<std::string> events_;
  std::vector<std::string> modules_seen_;
};

}  // namespace qmk::frame
