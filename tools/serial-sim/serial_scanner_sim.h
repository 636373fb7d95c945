// serial_scanner_sim.h: a serial scanner on a pseudo-terminal. It answers the status query with
// a 52-byte line, or the PadLot hello and query, but only while the port settings that the
// program on the other side applied equal its own, as far as a pseudo-terminal keeps them (the
// baud rate and the stop bits). It can also misbehave in the ways real lines do.
#pragma once

#include <atomic>
#include <cstdio>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/serial/serial_port.h"

namespace qmk::serialsim {

using platform::serial::LineSettings;

enum class Fault {
  kNone,
  kSilent,      // reads, never answers
  kShort,       // a line of 51 bytes
  kLong,        // a line of 53 bytes
  kOverlong,    // a line of 120 bytes
  kWrongFirst,  // 52 bytes, but the first isn't 's'
  kLfOnly,      // the line ends in LF without CR
  kNoise,       // a burst of random bytes without CR
  kSplit,       // the right line, in pieces with pauses between them
};

// "silent", "short", ... for the command line; false for an unknown word.
bool ParseFault(const std::string& word, Fault* fault);
const char* FaultName(Fault fault);

struct SimConfig {
  LineSettings setting{19200, 8, 2, platform::serial::Parity::kNone};
  bool padlot = false;  // a PadLot scanner: answers its hello and query, not the status query
  std::string line;     // the 50 bytes before CR LF; empty: StatusLine() with its defaults
  Fault fault = Fault::kNone;
  int split_pieces = 4;
  int split_gap_ms = 30;
  int noise_bytes = 300;
  bool paced = true;    // send each byte in the time the baud rate takes for it
};

// The 50 bytes of a status line before CR LF: 's', then the digit for the speed decision at 1,
// the model group at 3, the model digit at 4, the marker at 44, the threshold digit at 47 and
// the option digit at 49; '0' elsewhere.
std::string StatusLine(char speed_digit = '5', char group = '3', char model = '5',
                       char marker = '-', char threshold = '7', char options = '8');

class PtySerialScanner {
 public:
  explicit PtySerialScanner(SimConfig config);
  ~PtySerialScanner();
  PtySerialScanner(const PtySerialScanner&) = delete;
  PtySerialScanner& operator=(const PtySerialScanner&) = delete;

  // Opens the pseudo-terminal and starts answering. False with a reason when it can't.
  bool Start(std::string* error);
  // The terminal path that a program opens to talk to the scanner, such as "/dev/pts/4".
  const std::string& path() const { return path_; }
  // Changes the behaviour from the next command on.
  void Reconfigure(const SimConfig& config);

  int queries() const { return queries_; }   // status queries (or PadLot commands) seen
  int answers() const { return answers_; }   // of those, answered

 private:
  void Run();
  void Handle(uint8_t byte);
  bool SettingsMatch(const SimConfig& config) const;
  void Send(const std::vector<uint8_t>& bytes, const SimConfig& config);
  std::vector<uint8_t> StatusReplyBytes(const SimConfig& config);

  mutable std::mutex mutex_;
  SimConfig config_;
  int master_ = -1;
  int slave_ = -1;  // held so the terminal outlives the other side's closes; read for settings
  std::string path_;
  std::vector<uint8_t> recent_;
  std::thread thread_;
  std::atomic<bool> stop_{false};
  std::atomic<int> queries_{0}, answers_{0};
  unsigned noise_seed_ = 12345;
};

// The simulator as a command: parses ARGS (see the usage text), starts it, prints the path to
// `out`, and serves until SIGINT or SIGTERM. Returns the process's exit status.
int RunSimulatorCommand(const std::vector<std::string>& args, std::FILE* out);

// One line of usage for the command's options.
extern const char kSimulatorUsage[];

}  // namespace qmk::serialsim
