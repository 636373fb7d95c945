// dialog_keyboard_test.cpp: the toolkit dialog's own keyboard care, through injected keys on the
// headless back end: Tab across a page in a container, mnemonics offered to buttons, and the themed
// system menu of Alt+Space.
#include <gtest/gtest.h>

#include "dialogs/dialog_fixture.h"
#include "platform/clock.h"
#include "platform/ui/backend.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/message_loop.h"
#include "toolkit/dialogs/dialog_keyboard.h"
#include "toolkit/dialogs/msg_box.h"
#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/dialogs/system_menu.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using namespace toolkit;

constexpr int kEdit = 101, kBrowse = 102, kGo = 103, kPageEdit = 201;

// Counts the commands the dialog gets from its controls.
class CountingDialog : public CExtResizableDialog {
 public:
  CountingDialog() : CExtResizableDialog(kAnchorTemplate) {}
  int commands[300] = {};

 protected:
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override {
    if (msg == WM_COMMAND && (wp & 0xFFFF) < 300) ++commands[wp & 0xFFFF];
    return CExtResizableDialog::WindowProc(msg, wp, lp, handled);
  }
};

// A push button that answers the mnemonic offer for its "&" letter while `answers` is set.
bool g_answers = true;
WNDPROC g_button_proc = nullptr;
LRESULT AnsweringButton(HWND h, unsigned msg, WPARAM wp, LPARAM lp) {
  if (msg == kMsgOfferMnemonic) {
    const std::string text = GetWindowText(h);
    const size_t amp = text.find('&');
    return g_answers && amp + 1 < text.size() &&
           std::toupper(static_cast<unsigned char>(text[amp + 1])) == static_cast<int>(wp);
  }
  return CallWindowProc(g_button_proc, h, msg, wp, lp);
}

class DialogKeyboard : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    g_answers = true;
    ASSERT_TRUE(dialog_.Create(kAnchorTemplate, nullptr));
    dlg_ = dialog_.GetSafeHwnd();
    // The page lies in a holder window of its own, as in a tab-page container, which the
    // window system's dialog manager doesn't look into.
    WNDCLASS wc;
    wc.lpszClassName = "PageHolder";
    wc.lpfnWndProc = &DefWindowProc;
    if (!GetClassInfo(wc.lpszClassName, &wc)) {
      ASSERT_TRUE(RegisterClass(wc));
    }
    holder_ = CreateWindowEx(0, "PageHolder", "", WS_CHILD | WS_VISIBLE, 8, 40, 160, 44, dlg_, 300,
                             nullptr);
    ASSERT_NE(holder_, nullptr);
    ASSERT_TRUE(page_.Create(kPageTemplate, holder_));
    MoveWindow(page_.GetSafeHwnd(), 0, 0, 150, 40, false);
    ShowWindow(page_.GetSafeHwnd(), SW_SHOW);
    ShowWindow(dlg_, SW_SHOW);
    SetActiveWindow(dlg_);
    PumpMessages(0);
  }
  void TearDown() override {
    page_.DestroyWindow();
    dialog_.DestroyWindow();
    DialogTest::TearDown();
  }
  HWND Item(int id) const {
    return id == kPageEdit ? GetDlgItem(page_.GetSafeHwnd(), id) : GetDlgItem(dlg_, id);
  }
  void Press(unsigned vk, unsigned mods = 0) {
    InjectKeyPress(vk, mods);
    PumpMessages(0);
  }
  void Type(const std::string& text) {
    InjectText(text);
    PumpMessages(0);
  }
  HWND AddGoButton() {
    const HWND go = CreateWindowEx(0, "Button", "&Go", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 8, 82,
                                   40, 14, dlg_, kGo, nullptr);
    g_button_proc = SubclassWindow(go, &AnsweringButton);
    return go;
  }

  CountingDialog dialog_;
  CExtResizableDialog page_{kPageTemplate};
  HWND dlg_ = nullptr;
  HWND holder_ = nullptr;
};

struct TabCase {
  const char* name;
  int from;
  unsigned mods;
  bool page_visible;
  int to;
};

TEST_F(DialogKeyboard, TabWalksIntoTheNestedPageAndOut) {
  const TabCase cases[] = {
      {"forward into the page", kBrowse, 0, true, kPageEdit},
      {"forward out of the page wraps", kPageEdit, 0, true, kEdit},
      {"backward into the page wraps", kEdit, kModShift, true, kPageEdit},
      {"backward out of the page", kPageEdit, kModShift, true, kBrowse},
      {"a hidden page is skipped", kBrowse, 0, false, kEdit},
  };
  for (const TabCase& c : cases) {
    ShowWindow(page_.GetSafeHwnd(), c.page_visible ? SW_SHOW : SW_HIDE);
    SetFocus(Item(c.from));
    Press(VK_TAB, c.mods);
    EXPECT_EQ(GetFocus(), Item(c.to)) << c.name;
  }
}

TEST_F(DialogKeyboard, TabSelectsTheTextOfTheEditItReaches) {
  SetDlgItemText(page_.GetSafeHwnd(), kPageEdit, "sheet");
  SetFocus(Item(kBrowse));
  Press(VK_TAB);
  ASSERT_EQ(GetFocus(), Item(kPageEdit));
  const auto sel = static_cast<uintptr_t>(SendMessage(Item(kPageEdit), EM_GETSEL, 0, 0));
  EXPECT_EQ(LOWORD(sel), 0u);
  EXPECT_EQ(HIWORD(sel), 5u);
}

TEST_F(DialogKeyboard, WithoutTheFlagTheDialogManagerLeavesTheHeldPageOut) {
  dialog_.m_nStateFlags &= ~kStateTabAcrossNested;
  SetFocus(Item(kBrowse));
  Press(VK_TAB);
  EXPECT_EQ(GetFocus(), Item(kEdit));
}

TEST_F(DialogKeyboard, MnemonicsGoToTheButtonThatClaimsThem) {
  struct Case {
    const char* what;
    bool answers;
    int focus;
    bool go_focused;
    const char* edit_text;
    int clicks;
  };
  const Case cases[] = {
      // The claiming button takes the focus and is clicked once, on the key-up.
      {"claimed", true, kBrowse, true, "", 1},
      // Mnemonics turned off on the button: the dialog manager's own mnemonic still clicks it.
      {"unclaimed", false, kBrowse, false, "", 1},
      {"typed into an edit", true, kEdit, false, "g", 0},
  };
  for (const Case& c : cases) {
    const HWND go = AddGoButton();
    g_answers = c.answers;
    dialog_.commands[kGo] = 0;
    SetDlgItemText(dlg_, kEdit, "");
    SetFocus(Item(c.focus));
    Type("g");
    EXPECT_EQ(GetFocus() == go, c.go_focused) << c.what;
    EXPECT_EQ(GetDlgItemText(dlg_, kEdit), c.edit_text) << c.what;
    EXPECT_EQ(dialog_.commands[kGo], c.clicks) << c.what;
    DestroyWindow(go);
  }
}

TEST_F(DialogKeyboard, AltSpaceOpensTheSystemMenuWhichATimerWatches) {
  platform::ManualClock clock;
  platform::Clock* old = platform::SetClock(&clock);
  SetFocus(Item(kEdit));
  Press(VK_SPACE, kModAlt);
  EXPECT_NE(SystemMenuOf(dlg_), nullptr);
  EXPECT_TRUE(dialog_.m_nFlags & kWsSysMenuTracking);
  EXPECT_EQ(GetDlgItemText(dlg_, kEdit), "") << "the space reached the edit";
  Press(VK_ESCAPE);
  EXPECT_EQ(SystemMenuOf(dlg_), nullptr);
  EXPECT_TRUE(IsWindow(dlg_)) << "Escape closes the menu, not the dialog";
  clock.Advance(25);
  PumpMessages(0);
  EXPECT_FALSE(dialog_.m_nFlags & kWsSysMenuTracking) << "the timer saw the menu gone";
  platform::SetClock(old);
}

TEST_F(DialogKeyboard, AClickOnTheMenusItemChoosesItAndAClickOutsideDoesNot) {
  SetFocus(Item(kEdit));
  Press(VK_SPACE, kModAlt);
  HWND popup = SystemMenuOf(dlg_);
  ASSERT_NE(popup, nullptr);
  Rect r;
  GetWindowRect(popup, &r);
  InjectClick({r.right + 40, r.bottom + 40});
  PumpMessages(0);
  EXPECT_EQ(SystemMenuOf(dlg_), nullptr);
  EXPECT_EQ(dialog_.commands[IDCANCEL], 0) << "a click outside chose something";

  Press(VK_SPACE, kModAlt);
  popup = SystemMenuOf(dlg_);
  ASSERT_NE(popup, nullptr);
  GetWindowRect(popup, &r);
  InjectClick({r.left + 10, r.top + 6});  // the first item, Close
  PumpMessages(0);
  PumpMessages(0);
  EXPECT_EQ(SystemMenuOf(dlg_), nullptr);
  EXPECT_EQ(dialog_.commands[IDCANCEL], 1) << "Close reaches the dialog as its cancel";
}

TEST_F(DialogKeyboard, TheMenuOpensBelowTheCaptionOnTheReadingSide) {
  Rect client;
  GetClientRect(dlg_, &client);
  Point left{0, 0}, right{client.right, 0};
  ClientToScreen(dlg_, &left);
  ClientToScreen(dlg_, &right);
  for (const bool rtl : {false, true}) {
    dialog_.m_nFlags = rtl ? (dialog_.m_nFlags | kWsRightToLeft) : (dialog_.m_nFlags & ~kWsRightToLeft);
    ASSERT_TRUE(dialog_.TrackSystemMenu(nullptr, true));
    Rect r;
    GetWindowRect(SystemMenuOf(dlg_), &r);
    EXPECT_EQ(r.top, left.y) << "rtl " << rtl;
    EXPECT_EQ(rtl ? r.right : r.left, rtl ? right.x : left.x) << "rtl " << rtl;
    CloseSystemMenu();
  }
}

// ---- The message box's system menu ----------------------------------------------------------
class MsgBoxSystemMenu : public DialogTest {};

TEST_F(MsgBoxSystemMenu, AltSpaceThenKeys) {
  struct Case {
    const char* what;
    unsigned buttons;
    DialogScript script;
    int want;
  };
  const Case cases[] = {
      {"Close from the menu ends the box with its escape button", 5,
       DialogScript(kMsgBoxTemplateId).Key(VK_SPACE, kModAlt).Key(VK_RETURN), IDCANCEL},
      {"Escape in the menu leaves the box up", 5,
       DialogScript(kMsgBoxTemplateId).Key(VK_SPACE, kModAlt).Key(VK_ESCAPE).Key(VK_RETURN), IDRETRY},
      // Yes and No have no escape button: no menu opens, so Enter presses the default button.
      {"no close without an escape button", 4,
       DialogScript(kMsgBoxTemplateId).Key(VK_SPACE, kModAlt).Key(VK_RETURN), IDYES},
  };
  for (const Case& c : cases) {
    QueueDialogScript(c.script);
    EXPECT_EQ(ExtMsgBox(nullptr, "Stop?", "Menu", c.buttons | kMbNoBeep), c.want)
        << c.what << ::testing::PrintToString(DialogScriptLog());
  }
  EXPECT_TRUE(DialogSystemMenuItems(false).empty());
}

}  // namespace
}  // namespace qmk::testing
