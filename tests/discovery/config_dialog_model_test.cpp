// The scanner configuration dialog through its model: model at open, group states, values,
// changes that reach the host at once, validation, save and Auto Configure's results.
#include "discovery/config_dialog_model.h"

#include <gtest/gtest.h>

#include <cstring>

namespace qmk::discovery {
namespace {

class FakeConfigServices : public ConfigDialogServices {
 public:
  std::vector<ListRow> serial = {{"COM1", 1}, {"COM3", 3}, {"COM12", 12}};
  std::vector<std::string> shown;
  int twain = -3, usb = 0, usb_a = 0, usb_b = 0, usb_c = 0, usb_d = 0;
  bool padlot = false;
  SearchOutcome search;
  std::vector<std::string> probed;

  std::string ModelName(int id) override { return "model " + std::to_string(id); }
  std::vector<ListRow> SerialPorts() override { return serial; }
  int ShowMessage(const std::string& text, unsigned flags) override {
    shown.push_back(text + " " + std::to_string(flags));
    return 1;
  }
  int DetectTwain(int family_code) override {
    probed.push_back("twain " + std::to_string(family_code));
    return twain;
  }
  int CheckUsb(int& a, int& b, int& c, int& d) override {
    a = usb_a, b = usb_b, c = usb_c, d = usb_d;
    return usb;
  }
  bool PadLotOnPort(const std::string& name) override {
    probed.push_back("padlot " + name);
    return padlot;
  }
  SearchOutcome SearchPort(const std::string& name, const std::vector<uint32_t>&, int) override {
    probed.push_back("search " + name);
    return search;
  }
  uint32_t FeatureWordFor(int model, bool box, int& forced) override {
    forced = model == 503 ? QMK_PORT_USB : 0;
    // Enough of a table for the tests: the model's last digits as family, the box as bit 8.
    return static_cast<uint32_t>(model % 16) | (box ? 1u << 8 : 0) | 1u << 13 | 1u << 14 |
           (model == 500 ? 0 : 1u << 15) | (model == 500 ? 0 : 1u << 16);
  }
  int DefaultLeadEdgeTol(int family) override { return family == 12 ? 12 : 8; }
  std::string Text(int id) override { return "text " + std::to_string(id); }
};

feat_mask Feat(unsigned series, unsigned family, unsigned code, unsigned sub = 0, unsigned image = 0) {
  feat_mask f{};
  f.series = series, f.family = family, f.model_code = code, f.submodel = sub, f.image_read = image;
  return f;
}

class ConfigDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::memset(&config_, 0, sizeof config_);
    std::memset(&comm_, 0, sizeof comm_);
  }
  ConfigureScannerModel& Open(feat_mask feat) {
    config_.feat_mask = feat;
    dialog_ = std::make_unique<ConfigureScannerModel>(config_, comm_, services_);
    dialog_->OnInitDialog();
    return *dialog_;
  }
  int RowOfModel(int model) {
    const auto& m = dialog_->models();
    for (size_t i = 0; i < m.size(); ++i)
      if (m[i].value == model) return static_cast<int>(i);
    return -1;
  }
  sct_config config_;
  sct_config_ex comm_;
  FakeConfigServices services_;
  std::unique_ptr<ConfigureScannerModel> dialog_;
};

TEST(ConfigModelAtOpen, FromTheFeatureWord) {
  struct Case { feat_mask f; int want; };
  const Case cases[] = {
      {Feat(0, 3, 9), 500},         {Feat(1, 2, 5, 0, 1), 503},   {Feat(1, 2, 5), 509},
      {Feat(1, 2, 6), 510},         {Feat(1, 2, 7, 1, 1), 502},   {Feat(1, 2, 7, 0, 1), 504},
      {Feat(1, 2, 7, 1), 518},      {Feat(1, 2, 7, 2), 511},      {Feat(1, 5, 11), 517},
      {Feat(1, 4, 3), 512},         {Feat(1, 4, 4), 513},         {Feat(5, 3, 9, 1), 507},
      {Feat(5, 3, 9, 2), 508},      {Feat(5, 3, 9, 3), 501},      {Feat(12, 12, 12), 505},
      {Feat(12, 12, 13), 506},      {Feat(2, 4, 2), 515},         {Feat(2, 4, 1, 1), 516},
      {Feat(2, 4, 1), 514},
  };
  for (const Case& c : cases) EXPECT_EQ(ModelAtOpen(c.f), c.want) << c.want;
}

TEST_F(ConfigDialogTest, ModelListOrderAndStatesPerModel) {
  Open(Feat(0, 0, 0));
  ASSERT_EQ(dialog_->models().size(), 19u);
  EXPECT_EQ(dialog_->models()[9].value, 518);
  EXPECT_EQ(dialog_->models()[18].value, 517);
  EXPECT_EQ(dialog_->models()[9].text, "model 518");
  struct Case { int model; ControlState printer, bar_code, select, log, autoconf, port, baud; int select_state; };
  const Case cases[] = {
      {500, STATE_DISABLED, STATE_HIDDEN, STATE_HIDDEN, STATE_DISABLED, STATE_DISABLED, STATE_HIDDEN, STATE_HIDDEN, 2},
      {507, STATE_SHOWN, STATE_SHOWN, STATE_HIDDEN, STATE_SHOWN, STATE_HIDDEN, STATE_HIDDEN, STATE_HIDDEN, 0},
      {504, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, STATE_HIDDEN, STATE_HIDDEN, 1},
      {506, STATE_HIDDEN, STATE_HIDDEN, STATE_HIDDEN, STATE_SHOWN, STATE_SHOWN, STATE_HIDDEN, STATE_HIDDEN, 2},
      {518, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, 1},
      {513, STATE_SHOWN, STATE_SHOWN, STATE_HIDDEN, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, 2},
      {517, STATE_HIDDEN, STATE_HIDDEN, STATE_HIDDEN, STATE_SHOWN, STATE_SHOWN, STATE_SHOWN, STATE_DISABLED, 0},
  };
  for (const Case& c : cases) {
    dialog_->OnModelChange(RowOfModel(c.model));
    EXPECT_EQ(dialog_->State(kGroupPrinter), c.printer) << c.model;
    EXPECT_EQ(dialog_->State(kGroupBarCode), c.bar_code) << c.model;
    EXPECT_EQ(dialog_->State(kGroupSelect), c.select) << c.model;
    EXPECT_EQ(dialog_->State(kGroupLog), c.log) << c.model;
    EXPECT_EQ(dialog_->State(kGroupAuto), c.autoconf) << c.model;
    EXPECT_EQ(dialog_->State(kGroupPort), c.port) << c.model;
    EXPECT_EQ(dialog_->State(kGroupBaud), c.baud) << c.model;
    EXPECT_EQ(dialog_->State(kGroupParity), c.baud) << c.model;
    EXPECT_EQ(dialog_->m_nSelectState, c.select_state) << c.model;
  }
}

TEST_F(ConfigDialogTest, BarCodePortOfThe514FamilyFollowsTheReaderBit) {
  feat_mask f = Feat(2, 4, 1);
  f.bar_code_reader = 1;
  config_.bar_code_port = 3;
  Open(f);
  EXPECT_EQ(dialog_->State(kGroupBarCodePort), STATE_SHOWN);
  // Only ports numbered below 10 are offered for the bar-code reader.
  ASSERT_EQ(dialog_->bar_code_ports().size(), 2u);
  EXPECT_EQ(dialog_->m_nBarCodePortRow, 1);
  EXPECT_EQ(dialog_->m_nBarCodeState, 0);
  f.bar_code_reader = 0;
  Open(f);
  EXPECT_EQ(dialog_->State(kGroupBarCodePort), STATE_HIDDEN);
  EXPECT_EQ(dialog_->m_nBarCodeState, 1);
}

TEST_F(ConfigDialogTest, UsbPortHidesTheCommunicationsOnlyForTheModelAtOpen) {
  comm_.port = QMK_PORT_USB;
  Open(Feat(1, 2, 7, 2));  // 511
  EXPECT_EQ(dialog_->ports().back().value, QMK_PORT_USB);
  EXPECT_EQ(dialog_->State(kGroupBaud), STATE_HIDDEN);
  EXPECT_EQ(dialog_->State(kGroupStopBits), STATE_HIDDEN);
  EXPECT_EQ(dialog_->bauds().size(), 6u);  // no 115200 while hidden
  dialog_->OnModelChange(RowOfModel(518));
  EXPECT_EQ(dialog_->State(kGroupBaud), STATE_SHOWN);
  EXPECT_EQ(dialog_->bauds().size(), 7u);
  dialog_->OnModelChange(RowOfModel(512));
  EXPECT_NE(dialog_->ports().back().value, QMK_PORT_USB);
}

TEST_F(ConfigDialogTest, LoadedValuesSavedAndNotSaved) {
  comm_.port = 3, comm_.baud = 4800, comm_.timeout = 33, comm_.data_bits = 8, comm_.stop_bits = 2;
  comm_.parity = 'N';
  feat_mask f = Feat(1, 4, 3);  // 512
  f.transport_printer = 1;
  Open(f);
  EXPECT_TRUE(dialog_->m_bPrinter);
  EXPECT_EQ(dialog_->ports()[dialog_->m_nPortRow].value, 3);
  EXPECT_EQ(dialog_->bauds()[dialog_->m_nBaudRow].value, 4800);
  EXPECT_EQ(dialog_->m_nTimeout, 33);
  EXPECT_EQ(dialog_->m_nDataBits, 8);
  EXPECT_EQ(dialog_->m_nStopBits, 2);
  EXPECT_EQ(dialog_->m_nParity, kParityNone);
  dialog_->OnModelChange(RowOfModel(517));
  EXPECT_FALSE(dialog_->m_bPrinter);
  EXPECT_EQ(dialog_->m_nPortRow, 0);
  EXPECT_EQ(dialog_->bauds()[dialog_->m_nBaudRow].value, 9600);
  EXPECT_EQ(dialog_->m_nTimeout, 10);
  EXPECT_EQ(dialog_->m_nDataBits, 7);
  EXPECT_EQ(dialog_->m_nParity, kParityEven);
  dialog_->OnModelChange(RowOfModel(509));
  EXPECT_EQ(dialog_->m_nBaudRow, static_cast<int>(dialog_->bauds().size()) - 1);
}

TEST_F(ConfigDialogTest, TogglesAndPortReachTheHostAtOnceEvenWithoutOk) {
  Open(Feat(1, 2, 7, 2));  // 511: printer, bar code, select, port shown
  dialog_->OnBarCodeToggle();
  EXPECT_EQ(config_.feat_mask.bar_code_reader, 1u);
  dialog_->OnSelectToggle();
  EXPECT_EQ(config_.feat_mask.select_stacker, 1u);
  dialog_->OnPrinterToggle();
  EXPECT_EQ(config_.feat_mask.transport_printer, 1u);
  dialog_->OnPortChange(1);
  EXPECT_EQ(comm_.port, 3);
  dialog_->OnPortChange(3);  // USB hides the communications of this model
  EXPECT_EQ(comm_.port, QMK_PORT_USB);
  EXPECT_EQ(dialog_->State(kGroupTimeout), STATE_HIDDEN);
  dialog_->OnBarCodeToggle();
  EXPECT_EQ(config_.feat_mask.bar_code_reader, 0u);
  EXPECT_EQ(dialog_->State(kGroupBarCodePort), STATE_HIDDEN);
}

TEST_F(ConfigDialogTest, PortChangeAddsAValuelessFastRow) {
  Open(Feat(1, 2, 5));  // 509: no 115200 row
  ASSERT_EQ(dialog_->bauds().size(), 6u);
  dialog_->OnPortChange(0);
  ASSERT_EQ(dialog_->bauds().size(), 7u);
  dialog_->m_nBaudRow = 6;
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_EQ(comm_.baud, 0u);
}

TEST_F(ConfigDialogTest, Validation) {
  struct Case { int data, stop, parity; bool ok; };
  for (const Case c : {Case{7, 2, kParityNone, true}, {8, 2, kParityNone, true},
                       {8, 2, kParityEven, false}, {8, 2, kParityOdd, false}, {8, 1, kParityOdd, true}}) {
    services_.shown.clear();
    Open(Feat(1, 4, 3));
    dialog_->m_nDataBits = c.data, dialog_->m_nStopBits = c.stop, dialog_->m_nParity = c.parity;
    EXPECT_EQ(dialog_->OnOK(), c.ok) << c.data << c.stop << c.parity;
    EXPECT_EQ(services_.shown.size(), c.ok ? 0u : 1u);
    if (!c.ok) {
      EXPECT_EQ(services_.shown[0], "text 2013 48");
    }
  }
}

TEST_F(ConfigDialogTest, EqualPortsPassWhereTheTwoListsNeverStandTogether) {
  feat_mask f = Feat(2, 4, 1);  // 514: the bar-code port shown, the port group hidden
  f.bar_code_reader = 1;
  Open(f);
  EXPECT_TRUE(dialog_->OnOK());
  EXPECT_EQ(dialog_->State(kGroupBarCodePort), STATE_SHOWN);
  Open(Feat(1, 4, 3));  // 512: the port group shown, the bar-code port hidden
  EXPECT_EQ(dialog_->State(kGroupBarCodePort), STATE_HIDDEN);
  EXPECT_TRUE(dialog_->OnOK());
}

TEST_F(ConfigDialogTest, SaveWritesTheRecords) {
  Open(Feat(1, 4, 3));  // 512
  dialog_->OnModelChange(RowOfModel(500));
  config_.tune_p8 = 1;
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_EQ(config_.feat_mask.family, 500u % 16);
  EXPECT_EQ(config_.feat_mask.series, 0u);
  EXPECT_EQ(config_.feat_mask.save_bit15, 0u);
  EXPECT_EQ(config_.feat_mask.save_bit13, 1u);
  EXPECT_EQ(comm_.port, 0);
  EXPECT_EQ(comm_.baud, 19200u);
  EXPECT_EQ(comm_.timeout, 10);
  EXPECT_EQ(comm_.parity, 'E');
  EXPECT_EQ(comm_.data_bits, 7);
  EXPECT_EQ(config_.tune_p8, 90);
  EXPECT_EQ(config_.limit_b, 2030);
}

TEST_F(ConfigDialogTest, SameModelKeepsTuningAndTypedTimeout) {
  config_.tune_p8 = 5, config_.lead_edge_tol = 3;
  comm_.port = 1;
  Open(Feat(1, 4, 3));
  dialog_->OnModelChange(RowOfModel(513));
  dialog_->OnModelChange(RowOfModel(512));
  dialog_->m_nTimeout = 99;
  dialog_->m_nParity = kParityOdd;
  ASSERT_TRUE(dialog_->OnOK());
  EXPECT_EQ(config_.tune_p8, 5);
  EXPECT_EQ(config_.lead_edge_tol, 3);
  EXPECT_EQ(comm_.timeout, 99);
  EXPECT_EQ(comm_.parity, 'O');
  EXPECT_EQ(comm_.port, 1);
}

TEST_F(ConfigDialogTest, AutoConfigureResultsAndTheirMessages) {
  struct Case { feat_mask f; int twain; int usb; bool padlot; int search_code; int want; const char* text; };
  const Case cases[] = {
      {Feat(12, 12, 12), 0, 0, false, 98, 0, "text 2087 64"},
      {Feat(12, 12, 13), -1, 0, false, 98, 38, "text 2095 48"},
      {Feat(12, 12, 13), -3, 0, false, 98, 98, "text 2062 48"},
      {Feat(12, 12, 13), 13, 0, false, 98, 13, "text 2092 48"},
      {Feat(12, 12, 13), 30, 0, false, 98, 30, "text 2091 48"},
      {Feat(1, 2, 5, 0, 1), 0, 0, false, 98, 98, "text 2062 48"},   // 503, no USB scanner
      {Feat(5, 3, 9), 0, 0, false, 98, 98, "text 2062 48"},         // 501: no port group
      {Feat(1, 4, 3), 0, 0, true, 98, 0, "text 2087 64"},           // PadLot found
      {Feat(1, 4, 3), 0, 0, false, 98, 98, "text 2062 48"},         // nothing answers
  };
  for (const Case& c : cases) {
    services_.shown.clear();
    services_.twain = c.twain, services_.usb = c.usb, services_.padlot = c.padlot;
    services_.search.code = c.search_code;
    Open(c.f);
    EXPECT_EQ(dialog_->AutoConfigure(), c.want) << c.text;
    ASSERT_EQ(services_.shown.size(), 1u) << c.text;
    EXPECT_EQ(services_.shown[0], c.text);
    EXPECT_EQ(dialog_->m_bTested, c.want == 0);
    EXPECT_FALSE(dialog_->busy());
  }
}

TEST_F(ConfigDialogTest, PadLotFoundSelectsItsModelAndKeepsThePort) {
  services_.padlot = true;
  comm_.port = 3;
  Open(Feat(1, 4, 3));
  dialog_->AutoConfigure();
  EXPECT_EQ(dialog_->selected_model(), 517);
  EXPECT_EQ(dialog_->ports()[dialog_->m_nPortRow].value, 3);
  EXPECT_EQ(services_.probed.back(), "padlot COM3");
}

TEST_F(ConfigDialogTest, UsbTestPicksTheModelFromItsFacts) {
  struct Case { int a, b, c, d; feat_mask f; int want; };
  for (const Case c : {Case{1, 1, 0, 0, Feat(1, 2, 5, 0, 1), 503}, {0, 1, 0, 0, Feat(1, 2, 5, 0, 1), 509},
                       {1, 0, 1, 0, Feat(1, 2, 7, 1, 1), 502}, {1, 0, 0, 1, Feat(1, 2, 7, 0, 1), 504}}) {
    services_.usb = 1;
    services_.usb_a = c.a, services_.usb_b = c.b, services_.usb_c = c.c, services_.usb_d = c.d;
    feat_mask f = c.f;
    f.bar_code_reader = 1, f.transport_printer = 1;  // the states from the bits are 0
    Open(f);
    EXPECT_EQ(dialog_->AutoConfigure(), 0);
    EXPECT_EQ(dialog_->selected_model(), c.want);
    EXPECT_EQ(dialog_->m_nBarCodeState, c.c ? 1 : 0) << c.want;
    EXPECT_EQ(dialog_->m_nPrinterState, c.d ? 1 : 0) << c.want;
  }
}

TEST_F(ConfigDialogTest, SearchSetsModelBaudAndRadios) {
  services_.search.code = 0;
  services_.search.model = {513, true};
  services_.search.setting.baud = 115200;
  services_.search.setting.data_bits = 7;
  services_.search.setting.stop_bits = 2;
  services_.search.setting.parity = platform::serial::Parity::kOdd;
  services_.search.options = {1, 2};
  Open(Feat(1, 4, 3));
  EXPECT_EQ(dialog_->AutoConfigure(), 0);
  EXPECT_EQ(dialog_->selected_model(), 513);
  EXPECT_EQ(dialog_->bauds()[dialog_->m_nBaudRow].value, 115200);
  EXPECT_EQ(dialog_->m_nStopBits, 2);
  EXPECT_EQ(dialog_->m_nParity, kParityOdd);
  EXPECT_EQ(dialog_->m_nBarCodeState, 1);
  EXPECT_EQ(dialog_->m_nPrinterState, 2);
  services_.search.open_error = "Error opening x. gone";
  services_.shown.clear();
  Open(Feat(1, 4, 3));
  EXPECT_EQ(dialog_->AutoConfigure(), 98);
  ASSERT_EQ(services_.shown.size(), 2u);
  EXPECT_EQ(services_.shown[0], "Error opening x. gone 64");
}

}  // namespace
}  // namespace qmk::discovery
