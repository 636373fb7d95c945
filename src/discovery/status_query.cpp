// status_query.cpp: one status query at one setting.
#include "discovery/status_query.h"

#include <algorithm>

#include "platform/clock.h"

namespace qmk::discovery {

namespace {
constexpr int kMinimumWaitMs = 30;
}

QueryWaits BareWaits(uint32_t baud) {
  const int64_t b = baud;
  return {static_cast<int>(840000 / b), static_cast<int>(70000 / b),
          static_cast<int>(42000 / b + 50)};
}

QueryWaits ProbeWaits(uint32_t baud) {
  QueryWaits w = BareWaits(baud);
  w.settle_ms = std::max(w.settle_ms, kMinimumWaitMs);
  w.between_ms = std::max(w.between_ms, kMinimumWaitMs);
  return w;
}

bool StatusReply::Accepted() const {
  return result == kReplyLine && count == kStatusLineBytes && bytes[0] == 's';
}

bool RunStatusQuery(platform::serial::SerialPort& port,
                    const platform::serial::LineSettings& settings, const QueryWaits& waits,
                    StatusReply* reply) {
  if (!port.Configure(settings)) return false;
  platform::Clock& clock = platform::CurrentClock();
  clock.SleepMs(waits.settle_ms);
  port.PurgeReceive();
  port.TakeErrors();
  const uint8_t ask = 's', go = '0';
  port.Write(&ask, 1);
  clock.SleepMs(waits.between_ms);
  port.Write(&go, 1);
  reply->result = ScnReadReplyLine(port, reply->bytes.data(), waits.read_ms, &reply->count);
  return true;
}

}  // namespace qmk::discovery
