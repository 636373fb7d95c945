// search.cpp: the configuration search and the decoding of its reply.
#include "discovery/search.h"

#include <cstring>

#include "discovery/probe_settings.h"

namespace qmk::discovery {

namespace {

// Reply bytes compare as the signed characters they always were: a byte of 0x80 and up counts
// as below '0'.
int Ch(const uint8_t* reply, int index) { return static_cast<signed char>(reply[index]); }

int HexValue(int c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

}  // namespace

std::vector<uint32_t> BaudList(bool fast) {
  std::vector<uint32_t> list = {1200, 2400, 4800, 9600, 19200, 38400};
  if (fast) list.push_back(115200);
  return list;
}

ModelDecision DecideModel(const uint8_t* reply, int selected_model) {
  const int group = Ch(reply, 3);
  if (group < '1') return {512, true};
  if (group == '7') return {513, true};
  if (group > '3') return {512, true};
  const ModelDecision fast_one{selected_model == 518 ? 518 : 511, true};
  if (Ch(reply, 44) == 'm') return {509, false};
  const int model = Ch(reply, 4);
  if (model < '2' || model > '4') return fast_one;
  return Ch(reply, 1) >= '5' ? fast_one : ModelDecision{510, false};
}

OptionStates OptionStatesFromReply(const uint8_t* reply) {
  // The digit is compared whole: 8 alone is the bar code, 4 alone the printer.
  const int value = HexValue(Ch(reply, 49));
  return {value == 8 ? 1 : 2, value == 4 ? 1 : 2};
}

SearchOutcome SearchPort(const std::string& port_name, const std::vector<uint32_t>& baud_list,
                         int selected_model) {
  SearchOutcome out;
  const std::string path = "\\\\.\\" + port_name;
  int error = 0;
  auto port = platform::serial::CurrentPortOpener().Open(path, &error);
  if (!port) {
    out.open_error = "Error opening " + path + ". " + std::strerror(error);
    return out;
  }
  bool answered = false;
  for (const LineSettings& s : SearchOrder(baud_list)) {
    if (s.baud == 0 || !RunStatusQuery(*port, s, ProbeWaits(s.baud), &out.reply)) return out;
    if (out.reply.Accepted()) {
      out.setting = s;
      answered = true;
      break;
    }
  }
  port.reset();
  if (!answered) return out;
  out.code = kConfigured;
  out.model = DecideModel(out.reply.bytes.data(), selected_model);
  out.options = OptionStatesFromReply(out.reply.bytes.data());
  return out;
}

}  // namespace qmk::discovery
