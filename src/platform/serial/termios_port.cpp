// termios_port.cpp: SerialPort over termios, with poll() for the read and write time-outs.
#include "platform/serial/termios_port.h"

#include <fcntl.h>
#include <linux/serial.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace qmk::platform::serial {
namespace {

int64_t NowMs() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

struct SpeedRow {
  uint32_t baud;
  speed_t speed;
};

constexpr SpeedRow kSpeeds[] = {
    {50, B50},       {75, B75},         {110, B110},       {134, B134},     {150, B150},
    {200, B200},     {300, B300},       {600, B600},       {1200, B1200},   {1800, B1800},
    {2400, B2400},   {4800, B4800},     {9600, B9600},     {19200, B19200}, {38400, B38400},
    {57600, B57600}, {115200, B115200}, {230400, B230400},
};

// The driver's error counters, where it keeps them (real UARTs and most adapters; not ptys).
struct Counters {
  bool available = false;
  serial_icounter_struct counts{};
};

Counters ReadCounters(int fd) {
  Counters c;
  c.available = ioctl(fd, TIOCGICOUNT, &c.counts) == 0;
  return c;
}

// Unix98 pseudo-terminal slaves have the majors 136 to 143.
bool IsPseudoTerminal(int fd) {
  struct stat st {};
  return fstat(fd, &st) == 0 && major(st.st_rdev) >= 136 && major(st.st_rdev) <= 143;
}

class TermiosPort : public SerialPort {
 public:
  explicit TermiosPort(int fd)
      : fd_(fd), pseudo_(IsPseudoTerminal(fd)), baseline_(ReadCounters(fd)) {}

  ~TermiosPort() override {
    // The exclusive flag belongs to the terminal, not to this descriptor: drop it so that the
    // next open works while another descriptor (such as a simulator's) keeps the terminal.
    ioctl(fd_, TIOCNXCL);
    flock(fd_, LOCK_UN);
    close(fd_);
  }

  bool Configure(const LineSettings& s) override {
    const speed_t speed = SpeedConstant(s.baud);
    if (speed == 0 || (s.data_bits != 7 && s.data_bits != 8) ||
        (s.stop_bits != 1 && s.stop_bits != 2))
      return false;
    // Linux sizes a terminal's queues itself (4 KiB and more), which holds the longest reply
    // with room to spare, so kInputQueueBytes and kOutputQueueBytes need no call here. The
    // time-outs are kept by Read and Write with poll(); VMIN and VTIME stay 0.
    termios t{};
    if (tcgetattr(fd_, &t) != 0) return false;
    cfmakeraw(&t);
    t.c_cflag &= ~(CSIZE | CSTOPB | PARENB | PARODD | CRTSCTS | HUPCL);
    // A pseudo-terminal always runs 8 data bits without parity and refuses some requests for
    // others (7 bits without parity); it is asked for what it keeps, the speed and stop bits.
    const bool seven = s.data_bits == 7 && !pseudo_;
    const Parity parity = pseudo_ ? Parity::kNone : s.parity;
    t.c_cflag |= CLOCAL | CREAD | (seven ? CS7 : CS8);
    if (s.stop_bits == 2) t.c_cflag |= CSTOPB;
    if (parity != Parity::kNone) t.c_cflag |= PARENB;
    if (parity == Parity::kOdd) t.c_cflag |= PARODD;
    // Parity errors are checked and counted; the byte is neither replaced nor marked.
    t.c_iflag &= ~(IXON | IXOFF | IXANY | IGNPAR | PARMRK | ISTRIP | IGNBRK);
    t.c_iflag |= INPCK;
    t.c_cc[VMIN] = 0;
    t.c_cc[VTIME] = 0;
    if (cfsetispeed(&t, speed) != 0 || cfsetospeed(&t, speed) != 0) return false;
    if (tcsetattr(fd_, TCSANOW, &t) != 0) return false;
    // Only the speed and the stop bits are read back: a pseudo-terminal keeps no more.
    termios back{};
    if (tcgetattr(fd_, &back) != 0 || cfgetospeed(&back) != speed ||
        (back.c_cflag & CSTOPB) != (t.c_cflag & CSTOPB))
      return false;
    int lines = TIOCM_DTR | TIOCM_RTS;
    ioctl(fd_, TIOCMBIS, &lines);  // a pseudo-terminal has no modem lines; that is fine
    return true;
  }

  void PurgeReceive() override { tcflush(fd_, TCIFLUSH); }

  uint32_t TakeErrors() override {
    const Counters now = ReadCounters(fd_);
    if (!now.available || !baseline_.available) return 0;
    uint32_t bits = 0;
    if (now.counts.buf_overrun != baseline_.counts.buf_overrun) bits |= kErrorQueueOverflow;
    if (now.counts.overrun != baseline_.counts.overrun) bits |= kErrorOverrun;
    if (now.counts.parity != baseline_.counts.parity) bits |= kErrorParity;
    if (now.counts.frame != baseline_.counts.frame) bits |= kErrorFraming;
    baseline_ = now;
    return bits;
  }

  int Write(const uint8_t* data, int size) override {
    const int64_t deadline = NowMs() + WriteTotalTimeoutMs(size);
    int done = 0;
    while (done < size) {
      const int64_t left = deadline - NowMs();
      if (left <= 0) break;
      pollfd p{fd_, POLLOUT, 0};
      const int ready = poll(&p, 1, static_cast<int>(left));
      if (ready < 0 && errno == EINTR) continue;
      if (ready < 0 || (p.revents & (POLLERR | POLLHUP | POLLNVAL))) return done ? done : -1;
      if (ready == 0) break;
      const ssize_t n = write(fd_, data + done, static_cast<size_t>(size - done));
      if (n < 0 && (errno == EAGAIN || errno == EINTR)) continue;
      if (n < 0) return done ? done : -1;
      done += static_cast<int>(n);
    }
    return done;
  }

  int Read(uint8_t* data, int size) override {
    const int64_t total_deadline = NowMs() + ReadTotalTimeoutMs(size);
    int64_t last_byte = 0;
    int got = 0;
    while (got < size) {
      int64_t deadline = total_deadline;
      if (got > 0) deadline = std::min(deadline, last_byte + kReadIntervalMs);
      const int64_t left = deadline - NowMs();
      if (left <= 0) break;
      pollfd p{fd_, POLLIN, 0};
      const int ready = poll(&p, 1, static_cast<int>(left));
      if (ready < 0 && errno == EINTR) continue;
      if (ready == 0) break;
      if (ready < 0 || (p.revents & (POLLERR | POLLNVAL)) ||
          ((p.revents & POLLHUP) && !(p.revents & POLLIN)))
        return got ? got : -1;
      const ssize_t n = read(fd_, data + got, static_cast<size_t>(size - got));
      if (n < 0 && (errno == EAGAIN || errno == EINTR)) continue;
      if (n <= 0) return got ? got : -1;
      got += static_cast<int>(n);
      last_byte = NowMs();
    }
    return got;
  }

 private:
  int fd_;
  bool pseudo_;
  Counters baseline_;
};

}  // namespace

unsigned SpeedConstant(uint32_t baud) {
  for (const SpeedRow& row : kSpeeds)
    if (row.baud == baud) return row.speed;
  return 0;
}

std::unique_ptr<SerialPort> OpenTermiosPort(const std::string& path, int* error) {
  const int fd = open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) {
    *error = errno;
    return nullptr;
  }
  auto fail = [&](int e) -> std::unique_ptr<SerialPort> {
    close(fd);
    *error = e;
    return nullptr;
  };
  if (!isatty(fd)) return fail(ENOTTY);
  // The advisory lock is what makes the open exclusive for root, whom TIOCEXCL doesn't stop.
  if (flock(fd, LOCK_EX | LOCK_NB) != 0) return fail(errno == EWOULDBLOCK ? EBUSY : errno);
  if (ioctl(fd, TIOCEXCL) != 0) return fail(errno);
  return std::make_unique<TermiosPort>(fd);
}

}  // namespace qmk::platform::serial
