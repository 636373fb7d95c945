// reply_reader.cpp: the reply line reader.
#include "discovery/reply_reader.h"

#include "platform/clock.h"

namespace qmk::discovery {

using platform::serial::kReceiveErrors;

int ScnReadReplyLine(platform::serial::SerialPort& port, uint8_t* buffer, int timeout_ms,
                     int* count) {
  platform::Clock& clock = platform::CurrentClock();
  int64_t last = clock.NowMs();
  int n = 0;
  bool cr = false;
  bool ended = false;
  for (;;) {
    // A line that ended returns below, so only the time-out leaves here; it has no line.
    if (clock.NowMs() - last >= timeout_ms) return kReplyNone;
    uint8_t byte = 0;
    const int got = port.Read(&byte, 1);
    if (got < 0) return kReplyNone;  // the port itself failed: nothing more will come
    if (got == 1) {
      if (n < kReplyBufferBytes) buffer[n] = byte;
      ++n;
      last = clock.NowMs();
      if (byte == '\n' && cr) ended = true;
      cr = byte == '\r';
    }
    if (port.TakeErrors() & kReceiveErrors) return kReplyNone;
    if (ended) {
      *count = n;
      return kReplyLine;
    }
    if (n >= kReplyGiveUpBytes) return kReplyNone;
  }
}

}  // namespace qmk::discovery
