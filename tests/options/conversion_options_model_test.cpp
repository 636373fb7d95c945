// The conversion and edit options dialogs through their models and the work of their exports.
#include "options/conversion_options_model.h"

#include <gtest/gtest.h>

#include <cstring>

#include "fake_option_services.h"
#include "options/scanning_options_model.h"

namespace qmk::options {
namespace {

class ConversionOptionsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::memset(&record_, 0, sizeof record_);
    std::memset(record_.reserved6, 0x5A, sizeof record_.reserved6);
  }
  // Runs the dialog, doing `act` between initialisation and OK; Cancel when OK refuses.
  bool Run(const std::function<void(CConvertOptionsDialog&)>& act, bool press_ok = true) {
    return RunConversionOptions(&record_, 77, services_, [&](CConvertOptionsDialog& d) {
      EXPECT_EQ(d.m_nHelpId, 77);
      d.OnInitDialog();
      act(d);
      return press_ok && d.OnOK() ? frame::kIdOk : frame::kIdCancel;
    });
  }
  build_data record_;
  testing::FakeOptionServices services_;
};

TEST_F(ConversionOptionsTest, CancelLeavesAllThreeFields) {
  record_.conversionFlags = 0x11;
  record_.conversionReplaceExisting = 5;
  std::strcpy(record_.postScanConversionFileName, "/a/b.txt");
  const build_data before = record_;
  EXPECT_FALSE(Run([](CConvertOptionsDialog& d) { d.OnClick(kIdcUseDefaultName); d.OnClick(kIdcReplaceExisting); }, false));
  EXPECT_EQ(std::memcmp(&before, &record_, sizeof record_), 0);
}

TEST_F(ConversionOptionsTest, OkRebuildsTheFlagsWord) {
  services_.chooser_answer = "/data/typed.txt";
  struct Case { uint16_t flags_in; int click; uint16_t want_flags; const char* want_name; };
  for (const Case c : {Case{0xFFFF, kIdcUseDefaultName, 32, ""}, {0x0001, kIdcUseDefaultName, 32, ""},
                       {0xFFDF, kIdcUseOther, 0, "/a/b.txt"}, {32, kIdcUseOther, 0, "/data/typed.txt"}}) {
    std::memset(&record_, 0, sizeof record_);
    std::memset(record_.reserved6, 0x5A, sizeof record_.reserved6);
    record_.conversionFlags = c.flags_in;
    std::strcpy(record_.postScanConversionFileName, "/a/b.txt");
    ASSERT_TRUE(Run([&](CConvertOptionsDialog& d) {
      d.OnClick(c.click);
      // A name typed after switching from the default: the choice starts with an empty name.
      if (c.flags_in & 32) d.OnClick(kIdcBrowse);
    })) << c.flags_in;
    EXPECT_EQ(record_.conversionFlags, c.want_flags) << c.flags_in;
    EXPECT_STREQ(record_.postScanConversionFileName, c.want_name) << c.flags_in;
    EXPECT_EQ(record_.reserved6[0], 0x5A);
  }
}

TEST_F(ConversionOptionsTest, BareNameIsTestedAsTypedThenStoredWithTheDataFolder) {
  // The fake accepts only absolute names: a bare name is refused before a folder is added.
  EXPECT_FALSE(Run([](CConvertOptionsDialog& d) { d.OnClick(kIdcUseOther); }));
  ASSERT_EQ(services_.shown.size(), 1u);
  EXPECT_EQ(services_.shown[0], "561 16 ");
  services_.shown.clear();
  std::string name;
  int choice = 1;
  bool replace = false;
  CConvertOptionsDialog dialog(choice, name, replace, services_);
  name = "bad name";
  EXPECT_FALSE(dialog.OnOK());
  EXPECT_EQ(services_.shown[0], "561 16 bad name");
}

TEST_F(ConversionOptionsTest, FolderIsPutInFrontOfABareNameOnStore) {
  struct AcceptAll : testing::FakeOptionServices {
    bool FileSpecUsable(const std::string& p) override { return !p.empty(); }
  } accepting;
  accepting.chooser_answer = "plain.txt";
  record_.conversionFlags = 32;
  ASSERT_TRUE(RunConversionOptions(&record_, 0, accepting, [](CConvertOptionsDialog& d) {
    d.OnInitDialog();
    d.OnClick(kIdcUseOther);
    d.OnClick(kIdcBrowse);
    return d.OnOK() ? frame::kIdOk : frame::kIdCancel;
  }));
  EXPECT_STREQ(record_.postScanConversionFileName, "/data/plain.txt");
  EXPECT_EQ(record_.conversionFlags, 0);
}

TEST_F(ConversionOptionsTest, ReplaceFlagIsStoredAsZeroOrOne) {
  record_.conversionFlags = 32;
  record_.conversionReplaceExisting = 9;
  ASSERT_TRUE(Run([](CConvertOptionsDialog&) {}));
  EXPECT_EQ(record_.conversionReplaceExisting, 1);
  ASSERT_TRUE(Run([](CConvertOptionsDialog& d) { d.OnClick(kIdcReplaceExisting); }));
  EXPECT_EQ(record_.conversionReplaceExisting, 0);
}

TEST_F(ConversionOptionsTest, NameEditAndBrowseFollowTheChoice) {
  record_.conversionFlags = 32;
  Run([](CConvertOptionsDialog& d) {
    EXPECT_FALSE(d.Enabled(kIdcOutputFile));
    EXPECT_FALSE(d.Enabled(kIdcBrowse));
    EXPECT_EQ(d.focus(), frame::kIdOk);
    d.OnClick(kIdcUseOther);
    EXPECT_TRUE(d.Enabled(kIdcOutputFile));
    EXPECT_TRUE(d.Enabled(kIdcBrowse));
    d.OnClick(kIdcUseDefaultName);
  });
}

TEST(EditOptions, RadioMapping) {
  struct Case { uint16_t mode; int radio; };
  for (const Case c : {Case{0, 0}, {1, 0}, {2, 1}, {3, 0}, {4, 2}, {5, 0}, {0xFFFF, 0}})
    EXPECT_EQ(EditModeRadio(c.mode), c.radio) << c.mode;
  for (const Case c : {Case{1, 0}, {2, 1}, {4, 2}, {1, 7}, {1, -1}})
    EXPECT_EQ(EditModeOfRadio(c.radio), c.mode) << c.radio;
}

TEST(EditOptions, OkStoresTheRadioAndCancelLeavesTheRecord) {
  build_data record;
  std::memset(&record, 0, sizeof record);
  std::memset(record.reserved7, 0x33, sizeof record.reserved7);
  auto press = [&](int click, int answer) {
    return RunEditOptions(&record, 12, [&](CEditOptionsDialog& d) {
      EXPECT_EQ(d.m_nHelpId, 12);
      d.OnInitDialog();
      if (click) d.OnClick(click);
      if (answer == frame::kIdOk) d.OnOK();
      return answer;
    });
  };
  // editMode 0 shows the first radio and becomes 1 on OK.
  EXPECT_TRUE(press(0, frame::kIdOk));
  EXPECT_EQ(record.editMode, 1);
  EXPECT_FALSE(press(kIdcClearEditFlags, frame::kIdCancel));
  EXPECT_EQ(record.editMode, 1);
  EXPECT_TRUE(press(kIdcClearEditFlags, frame::kIdOk));
  EXPECT_EQ(record.editMode, 4);
  EXPECT_TRUE(press(kIdcRecheckAll, frame::kIdOk));
  EXPECT_EQ(record.editMode, 2);
  EXPECT_EQ(record.reserved7[787], 0x33);
}

}  // namespace
}  // namespace qmk::options
