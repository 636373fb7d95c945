// serial_scanner_sim.cpp: the simulated serial scanner's pseudo-terminal and its answers.
#include "serial_scanner_sim.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <iterator>

#include "discovery/probes.h"
#include "platform/serial/termios_port.h"

namespace qmk::serialsim {

namespace {

using Clock = std::chrono::steady_clock;

struct FaultRow {
  Fault fault;
  const char* name;
};

constexpr FaultRow kFaults[] = {
    {Fault::kNone, "none"},       {Fault::kSilent, "silent"},        {Fault::kShort, "short"},
    {Fault::kLong, "long"},       {Fault::kOverlong, "overlong"},    {Fault::kWrongFirst, "wrong-first"},
    {Fault::kLfOnly, "lf-only"},  {Fault::kNoise, "noise"},          {Fault::kSplit, "split"},
};

constexpr uint8_t kPadLotHelloAnswer[] = {0x06, 'G', 0x0D};
constexpr uint8_t kPadLotQueryAnswer[] = {'G', 0x0D};

bool EndsWith(const std::vector<uint8_t>& bytes, const uint8_t* tail, size_t size) {
  return bytes.size() >= size && std::equal(tail, tail + size, bytes.end() - static_cast<long>(size));
}

// Microseconds that one character takes on the line: start bit, data, parity, stop bits.
int64_t CharacterMicros(const LineSettings& s) {
  const int bits = 1 + s.data_bits + (s.parity == platform::serial::Parity::kNone ? 0 : 1) + s.stop_bits;
  return s.baud ? bits * 1000000LL / s.baud : 0;
}

}  // namespace

bool ParseFault(const std::string& word, Fault* fault) {
  for (const FaultRow& row : kFaults)
    if (word == row.name) {
      *fault = row.fault;
      return true;
    }
  return false;
}

const char* FaultName(Fault fault) {
  for (const FaultRow& row : kFaults)
    if (row.fault == fault) return row.name;
  return "?";
}

std::string StatusLine(char speed_digit, char group, char model, char marker, char threshold,
                       char options) {
  std::string line(50, '0');
  line[0] = 's';
  line[1] = speed_digit;
  line[3] = group;
  line[4] = model;
  line[44] = marker;
  line[47] = threshold;
  line[49] = options;
  return line;
}

PtySerialScanner::PtySerialScanner(SimConfig config) : config_(std::move(config)) {}

PtySerialScanner::~PtySerialScanner() {
  stop_ = true;
  if (thread_.joinable()) thread_.join();
  if (slave_ >= 0) close(slave_);
  if (master_ >= 0) close(master_);
}

bool PtySerialScanner::Start(std::string* error) {
  master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
    *error = std::string("no pseudo-terminal: ") + std::strerror(errno);
    return false;
  }
  path_ = ptsname(master_);
  slave_ = open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (slave_ < 0) {
    *error = "can't open " + path_ + ": " + std::strerror(errno);
    return false;
  }
  // Raw from the start, at the scanner's own speed, so nothing is echoed before the other side
  // sets the line up.
  termios t{};
  tcgetattr(slave_, &t);
  cfmakeraw(&t);
  const unsigned speed = platform::serial::SpeedConstant(config_.setting.baud);
  if (speed) cfsetspeed(&t, speed);
  tcsetattr(slave_, TCSANOW, &t);
  thread_ = std::thread([this] { Run(); });
  return true;
}

void PtySerialScanner::Reconfigure(const SimConfig& config) {
  std::lock_guard<std::mutex> lock(mutex_);
  config_ = config;
}

void PtySerialScanner::Run() {
  while (!stop_) {
    pollfd p{master_, POLLIN, 0};
    if (poll(&p, 1, 20) <= 0 || !(p.revents & POLLIN)) continue;
    uint8_t buffer[256];
    const ssize_t n = read(master_, buffer, sizeof buffer);
    for (ssize_t i = 0; i < n; ++i) Handle(buffer[i]);
  }
}

bool PtySerialScanner::SettingsMatch(const SimConfig& config) const {
  termios t{};
  if (tcgetattr(slave_, &t) != 0) return false;
  const bool two_stop = (t.c_cflag & CSTOPB) != 0;
  return cfgetospeed(&t) == platform::serial::SpeedConstant(config.setting.baud) &&
         two_stop == (config.setting.stop_bits == 2);
}

void PtySerialScanner::Handle(uint8_t byte) {
  recent_.push_back(byte);
  if (recent_.size() > 16) recent_.erase(recent_.begin());
  SimConfig config;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    config = config_;
  }
  static const uint8_t kQuery[] = {'s', '0'};
  std::vector<uint8_t> reply;
  if (!config.padlot && EndsWith(recent_, kQuery, sizeof kQuery)) {
    ++queries_;
    if (config.fault == Fault::kSilent || !SettingsMatch(config)) return;
    reply = StatusReplyBytes(config);
  } else if (config.padlot && EndsWith(recent_, discovery::kPadLotHello, 5)) {
    ++queries_;
    if (!SettingsMatch(config)) return;
    reply.assign(std::begin(kPadLotHelloAnswer), std::end(kPadLotHelloAnswer));
  } else if (config.padlot && EndsWith(recent_, discovery::kPadLotQuery, 6)) {
    ++queries_;
    if (!SettingsMatch(config)) return;
    reply.assign(std::begin(kPadLotQueryAnswer), std::end(kPadLotQueryAnswer));
  } else {
    return;
  }
  recent_.clear();
  ++answers_;
  Send(reply, config);
}

std::vector<uint8_t> PtySerialScanner::StatusReplyBytes(const SimConfig& config) {
  std::string line = config.line.empty() ? StatusLine() : config.line;
  switch (config.fault) {
    case Fault::kShort: line.pop_back(); break;
    case Fault::kLong: line.push_back('0'); break;
    case Fault::kOverlong: line.resize(118, '0'); break;
    case Fault::kWrongFirst: line[0] = 'S'; break;
    case Fault::kLfOnly: line += "x\n"; return std::vector<uint8_t>(line.begin(), line.end());
    case Fault::kNoise: {
      std::vector<uint8_t> noise(static_cast<size_t>(std::max(config.noise_bytes, 0)));
      for (uint8_t& b : noise) {
        noise_seed_ = noise_seed_ * 1103515245u + 12345u;
        b = static_cast<uint8_t>(noise_seed_ >> 16);
        if (b == '\r') b = '\n';
      }
      return noise;
    }
    default: break;
  }
  line += "\r\n";
  return std::vector<uint8_t>(line.begin(), line.end());
}

void PtySerialScanner::Send(const std::vector<uint8_t>& bytes, const SimConfig& config) {
  const int64_t per_char = config.paced ? CharacterMicros(config.setting) : 0;
  const size_t pieces = config.fault == Fault::kSplit ? std::max(config.split_pieces, 1) : 1;
  const size_t piece_size = (bytes.size() + pieces - 1) / pieces;
  auto due = Clock::now();
  for (size_t i = 0; i < bytes.size(); ++i) {
    if (stop_) return;
    if (i > 0 && i % piece_size == 0) due += std::chrono::milliseconds(config.split_gap_ms);
    due += std::chrono::microseconds(per_char);
    std::this_thread::sleep_until(due);
    if (write(master_, &bytes[i], 1) != 1) return;
  }
}

}  // namespace qmk::serialsim
