// up_down_control.h: the "msctls_updown32" class: two arrows that step a number, with a buddy
// window that shows it.
#pragma once

#include "platform/ui/controls/plain_control.h"
#include "platform/ui/controls/up_down_model.h"

namespace qmk::platform::ui::controls {

// UDM_SETACCEL and UDM_GETACCEL record.
struct UDACCEL {
  unsigned nSec = 0;
  unsigned nInc = 1;
};

class UpDownControl : public PlainControl {
 public:
  using PlainControl::PlainControl;
  ~UpDownControl() override;
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;
  const UpDownModel& model() const { return model_; }
  // One press of the up arrow (+1) or the down arrow (-1), as a person makes it.
  void Press(int clicks);

 protected:
  void Paint(Dc& dc) override;
  void OnCreate(const CREATESTRUCT& cs) override;

 private:
  bool Horizontal() const;
  HWND SetBuddy(HWND buddy);
  void ReleaseBuddy();
  void AlignToBuddy();
  // Takes the buddy's number when it reads as one in range; false otherwise.
  bool ReadBuddy();
  void WriteBuddy();
  // Which arrow lies under a client point: +1 up, -1 down.
  int ArrowAt(Point p) const;
  void EndPress();

  UpDownModel model_;
  HWND buddy_ = nullptr;
  int pressed_ = 0;  // +1 or -1 while an arrow is held
  bool repeating_ = false;
};

}  // namespace qmk::platform::ui::controls
