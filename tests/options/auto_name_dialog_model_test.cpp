// The automatic file naming dialog through its model: the reset rule both ways, "Next:", the
// preset list and its descriptions, and OK against Cancel.
#include "options/auto_name_dialog_model.h"

#include <gtest/gtest.h>

#include "fake_option_services.h"

namespace qmk::options {
namespace {

class AutoNameDialogTest : public ::testing::Test {
 protected:
  CAutoNameDialog Make() { return CAutoNameDialog(&template_, &sequence_, &flags_, services_); }
  std::string template_ = "Scan*S.dat";
  int16_t sequence_ = 41;
  uint8_t flags_ = QMK_AUTONAME_NEVER_RESET;
  testing::FakeOptionServices services_;
};

TEST_F(AutoNameDialogTest, FlagsGiveTheRadioAndTheRadioGivesTheFlags) {
  struct Case { uint8_t in; int radio; bool batch; };
  for (const Case c : {Case{QMK_AUTONAME_RESET_DAILY, 0, false},
                       {QMK_AUTONAME_RESET_WEEKLY | QMK_AUTONAME_RESET_MONTHLY, 1, false},
                       {QMK_AUTONAME_RESET_MONTHLY | QMK_AUTONAME_USE_AS_BATCH, 2, true},
                       {QMK_AUTONAME_NEVER_RESET, 3, false}, {0, 3, false},
                       {QMK_AUTONAME_RESET_DAILY | QMK_AUTONAME_RESET_WEEKLY, 0, false}}) {
    flags_ = c.in;
    CAutoNameDialog dialog = Make();
    EXPECT_EQ(dialog.m_nResetRule, c.radio) << int(c.in);
    EXPECT_EQ(dialog.m_bUseAsBatch, c.batch) << int(c.in);
  }
  struct Out { int radio; bool batch; uint8_t want; };
  for (const Out o : {Out{0, false, QMK_AUTONAME_RESET_DAILY}, {1, true, QMK_AUTONAME_RESET_WEEKLY | QMK_AUTONAME_USE_AS_BATCH},
                      {2, false, QMK_AUTONAME_RESET_MONTHLY}, {3, true, QMK_AUTONAME_NEVER_RESET | QMK_AUTONAME_USE_AS_BATCH}}) {
    flags_ = 0;
    CAutoNameDialog dialog = Make();
    dialog.OnInitDialog();
    dialog.m_nResetRule = o.radio;
    dialog.m_bUseAsBatch = o.batch;
    ASSERT_TRUE(dialog.OnOK());
    EXPECT_EQ(flags_, o.want) << o.radio;
  }
}

TEST_F(AutoNameDialogTest, NextShowsSequencePlusOneAndZeroStoresMinusOne) {
  CAutoNameDialog dialog = Make();
  EXPECT_EQ(dialog.m_nNext, 42);
  dialog.OnInitDialog();
  dialog.m_nNext = 0;
  ASSERT_TRUE(dialog.OnOK());
  EXPECT_EQ(sequence_, -1);
}

TEST_F(AutoNameDialogTest, NextOutsideTheRangeStopsWithTheFrameworkMessage) {
  for (const int next : {-1, 1000}) {
    services_.shown.clear();
    CAutoNameDialog dialog = Make();
    dialog.OnInitDialog();
    dialog.m_nNext = next;
    dialog.m_nResetRule = 0;
    EXPECT_FALSE(dialog.OnOK()) << next;
    EXPECT_EQ(services_.shown.size(), 1u);
    EXPECT_TRUE(services_.templates_checked.empty());
    EXPECT_EQ(sequence_, 41);
    EXPECT_EQ(flags_, QMK_AUTONAME_NEVER_RESET);
  }
}

TEST_F(AutoNameDialogTest, RefusedTemplateChangesNothing) {
  services_.template_ok = false;
  CAutoNameDialog dialog = Make();
  dialog.OnInitDialog();
  dialog.OnEditChange("*Q.dat");
  dialog.m_nNext = 7;
  EXPECT_FALSE(dialog.OnOK());
  ASSERT_EQ(services_.templates_checked.size(), 1u);
  EXPECT_EQ(services_.templates_checked[0], "*Q.dat");
  EXPECT_EQ(template_, "Scan*S.dat");
  EXPECT_EQ(sequence_, 41);
}

TEST_F(AutoNameDialogTest, PresetsAreSortedAndTheTemplateIsSelectedWithItsDescription) {
  CAutoNameDialog dialog = Make();
  dialog.OnInitDialog();
  ASSERT_EQ(dialog.entries().size(), 10u);
  EXPECT_TRUE(std::is_sorted(dialog.entries().begin(), dialog.entries().end()));
  ASSERT_GE(dialog.selected(), 0);
  EXPECT_EQ(dialog.entries()[dialog.selected()], "Scan*S.dat");
  EXPECT_EQ(dialog.description(), "Literal plus a sequence number: Scan001");
}

TEST_F(AutoNameDialogTest, UnknownTemplateIsAddedAsAnEntry) {
  template_ = "Zed*S.dat";
  CAutoNameDialog dialog = Make();
  dialog.OnInitDialog();
  EXPECT_EQ(dialog.entries().size(), 11u);
  EXPECT_EQ(dialog.entries()[dialog.selected()], "Zed*S.dat");
  EXPECT_EQ(dialog.description(), "");
}

TEST_F(AutoNameDialogTest, TemplateIsSelectedByPrefixWithoutRegardToCase) {
  template_ = "scan";
  CAutoNameDialog dialog = Make();
  dialog.OnInitDialog();
  EXPECT_EQ(dialog.m_strTemplate, "Scan*N*D.dat");
}

TEST_F(AutoNameDialogTest, BatchPresetCarriesItsSuffixIntoTheTemplate) {
  CAutoNameDialog dialog = Make();
  dialog.OnInitDialog();
  const auto& e = dialog.entries();
  const int index = static_cast<int>(std::find(e.begin(), e.end(), "*W*S.dat (batch)") - e.begin());
  dialog.OnSelChange(index);
  EXPECT_EQ(dialog.description(), "Day and batch: Mon001 (check \"Use as batch...\")");
  ASSERT_TRUE(dialog.OnOK());
  EXPECT_EQ(template_, "*W*S.dat (batch)");
}

TEST_F(AutoNameDialogTest, DescriptionLabelFollowsTypedText) {
  CAutoNameDialog dialog = Make();
  dialog.OnInitDialog();
  const std::string shown = dialog.description();
  struct Case { const char* typed; bool enabled; };
  for (const Case c : {Case{"my*S.dat", false}, {"*m*d.DAT", true}, {"*M*D.dat", true}, {"", false}}) {
    dialog.OnEditChange(c.typed);
    EXPECT_EQ(dialog.description_enabled(), c.enabled) << c.typed;
    EXPECT_EQ(dialog.description(), shown) << "typing never changes the text";
  }
  dialog.OnEditChange("x");
  dialog.OnSelChange(0);
  EXPECT_TRUE(dialog.description_enabled());
}

TEST_F(AutoNameDialogTest, WithoutOkTheCallersValuesStay) {
  {
    CAutoNameDialog dialog = Make();
    dialog.OnInitDialog();
    dialog.OnSelChange(0);
    dialog.m_nNext = 3;
    dialog.m_nResetRule = 0;
  }
  EXPECT_EQ(template_, "Scan*S.dat");
  EXPECT_EQ(sequence_, 41);
  EXPECT_EQ(flags_, QMK_AUTONAME_NEVER_RESET);
}

}  // namespace
}  // namespace qmk::options
