// dialog_test.cpp: dialogs from templates driven by a person's keys and clicks: the scripted
// operator, tab order, radio groups, Enter and Escape, mnemonics, timers and nested loops.
#include <gmock/gmock.h>

#include "platform/ui/control_messages.h"
#include "platform/ui/headless_backend.h"
#include "ui/ui_fixture.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using ::testing::ElementsAre;

struct Order {
  std::string name = "unset";
  std::string colour = "unset";
  int size = 0;
  bool print = false;
  int ticks = 0;
  int end_after_ticks = 0;
  int nested_result = 0;
  int nested_depth = 0;
  bool owner_enabled_in_nested = true;
  bool nest = false;
};

Order* OrderOf(HWND dlg) { return reinterpret_cast<Order*>(GetWindowLongPtr(dlg, GWLP_USERDATA)); }

intptr_t OrderProc(HWND dlg, unsigned msg, WPARAM wp, LPARAM lp) {
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtr(dlg, GWLP_USERDATA, lp);
      for (const char* c : {"Red", "Green", "Blue"})
        SendDlgItemMessage(dlg, 102, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(c));
      SendDlgItemMessage(dlg, 102, CB_SETCURSEL, 0, 0);
      CheckRadioButton(dlg, 103, 105, 103);
      Order* o = OrderOf(dlg);
      if (o->end_after_ticks) SetTimer(dlg, 1, 250, nullptr);
      if (o->nest) PostMessage(dlg, WM_APP, 0, 0);
      return 1;
    }
    case WM_TIMER: {
      Order* o = OrderOf(dlg);
      if (++o->ticks == o->end_after_ticks) EndDialog(dlg, 42);
      return 1;
    }
    case WM_APP: {
      // A dialog that opens another modal dialog from its own loop.
      Order* o = OrderOf(dlg);
      Order inner;
      QueueDialogScript(DialogScript(kOrder).Type("inner").Key(VK_RETURN));
      DialogTemplate tpl;
      ParseDialogTemplate(kOrderTemplate, &tpl, nullptr);
      tpl.caption = "Inner";
      struct Probe {
        static intptr_t Proc(HWND d, unsigned m, WPARAM w, LPARAM l) {
          if (m == WM_INITDIALOG) {
            SetWindowLongPtr(d, GWLP_USERDATA, l);
            PostMessage(d, WM_APP + 1, 0, 0);
            return 1;
          }
          if (m == WM_APP + 1) {  // seen from inside the inner dialog's loop
            auto* outer = reinterpret_cast<Order*>(GetWindowLongPtr(d, GWLP_USERDATA));
            outer->nested_depth = ModalDepth();
            outer->owner_enabled_in_nested = IsWindowEnabled(GetParent(d));
            return 1;
          }
          return 0;
        }
      };
      o->nested_result = static_cast<int>(
          DialogBoxIndirectParam(tpl, dlg, &Probe::Proc, reinterpret_cast<LPARAM>(o), kOrder));
      EndDialog(dlg, 77);
      return 1;
    }
    case WM_COMMAND:
      if (LOWORD(wp) == IDOK) {
        Order* o = OrderOf(dlg);
        o->name = GetDlgItemText(dlg, 101);
        char colour[32] = {};
        const auto sel = SendDlgItemMessage(dlg, 102, CB_GETCURSEL, 0, 0);
        SendDlgItemMessage(dlg, 102, CB_GETLBTEXT, static_cast<WPARAM>(sel),
                           reinterpret_cast<LPARAM>(colour));
        o->colour = colour;
        for (int id = 103; id <= 105; ++id)
          if (IsDlgButtonChecked(dlg, id)) o->size = id;
        o->print = IsDlgButtonChecked(dlg, 106) == BST_CHECKED;
        EndDialog(dlg, IDOK);
        return 1;
      }
      return 0;
    default:
      return 0;
  }
}

class Dialogs : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    ServeOrderTemplate();
  }
  intptr_t Run(Order* o) {
    return DialogBoxParam(kOrder, nullptr, OrderProc, reinterpret_cast<LPARAM>(o));
  }
};

TEST_F(Dialogs, TabTypePickArrowsAndEnterGiveTheValuesBack) {
  QueueDialogScript(DialogScript(kOrder)
                        .Type("Ada")             // the first tab stop, the name, has focus
                        .Key(VK_TAB)             // to the colour
                        .Key(VK_DOWN)            // Red -> Green
                        .Key(VK_TAB)             // to the checked radio button, Small
                        .Key(VK_DOWN)            // Medium
                        .Key(VK_DOWN)            // Large
                        .Key(VK_TAB)             // to Print
                        .Key(VK_SPACE)           // checked
                        .Key(VK_RETURN));        // the default button
  Order o;
  EXPECT_EQ(Run(&o), IDOK);
  EXPECT_EQ(o.name, "Ada");
  EXPECT_EQ(o.colour, "Green");
  EXPECT_EQ(o.size, 105);
  EXPECT_TRUE(o.print);
  EXPECT_EQ(PendingDialogScripts(), 0);
}

TEST_F(Dialogs, ScriptSetsChoosesChecksAndPressesThroughRealInput) {
  QueueDialogScript(DialogScript(kOrder)
                        .SetText(101, "Grace")
                        .Choose(102, "Blue")
                        .Check(104)
                        .Check(106)
                        .Press(IDOK));
  Order o;
  EXPECT_EQ(Run(&o), IDOK);
  EXPECT_EQ(o.name, "Grace");
  EXPECT_EQ(o.colour, "Blue");
  EXPECT_EQ(o.size, 104);
  EXPECT_TRUE(o.print);
  EXPECT_THAT(DialogScriptLog(),
              ElementsAre("9100: set text 101 \"Grace\"", "9100: choose 102 \"Blue\"",
                          "9100: check 104 1", "9100: check 106 1", "9100: click 1"));
}

TEST_F(Dialogs, ScriptReportsWhatItCannotFind) {
  QueueDialogScript(DialogScript(kOrder).Click(999).Choose(102, "Purple").Press(IDCANCEL));
  Order o;
  EXPECT_EQ(Run(&o), IDCANCEL);
  EXPECT_THAT(DialogScriptLog(),
              ElementsAre("9100: no control 999", "9100: choose 102 \"Purple\"",
                          "9100: no item \"Purple\" in 102", "9100: click 2"));
}

TEST_F(Dialogs, KeysMoveThroughTheFormAsItsGroupsAndMnemonicsSay) {
  struct Case {
    const char* what;
    DialogScript script;
    intptr_t result;
    const char* name;
    const char* colour;
    int size;
  };
  const Case cases[] = {
      // Escape cancels, and the caller's values stay as they were.
      {"escape", DialogScript(kOrder).Type("typed").Key(VK_ESCAPE), IDCANCEL, "unset", "unset", 0},
      // From the name, Shift+Tab wraps to Cancel; Enter on a focused push button presses it.
      {"shift+tab", DialogScript(kOrder).Key(VK_TAB, kModShift).Key(VK_RETURN), IDCANCEL, "unset", "unset", 0},
      // Alt+C goes to the control after the "&Colour:" label; Down picks the next colour.
      {"label mnemonic", DialogScript(kOrder).Key('C', kModAlt).Key(VK_DOWN).Key(VK_RETURN), IDOK, "", "Green", 103},
      {"radio mnemonic", DialogScript(kOrder).Key('L', kModAlt).Key(VK_RETURN), IDOK, "", "Red", 105},
      // Up from the first radio button wraps to the last of its group, not to the colour box.
      {"arrows in a group", DialogScript(kOrder).Key(VK_TAB).Key(VK_TAB).Key(VK_UP).Key(VK_RETURN), IDOK, "", "Red", 105},
  };
  for (const Case& c : cases) {
    QueueDialogScript(c.script);
    Order o;
    EXPECT_EQ(Run(&o), c.result) << c.what;
    EXPECT_EQ(o.name, c.name) << c.what;
    EXPECT_EQ(o.colour, c.colour) << c.what;
    EXPECT_EQ(o.size, c.size) << c.what;
  }
}

TEST_F(Dialogs, TimerTicksDuringTheModalLoop) {
  ScopedManualClock clock;
  Order o;
  o.end_after_ticks = 3;
  EXPECT_EQ(Run(&o), 42);
  EXPECT_EQ(o.ticks, 3);
  EXPECT_GE(clock.clock().NowMs(), 750);
}

TEST_F(Dialogs, NestedModalLoopReturnsToTheOuterOne) {
  Order o;
  o.nest = true;
  EXPECT_EQ(Run(&o), 77);
  EXPECT_EQ(o.nested_result, IDOK);
  EXPECT_EQ(o.nested_depth, 2);
  EXPECT_FALSE(o.owner_enabled_in_nested);
  EXPECT_EQ(ModalDepth(), 0);
}

TEST_F(Dialogs, OwnerIsDisabledWhileTheDialogRunsAndActiveAfter) {
  HWND owner = CreateWindowEx(0, "Recorder", "owner", WS_POPUP | WS_VISIBLE, 0, 0, 300, 300,
                              nullptr, 0, nullptr);
  struct Seen {
    static intptr_t Proc(HWND d, unsigned m, WPARAM, LPARAM) {
      if (m == WM_INITDIALOG) PostMessage(d, WM_APP, 0, 0);
      if (m == WM_APP) {
        *reinterpret_cast<bool*>(GetWindowLongPtr(GetParent(d), GWLP_USERDATA)) =
            IsWindowEnabled(GetParent(d));
        PostMessage(d, WM_COMMAND, IDCANCEL, 0);
      }
      return m == WM_INITDIALOG || m == WM_APP;
    }
  };
  bool enabled_inside = true;
  SetWindowLongPtr(owner, GWLP_USERDATA, reinterpret_cast<intptr_t>(&enabled_inside));
  EXPECT_EQ(DialogBoxParam(kOrder, owner, &Seen::Proc, 0), IDCANCEL);
  EXPECT_FALSE(enabled_inside);
  EXPECT_TRUE(IsWindowEnabled(owner));
  EXPECT_EQ(GetActiveWindow(), owner);
}

TEST_F(Dialogs, DisabledDefaultButtonIgnoresEnterWithABeep) {
  struct Off {
    static intptr_t Proc(HWND d, unsigned m, WPARAM, LPARAM) {
      if (m == WM_INITDIALOG) EnableWindow(GetDlgItem(d, IDOK), false);
      return 0;
    }
  };
  QueueDialogScript(DialogScript(kOrder).Key(VK_RETURN).Key(VK_ESCAPE));
  EXPECT_EQ(DialogBoxParam(kOrder, nullptr, &Off::Proc, 0), IDCANCEL);
  auto* h = CurrentHeadless();
  ASSERT_NE(h, nullptr);
  EXPECT_EQ(h->beeps(), 1);
}

// Kept on purpose: a modal dialog with nobody to answer it and nothing to wait for is closed
// as if the person had closed it, so a headless host never hangs.
TEST_F(Dialogs, HeadlessDialogWithNothingToWaitForIsCancelled) {
  Order o;
  EXPECT_EQ(Run(&o), IDCANCEL);
  EXPECT_EQ(CurrentHeadless()->stalls(), 1);
}

TEST_F(Dialogs, ModelessDialogIsNavigatedByTheMessageLoop) {
  Order o;
  HWND dlg = CreateDialogParam(kOrder, nullptr, OrderProc, reinterpret_cast<LPARAM>(&o));
  ASSERT_NE(dlg, nullptr);
  ShowWindow(dlg, SW_SHOW);
  Pump();
  EXPECT_EQ(GetFocus(), GetDlgItem(dlg, 101));
  InjectText("Lin");
  InjectKeyPress(VK_TAB);
  Pump();
  EXPECT_EQ(GetFocus(), GetDlgItem(dlg, 102));
  EXPECT_EQ(GetDlgItemText(dlg, 101), "Lin");
  InjectKeyPress(VK_RETURN);
  Pump();
  EXPECT_EQ(o.name, "Lin");
  EXPECT_FALSE(IsWindowVisible(dlg));  // ended: hidden, left for its creator to destroy
  EXPECT_TRUE(DestroyWindow(dlg));
}

TEST_F(Dialogs, MissingTemplateAndMissingClassFailWithAReason) {
  EXPECT_EQ(DialogBoxParam(4242, nullptr, nullptr, 0), -1);
  EXPECT_EQ(LastDialogError(), "template 4242 not found");
  DialogTemplate tpl;
  ASSERT_TRUE(ParseDialogTemplate("dialog 1\ncontrol \"NoSuchClass\" 5 \"\" 0 0 1 1\nend\n", &tpl,
                                  nullptr));
  EXPECT_EQ(DialogBoxIndirectParam(tpl, nullptr, nullptr, 0), -1);
  EXPECT_EQ(LastDialogError(), "no window class \"NoSuchClass\" for control 5");
  EXPECT_TRUE(GetChildren(nullptr).empty());
}

TEST_F(Dialogs, DialogItemHelpersReadAndWriteNumbers) {
  Order o;
  HWND dlg = CreateDialogParam(kOrder, nullptr, OrderProc, reinterpret_cast<LPARAM>(&o));
  ASSERT_NE(dlg, nullptr);
  struct Case {
    const char* text;
    bool is_signed;
    bool ok;
    int value;
  };
  for (const Case c : {Case{"42", true, true, 42}, {" -7 ", true, true, -7}, {"-7", false, false, 0},
                       {"12a", true, false, 0}, {"", true, false, 0},
                       {"99999999999", true, false, 0}, {"2147483648", true, false, 0}}) {
    SetDlgItemText(dlg, 101, c.text);
    bool ok = !c.ok;
    EXPECT_EQ(GetDlgItemInt(dlg, 101, &ok, c.is_signed), c.value) << c.text;
    EXPECT_EQ(ok, c.ok) << c.text;
  }
  SetDlgItemInt(dlg, 101, -15, true);
  EXPECT_EQ(GetDlgItemText(dlg, 101), "-15");
}

}  // namespace
}  // namespace qmk::testing
