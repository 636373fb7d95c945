// memory_port.cpp: the in-memory serial port.
#include "platform/serial/memory_port.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/clock.h"

namespace qmk::platform::serial {

MemoryPort::MemoryPort(std::shared_ptr<MemoryLine> line) : line_(std::move(line)) {
  ++line_->opens;
  line_->open = true;
}

MemoryPort::~MemoryPort() {
  ++line_->closes;
  line_->open = false;
}

bool MemoryPort::Configure(const LineSettings& settings) {
  line_->applied.push_back(settings);
  if (line_->refuses && line_->refuses(settings)) return false;
  settings_ = settings;
  return true;
}

void MemoryPort::PurgeReceive() {
  ++line_->purges;
  line_->inbox.clear();
}

uint32_t MemoryPort::TakeErrors() { return std::exchange(line_->pending_errors, 0); }

int MemoryPort::Write(const uint8_t* data, int size) {
  const int n = line_->write_limit >= 0 ? std::min(size, line_->write_limit) : size;
  MemoryLine::Bytes written(data, data + n);
  line_->writes.push_back(written);
  if (line_->answer) {
    const MemoryLine::Bytes reply = line_->answer(settings_, written);
    line_->inbox.insert(line_->inbox.end(), reply.begin(), reply.end());
  }
  return n;
}

int MemoryPort::Read(uint8_t* data, int size) {
  if (line_->inbox.empty()) {
    CurrentClock().SleepMs(ReadTotalTimeoutMs(size));
    return 0;
  }
  const int n = std::min<int>(size, static_cast<int>(line_->inbox.size()));
  std::copy_n(line_->inbox.begin(), n, data);
  line_->inbox.erase(line_->inbox.begin(), line_->inbox.begin() + n);
  if (n < size) CurrentClock().SleepMs(kReadIntervalMs);
  return n;
}

std::shared_ptr<MemoryLine> MemoryPortOpener::Add(const std::string& name) {
  auto line = std::make_shared<MemoryLine>();
  lines_[name] = line;
  return line;
}

std::unique_ptr<SerialPort> MemoryPortOpener::Open(const std::string& name, int* error) {
  opened.push_back(name);
  auto it = lines_.find(name);
  if (it == lines_.end()) {
    *error = ENOENT;
    return nullptr;
  }
  if (it->second->open) {
    *error = EBUSY;
    return nullptr;
  }
  return std::make_unique<MemoryPort>(it->second);
}

}  // namespace qmk::platform::serial
