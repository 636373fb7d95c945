// static_control.h: the "Static" class: labels, icons, frames.
#pragma once

#include "platform/ui/controls/icons.h"
#include "platform/ui/controls/plain_control.h"

namespace qmk::platform::ui::controls {

class StaticControl : public PlainControl {
 public:
  using PlainControl::PlainControl;
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;

 protected:
  void Paint(Dc& dc) override;
  void OnCreate(const CREATESTRUCT& cs) override;

 private:
  HICON icon_ = nullptr;
};

}  // namespace qmk::platform::ui::controls
