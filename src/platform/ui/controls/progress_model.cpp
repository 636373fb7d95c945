// progress_model.cpp: clamping, stepping round and the filled share of the bar.
#include "platform/ui/controls/progress_model.h"

#include <algorithm>

namespace qmk::platform::ui::controls {

bool ProgressModel::SetRange(int low, int high) {
  if (high < low) return false;
  low_ = low;
  high_ = high;
  pos_ = std::clamp(pos_, low_, high_);
  return true;
}

int ProgressModel::SetPos(int pos) {
  int before = pos_;
  pos_ = std::clamp(pos, low_, high_);
  return before;
}

int ProgressModel::DeltaPos(int delta) {
  return SetPos(static_cast<int>(std::clamp<long long>(static_cast<long long>(pos_) + delta,
                                                       low_, high_)));
}

int ProgressModel::SetStep(int step) {
  int before = step_;
  step_ = step;
  return before;
}

int ProgressModel::StepIt() {
  int before = pos_;
  long long span = static_cast<long long>(high_) - low_;
  long long next = static_cast<long long>(pos_) + step_;
  if (span == 0) return before;
  if (next > high_) next = (next - low_) % span + low_;
  if (next < low_) next = high_ - (low_ - next) % span;
  pos_ = static_cast<int>(next);
  return before;
}

int ProgressModel::FilledLength(int length) const {
  long long span = static_cast<long long>(high_) - low_;
  if (span <= 0 || length <= 0) return 0;
  return static_cast<int>(static_cast<long long>(length) * (pos_ - low_) / span);
}

}  // namespace qmk::platform::ui::controls
