// The wait notices as real modeless dialogs of template 2001 on the headless back end: the host
// window disabled for the wait's life, the notice centred over it, the countdown on the window
// system's timer, and Cancel pressed on the notice's own button by the scripted operator.
#include <gmock/gmock.h>

#include "dialog_session_fixture.h"
#include "frame/message_pump.h"
#include "frame/modeless_info_dlg.h"
#include "frame/wait_notices.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkLink.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;

int Remaining() { return QlkRemainingLampWarmUpTime(nullptr); }

// What the screen showed when the mouse went down on the notice's Cancel button, seen by a
// filter ahead of every message the thread dispatches.
struct PressSeen {
  HWND host = nullptr;
  platform::Clock* clock = nullptr;
  std::string text;
  bool host_enabled = true;
  int64_t at_ms = -1;
  int filter = 0;

  void Watch() {
    filter = AddMessageFilter([this](MSG& msg) {
      const HWND notice = GetParent(msg.hwnd);
      if (msg.message == WM_LBUTTONDOWN && at_ms < 0 && GetDlgCtrlID(msg.hwnd) == IDCANCEL &&
          GetDialogTemplateId(notice) == frame::kInfoDialogTemplate) {
        text = GetDlgItemText(notice, frame::kInfoLabelId);
        host_enabled = IsWindowEnabled(host);
        at_ms = clock->NowMs();
      }
      return false;
    });
  }
  ~PressSeen() { RemoveMessageFilter(filter); }
};

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
  // A person reads the countdown for three seconds, then presses the notice's Cancel. The
  // script plays in the scan's own waiting loop, the countdown ticking meanwhile.
  QueueDialogScript(DialogScript(frame::kInfoDialogTemplate).Wait(3000).Press(IDCANCEL));
  PressSeen seen;
  seen.host = host_;
  seen.clock = &clock_;
  seen.Watch();
  std::vector<char> front(QMK_OMR_BYTES), back(QMK_OMR_BYTES);
  int ints[4];
  const int result = ScnScanForOMR(host_, rec_, 0, QMK_OMR_BYTES, front.data(), back.data(),
                                   &ints[0], &ints[1], &ints[2], &ints[3]);

  EXPECT_EQ(result, 7);
  EXPECT_EQ(PendingDialogScripts(), 0);
  EXPECT_THAT(DialogScriptLog(), ::testing::ElementsAre("2001: wait 3000", "2001: click 2"));
  EXPECT_GE(seen.at_ms, 3000);
  EXPECT_LT(seen.at_ms, 4000) << "the wait slept well past the script's time";
  EXPECT_THAT(seen.text,
              ::testing::MatchesRegex("Lamps are warming up\\.  0:5[78] minutes remaining\\."));
  EXPECT_FALSE(seen.host_enabled);
  EXPECT_TRUE(IsWindowEnabled(host_));
  EXPECT_EQ(FindDialog(frame::kInfoDialogTemplate), nullptr);
  EXPECT_EQ(frame::CurrentLampWarmup(), nullptr);
  EXPECT_EQ(QlkSimStackerCount(0), 0) << "the sheet was never read";
}

}  // namespace
}  // namespace qmk::testing
