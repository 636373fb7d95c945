// The wait notices as real modeless dialogs of template 2001 on the headless back end: the host
// window disabled for the wait's life, the notice centred over it, the countdown on the window
// system's timer, and Cancel pressed on the notice's own button.
#include <gmock/gmock.h>

#include "dialog_session_fixture.h"
#include "frame/message_pump.h"
#include "frame/modeless_info_dlg.h"
#include "frame/wait_notices.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkLink.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;

int Remaining() { return QlkRemainingLampWarmUpTime(nullptr); }

// What a person at the screen saw before pressing the notice's Cancel after three seconds.
struct Person {
  HWND host = nullptr;
  platform::Clock* clock = nullptr;
  std::string text;
  bool host_enabled = true;
  bool clicked = false;

  static Person* current;
  static void Look(HWND, unsigned, uintptr_t, int64_t) {
    Person& p = *current;
    HWND notice = nullptr;
    for (HWND t : GetChildren(nullptr))
      if (GetDialogTemplateId(t) == frame::kInfoDialogTemplate && IsWindowVisible(t)) notice = t;
    if (!notice || p.clicked || p.clock->NowMs() < 3000) return;
    p.text = GetDlgItemText(notice, frame::kInfoLabelId);
    p.host_enabled = IsWindowEnabled(p.host);
    p.clicked = ClickWindow(GetDlgItem(notice, IDCANCEL));
  }
};
Person* Person::current = nullptr;

class WaitDialog : public DialogSessionTest {
 protected:
  void OpenTwain(int warm_up_s) {
    QlkSimSetLampWarmUp(warm_up_s);
    rec_ = OpenReader({12, 12, 12, true});
    ASSERT_NE(rec_, nullptr);
  }
  void TearDown() override {
    if (rec_) ScnScanTerm(rec_);
    GenSetHelpId(0);
    DialogSessionTest::TearDown();
  }
  // One second passes and the waiting loop takes its turn.
  void Second() {
    clock_.Advance(1000);
    frame::PumpWhileWaiting(0);
  }
  void ExpectCentredOverHost(HWND notice) {
    const Rect h = ScreenRect(host_), n = ScreenRect(notice);
    EXPECT_EQ(n.left, h.left + (h.Width() - n.Width()) / 2);
    EXPECT_EQ(n.top, h.top + (h.Height() - n.Height()) / 2);
  }
  qlkdata_rec* rec_ = nullptr;
};

TEST_F(WaitDialog, ConnectionNoticeHoldsTheHostForItsLife) {
  GenSetHelpId(77);
  HWND notice = nullptr;
  {
    frame::CScnWaitInfoMessage wait(host_);
    notice = FindDialog(frame::kInfoDialogTemplate);
    ASSERT_NE(notice, nullptr);
    EXPECT_FALSE(IsWindowEnabled(host_));
    EXPECT_EQ(GetWindowText(notice), "MarkDesk Plus");
    EXPECT_EQ(GetDlgItemText(notice, frame::kInfoLabelId),
              "Connecting to Scanner.\n\nPlease wait...");
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(notice, IDCANCEL)));
    ExpectCentredOverHost(notice);
    EXPECT_EQ(GenGetHelpId(), 77) << "a notice swaps no help context";
  }
  EXPECT_TRUE(IsWindowEnabled(host_));
  EXPECT_FALSE(IsWindow(notice));
}

TEST_F(WaitDialog, LampNoticeCountsOnTheWindowSystemTimerAndCancelLeavesItUp) {
  OpenTwain(90);
  frame::CScnWaitLampWarmup wait(host_, Remaining);
  const HWND notice = FindDialog(frame::kInfoDialogTemplate);
  ASSERT_NE(notice, nullptr);
  EXPECT_EQ(GetDlgItemText(notice, frame::kInfoLabelId),
            "Lamps are warming up.  1:30 minutes remaining.");
  EXPECT_TRUE(IsWindowVisible(GetDlgItem(notice, IDCANCEL)));
  ExpectCentredOverHost(notice);
  Second();
  EXPECT_EQ(GetDlgItemText(notice, frame::kInfoLabelId),
            "Lamps are warming up.  1:29 minutes remaining.");

  ASSERT_TRUE(ClickWindow(GetDlgItem(notice, IDCANCEL)));
  frame::PumpWhileWaiting(0);
  EXPECT_TRUE(wait.Cancelled());
  EXPECT_TRUE(IsWindowVisible(notice)) << "Cancel only raises the flag";
  EXPECT_FALSE(IsWindowEnabled(host_));
}

TEST_F(WaitDialog, ScanStopsWith7WhenTheNoticesCancelIsPressed) {
  LoadBatch("sheet\nend\n");
  OpenTwain(60);
  // A person reads the countdown for a few seconds, then presses Cancel; they look twice a
  // second, on a timer of the window system as the countdown is.
  Person person;
  person.host = host_;
  person.clock = &clock_;
  Person::current = &person;
  const uintptr_t looks = SetTimer(nullptr, 0, 500, Person::Look);
  std::vector<char> front(QMK_OMR_BYTES), back(QMK_OMR_BYTES);
  int ints[4];
  const int result = ScnScanForOMR(host_, rec_, 0, QMK_OMR_BYTES, front.data(), back.data(),
                                   &ints[0], &ints[1], &ints[2], &ints[3]);
  KillTimer(nullptr, looks);

  EXPECT_EQ(result, 7);
  EXPECT_TRUE(person.clicked);
  EXPECT_THAT(person.text,
              ::testing::MatchesRegex("Lamps are warming up\\.  0:5[0-9] minutes remaining\\."));
  EXPECT_FALSE(person.host_enabled);
  EXPECT_TRUE(IsWindowEnabled(host_));
  EXPECT_EQ(FindDialog(frame::kInfoDialogTemplate), nullptr);
  EXPECT_EQ(frame::CurrentLampWarmup(), nullptr);
  EXPECT_EQ(QlkSimStackerCount(0), 0) << "the sheet was never read";
}

}  // namespace
}  // namespace qmk::testing
