// configure_view_fixture.h: what the tests of the configuration dialog's window share: host
// records of a model from the real model table, the library's services with the machine's port
// list replaced, a scripted operator for the message boxes, and the headless window system.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "discovery/config_dialog_services.h"
#include "discovery/configure_scanner_dialog.h"
#include "frame/features.h"
#include "frame/model_table.h"
#include "frame/operator.h"
#include "frame/scripted_operator.h"
#include "platform/ui/backend.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/headless.h"
#include "qmk/QmkLinkSim.h"
#include "support/scoped_env.h"
#include "support/settings_sandbox.h"
#include "toolkit/dialogs/dialog_profile.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmk::testing {

// The library's services, but the serial ports are the test's, and a test may look at the
// dialog while a search runs.
class TestConfigServices : public discovery::LibraryConfigServices {
 public:
  std::vector<discovery::ListRow> ports = {{"COM1", 1}, {"COM3", 3}};
  std::function<void()> during_search;

  std::vector<discovery::ListRow> SerialPorts() override { return ports; }
  discovery::SearchOutcome SearchPort(const std::string& name, const std::vector<uint32_t>& bauds,
                                      int selected_model) override {
    if (during_search) during_search();
    return LibraryConfigServices::SearchPort(name, bauds, selected_model);
  }
};

// The feature word the configuration writes for `model`, with the given options.
inline feat_mask FeatOf(int model, bool printer = false, bool bar_code = false, bool box = false) {
  uint32_t word = frame::FeatureWordFor(*frame::FindModel(model), box);
  word |= (printer ? 1u << 10 : 0) | (bar_code ? 1u << 11 : 0);
  feat_mask feat;
  std::memcpy(&feat, &word, sizeof word);
  return feat;
}

inline int ModelOf(const feat_mask& feat) { return discovery::ModelAtOpen(feat); }

class ConfigureViewTest : public ::testing::Test {
 protected:
  ConfigureViewTest() : map_env_("QMK_DEVICE_MAP", map_.str()) {}

  void SetUp() override {
    ASSERT_TRUE(platform::ui::InstallBackend(platform::ui::MakeHeadlessBackend().release()));
    toolkit::InstallToolkitSeams();
    toolkit::SetDialogProfilePath("");
    platform::ui::ClearDialogScripts();
    QlkSimReset();
    previous_ = frame::SetOperator(&op_);
    std::memset(&config_, 0, sizeof config_);
    comm_ = sct_config_ex{19200, 'N', 8, 1, 1, 10, 0};
  }
  void TearDown() override {
    frame::SetOperator(previous_);
    EXPECT_EQ(platform::ui::PendingDialogScripts(), 0) << "a script was not played";
    platform::ui::ClearDialogScripts();
    QlkSimReset();
  }

  void Store(int model, bool printer = false, bool bar_code = false) {
    config_.feat_mask = FeatOf(model, printer, bar_code);
  }
  // Plays `script` in the dialog run over the records; the dialog's result.
  intptr_t Run(platform::ui::DialogScript script) {
    platform::ui::QueueDialogScript(std::move(script));
    return discovery::RunScannerConfig(config_, comm_, 0, services_, &report_);
  }
  static platform::ui::DialogScript Script() {
    return platform::ui::DialogScript(discovery::CDlgConfigureScanner::kIdd);
  }
  // The texts of the message boxes shown, in order.
  std::vector<std::string> Messages() const {
    std::vector<std::string> out;
    for (const std::string& e : op_.events())
      if (e.rfind("message ", 0) == 0) out.push_back(e);
    return out;
  }
  static std::string Text(int id) { return discovery::LibraryConfigServices().Text(id); }

  SettingsSandbox sandbox_;
  TempDir map_;  // an empty device map: no COM name opens unless a test links it
  ScopedEnv map_env_;
  frame::ScriptedOperator op_;
  frame::Operator* previous_ = nullptr;
  TestConfigServices services_;
  sct_config config_{};
  sct_config_ex comm_{};
  discovery::ScannerConfigReport report_{-7, -7, -7, -7};
};

}  // namespace qmk::testing
