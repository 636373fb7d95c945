// reply_reader.h: reading one reply line, ended by CR LF, from a serial scanner.
#pragma once

#include <cstdint>

#include "platform/serial/serial_port.h"

namespace qmk::discovery {

// Bytes of a reply that are kept; later bytes of a longer line are counted only.
constexpr int kReplyBufferBytes = 99;
// A reader that has counted this many bytes without a line end stops: a stream that long is
// noise, and a source that never pauses must not hold the caller forever.
constexpr int kReplyGiveUpBytes = 4096;

constexpr int kReplyLine = 0;
constexpr int kReplyNone = 1;

// Reads byte by byte into `buffer` (kReplyBufferBytes long) until CR LF, until `timeout_ms`
// pass without a byte, or until the port reports a receive error. Returns kReplyLine with the
// line's full length, CR LF included, in *count; or kReplyNone, leaving *count alone.
int ScnReadReplyLine(platform::serial::SerialPort& port, uint8_t* buffer, int timeout_ms,
                     int* count);

}  // namespace qmk::discovery
