// status_bits.h: the bits of the session record's status words that the library tests or sets.
#pragma once

#include <cstdint>

namespace qmk::scanner {

constexpr uint32_t Bit(int n) { return 1u << n; }

// status1
constexpr uint32_t kJam = Bit(3);
constexpr uint32_t kTooThin = Bit(5);
constexpr uint32_t kTooThick = Bit(6);
constexpr uint32_t kReadCheckTop = Bit(8);
constexpr uint32_t kReadCheckBottom = Bit(9);
constexpr uint32_t kDataLostFront = Bit(10);
constexpr uint32_t kDataLostBack = Bit(11);
constexpr uint32_t kThicknessError = Bit(14);
constexpr uint32_t kFailedToCapture = Bit(15);
// status2
constexpr uint32_t kTimingTop = Bit(4);
constexpr uint32_t kTimingBottom = Bit(5);
constexpr uint32_t kUnknownFormId = Bit(6);
constexpr uint32_t kSkewMarkFailure = Bit(10);
// status3
constexpr uint32_t kHopperEmpty = Bit(0);
constexpr uint32_t kNotReady = Bit(6);

// Back-side rows of marks and of QlkBuildBubbles carry bit 7.
constexpr int kBackRow = 0x80;

// Darkness thresholds of QlkImgVal values.
constexpr int kPresent = 10;   // verification: 10 and above is marked
constexpr int kSolid = 15;     // the PadLot model's solid row
constexpr unsigned char kClearedCell = 48;  // '0': a cell the library cleared

}  // namespace qmk::scanner
