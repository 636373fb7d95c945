// status_query.h: the two-byte status query and its 52-byte reply line.
#pragma once

#include <array>
#include <cstdint>

#include "discovery/reply_reader.h"
#include "platform/serial/serial_port.h"

namespace qmk::discovery {

using platform::serial::LineSettings;

constexpr int kStatusLineBytes = 52;  // CR LF included

// The waits of one query, in milliseconds: after the settings, between the two bytes, and the
// reader's time-out.
struct QueryWaits {
  int settle_ms;
  int between_ms;
  int read_ms;
};

// The probes' waits at `baud`: 840000 / baud and 70000 / baud, each at least 30 ms, and a read
// time-out of 42000 / baud + 50. `baud` must not be 0.
QueryWaits ProbeWaits(uint32_t baud);
// The same without the 30 ms floors, as the self-score reading uses them.
QueryWaits BareWaits(uint32_t baud);

struct StatusReply {
  int result = kReplyNone;  // of ScnReadReplyLine
  int count = 0;            // written only when a line was read
  std::array<uint8_t, kReplyBufferBytes> bytes{};

  // A whole line of exactly 52 bytes that starts with 's'.
  bool Accepted() const;
};

// Applies `settings`, then asks: wait, clear the receive side, 's', wait, '0', read the line.
// False, with nothing sent, when the port refuses the settings.
bool RunStatusQuery(platform::serial::SerialPort& port,
                    const platform::serial::LineSettings& settings, const QueryWaits& waits,
                    StatusReply* reply);

}  // namespace qmk::discovery
