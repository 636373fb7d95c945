// memory_port.h: a serial port in memory, for tests: it records every setting applied and every
// byte written, and a scripted far end answers the writes.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/serial/serial_port.h"

namespace qmk::platform::serial {

// One line and what happened on it, shared by the ports opened on it.
struct MemoryLine {
  using Bytes = std::vector<uint8_t>;
  // The far end: given the settings in force and the bytes just written, the bytes it sends back.
  std::function<Bytes(const LineSettings&, const Bytes& written)> answer;
  // Settings that the port refuses to take.
  std::function<bool(const LineSettings&)> refuses;
  // Error bits that the next TakeErrors reports.
  uint32_t pending_errors = 0;
  // When set, every write stops after this many bytes.
  int write_limit = -1;

  // The record.
  std::vector<LineSettings> applied;
  std::vector<Bytes> writes;
  int opens = 0, closes = 0, purges = 0;
  bool open = false;
  std::deque<uint8_t> inbox;  // sent by the far end, not read yet
};

// Reads and time-outs go by the current Clock, so that a ManualClock makes them instant.
class MemoryPort : public SerialPort {
 public:
  explicit MemoryPort(std::shared_ptr<MemoryLine> line);
  ~MemoryPort() override;
  bool Configure(const LineSettings& settings) override;
  void PurgeReceive() override;
  uint32_t TakeErrors() override;
  int Write(const uint8_t* data, int size) override;
  int Read(uint8_t* data, int size) override;

 private:
  std::shared_ptr<MemoryLine> line_;
  LineSettings settings_;
};

// Opens the lines added by name; another name fails with ENOENT, an open line with EBUSY.
class MemoryPortOpener : public PortOpener {
 public:
  std::shared_ptr<MemoryLine> Add(const std::string& name);
  std::unique_ptr<SerialPort> Open(const std::string& name, int* error) override;
  std::vector<std::string> opened;  // every name asked for, in order

 private:
  std::map<std::string, std::shared_ptr<MemoryLine>> lines_;
};

}  // namespace qmk::platform::serial
