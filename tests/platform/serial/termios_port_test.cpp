// termios_port_test.cpp: the termios port on a pseudo-terminal: exclusive open, settings, reads
// and writes within their time-outs.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>

#include "platform/serial/termios_port.h"

namespace qmk::platform::serial {
namespace {

// The far side of a pseudo-terminal, as a device would be.
class Pty {
 public:
  Pty() {
    master_ = posix_openpt(O_RDWR | O_NOCTTY);
    grantpt(master_);
    unlockpt(master_);
    path_ = ptsname(master_);
  }
  ~Pty() { close(master_); }
  const std::string& path() const { return path_; }
  int master() const { return master_; }

 private:
  int master_;
  std::string path_;
};

TEST(TermiosOpen, RefusesWhatIsNoFreeTerminal) {
  int error = 0;
  EXPECT_EQ(OpenTermiosPort("/dev/no-such-port", &error), nullptr);
  EXPECT_EQ(error, ENOENT);
  EXPECT_EQ(OpenTermiosPort("/dev/null", &error), nullptr);
  EXPECT_EQ(error, ENOTTY);

  Pty pty;
  const int holder = open(pty.path().c_str(), O_RDWR | O_NOCTTY);
  ASSERT_EQ(flock(holder, LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(OpenTermiosPort(pty.path(), &error), nullptr) << "another holder has the lock";
  EXPECT_EQ(error, EBUSY);
  close(holder);
  EXPECT_NE(OpenTermiosPort(pty.path(), &error), nullptr) << "free again once released";
}

TEST(TermiosOpen, ExclusiveWhileOpenAndFreeAfterClose) {
  Pty pty;
  int error = 0;
  auto first = OpenTermiosPort(pty.path(), &error);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(OpenTermiosPort(pty.path(), &error), nullptr);
  EXPECT_EQ(error, EBUSY);
  first.reset();
  EXPECT_NE(OpenTermiosPort(pty.path(), &error), nullptr);
}

TEST(TermiosConfigure, KeepsSpeedAndStopBitsAndRefusesUnknownRates) {
  Pty pty;
  int error = 0;
  auto port = OpenTermiosPort(pty.path(), &error);
  ASSERT_NE(port, nullptr);
  // 7 data bits and parity are accepted although a pty keeps 8 bits without parity.
  EXPECT_TRUE(port->Configure({19200, 7, 2, Parity::kEven}));
  termios t{};
  const int look = open(pty.path().c_str(), O_RDWR | O_NOCTTY);  // root passes TIOCEXCL
  if (look >= 0) {
    ASSERT_EQ(tcgetattr(look, &t), 0);
    EXPECT_EQ(cfgetospeed(&t), static_cast<speed_t>(B19200));
    EXPECT_TRUE(t.c_cflag & CSTOPB);
    EXPECT_FALSE(t.c_lflag & (ICANON | ECHO));
    EXPECT_FALSE(t.c_oflag & OPOST);
    close(look);
  }
  struct Case { uint32_t baud; int data, stop; bool ok; };
  for (const Case c : {Case{115200, 8, 1, true}, {1200, 8, 1, true}, {38400, 7, 2, true}, {0, 8, 1, false},
                       {12345, 8, 1, false}, {9600, 6, 1, false}, {9600, 8, 3, false}})
    EXPECT_EQ(port->Configure({c.baud, c.data, c.stop, Parity::kNone}), c.ok) << c.baud;
}

TEST(TermiosIo, WritesReadsAndTimesOut) {
  Pty pty;
  int error = 0;
  auto port = OpenTermiosPort(pty.path(), &error);
  ASSERT_NE(port, nullptr);
  ASSERT_TRUE(port->Configure({38400, 8, 1, Parity::kEven}));
  const uint8_t out[] = {'s', '0'};
  EXPECT_EQ(port->Write(out, 2), 2);
  char seen[2] = {};
  EXPECT_EQ(read(pty.master(), seen, 2), 2);
  EXPECT_EQ(std::string(seen, 2), "s0");

  ASSERT_EQ(write(pty.master(), "ab", 2), 2);
  uint8_t in[4] = {};
  EXPECT_EQ(port->Read(in, 4), 2) << "the interval ends a short read";
  EXPECT_EQ(in[0], 'a');
  EXPECT_EQ(port->Read(in, 1), 0) << "nothing came";

  ASSERT_EQ(write(pty.master(), "xyz", 3), 3);
  usleep(20000);
  port->PurgeReceive();
  EXPECT_EQ(port->Read(in, 1), 0) << "purged";
  EXPECT_EQ(port->TakeErrors(), 0u) << "a pty keeps no error counters";
}

TEST(TermiosIo, HungUpLineReadsAsFailure) {
  auto pty = std::make_unique<Pty>();
  int error = 0;
  auto port = OpenTermiosPort(pty->path(), &error);
  ASSERT_NE(port, nullptr);
  pty.reset();  // the device went away
  uint8_t byte = 0;
  EXPECT_EQ(port->Read(&byte, 1), -1);
}

}  // namespace
}  // namespace qmk::platform::serial
