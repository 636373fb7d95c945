// config_dialog_services.cpp: the configuration dialog's services over the discovery code.
#include "discovery/config_dialog_services.h"

#include <cstdlib>

#include "discovery/identity.h"
#include "discovery/port_list.h"
#include "discovery/probes.h"
#include "frame/message_display.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkLink.h"

namespace qmk::discovery {

std::string LibraryConfigServices::ModelName(int text_id) {
  char name[50] = {};
  GenLoadText(nullptr, text_id, name, sizeof name);
  return name;
}

std::vector<ListRow> LibraryConfigServices::SerialPorts() {
  std::vector<SSerInfo> ports;
  try {
    ScnEnumSerialPorts(ports, 1);
  } catch (const std::string& error) {
    // The dialog offers what it has: no ports, and the reason in the trace.
    GenTraceDebugFormatted("Scanner Configuration", "%s", error.c_str());
    return {};
  }
  std::vector<ListRow> rows;
  for (const SSerInfo& port : ports) {
    const std::string name = port.port_name;
    if (name.rfind("COM", 0) != 0) continue;
    const int number = std::atoi(name.c_str() + 3);
    if (number > 0) rows.push_back({name, number});
  }
  return rows;
}

int LibraryConfigServices::ShowMessage(const std::string& text, unsigned flags) {
  return frame::DisplayMessage(text, flags);
}

int LibraryConfigServices::DetectTwain(int family_code) { return QlkDetectTwainScanner(family_code); }

int LibraryConfigServices::CheckUsb(int& a, int& b, int& c, int& d) { return ::CheckUSB(&a, &b, &c, &d); }

bool LibraryConfigServices::PadLotOnPort(const std::string& port_name) {
  const QuickCheck other = ScnCheckForNonPadLot(port_name);
  return !other.answered && ScnIsPadLotScannerPresentOnPort(port_name);
}

SearchOutcome LibraryConfigServices::SearchPort(const std::string& port_name,
                                                const std::vector<uint32_t>& bauds,
                                                int selected_model) {
  return discovery::SearchPort(port_name, bauds, selected_model);
}

int LibraryConfigServices::DefaultLeadEdgeTol(int family) { return ScnGetDefaultLeadEdgeTol(family); }

namespace {

// The dialog's own words, for texts the common services don't hold.
const char* OwnText(int id) {
  switch (id) {
    case 2013: return "You may not specify 8 data bits, 2 stop bits and a parity bit.";
    case 2015: return "You may not set the bar code port the same as the main communications port.";
    case 2062: return "No scanner could be found. Check that the scanner is switched on, connected and "
                      "ready, and that the model and port are right.";
    case 2087: return "The scanner was found and the configuration has been set.";
    case 2089: return "The scanner did not answer. Check that it is switched on and connected.";
    case 2090: return "The port could not be opened or set up. It may be in use by another program.";
    case 2091: return "The scanner answered, but not as this model. Check the model selected.";
    case 2092: return "The scanner reports a fault. Clear it and try again.";
    case 2093: return "The scanner's driver could not be loaded.";
    case 2094: return "The scanner is busy. Wait for it to finish and try again.";
    default: return "The scanner could not be configured automatically.";
  }
}

}  // namespace

std::string LibraryConfigServices::Text(int id) {
  char text[256] = {};
  if (GenLoadText(nullptr, id, text, sizeof text) > 0) return text;
  return OwnText(id);
}

}  // namespace qmk::discovery
