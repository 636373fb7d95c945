// probes.h: what hangs on a serial port: a scanner that answers the status query, or a PadLot
// scanner that answers its hello and query.
#pragma once

#include <string>

#include "discovery/status_query.h"
#include "qmk/QmkScan.h"

namespace qmk::discovery {

struct QuickCheck {
  bool answered = false;
  LineSettings setting;  // the setting that was answered
  StatusReply reply;     // its reply
  bool left_open = false;  // a setting was refused and the port stays open
};

// Tries the status query at each setting of QuickCheckOrder() on the port named `port`, and
// stops at the first accepted reply.
QuickCheck ScnCheckForNonPadLot(const std::string& port);

// The bytes of the PadLot commands.
extern const uint8_t kPadLotHello[5];
extern const uint8_t kPadLotQuery[6];

// Opens `port` at 9600 baud, 7 data bits, even parity, 1 stop bit; true when the hello (up to
// four tries) and then the query are answered.
bool ScnIsPadLotScannerPresentOnPort(const std::string& port);

// Writes the fixed configuration of a PadLot scanner on `port`.
void ScnSetCfigWithPadLotInfo(int port, sct_config* cfg, sct_config_ex* comm);

}  // namespace qmk::discovery
