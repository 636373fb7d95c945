// fuzz_reply_line.cpp: arbitrary byte streams through the reply reader, and whatever line it
// keeps through the reply decoders.
#include <cstddef>
#include <cstdint>
#include <memory>

#include "discovery/identity.h"
#include "discovery/reply_reader.h"
#include "discovery/search.h"
#include "platform/clock.h"
#include "platform/serial/memory_port.h"

using namespace qmk;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static platform::ManualClock clock;
  platform::SetClock(&clock);
  auto line = std::make_shared<platform::serial::MemoryLine>();
  // The first byte, when there is one, chooses a receive error to raise.
  if (size > 0) {
    line->pending_errors = data[0] & 0x10 ? data[0] & 0xF : 0;
    ++data;
    --size;
  }
  line->inbox.assign(data, data + size);
  platform::serial::MemoryPort port(line);
  uint8_t buffer[discovery::kReplyBufferBytes] = {};
  int count = -1;
  const int result = discovery::ScnReadReplyLine(port, buffer, 50, &count);
  if (result == discovery::kReplyLine && (count < 2 || static_cast<size_t>(count) > size))
    __builtin_trap();  // a line has its CR LF and no more bytes than came
  if (result != discovery::kReplyLine && count != -1) __builtin_trap();
  const discovery::ModelDecision model = discovery::DecideModel(buffer, 0);
  if (model.model < 509 || model.model > 513) __builtin_trap();
  const discovery::OptionStates options = discovery::OptionStatesFromReply(buffer);
  if (options.bar_code == 1 && options.printer == 1) __builtin_trap();
  const int threshold = discovery::ThresholdFromReply(buffer);
  if (threshold < -1 || threshold > 9) __builtin_trap();
  platform::SetClock(nullptr);
  return 0;
}
