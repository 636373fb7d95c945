// message_order_test.cpp: the order of messages that creation, destruction, focus, capture,
// showing and positioning send.
#include <gmock/gmock.h>

#include "ui/ui_fixture.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

class MessageOrder : public UiTest {
 protected:
  HWND Top(const char* name, uint32_t style = WS_POPUP | WS_VISIBLE) {
    return CreateWindowEx(0, "Recorder", name, style, 10, 10, 200, 100, nullptr, 0, nullptr);
  }
  HWND Child(HWND parent, const char* name, int id, uint32_t style = WS_VISIBLE) {
    return CreateWindowEx(0, "Recorder", name, WS_CHILD | style, 5, 5, 50, 20, parent, id,
                          nullptr);
  }
  std::vector<std::string> Take() {
    auto log = RecordedMessages();
    RecordedMessages().clear();
    return log;
  }
};

TEST_F(MessageOrder, HiddenTopLevelCreation) {
  ASSERT_TRUE(Top("t", WS_POPUP));
  EXPECT_THAT(Take(), ElementsAre("t:WM_GETMINMAXINFO", "t:WM_NCCREATE", "t:WM_NCCALCSIZE",
                                  "t:WM_CREATE", "t:WM_SIZE", "t:WM_MOVE"));
}

TEST_F(MessageOrder, VisibleTopLevelIsShownAndActivatedAfterCreate) {
  ASSERT_TRUE(Top("t"));
  EXPECT_THAT(Take(), ElementsAre("t:WM_GETMINMAXINFO", "t:WM_NCCREATE", "t:WM_NCCALCSIZE",
                                  "t:WM_CREATE", "t:WM_SIZE", "t:WM_MOVE", "t:WM_SHOWWINDOW",
                                  "t:WM_WINDOWPOSCHANGING", "t:WM_WINDOWPOSCHANGED",
                                  "t:WM_NCACTIVATE", "t:WM_ACTIVATE", "t:WM_SETFOCUS"));
  EXPECT_EQ(GetFocus(), GetActiveWindow());
}

TEST_F(MessageOrder, VisibleChildIsShownWithoutActivation) {
  HWND t = Top("t");
  Take();
  ASSERT_TRUE(Child(t, "c", 7));
  EXPECT_THAT(Take(), ElementsAre("c:WM_NCCREATE", "c:WM_NCCALCSIZE", "c:WM_CREATE", "c:WM_SIZE",
                                  "c:WM_MOVE", "c:WM_SHOWWINDOW", "c:WM_WINDOWPOSCHANGING",
                                  "c:WM_WINDOWPOSCHANGED"));
}

TEST_F(MessageOrder, DestroyGoesParentFirstThenNcDestroyDeepestFirst) {
  HWND t = Top("t");
  HWND a = Child(t, "a", 1, 0);
  Child(a, "a1", 2, 0);
  Child(t, "b", 3, 0);
  Take();
  EXPECT_TRUE(DestroyWindow(t));
  EXPECT_THAT(Take(), ElementsAre("t:WM_WINDOWPOSCHANGING", "t:WM_WINDOWPOSCHANGED",
                                  "t:WM_KILLFOCUS", "t:WM_NCACTIVATE", "t:WM_ACTIVATE",
                                  "t:WM_DESTROY", "a:WM_DESTROY", "a1:WM_DESTROY", "b:WM_DESTROY",
                                  "a1:WM_NCDESTROY", "a:WM_NCDESTROY", "b:WM_NCDESTROY",
                                  "t:WM_NCDESTROY"));
  EXPECT_FALSE(IsWindow(t));
  EXPECT_FALSE(IsWindow(a));
}

TEST_F(MessageOrder, OwnedWindowsGoBeforeTheirOwner) {
  HWND owner = Top("owner");
  CreateWindowEx(0, "Recorder", "owned", WS_POPUP, 0, 0, 10, 10, owner, 0, nullptr);
  Take();
  DestroyWindow(owner);
  const auto log = Take();
  const auto owned_gone = std::find(log.begin(), log.end(), "owned:WM_NCDESTROY");
  const auto owner_destroy = std::find(log.begin(), log.end(), "owner:WM_DESTROY");
  ASSERT_NE(owned_gone, log.end());
  EXPECT_LT(owned_gone, owner_destroy);
}

TEST_F(MessageOrder, FocusChangeKillsBeforeItSets) {
  HWND t = Top("t");
  HWND a = Child(t, "a", 1);
  HWND b = Child(t, "b", 2);
  SetFocus(a);
  Take();
  EXPECT_EQ(SetFocus(b), a);
  EXPECT_THAT(Take(), ElementsAre("a:WM_KILLFOCUS", "b:WM_SETFOCUS"));
  EXPECT_EQ(GetFocus(), b);
}

TEST_F(MessageOrder, HiddenAndDisabledWindowsRefuseFocus) {
  HWND t = Top("t");
  HWND hidden = Child(t, "h", 1, 0);
  HWND off = Child(t, "d", 2, WS_VISIBLE | WS_DISABLED);
  SetFocus(t);
  EXPECT_EQ(SetFocus(hidden), nullptr);
  EXPECT_EQ(SetFocus(off), nullptr);
  EXPECT_EQ(GetFocus(), t);
}

TEST_F(MessageOrder, DisablingTheFocusWindowMovesFocusToItsParent) {
  HWND t = Top("t");
  HWND a = Child(t, "a", 1);
  SetFocus(a);
  Take();
  EnableWindow(a, false);
  EXPECT_THAT(Take(), ElementsAre("a:WM_KILLFOCUS", "t:WM_SETFOCUS", "a:WM_ENABLE"));
  EXPECT_EQ(GetFocus(), t);
}

TEST_F(MessageOrder, CaptureChangeTellsTheLoser) {
  HWND t = Top("t");
  HWND a = Child(t, "a", 1);
  HWND b = Child(t, "b", 2);
  EXPECT_EQ(SetCapture(a), nullptr);
  Take();
  EXPECT_EQ(SetCapture(b), a);
  EXPECT_TRUE(ReleaseCapture());
  EXPECT_THAT(Take(), ElementsAre("a:WM_CAPTURECHANGED", "b:WM_CAPTURECHANGED"));
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(MessageOrder, CapturedMouseGoesToTheCaptureWindow) {
  HWND t = Top("t");
  HWND a = Child(t, "a", 1);
  SetCapture(a);
  Pump();
  Take();
  InjectMouse(MouseAction::Move, {150, 90});  // far outside `a`
  Pump();
  EXPECT_THAT(Take(), ElementsAre("a:WM_MOUSEMOVE"));
}

TEST_F(MessageOrder, MoveAndSizeSendChangingChangedThenMoveAndSize) {
  HWND t = Top("t");
  HWND a = Child(t, "a", 1);
  Take();
  SetWindowPos(a, nullptr, 7, 8, 30, 40, SWP_NOZORDER);
  EXPECT_THAT(Take(), ElementsAre("a:WM_WINDOWPOSCHANGING", "a:WM_NCCALCSIZE",
                                  "a:WM_WINDOWPOSCHANGED", "a:WM_MOVE", "a:WM_SIZE"));
  SetWindowPos(a, nullptr, 7, 8, 30, 40, SWP_NOZORDER);
  EXPECT_THAT(Take(), ElementsAre("a:WM_WINDOWPOSCHANGING", "a:WM_WINDOWPOSCHANGED"));
}

TEST_F(MessageOrder, KeysGoToTheFocusAndAltMakesThemSystemKeys) {
  HWND t = Top("t");
  HWND a = Child(t, "a", 1);
  SetFocus(a);
  Pump();
  Take();
  InjectKeyPress('X');
  InjectKeyPress('F', kModAlt);
  Pump();
  EXPECT_THAT(Take(), ElementsAre("a:WM_KEYDOWN", "a:WM_KEYUP", "a:WM_SYSKEYDOWN", "a:WM_SYSCHAR",
                                  "a:WM_SYSKEYUP"));
}

TEST_F(MessageOrder, AltF4ClosesTheTopLevelWindow) {
  HWND t = Top("t");
  Take();
  InjectKeyPress(VK_F4, kModAlt);
  Pump();
  EXPECT_FALSE(IsWindow(t));
}

TEST_F(MessageOrder, ClickActivatesTheWindowUnderThePointer) {
  HWND first = Top("first");
  HWND second = CreateWindowEx(0, "Recorder", "second", WS_POPUP | WS_VISIBLE, 400, 400, 50, 50,
                               nullptr, 0, nullptr);
  ASSERT_EQ(GetActiveWindow(), second);
  Pump();
  Take();
  InjectClick({20, 20});
  Pump();
  EXPECT_EQ(GetActiveWindow(), first);
  auto log = Take();
  EXPECT_EQ(log.front(), "first:WM_MOUSEMOVE");
  EXPECT_NE(std::find(log.begin(), log.end(), "first:WM_MOUSEACTIVATE"), log.end());
  EXPECT_NE(std::find(log.begin(), log.end(), "first:WM_LBUTTONUP"), log.end());
}

TEST_F(MessageOrder, StaleHandlesAreRefusedWithoutHarm) {
  HWND t = Top("t");
  DestroyWindow(t);
  EXPECT_FALSE(IsWindow(t));
  EXPECT_EQ(SendMessage(t, WM_CLOSE, 0, 0), 0);
  EXPECT_FALSE(PostMessage(t, WM_CLOSE, 0, 0));
  EXPECT_FALSE(DestroyWindow(t));
  Rect r;
  EXPECT_FALSE(GetWindowRect(t, &r));
  // A new window never reuses the old number.
  EXPECT_NE(Top("u"), t);
}

LRESULT g_prev_proc_calls = 0;
WNDPROC g_prev = nullptr;
LRESULT Subclass(HWND h, unsigned msg, WPARAM wp, LPARAM lp) {
  if (msg == WM_SETTEXT) {
    ++g_prev_proc_calls;
    const std::string upper = [&] {
      std::string s = reinterpret_cast<const char*>(lp);
      for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      return s;
    }();
    return CallWindowProc(g_prev, h, msg, wp, reinterpret_cast<LPARAM>(upper.c_str()));
  }
  return CallWindowProc(g_prev, h, msg, wp, lp);
}

TEST_F(MessageOrder, SubclassSeesMessagesFirstAndCallsOn) {
  HWND t = Top("t");
  g_prev = SubclassWindow(t, Subclass);
  ASSERT_NE(g_prev, nullptr);
  SetWindowText(t, "hello");
  EXPECT_EQ(GetWindowText(t), "HELLO");
  EXPECT_EQ(g_prev_proc_calls, 1);
  EXPECT_EQ(GetWindowProc(t), &Subclass);
}

TEST_F(MessageOrder, PostedMessagesKeepTheirOrderAndSentOnesRunAtOnce) {
  HWND t = Top("t");
  Take();
  PostMessage(t, WM_APP, 1, 0);
  PostMessage(t, WM_CLOSE + 0, 0, 0);
  SendMessage(t, WM_APP, 2, 0);
  EXPECT_THAT(Take(), ElementsAre("t:WM_APP"));
  MSG m;
  ASSERT_TRUE(PeekMessage(&m, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(m.message, WM_APP);
  EXPECT_EQ(m.wParam, 1u);
  ASSERT_TRUE(PeekMessage(&m, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(m.message, WM_CLOSE);
}

TEST_F(MessageOrder, TimersPostTimerMessagesOnTheClock) {
  ScopedManualClock clock;
  HWND t = Top("t");
  ASSERT_EQ(SetTimer(t, 5, 100, nullptr), 5u);
  Pump();
  Take();
  PumpMessages(0);
  EXPECT_THAT(Take(), ElementsAre());
  clock.clock().Advance(100);
  PumpMessages(0);
  EXPECT_THAT(Take(), ElementsAre("t:WM_TIMER"));
  // A timer that fell far behind ticks once, not once per missed period.
  clock.clock().Advance(1000);
  PumpMessages(0);
  EXPECT_THAT(Take(), ElementsAre("t:WM_TIMER"));
  EXPECT_TRUE(KillTimer(t, 5));
  clock.clock().Advance(500);
  PumpMessages(0);
  EXPECT_THAT(Take(), ElementsAre());
  EXPECT_FALSE(KillTimer(t, 5));
}

TEST_F(MessageOrder, StyleChangesAreAnnounced) {
  HWND t = Top("t");
  Take();
  SetWindowLongPtr(t, GWL_STYLE, WS_POPUP | WS_VISIBLE | WS_BORDER);
  EXPECT_THAT(Take(), ElementsAre("t:WM_STYLECHANGING", "t:WM_STYLECHANGED"));
  EXPECT_TRUE(GetWindowLongPtr(t, GWL_STYLE) & WS_BORDER);
}

}  // namespace
}  // namespace qmk::testing

namespace qmk::testing {
namespace {

LRESULT MinSizeProc(HWND h, unsigned msg, WPARAM wp, LPARAM lp) {
  if (msg == WM_GETMINMAXINFO) {
    auto* mmi = reinterpret_cast<MINMAXINFO*>(lp);
    mmi->ptMinTrackSize = {100, 80};
    mmi->ptMaxTrackSize = {400, 300};
    return 0;
  }
  return DefWindowProc(h, msg, wp, lp);
}

TEST_F(MessageOrder, TopLevelSizesKeepToTheirMinMaxInfo) {
  WNDCLASS wc;
  wc.lpszClassName = "MinSize";
  wc.lpfnWndProc = MinSizeProc;
  RegisterClass(wc);
  HWND t = CreateWindowEx(0, "MinSize", "", WS_POPUP, 0, 0, 10, 10, nullptr, 0, nullptr);
  Rect r;
  GetWindowRect(t, &r);
  EXPECT_EQ(r, (Rect{0, 0, 100, 80}));
  SetWindowPos(t, nullptr, 0, 0, 1000, 1000, SWP_NOZORDER | SWP_NOMOVE);
  GetWindowRect(t, &r);
  EXPECT_EQ(r, (Rect{0, 0, 400, 300}));
  // Children are not held to it.
  HWND c = CreateWindowEx(0, "MinSize", "", WS_CHILD, 0, 0, 10, 10, t, 1, nullptr);
  GetWindowRect(c, &r);
  EXPECT_EQ(r.Width(), 10);
}

}  // namespace
}  // namespace qmk::testing
