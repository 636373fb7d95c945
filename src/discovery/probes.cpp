// probes.cpp: the status-query check and the PadLot probe.
#include "discovery/probes.h"

#include <cstring>

#include "platform/clock.h"
#include "discovery/probe_settings.h"

namespace qmk::discovery {

using platform::serial::CurrentPortOpener;
using platform::serial::Parity;
using platform::serial::SerialPort;

const uint8_t kPadLotHello[5] = {0x12, 0x1B, 0x53, 0x12, 0x45};
const uint8_t kPadLotQuery[6] = {0x12, 0x49, 0x30, 0x30, 0x12, 0x45};

namespace {

constexpr int kHelloTries = 4;
constexpr int kPadLotSettleMs = 87;
constexpr int kPadLotAnswerWaitMs = 100;

void ClearReceiveSide(SerialPort& port) {
  port.PurgeReceive();
  port.TakeErrors();
}

enum class Exchanged { kWriteFailed, kNoAnswer, kAnswered };

// Sends one command and reads its fixed-length answer, which must end in 'G' CR.
template <size_t N>
Exchanged Exchange(SerialPort& port, const uint8_t (&command)[N], int answer_size) {
  if (port.Write(command, N) != static_cast<int>(N)) return Exchanged::kWriteFailed;
  platform::CurrentClock().SleepMs(kPadLotAnswerWaitMs);
  uint8_t answer[3] = {};
  if (port.Read(answer, answer_size) != answer_size) return Exchanged::kNoAnswer;
  const bool ok = answer[answer_size - 2] == 'G' && answer[answer_size - 1] == 0x0D;
  return ok ? Exchanged::kAnswered : Exchanged::kNoAnswer;
}

}  // namespace

QuickCheck ScnCheckForNonPadLot(const std::string& name) {
  QuickCheck check;
  int error = 0;
  std::unique_ptr<SerialPort> port = CurrentPortOpener().Open(name, &error);
  if (!port) return check;
  for (const LineSettings& s : QuickCheckOrder()) {
    StatusReply reply;
    if (!RunStatusQuery(*port, s, ProbeWaits(s.baud), &reply)) {
      // This one way out does not close the port; hosts have always seen it stay busy.
      platform::serial::LeaveOpen(std::move(port));
      check.left_open = true;
      return check;
    }
    if (reply.Accepted()) {
      check.answered = true;
      check.setting = s;
      check.reply = reply;
      break;
    }
  }
  return check;  // closes the port
}

bool ScnIsPadLotScannerPresentOnPort(const std::string& name) {
  int error = 0;
  std::unique_ptr<SerialPort> port = CurrentPortOpener().Open(name, &error);
  // A port that opens but refuses the setting is closed at once and counts as no port; every
  // step after this fails at the first write on no port, so the answer is no.
  if (port && !port->Configure({9600, 7, 1, Parity::kEven})) port.reset();
  if (!port) return false;
  platform::CurrentClock().SleepMs(kPadLotSettleMs);
  ClearReceiveSide(*port);

  Exchanged hello = Exchanged::kNoAnswer;
  for (int attempt = 0; attempt < kHelloTries && hello == Exchanged::kNoAnswer; ++attempt) {
    if (attempt > 0) ClearReceiveSide(*port);
    hello = Exchange(*port, kPadLotHello, 3);
  }
  const bool query =
      hello == Exchanged::kAnswered && Exchange(*port, kPadLotQuery, 2) == Exchanged::kAnswered;
  ClearReceiveSide(*port);
  return query;
}

void ScnSetCfigWithPadLotInfo(int port, sct_config* cfg, sct_config_ex* comm) {
  if (comm) {
    comm->baud = 9600;
    comm->parity = 'E';
    comm->data_bits = 7;
    comm->stop_bits = 1;
    comm->port = static_cast<int16_t>(port);
    comm->timeout = 10;
    comm->aux_port = 1;
  }
  if (!cfg) return;
  cfg->bar_code_port = 1;
  // The printer bit, bit 12 and the unused top bits survive; the rest is the PadLot's identity.
  constexpr uint32_t kKept = 1u << 10 | 1u << 12 | 0xFF800000u;
  constexpr uint32_t kPadLot = 5u | 11u << 4 | 1u << 8 | 1u << 14 | 1u << 16;
  uint32_t word = 0;
  std::memcpy(&word, &cfg->feat_mask, sizeof word);
  word = (word & kKept) | kPadLot;
  std::memcpy(&cfg->feat_mask, &word, sizeof word);
}

}  // namespace qmk::discovery
