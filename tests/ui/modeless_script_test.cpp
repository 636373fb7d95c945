// modeless_script_test.cpp: the scripted operator on modeless dialogs (played by whatever loop
// pumps the thread's messages, once the dialog is visible), its Wait step, and a shown window
// flushed to the headless screen.
#include <gmock/gmock.h>

#include "platform/timers.h"
#include "platform/ui/headless_backend.h"
#include "ui/ui_fixture.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using ::testing::ElementsAre;

// What the order form's procedure saw: the name read on OK, or Cancel.
struct Form {
  std::string name = "unset";
  bool cancelled = false;
};

intptr_t FormProc(HWND dlg, unsigned msg, WPARAM wp, LPARAM lp) {
  if (msg == WM_INITDIALOG) {
    SetWindowLongPtr(dlg, GWLP_USERDATA, lp);
    return 1;
  }
  if (msg != WM_COMMAND || (LOWORD(wp) != IDOK && LOWORD(wp) != IDCANCEL)) return 0;
  auto* form = reinterpret_cast<Form*>(GetWindowLongPtr(dlg, GWLP_USERDATA));
  if (LOWORD(wp) == IDOK) form->name = GetDlgItemText(dlg, 101);
  else form->cancelled = true;
  EndDialog(dlg, LOWORD(wp));
  return 1;
}

class ModelessScripts : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    ServeOrderTemplate();
  }
  HWND Make(Form* form) {
    return CreateDialogParam(kOrder, nullptr, FormProc, reinterpret_cast<LPARAM>(form));
  }
  ScopedManualClock clock_;
};

TEST_F(ModelessScripts, PlayInTheLoopThatPumpsAndPressButtonsById) {
  QueueDialogScript(DialogScript(kOrder).SetText(101, "Lin").Press(IDOK));
  Form form;
  const HWND dlg = Make(&form);
  ASSERT_NE(dlg, nullptr);
  EXPECT_EQ(PendingDialogScripts(), 0) << "the modeless dialog took its script when made";
  ShowWindow(dlg, SW_SHOW);
  Pump();
  EXPECT_EQ(form.name, "Lin");
  EXPECT_FALSE(IsWindowVisible(dlg)) << "ended: hidden, left for its creator to destroy";
  EXPECT_THAT(DialogScriptLog(), ElementsAre("9100: set text 101 \"Lin\"", "9100: click 1"));
}

TEST_F(ModelessScripts, HiddenDialogIsNotActedOnUntilShown) {
  QueueDialogScript(DialogScript(kOrder).Press(IDCANCEL));
  Form form;
  const HWND dlg = Make(&form);
  ASSERT_NE(dlg, nullptr);
  for (int i = 0; i < 3; ++i) {
    clock_.clock().Advance(100);
    Pump();
  }
  EXPECT_FALSE(form.cancelled);
  EXPECT_TRUE(DialogScriptLog().empty());
  ShowWindow(dlg, SW_SHOW);
  clock_.clock().Advance(100);  // the hidden dialog's script looks again on a timer
  Pump();
  EXPECT_TRUE(form.cancelled);
}

TEST_F(ModelessScripts, WaitHoldsTheNextStepForTheClockWithoutKeepingTheLoopBusy) {
  QueueDialogScript(DialogScript(kOrder).Wait(2000).SetText(101, "late").Press(IDOK));
  // Counts the modal loop's idle turns; a loop kept busy by the wait would never see the manual
  // clock move, so past a bound the dialog is ended instead of hanging the test.
  int turns = 0;
  const int counter = AddIdleHandler([&](int) {
    if (++turns == 1000) EndDialog(GetActiveWindow(), -5);
    return false;
  });
  Form form;
  const intptr_t result =
      DialogBoxParam(kOrder, nullptr, FormProc, reinterpret_cast<LPARAM>(&form));
  RemoveIdleHandler(counter);
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(form.name, "late");
  EXPECT_EQ(clock_.clock().NowMs(), 2000) << "the loop slept until the wait was over, no longer";
  EXPECT_LT(turns, 50);
  EXPECT_EQ(DialogScriptLog().front(), "9100: wait 2000");
}

TEST_F(ModelessScripts, DestroyedDialogStopsItsScriptAndItsTimer) {
  QueueDialogScript(DialogScript(kOrder).Wait(5000).Press(IDCANCEL));
  Form first;
  const HWND dlg = Make(&first);
  ShowWindow(dlg, SW_SHOW);
  Pump();
  EXPECT_GE(platform::MsUntilNextTimer(), 0) << "the wait's wake-up timer";
  ASSERT_TRUE(DestroyWindow(dlg));
  EXPECT_EQ(platform::MsUntilNextTimer(), -1);
  // The script went with its dialog: the next dialog of the template has none to play.
  Form second;
  const HWND next = Make(&second);
  ShowWindow(next, SW_SHOW);
  clock_.clock().Advance(6000);
  Pump();
  EXPECT_FALSE(second.cancelled);
  EXPECT_FALSE(first.cancelled);
}

TEST_F(ModelessScripts, ModelessScriptPausesWhileAModalLoopRunsAboveIt) {
  QueueDialogScript(DialogScript(kOrder).SetText(101, "outer").Press(IDOK));
  QueueDialogScript(DialogScript(kOrder).SetText(101, "inner").Press(IDOK));
  Form outer, inner;
  const HWND dlg = Make(&outer);
  ShowWindow(dlg, SW_SHOW);
  // The modal dialog is opened before the modeless one's loop ever ran: only the modal one's
  // script may play inside its loop.
  EXPECT_EQ(DialogBoxParam(kOrder, nullptr, FormProc, reinterpret_cast<LPARAM>(&inner)), IDOK);
  EXPECT_EQ(inner.name, "inner");
  EXPECT_EQ(outer.name, "unset");
  clock_.clock().Advance(100);  // it looks again on a timer
  Pump();
  EXPECT_EQ(outer.name, "outer");
}

TEST_F(ModelessScripts, FlushToTheHeadlessScreenNeedsAShownWindow) {
  Form form;
  const HWND dlg = Make(&form);
  EXPECT_FALSE(FlushWindowToScreen(dlg, 100)) << "hidden";
  ShowWindow(dlg, SW_SHOW);
  EXPECT_TRUE(FlushWindowToScreen(GetDlgItem(dlg, 101), 100)) << "a control stands for its dialog";
  EXPECT_GT(headless()->surface(dlg)->presents, 0);
  DestroyWindow(dlg);
  EXPECT_FALSE(FlushWindowToScreen(dlg, 100));
}

}  // namespace
}  // namespace qmk::testing
