// progress_control.h: the "msctls_progress32" class over the progress model.
#pragma once

#include "platform/ui/controls/plain_control.h"
#include "platform/ui/controls/progress_model.h"

namespace qmk::platform::ui::controls {

// PBM_GETRANGE record.
struct PBRANGE {
  int iLow = 0;
  int iHigh = 0;
};

class ProgressControl : public PlainControl {
 public:
  using PlainControl::PlainControl;
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;
  const ProgressModel& model() const { return model_; }

 protected:
  void Paint(Dc& dc) override;

 private:
  LRESULT Changed(LRESULT result);
  ProgressModel model_;
};

}  // namespace qmk::platform::ui::controls
