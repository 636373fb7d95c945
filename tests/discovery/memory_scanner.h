// memory_scanner.h: far ends for the in-memory port: a status-query scanner and a PadLot
// scanner, answering only at their own setting; and a clock that keeps its sleeps.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/serial/memory_port.h"
#include "serial_scanner_sim.h"
#include "support/scoped_env.h"

namespace qmk::testing {

using platform::serial::LineSettings;
using platform::serial::MemoryLine;
using platform::serial::Parity;
using platform::ManualClock;

// A whole status line: the simulator's 50 bytes with the given bytes at 1, 3, 4, 44, 47 and
// 49, and CR LF.
inline std::string StatusLine52(char b1 = '5', char b3 = '3', char b4 = '5', char b44 = '-',
                                char b47 = '7', char b49 = '8') {
  return serialsim::StatusLine(b1, b3, b4, b44, b47, b49) + "\r\n";
}

inline MemoryLine::Bytes Bytes(const std::string& text) {
  return MemoryLine::Bytes(text.begin(), text.end());
}

// Answers the '0' of a status query with `reply` while the settings are `at`.
inline auto StatusScanner(LineSettings at, std::string reply) {
  return [at, reply](const LineSettings& s, const MemoryLine::Bytes& w) {
    return s == at && w == MemoryLine::Bytes{'0'} ? Bytes(reply) : MemoryLine::Bytes{};
  };
}

// Answers the PadLot hello on try `hello_try` (1 for the first) and then the query with
// `query_answer`, at 9600 7-1-E.
inline auto PadLotScanner(int hello_try, std::string query_answer = "G\r") {
  auto hellos = std::make_shared<int>(0);
  return [=](const LineSettings& s, const MemoryLine::Bytes& w) {
    if (!(s == LineSettings{9600, 7, 1, Parity::kEven})) return MemoryLine::Bytes{};
    if (w.size() == 5 && ++*hellos >= hello_try) return Bytes("\x06G\r");
    if (w.size() == 6) return Bytes(query_answer);
    return MemoryLine::Bytes{};
  };
}

// A manual clock that also lists every sleep.
class RecordingClock : public platform::ManualClock {
 public:
  void SleepMs(int64_t ms) override {
    sleeps.push_back(ms);
    ManualClock::SleepMs(ms);
  }
  std::vector<int64_t> sleeps;
};

// A test on one in-memory line of the given name, with the port opener and a recording clock
// installed for its duration.
class OnMemoryLine : public ::testing::Test {
 protected:
  explicit OnMemoryLine(const std::string& name)
      : use_clock_(&clock_), use_opener_(&opener_), line_(opener_.Add(name)) {}
  RecordingClock clock_;
  ScopedClock use_clock_;
  platform::serial::MemoryPortOpener opener_;
  ScopedPortOpener use_opener_;
  std::shared_ptr<MemoryLine> line_;
};

}  // namespace qmk::testing
