// probe_settings.h: the line settings that the probes try, in their order.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/serial/serial_port.h"

namespace qmk::discovery {

using platform::serial::LineSettings;

// Settings no serial scanner uses, which both searches skip: 7 data bits with 1 stop bit,
// 8 data bits with 2 stop bits and a parity bit, 8 data bits with 1 stop bit and no parity.
bool IsSkippedSetting(const LineSettings& s);

// The order of the quick check for a status-query scanner: 38400 then 19200; within a baud
// 8 then 7 data bits, 2 then 1 stop bits, parity even, odd, none; skips taken out.
std::vector<LineSettings> QuickCheckOrder();

// The order of the configuration search: the baud list from its last row to its first; within
// a baud 7 then 8 data bits, 2 then 1 stop bits, parity odd, even, none; skips taken out.
std::vector<LineSettings> SearchOrder(const std::vector<uint32_t>& baud_list);

}  // namespace qmk::discovery
