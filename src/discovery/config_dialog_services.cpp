// config_dialog_services.cpp: the configuration dialog's services over the discovery code.
#include "discovery/config_dialog_services.h"

#include <cstdlib>

#include "discovery/identity.h"
#include "discovery/port_list.h"
#include "discovery/probes.h"
#include "frame/message_display.h"
#include "frame/model_table.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkLink.h"
#include "toolkit/dialogs/string_table.h"

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

uint32_t LibraryConfigServices::FeatureWordFor(int model, bool stacker_box, int& forced_port) {
  const frame::ModelRow* row = frame::FindModel(model);
  if (!row) row = frame::FindModel(500);
  forced_port = row->forced_port;
  return frame::FeatureWordFor(*row, stacker_box);
}

std::string LibraryConfigServices::Text(int id) {
  std::string text;
  if (toolkit::LoadString(id, text)) return text;
  // Not in this library's table: the common services may hold it.
  char loaded[256] = {};
  if (GenLoadText(nullptr, id, loaded, sizeof loaded) > 0) return loaded;
  return "Text " + std::to_string(id) + " is missing.";
}

}  // namespace qmk::discovery
