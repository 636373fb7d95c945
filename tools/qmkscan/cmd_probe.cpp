// cmd_probe.cpp: qmkscan probe: what hangs on a serial port, told as the probes see it.
#include <cstdio>
#include <string>

#include "commands.h"
#include "discovery/identity.h"
#include "discovery/probes.h"
#include "discovery/search.h"
#include "platform/serial/device_map.h"
#include "qmk/QmkGen.h"

namespace qmkscan {
namespace {

using namespace qmk::discovery;

std::string ModelName(int id) {
  char text[100] = "";
  GenLoadText(nullptr, id, text, sizeof text);
  return text;
}

const char* StateText(int state) { return state == 1 ? "fitted" : "not reported"; }

void PrintReply(const StatusReply& reply, const qmk::platform::serial::LineSettings& setting) {
  const uint8_t* r = reply.bytes.data();
  std::printf("status query answered at %s\n", qmk::platform::serial::Describe(setting).c_str());
  std::printf("  reply     %.*s\n", kStatusLineBytes - 2, reinterpret_cast<const char*>(r));
  const ModelDecision model = DecideModel(r, 0);
  std::printf("  model     %d %s%s\n", model.model, ModelName(model.model).c_str(),
              model.fast ? " (also runs at 115200 baud)" : "");
  const OptionStates options = OptionStatesFromReply(r);
  std::printf("  bar code  %s\n  printer   %s\n", StateText(options.bar_code),
              StateText(options.printer));
  const int threshold = ThresholdFromReply(r);
  if (threshold >= 0)
    std::printf("  self-score threshold  %d\n", threshold);
  else
    std::printf("  self-score threshold  none (model group isn't 3)\n");
}

}  // namespace

int RunProbe(Args& args) {
  const bool search = args.Flag("search");
  if (!args.NoUnknownOptions("probe")) return 2;
  if (args.rest().size() != 1) {
    std::fprintf(stderr, "qmkscan probe: give one port, such as COM3 or /dev/ttyUSB0\n");
    return 2;
  }
  const std::string port = args.rest()[0];
  std::printf("probing %s\n", port.c_str());
  const QuickCheck quick = ScnCheckForNonPadLot(port);
  if (quick.answered) {
    PrintReply(quick.reply, quick.setting);
    return 0;
  }
  if (quick.left_open) {
    std::printf("the port refused a setting; the quick check stopped there and keeps the port "
                "open until this program ends\n");
    return 1;
  }
  std::printf("no answer to the status query at 38400 or 19200 baud\n");
  if (ScnIsPadLotScannerPresentOnPort(port)) {
    std::printf("PadLot scanner answered its hello and query at 9600 7-1-E\n");
    return 0;
  }
  std::printf("no PadLot scanner answered\n");
  if (!search) return 1;
  if (qmk::platform::serial::ComNumberOf(port) == 0) {
    std::fprintf(stderr, "qmkscan probe: --search wants a COM name, such as COM3\n");
    return 2;
  }
  std::printf("searching every baud rate of the configuration dialog\n");
  const SearchOutcome found = SearchPort(port.rfind("\\\\.\\", 0) == 0 ? port.substr(4) : port,
                                         BaudList(true), 0);
  if (!found.open_error.empty()) std::printf("%s\n", found.open_error.c_str());
  if (found.code != kConfigured) {
    std::printf("nothing answered\n");
    return 1;
  }
  PrintReply(found.reply, found.setting);
  return 0;
}

}  // namespace qmkscan
