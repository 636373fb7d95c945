// config_dialog_services.h: the configuration dialog's services in the running library: the
// common services' texts, the port list, the probes, the search, the transport's USB and TWAIN
// checks and the message display.
#pragma once

#include "discovery/config_dialog_model.h"

namespace qmk::discovery {

class LibraryConfigServices : public ConfigDialogServices {
 public:
  std::string ModelName(int text_id) override;
  std::vector<ListRow> SerialPorts() override;
  int ShowMessage(const std::string& text, unsigned flags) override;
  int DetectTwain(int family_code) override;
  int CheckUsb(int& a, int& b, int& c, int& d) override;
  bool PadLotOnPort(const std::string& port_name) override;
  SearchOutcome SearchPort(const std::string& port_name, const std::vector<uint32_t>& bauds,
                           int selected_model) override;
  uint32_t FeatureWordFor(int model, bool stacker_box, int& forced_port) override;
  int DefaultLeadEdgeTol(int family) override;
  std::string Text(int id) override;
};

}  // namespace qmk::discovery
