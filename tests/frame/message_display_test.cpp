// The message road: default icons, captions, missing and unformattable strings.
#include <gmock/gmock.h>

#include "frame/message_display.h"
#include "qmk/QmkGen.h"
#include "support/sim_fixture.h"
#include "toolkit/dialogs/string_table.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;

class MessageDisplay : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    GenSetMainAppModuleName("Scoring Desk");
  }
  void TearDown() override {
    GenSetMainAppModuleName(nullptr);
    GenSetHelpId(0);
    SessionTest::TearDown();
  }
};

TEST(DefaultIcon, ByButtonTypeWhenNoIconIsGiven) {
  struct Case { unsigned flags, shown; };
  for (Case c : {Case{0, 0x30}, {1, 0x31}, {2, 0x02}, {3, 0x23}, {4, 0x24}, {5, 0x05}, {0x10, 0x10},
                 {0x41, 0x41}, {0x104, 0x124}})
    EXPECT_EQ(frame::WithDefaultIcon(c.flags), c.shown) << c.flags;
}

TEST_F(MessageDisplay, DisplayUsesTheHostsNameAndHelpId) {
  GenSetHelpId(4711);
  op_.QueueAnswer(6);
  EXPECT_EQ(frame::DisplayMessage("Save changes?", 4), 6);
  EXPECT_THAT(op_.events(), ElementsAre("message \"Scoring Desk\" \"Save changes?\" flags=0x24 help=4711"));
}

TEST_F(MessageDisplay, WithoutAHostNameTheProgramNameStands) {
  GenSetMainAppModuleName(nullptr);
  frame::DisplayMessage("x", 0x10);
  EXPECT_EQ(op_.events()[0], "message \"test_frame\" \"x\" flags=0x10 help=0");
}

TEST_F(MessageDisplay, MissingStringStillShowsABox) {
  frame::ShowMessage(9999, 0);
  EXPECT_THAT(op_.events(),
              ElementsAre("message \"Scoring Desk\" \"Program error: cannot display the proper dialog "
                          "because the string 9999 could not be loaded from the resource\" flags=0x30 help=0"));
}

TEST_F(MessageDisplay, FormattedMessages) {
  frame::ShowMessageFormatted(4900, frame::kMbIconInformation, 48);
  EXPECT_THAT(op_.events()[0], ::testing::HasSubstr("under the maximum of 48.\" flags=0x40"));
  toolkit::ScopedStringOverride long_one(4900, std::string(5000, 'y') + "%d");
  frame::ShowMessageFormatted(4900, 0, 7);
  EXPECT_THAT(op_.events()[1], ::testing::HasSubstr(std::string(5000, 'y') + "7\""));
  frame::ShowMessageFormatted(12345, 0, 7);
  EXPECT_THAT(op_.events()[2], ::testing::HasSubstr("the string 12345 could not be loaded"));
}

}  // namespace
}  // namespace qmk::testing
