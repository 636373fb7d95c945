// reply_reader_test.cpp: what counts as a reply line, and when the reader gives up.
#include <gtest/gtest.h>

#include "discovery/reply_reader.h"
#include "memory_scanner.h"
#include "support/scoped_env.h"

namespace qmk::discovery {
namespace {

using namespace qmk::testing;
using platform::serial::MemoryPort;

class ReplyReader : public ::testing::Test {
 protected:
  ReplyReader() : use_clock_(&clock_), line_(std::make_shared<MemoryLine>()), port_(line_) {}

  // Feeds `stream` and reads one line with a 50 ms time-out.
  int Read(const std::string& stream) {
    line_->inbox.assign(stream.begin(), stream.end());
    return ScnReadReplyLine(port_, buffer_, 50, &count_);
  }

  ManualClock clock_;
  ScopedClock use_clock_;
  std::shared_ptr<MemoryLine> line_;
  MemoryPort port_;
  uint8_t buffer_[kReplyBufferBytes] = {};
  int count_ = -7;  // what the caller's variable held
};

TEST_F(ReplyReader, LinesAndNonLines) {
  struct Case { std::string stream; int result; int count; };
  const std::string body50(50, 'x');
  for (const Case& c : {Case{body50 + "\r\n", kReplyLine, 52},
                        Case{"\r\n", kReplyLine, 2},
                        Case{"ab\r\r\n", kReplyLine, 5},
                        Case{"ab\r\nrest", kReplyLine, 4},  // the line ends at its first CR LF
                        Case{std::string(118, 'y') + "\r\n", kReplyLine, 120},
                        Case{"ab\rx\n", kReplyNone, -7},    // CR not right before LF
                        Case{body50 + "x\n", kReplyNone, -7},  // LF without CR
                        Case{"\n\n\n", kReplyNone, -7},
                        Case{body50 + "\r", kReplyNone, -7},
                        Case{"", kReplyNone, -7}}) {
    count_ = -7;
    EXPECT_EQ(Read(c.stream), c.result) << c.stream.size() << " bytes";
    EXPECT_EQ(count_, c.count) << "the count is written only for a line";
  }
}

TEST_F(ReplyReader, LongLineIsCountedWholeButStoredToTheBuffer) {
  std::string stream(120, 'z');
  stream[98] = 'L';
  stream[99] = 'M';
  ASSERT_EQ(Read(stream + "\r\n"), kReplyLine);
  EXPECT_EQ(count_, 122);
  EXPECT_EQ(buffer_[98], 'L');
}

TEST_F(ReplyReader, TimeOutRunsFromTheLastByte) {
  // The memory port spends a read's full time-out when nothing comes: 115 ms for one byte.
  EXPECT_EQ(Read("partial"), kReplyNone);
  EXPECT_EQ(clock_.NowMs(), platform::serial::ReadTotalTimeoutMs(1));
}

TEST_F(ReplyReader, ReceiveErrorsEndTheRead) {
  for (uint32_t bit : {platform::serial::kErrorOverrun, platform::serial::kErrorFraming,
                       platform::serial::kErrorParity, platform::serial::kErrorQueueOverflow}) {
    line_->pending_errors = bit;
    EXPECT_EQ(Read(std::string(50, 'x') + "\r\n"), kReplyNone) << bit;
  }
  line_->pending_errors = 0x10;  // not a receive error
  EXPECT_EQ(Read("\r\n"), kReplyLine);
}

TEST_F(ReplyReader, EndlessNoiseIsCutOff) {
  EXPECT_EQ(Read(std::string(kReplyGiveUpBytes + 100, 'n')), kReplyNone);
  EXPECT_EQ(line_->inbox.size(), 100u) << "stopped at the limit";
}

// A port whose reads fail, as a device that went away does.
class FailingPort : public platform::serial::SerialPort {
 public:
  bool Configure(const LineSettings&) override { return true; }
  void PurgeReceive() override {}
  uint32_t TakeErrors() override { return 0; }
  int Write(const uint8_t*, int) override { return -1; }
  int Read(uint8_t*, int) override { return -1; }
};

TEST(ReplyReaderFailure, FailedPortIsNoLineAtOnce) {
  FailingPort port;
  uint8_t buffer[kReplyBufferBytes];
  int count = 0;
  EXPECT_EQ(ScnReadReplyLine(port, buffer, 1000000, &count), kReplyNone);
}

}  // namespace
}  // namespace qmk::discovery
