// up_down_model.h: the range, position and buddy number of an up-down control, without a window.
#pragma once

#include <string>
#include <string_view>

namespace qmk::platform::ui::controls {

class UpDownModel {
 public:
  // A new up-down counts from 100 down to 0: its up arrow lowers the number until a program
  // sets a range. Kept as the platform has it; programs always set their range.
  static constexpr int kDefaultLower = 100;
  static constexpr int kDefaultUpper = 0;

  int lower() const { return lower_; }
  int upper() const { return upper_; }
  int pos() const { return pos_; }
  // The position is not moved into a new range until the next step or set.
  void SetRange(int lower, int upper);
  // Clamped into the range; returns the position before.
  int SetPos(int pos);
  bool wrap() const { return wrap_; }
  void SetWrap(bool on) { wrap_ = on; }
  int base() const { return base_; }
  // 10 or 16; returns the old base, or 0 (and no change) for any other.
  int SetBase(int base);
  bool thousands() const { return thousands_; }
  void SetThousands(bool on) { thousands_ = on; }

  // The step that `clicks` presses of the up arrow (negative: down) ask for, before any end
  // is met: up moves toward the upper end. No acceleration: one step per press. This is what
  // the parent is told before the move.
  int RawDelta(int clicks) const;
  // The change a raw step makes: past an end the number stops there, or with wrap comes round
  // to the other end.
  int Adjust(int raw_delta) const;
  int DeltaFor(int clicks) const { return Adjust(RawDelta(clicks)); }
  // Moves by a raw step, stopping or wrapping at the ends; true if the position changed.
  bool Step(int raw_delta) { return Offset(Adjust(raw_delta)); }
  // Moves by an adjusted delta, clamped; true if the position changed.
  bool Offset(int delta);

  // The buddy's text for the position: decimal with thousands separators unless switched off,
  // or "0x" and four or more hex digits in base 16.
  std::string FormatBuddy(char thousands_separator = ',') const;
  // Reads a buddy text; false when it isn't a number in the range (the position stays).
  bool ParseBuddy(std::string_view text, int* value, char thousands_separator = ',') const;
  bool InRange(int value) const;

 private:
  int Low() const { return lower_ < upper_ ? lower_ : upper_; }
  int High() const { return lower_ < upper_ ? upper_ : lower_; }

  int lower_ = kDefaultLower;
  int upper_ = kDefaultUpper;
  int pos_ = 0;
  bool wrap_ = false;
  int base_ = 10;
  bool thousands_ = true;
};

}  // namespace qmk::platform::ui::controls
