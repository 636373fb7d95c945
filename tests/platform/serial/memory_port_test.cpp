// memory_port_test.cpp: the in-memory port that stands in for a line in the probe tests.
#include <gtest/gtest.h>

#include <cerrno>

#include "platform/serial/memory_port.h"
#include "support/scoped_env.h"

namespace qmk::platform::serial {
namespace {

TEST(MemoryPort, RecordsAnswersAndTimesOutOnTheClock) {
  ManualClock clock;
  qmk::testing::ScopedClock use_clock(&clock);
  MemoryPortOpener opener;
  auto line = opener.Add("COM1");
  line->answer = [](const LineSettings& s, const MemoryLine::Bytes& w) {
    return s.baud == 9600 ? w : MemoryLine::Bytes{};
  };
  line->refuses = [](const LineSettings& s) { return s.baud == 1; };
  int error = 0;
  EXPECT_EQ(opener.Open("COM2", &error), nullptr);
  EXPECT_EQ(error, ENOENT);
  auto port = opener.Open("COM1", &error);
  ASSERT_NE(port, nullptr);
  EXPECT_EQ(opener.Open("COM1", &error), nullptr);
  EXPECT_EQ(error, EBUSY);

  EXPECT_FALSE(port->Configure({1, 8, 1, Parity::kNone}));
  EXPECT_TRUE(port->Configure({9600, 8, 1, Parity::kNone}));
  const uint8_t hi[] = {'h', 'i'};
  EXPECT_EQ(port->Write(hi, 2), 2);
  uint8_t in[3] = {};
  EXPECT_EQ(port->Read(in, 3), 2);
  EXPECT_EQ(clock.NowMs(), kReadIntervalMs);
  EXPECT_EQ(port->Read(in, 3), 0);
  EXPECT_EQ(clock.NowMs(), kReadIntervalMs + ReadTotalTimeoutMs(3));

  line->pending_errors = kErrorParity;
  EXPECT_EQ(port->TakeErrors(), kErrorParity);
  EXPECT_EQ(port->TakeErrors(), 0u);
  line->write_limit = 1;
  EXPECT_EQ(port->Write(hi, 2), 1);
  port.reset();
  EXPECT_EQ(line->applied.size(), 2u);
  EXPECT_EQ(line->opens, 1);
  EXPECT_EQ(line->closes, 1);
}

TEST(SerialSettings, Describe) {
  EXPECT_EQ(Describe({38400, 8, 2, Parity::kNone}), "38400 8-2-N");
  EXPECT_EQ(Describe({9600, 7, 1, Parity::kEven}), "9600 7-1-E");
}

}  // namespace
}  // namespace qmk::platform::serial
