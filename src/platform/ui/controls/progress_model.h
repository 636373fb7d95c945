// progress_model.h: the range, position and step of a progress bar, without a window.
#pragma once

namespace qmk::platform::ui::controls {

class ProgressModel {
 public:
  int low() const { return low_; }
  int high() const { return high_; }
  int pos() const { return pos_; }
  int step() const { return step_; }

  // A range with its high end below its low end is refused (false, nothing changes); the
  // position is pulled into a new range.
  bool SetRange(int low, int high);
  // Clamped into the range; returns the position before.
  int SetPos(int pos);
  // Adds `delta`, clamped; returns the position before.
  int DeltaPos(int delta);
  // Returns the step before.
  int SetStep(int step);
  // Advances by the step; past the high end the bar starts over from the low end, carrying
  // what went over. Returns the position before.
  int StepIt();
  // How much of `length` pixels the bar fills.
  int FilledLength(int length) const;

 private:
  int low_ = 0;
  int high_ = 100;
  int pos_ = 0;
  int step_ = 10;
};

}  // namespace qmk::platform::ui::controls
