// The scanner configuration dialog's window on the headless back end, driven by the scripted
// operator through its real controls: what each model shows, the validation message, the
// events, the changes that reach the host at once and stay on Cancel, the busy state, and the
// export's contract.
#include <gtest/gtest.h>

#include "discovery/configure_view_fixture.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/window.h"
#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using namespace discovery::config_ids;
using discovery::CDlgConfigureScanner;
namespace ui = platform::ui;

// Opens the dialog without a modal loop, to look at its controls.
class OpenDialog {
 public:
  OpenDialog(sct_config& config, sct_config_ex& comm, discovery::ConfigDialogServices& services)
      : dialog_(config, comm, services) {
    EXPECT_TRUE(dialog_.Create(CDlgConfigureScanner::kIdd, nullptr)) << ui::LastDialogError();
    ui::ShowWindow(dialog_.GetSafeHwnd(), ui::SW_SHOW);
  }
  ~OpenDialog() { dialog_.DestroyWindow(); }
  ui::HWND Item(int id) const { return ui::GetDlgItem(dialog_.GetSafeHwnd(), id); }
  bool Visible(int id) const { return ui::IsWindowVisible(Item(id)); }
  bool Enabled(int id) const { return ui::IsWindowEnabled(Item(id)); }
  int Count(int id) const {
    return static_cast<int>(ui::SendMessage(Item(id), ui::CB_GETCOUNT, 0, 0));
  }
  std::string Selected(int id) const {
    const auto row = ui::SendMessage(Item(id), ui::CB_GETCURSEL, 0, 0);
    char text[64] = {};
    if (row >= 0) ui::SendMessage(Item(id), ui::CB_GETLBTEXT, static_cast<ui::WPARAM>(row), reinterpret_cast<ui::LPARAM>(text));
    return text;
  }
  CDlgConfigureScanner& dialog() { return dialog_; }

 private:
  CDlgConfigureScanner dialog_;
};

// 'S' shown, 'D' disabled, 'H' hidden, as the controls stand.
char Look(const OpenDialog& d, int id) { return !d.Visible(id) ? 'H' : d.Enabled(id) ? 'S' : 'D'; }

TEST_F(ConfigureViewTest, EachModelsGroupsReachTheControls) {
  struct Case {
    int model;
    const char* looks;  // printer, bar code, bar-code port, select, log, auto, port list, baud, data bits
  };
  const int ids[] = {kPrinter, kBarCode, kBarCodePort, kSelect, kLog, kAutoConfigure, kPortList, kBaudList, kData8};
  for (const Case c : {Case{500, "DHHHDDHHH"}, Case{502, "SSHSSSHHH"}, Case{505, "HHHHSSHHH"},
                       Case{511, "SSHSSSSSS"}, Case{514, "SSHHSHHHH"}, Case{517, "HHHHSSSDD"}}) {
    Store(c.model);
    OpenDialog d(config_, comm_, services_);
    std::string looks;
    for (const int id : ids) looks += Look(d, id);
    EXPECT_EQ(looks, c.looks) << "model " << c.model;
    EXPECT_FALSE(d.Visible(kBusyText)) << c.model;
    EXPECT_TRUE(d.Visible(kModelList) && d.Enabled(kModelList)) << c.model;
  }
}

TEST_F(ConfigureViewTest, SavedValuesAndListsAreShown) {
  Store(511, /*printer=*/true);
  comm_ = sct_config_ex{115200, 'E', 7, 2, 3, 15, 0};
  OpenDialog d(config_, comm_, services_);
  EXPECT_EQ(d.Selected(kModelList), "Desk Reader 7");
  EXPECT_EQ(d.Count(kModelList), 19);
  EXPECT_EQ(d.Selected(kPortList), "COM3");
  EXPECT_EQ(d.Count(kPortList), 3) << "COM1, COM3 and USB";
  EXPECT_EQ(d.Selected(kBaudList), "115200");
  EXPECT_EQ(ui::GetDlgItemText(d.dialog().GetSafeHwnd(), kTimeout), "15");
  EXPECT_EQ(ui::IsDlgButtonChecked(d.dialog().GetSafeHwnd(), kPrinter), ui::BST_CHECKED);
  EXPECT_EQ(ui::IsDlgButtonChecked(d.dialog().GetSafeHwnd(), kData7), ui::BST_CHECKED);
  EXPECT_EQ(ui::IsDlgButtonChecked(d.dialog().GetSafeHwnd(), kStop2), ui::BST_CHECKED);
  EXPECT_EQ(ui::IsDlgButtonChecked(d.dialog().GetSafeHwnd(), kEven), ui::BST_CHECKED);
  EXPECT_EQ(ui::GetWindowText(d.dialog().GetSafeHwnd()), "Scanner Configuration");
}

TEST_F(ConfigureViewTest, OkWithoutChangesKeepsTheSavedSettings) {
  Store(511);
  comm_ = sct_config_ex{38400, 'O', 8, 1, 3, 25, 5};
  config_.tune_p8 = 71;
  EXPECT_EQ(Run(Script().Press(ui::IDOK)), ui::IDOK);
  EXPECT_EQ(CommText(comm_), "38400 O 8 1 port 3 timeout 25 aux 0");
  EXPECT_EQ(config_.tune_p8, 71) << "the model at open keeps its tune values";
  EXPECT_EQ(ModelOf(config_.feat_mask), 511);
  EXPECT_EQ(report_.tested, 0);
  EXPECT_EQ(report_.select_state, 1);
  EXPECT_TRUE(Messages().empty());
}

TEST_F(ConfigureViewTest, EightBitsTwoStopBitsAndAParityAreRefusedUntilNone) {
  Store(511);
  EXPECT_EQ(Run(Script()
                    .Check(kData8)
                    .Check(kStop2)
                    .Check(kEven)
                    .Press(ui::IDOK)  // refused: the dialog stays
                    .Check(kOdd)
                    .Press(ui::IDOK)  // refused again: the test reads only the value of None
                    .Check(kNone)
                    .Press(ui::IDOK)),
            ui::IDOK);
  const auto shown = Messages();
  ASSERT_EQ(shown.size(), 2u);
  for (const std::string& m : shown) {
    EXPECT_NE(m.find(Text(2013)), std::string::npos) << m;
    EXPECT_NE(m.find("flags=0x30"), std::string::npos) << m;
  }
  EXPECT_EQ(comm_.data_bits, 8);
  EXPECT_EQ(comm_.stop_bits, 2);
  EXPECT_EQ(comm_.parity, 'N');
}

TEST_F(ConfigureViewTest, TypedTimeOutIsSavedAsItStands) {
  Store(511);
  EXPECT_EQ(Run(Script().SetText(kTimeout, "99").Press(ui::IDOK)), ui::IDOK);
  EXPECT_EQ(comm_.timeout, 99);
}

TEST_F(ConfigureViewTest, SpinMovesTheTimeOutWithinTwoToSixty) {
  struct Case { const char* typed; unsigned key; int presses; int saved; };
  for (const Case c : {Case{"58", ui::VK_UP, 3, 60}, Case{"3", ui::VK_DOWN, 3, 2}, Case{"10", ui::VK_UP, 1, 11}}) {
    Store(511);
    auto script = Script().SetText(kTimeout, c.typed);
    for (int i = 0; i < c.presses; ++i) script.Key(c.key);
    EXPECT_EQ(Run(script.Press(ui::IDOK)), ui::IDOK);
    EXPECT_EQ(comm_.timeout, c.saved) << c.typed;
  }
}

TEST_F(ConfigureViewTest, ChangingTheModelLoadsItsDefaultsAndSavesItsTable) {
  Store(511);
  comm_ = sct_config_ex{9600, 'O', 8, 2, 3, 30, 0};
  config_.tune_p8 = 71;
  EXPECT_EQ(Run(Script().Choose(kModelList, "Desk Reader 5").Press(ui::IDOK)), ui::IDOK);
  const frame::Features f = frame::FeaturesOf(config_.feat_mask);
  EXPECT_EQ(ModelOf(config_.feat_mask), 509);
  EXPECT_EQ(f.family(), 2u);
  EXPECT_EQ(f.model_code(), 5u);
  EXPECT_EQ(comm_.port, 1) << "the first row";
  EXPECT_EQ(comm_.baud, 38400u) << "the last row: no 115200 for this model";
  EXPECT_EQ(comm_.timeout, 10);
  EXPECT_EQ(comm_.parity, 'E');
  EXPECT_EQ(comm_.data_bits, 7);
  EXPECT_EQ(config_.tune_p8, 90);
  EXPECT_EQ(config_.lead_edge_tol, 8);
  EXPECT_EQ(config_.limit_a, 2030);
}

// The three boxes and the port reach the host's records as they change, and Cancel doesn't
// put them back: hosts rely on it.
TEST_F(ConfigureViewTest, CancelKeepsTheImmediateChanges) {
  Store(511);
  comm_ = sct_config_ex{9600, 'E', 7, 1, 1, 12, 0};
  config_.op_log = 0;
  EXPECT_EQ(Run(Script()
                    .Check(kPrinter)
                    .Check(kBarCode)
                    .Check(kSelect)
                    .Check(kLog)
                    .Choose(kPortList, "COM3")
                    .SetText(kTimeout, "40")
                    .Press(ui::IDCANCEL)),
            ui::IDCANCEL);
  const frame::Features f = frame::FeaturesOf(config_.feat_mask);
  EXPECT_TRUE(config_.feat_mask.transport_printer);
  EXPECT_TRUE(f.bar_code_reader());
  EXPECT_TRUE(config_.feat_mask.select_stacker);
  EXPECT_EQ(comm_.port, 3);
  // Everything else waits for OK.
  EXPECT_EQ(config_.op_log, 0);
  EXPECT_EQ(comm_.timeout, 12);
  EXPECT_EQ(comm_.baud, 9600u);
  EXPECT_EQ(report_.tested, -7) << "the report is left alone on Cancel";
}

TEST_F(ConfigureViewTest, TogglingABoxBackClearsItsBitAtOnce) {
  Store(511, /*printer=*/true, /*bar_code=*/true);
  EXPECT_EQ(Run(Script().Check(kPrinter, 0).Check(kBarCode, 0).Press(ui::IDCANCEL)), ui::IDCANCEL);
  EXPECT_FALSE(config_.feat_mask.transport_printer);
  EXPECT_FALSE(frame::FeaturesOf(config_.feat_mask).bar_code_reader());
}

TEST_F(ConfigureViewTest, ChoosingUsbHidesTheLineSettingsAndAddsAnEmptyFastRow) {
  Store(509);
  comm_.port = 1;
  // The port change adds a "115200" row without a value; choosing it saves a baud of 0.
  EXPECT_EQ(Run(Script().Choose(kPortList, "COM3").Choose(kBaudList, "115200").Press(ui::IDOK)), ui::IDOK);
  EXPECT_EQ(comm_.baud, 0u);
  EXPECT_EQ(comm_.port, 3);

  Store(509);
  comm_.port = 1;
  EXPECT_EQ(Run(Script().Choose(kPortList, "USB").Press(ui::IDOK)), ui::IDOK);
  EXPECT_EQ(comm_.port, QMK_PORT_USB);
  EXPECT_EQ(comm_.baud, 19200u) << "the baud group is hidden";
  EXPECT_EQ(comm_.timeout, 10);
}

TEST_F(ConfigureViewTest, BusyStateShowsItsTextAndLocksTheDialogWhileTheSearchRuns) {
  Store(511);
  comm_.port = 3;
  bool busy_text = false, ok_enabled = true, model_enabled = true;
  CDlgConfigureScanner dialog(config_, comm_, services_);
  services_.during_search = [&] {
    const ui::HWND dlg = dialog.GetSafeHwnd();
    busy_text = ui::IsWindowVisible(ui::GetDlgItem(dlg, kBusyText));
    ok_enabled = ui::IsWindowEnabled(ui::GetDlgItem(dlg, ui::IDOK));
    model_enabled = ui::IsWindowEnabled(ui::GetDlgItem(dlg, kModelList));
  };
  // Nothing answers on COM3: the search can't open it and says so.
  ui::QueueDialogScript(Script().Click(kAutoConfigure).Press(ui::IDOK));
  EXPECT_EQ(dialog.DoModal(), ui::IDOK);
  EXPECT_TRUE(busy_text);
  EXPECT_FALSE(ok_enabled);
  EXPECT_FALSE(model_enabled);
  const auto shown = Messages();
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_NE(shown[0].find("Error opening \\\\.\\COM3."), std::string::npos) << shown[0];
  EXPECT_NE(shown[0].find("flags=0x40"), std::string::npos);
  EXPECT_NE(shown[1].find(Text(2062)), std::string::npos) << shown[1];
  EXPECT_FALSE(dialog.model().m_bTested);
}

TEST_F(ConfigureViewTest, AutoConfigureOfATwainModelAsksTheTransport) {
  Store(505);
  EXPECT_EQ(Run(Script().Click(kAutoConfigure).Press(ui::IDOK)), ui::IDOK);
  const auto shown = Messages();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_NE(shown[0].find(Text(2087)), std::string::npos) << "the simulator's TWAIN scanner answers";
  EXPECT_NE(shown[0].find("flags=0x40"), std::string::npos);
  EXPECT_EQ(report_.tested, 1);
  EXPECT_EQ(ModelOf(config_.feat_mask), 505);
  EXPECT_EQ(comm_.port, QMK_PORT_TWAIN);
}

TEST_F(ConfigureViewTest, ExportWritesItsPointersOnlyOnOk) {
  Store(502);
  int tested = -7, select = -7, printer = -7, bar_code = -7;
  ui::QueueDialogScript(Script().Check(kPrinter).Press(ui::IDCANCEL));
  EXPECT_EQ(ScnScannerConfig(nullptr, &config_, &comm_, 0, &tested, &select, &printer, &bar_code), ui::IDCANCEL);
  EXPECT_EQ(tested + select + printer + bar_code, -28);
  EXPECT_TRUE(config_.feat_mask.transport_printer);

  ui::QueueDialogScript(Script().Press(ui::IDOK));
  EXPECT_EQ(ScnScannerConfig(nullptr, &config_, &comm_, 0, &tested, &select, &printer, nullptr), ui::IDOK);
  EXPECT_EQ(tested, 0);
  EXPECT_EQ(select, 1) << "502 reports its select state 1";
  EXPECT_EQ(printer, 0) << "the printer bit is set, so its state is 0";
  EXPECT_EQ(bar_code, -7) << "a null pointer is skipped";
  EXPECT_EQ(comm_.port, QMK_PORT_USB) << "502 forces the USB port";
}

TEST_F(ConfigureViewTest, ExportRefusesMissingRecords) {
  EXPECT_EQ(ScnScannerConfig(nullptr, nullptr, &comm_, 0, nullptr, nullptr, nullptr, nullptr), -1);
  EXPECT_EQ(ScnScannerConfig(nullptr, &config_, nullptr, 0, nullptr, nullptr, nullptr, nullptr), -1);
}

}  // namespace
}  // namespace qmk::testing
