// serial_port.h: the serial port seen by the probes: line settings, time-outs, and the interface
// that the termios port and the in-memory port both implement.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace qmk::platform::serial {

enum class Parity : char { kNone = 'N', kOdd = 'O', kEven = 'E' };

struct LineSettings {
  uint32_t baud = 9600;
  int data_bits = 8;  // 7 or 8
  int stop_bits = 1;  // 1 or 2
  Parity parity = Parity::kNone;
  bool operator==(const LineSettings&) const = default;
};

// "38400 8-2-N": how logs and the command-line host show a setting.
std::string Describe(const LineSettings& s);

// Driver queue sizes that every probe asks for.
constexpr int kInputQueueBytes = 20400;
constexpr int kOutputQueueBytes = 1000;

// Read and write time-outs of every probe. A read of n bytes ends when n bytes came, when the
// gap after a byte exceeds the interval, or after per_byte * n + constant milliseconds.
constexpr int kReadIntervalMs = 100;
constexpr int kReadPerByteMs = 15;
constexpr int kReadConstantMs = 100;
constexpr int kWritePerByteMs = 50;
constexpr int kWriteConstantMs = 1000;

inline int ReadTotalTimeoutMs(int bytes) { return kReadPerByteMs * bytes + kReadConstantMs; }
inline int WriteTotalTimeoutMs(int bytes) { return kWritePerByteMs * bytes + kWriteConstantMs; }

// Receive error bits. The low four are the ones a reply reader gives up on.
constexpr uint32_t kErrorQueueOverflow = 0x1;
constexpr uint32_t kErrorOverrun = 0x2;
constexpr uint32_t kErrorParity = 0x4;
constexpr uint32_t kErrorFraming = 0x8;
constexpr uint32_t kReceiveErrors = 0xF;

// One open port, held exclusively until the object is destroyed.
class SerialPort {
 public:
  virtual ~SerialPort() = default;
  // Applies the line settings together with the queue sizes and time-outs above, binary mode,
  // parity checking, no flow control, DTR and RTS on. False when the port refuses any of it.
  virtual bool Configure(const LineSettings& settings) = 0;
  // Drops whatever has been received and not read yet.
  virtual void PurgeReceive() = 0;
  // The receive error bits raised since the last call, and clears them.
  virtual uint32_t TakeErrors() = 0;
  // Writes within the write time-out. The count written, or -1 when the port failed.
  virtual int Write(const uint8_t* data, int size) = 0;
  // Reads within the read time-outs. The count read (0 when none came), or -1 when the port
  // failed.
  virtual int Read(uint8_t* data, int size) = 0;
};

// Opens ports by the names that hosts use: "COM3", "\\.\COM12", or a device path.
class PortOpener {
 public:
  virtual ~PortOpener() = default;
  // The port, or null with an errno value in *error.
  virtual std::unique_ptr<SerialPort> Open(const std::string& name, int* error) = 0;
};

// The opener in use: the system's ports unless a test installed another.
PortOpener& CurrentPortOpener();
// Installs `opener` (not owned) and returns the previous one; null restores the system's.
PortOpener* SetPortOpener(PortOpener* opener);

// Keeps a port open, and locked, until the process ends. Used by the one probe path that
// deliberately does not close its port.
void LeaveOpen(std::unique_ptr<SerialPort> port);
// How many ports were left open so far.
int PortsLeftOpen();

}  // namespace qmk::platform::serial
