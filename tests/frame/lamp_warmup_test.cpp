// The lamp warm-up notice: its countdown, hiding at 0, Cancel, and the fall-back format.
#include <gmock/gmock.h>

#include "frame/message_pump.h"
#include "frame/wait_notices.h"
#include "qmk/QmkLink.h"
#include "platform/timers.h"
#include "support/sim_fixture.h"
#include "toolkit/dialogs/string_table.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;

const QMK_HWND kParent = reinterpret_cast<QMK_HWND>(9);
// What the scanning side gives the notice: the simulated transport's remaining time.
int Remaining() { return QlkRemainingLampWarmUpTime(nullptr); }

class LampWarmup : public SessionTest {
 protected:
  void OpenTwain(int warm_up_s) {
    QlkSimSetLampWarmUp(warm_up_s);
    rec_ = OpenReader({12, 12, 12, true});
    op_.ClearEvents();
  }
  void TearDown() override {
    ScnScanTerm(rec_);
    SessionTest::TearDown();
  }
  // One second passes and the waiting loop pumps the window system's timers.
  void Second() {
    clock_.Advance(1000);
    frame::PumpWhileWaiting(0);
  }
  qlkdata_rec* rec_ = nullptr;
};

TEST(LampTime, MinutesAndSecondsWithALeadingZero) {
  const std::string format = "Lamps are warming up.  %d:%02d minutes remaining.";
  EXPECT_EQ(frame::FormatLampTime(format, 90), "Lamps are warming up.  1:30 minutes remaining.");
  EXPECT_EQ(frame::FormatLampTime(format, 9), "Lamps are warming up.  0:09 minutes remaining.");
}

TEST_F(LampWarmup, CountsDownOnceASecondAndHidesAtZero) {
  OpenTwain(2);
  {
    frame::CScnWaitLampWarmup wait(kParent, Remaining);
    EXPECT_EQ(frame::CurrentLampWarmup(), &wait);
    Second();
    Second();
    EXPECT_FALSE(op_.Enabled(kParent));
  }
  EXPECT_TRUE(op_.Enabled(kParent));
  EXPECT_EQ(frame::CurrentLampWarmup(), nullptr);
  EXPECT_THAT(op_.events(),
              ElementsAre("notice create \"\" cancel=1", "disable 9", "notice move 412,354",
                          "notice text \"Lamps are warming up.  0:02 minutes remaining.\"",
                          "notice show 1",
                          "notice text \"Lamps are warming up.  0:01 minutes remaining.\"",
                          "notice show 1", "notice show 0", "enable 9", "notice destroy"));
}

TEST_F(LampWarmup, ReadyLampsShowNothingButTheParentWaitsAllTheSame) {
  OpenTwain(0);
  {
    frame::CScnWaitLampWarmup wait(kParent, Remaining);
    EXPECT_FALSE(op_.Enabled(kParent));
  }
  EXPECT_THAT(op_.events(), ElementsAre("notice create \"\" cancel=1", "disable 9",
                                        "notice move 412,354", "enable 9", "notice destroy"));
}

TEST_F(LampWarmup, HiddenNoticeComesBackWhenTimeIsReportedAgain) {
  OpenTwain(0);
  frame::CScnWaitLampWarmup wait(kParent, Remaining);
  QlkSimForceResult("QlkRemainingLampWarmUpTime", 75, 1);
  Second();
  EXPECT_EQ(op_.events().back(), "notice show 1");
  EXPECT_EQ(op_.events()[op_.events().size() - 2],
            "notice text \"Lamps are warming up.  1:15 minutes remaining.\"");
}

TEST_F(LampWarmup, CancelSetsTheFlagAndLeavesTheNoticeUp) {
  OpenTwain(60);
  frame::CScnWaitLampWarmup wait(kParent, Remaining);
  op_.PressCancelAfterPumps(1);
  op_.PumpMessages();
  EXPECT_TRUE(wait.Cancelled());
  EXPECT_NE(op_.events().back(), "notice destroy");
  EXPECT_FALSE(op_.Enabled(kParent));
}

TEST_F(LampWarmup, FallbackFormatShowsMinutesAsSeconds) {
  toolkit::ScopedStringOverride missing(6, std::nullopt);
  OpenTwain(90);
  frame::CScnWaitLampWarmup wait(kParent, Remaining);
  EXPECT_EQ(wait.m_strFormat, "Lamps are warming up.  %d seconds remaining.");
  EXPECT_THAT(op_.events(), ::testing::Contains("notice text \"Lamps are warming up.  1 seconds remaining.\""));
}

TEST_F(LampWarmup, NoticeThatCannotBeMadeLeavesTheParentAndStopsTicking) {
  OpenTwain(30);
  op_.FailNextNotice();
  {
    frame::CScnWaitLampWarmup wait(kParent, Remaining);
    EXPECT_EQ(frame::CurrentLampWarmup(), nullptr);
    EXPECT_FALSE(wait.Cancelled());
    Second();
  }
  EXPECT_THAT(op_.events(), ElementsAre("notice failed"));
  EXPECT_TRUE(op_.Enabled(kParent));
  EXPECT_EQ(platform::MsUntilNextTimer(), -1);
}

}  // namespace
}  // namespace qmk::testing
