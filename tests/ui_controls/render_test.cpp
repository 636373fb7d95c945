// render_test.cpp: every plain control in each of its states, rendered on the headless back end
// and compared with the reference pictures. QMK_UPDATE_REFERENCE=1 writes new references.
#include <filesystem>

#include "platform/ui/controls/combo_box_control.h"
#include "platform/ui/controls/icons.h"
#include "support/picture_match.h"
#include "ui_controls/control_fixture.h"

namespace qmk::platform::ui::controls::testing {
namespace {

// Channels may drift a little with the font renderer's version; shapes may not.
constexpr int kChannelTolerance = 24;
constexpr double kMaxDifferingShare = 0.0005;

class RenderTest : public ControlTest {
 protected:
  void SetUp() override {
    ControlTest::SetUp();
    MoveWindow(host_, 0, 0, 640, 420, true);
  }

  void Compare(HWND window, const char* name) {
    auto picture = RenderWindow(window);
    ASSERT_NE(picture, nullptr);
    const auto reference = qmk::testing::SourceTree() / "tests/ui_controls/reference" / name;
    const long allowed = static_cast<long>(picture->width() * picture->height() * kMaxDifferingShare);
    EXPECT_TRUE(qmk::testing::MatchesPicture(
        *picture, reference,
        {kChannelTolerance, allowed, std::filesystem::current_path() / "ui_controls_render", "QMK_UPDATE_REFERENCE"}));
  }

  HWND Add(const char* cls, const char* text, uint32_t style, int x, int y, int w, int h,
           int id = 0) {
    return Make(cls, text, style, {x, y, x + w, y + h}, id);
  }

  void BuildStatics() {
    Add(kStaticClass, "Left label", SS_LEFT, 8, 8, 100, 16);
    Add(kStaticClass, "Centred", SS_CENTER, 110, 8, 100, 16);
    Add(kStaticClass, "Right", SS_RIGHT, 212, 8, 100, 16);
    HWND off = Add(kStaticClass, "Disabled &label", SS_LEFT, 314, 8, 110, 16);
    EnableWindow(off, false);
    Add(kStaticClass, "", SS_ETCHEDFRAME, 430, 6, 40, 20);
    Add(kStaticClass, "", SS_GRAYFRAME, 476, 6, 40, 20);
    Add(kStaticClass, "", SS_ETCHEDHORZ, 522, 14, 40, 2);
    int x = 440;
    for (const char* icon : {"#32513", "#32514", "#32515", "#32516"}) {
      Add(kStaticClass, icon, SS_ICON, x, 300, 32, 32);
      x += 40;
    }
  }

  void BuildButtons() {
    Add(kButtonClass, "&Push", BS_PUSHBUTTON, 8, 32, 80, 24);
    Add(kButtonClass, "Default", BS_DEFPUSHBUTTON, 94, 32, 80, 24);
    HWND pushed = Add(kButtonClass, "Pushed", BS_PUSHBUTTON, 180, 32, 80, 24);
    Send(pushed, BM_SETSTATE, 1);
    HWND off = Add(kButtonClass, "Disabled", BS_PUSHBUTTON, 266, 32, 80, 24);
    EnableWindow(off, false);
    struct Check { const char* text; uint32_t kind; int state; bool enabled; };
    const Check checks[] = {
        {"Unchecked", BS_AUTOCHECKBOX, 0, true}, {"Checked", BS_AUTOCHECKBOX, 1, true},
        {"Mixed", BS_AUTO3STATE, 2, true},       {"Off, checked", BS_AUTOCHECKBOX, 1, false},
    };
    int x = 8;
    for (const Check& c : checks) {
      HWND b = Add(kButtonClass, c.text, c.kind, x, 62, 100, 18);
      Send(b, BM_SETCHECK, static_cast<WPARAM>(c.state));
      EnableWindow(b, c.enabled);
      x += 106;
    }
    Add(kButtonClass, "&Parity", BS_GROUPBOX, 440, 30, 190, 96);
    HWND odd = Add(kButtonClass, "Odd", BS_AUTORADIOBUTTON | WS_GROUP, 452, 48, 100, 18);
    Add(kButtonClass, "Even", BS_AUTORADIOBUTTON, 452, 68, 100, 18);
    HWND none = Add(kButtonClass, "None (disabled)", BS_AUTORADIOBUTTON, 452, 88, 170, 18);
    Send(odd, BM_SETCHECK, 1);
    EnableWindow(none, false);
    Add(kButtonClass, "Text on the left", BS_AUTOCHECKBOX | BS_LEFTTEXT, 8, 84, 130, 18);
  }

  HWND BuildEdits() {
    Add(kEditClass, "Plain text", WS_BORDER | ES_AUTOHSCROLL, 8, 110, 130, 22);
    HWND selected = Add(kEditClass, "Selected part", WS_BORDER | ES_AUTOHSCROLL, 144, 110, 130, 22);
    Add(kEditClass, "Read-only", WS_BORDER | ES_READONLY, 280, 110, 100, 22);
    HWND off = Add(kEditClass, "Disabled", WS_BORDER, 8, 136, 100, 22);
    EnableWindow(off, false);
    Add(kEditClass, "secret", WS_BORDER | ES_PASSWORD, 114, 136, 80, 22);
    Add(kEditClass, "1234", WS_BORDER | ES_NUMBER | ES_RIGHT, 200, 136, 60, 22);
    Add(kEditClass, "First line\r\nSecond line\r\nThird", WS_BORDER | ES_MULTILINE, 266, 136,
        150, 52);
    return selected;
  }

  void BuildLists() {
    HWND list = Add(kListBoxClass, "", WS_BORDER | WS_VSCROLL, 8, 196, 120, 70);
    for (const char* t : {"COM1", "COM2", "COM3", "USB", "COM10", "COM11"}) SendText(list, LB_ADDSTRING, 0, t);
    Send(list, LB_SETCURSEL, 1);
    HWND off = Add(kListBoxClass, "", WS_BORDER, 134, 196, 80, 70);
    SendText(off, LB_ADDSTRING, 0, "Disabled");
    Send(off, LB_SETCURSEL, 0);
    EnableWindow(off, false);
    HWND drop = Add(kComboBoxClass, "", CBS_DROPDOWNLIST, 220, 196, 110, 120);
    HWND edit = Add(kComboBoxClass, "", CBS_DROPDOWN, 220, 226, 110, 120);
    HWND simple = Add(kComboBoxClass, "", CBS_SIMPLE, 336, 196, 96, 96);
    HWND dis = Add(kComboBoxClass, "", CBS_DROPDOWNLIST, 220, 256, 110, 120);
    for (HWND c : {drop, edit, simple, dis}) {
      for (const char* t : {"9600", "19200", "38400", "115200"}) SendText(c, CB_ADDSTRING, 0, t);
      Send(c, CB_SETCURSEL, 1);
    }
    EnableWindow(dis, false);
  }

  void BuildTheRest() {
    HWND buddy = Add(kEditClass, "10", WS_BORDER | ES_NUMBER, 8, 276, 60, 22);
    HWND spin = Add(kUpDownClass, "", UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS, 0, 0, 16, 22);
    Send(spin, UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy));
    Send(spin, UDM_SETRANGE32, 2, 60);
    Send(spin, UDM_SETPOS32, 0, 10);
    Add(kUpDownClass, "", UDS_HORZ, 80, 276, 32, 18);
    HWND tabs = Add(kTabClass, "", 0, 440, 134, 190, 90);
    HWND narrow = Add(kTabClass, "", 0, 440, 230, 120, 60);
    for (HWND t : {tabs, narrow}) {
      for (const char* title : {"General", "Ports", "Options", "More"}) {
        TCITEM item;
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<char*>(title);
        Send(t, TCM_INSERTITEM, static_cast<WPARAM>(Send(t, TCM_GETITEMCOUNT)),
             reinterpret_cast<LPARAM>(&item));
      }
      Send(t, TCM_SETCURSEL, 1);
    }
    HWND blocks = Add(kProgressClass, "", 0, 8, 306, 150, 18);
    Send(blocks, PBM_SETPOS, 40);
    HWND smooth = Add(kProgressClass, "", PBS_SMOOTH, 8, 330, 150, 18);
    Send(smooth, PBM_SETPOS, 75);
    HWND vertical = Add(kProgressClass, "", PBS_VERTICAL | PBS_SMOOTH, 164, 306, 18, 60);
    Send(vertical, PBM_SETPOS, 50);
    HWND hbar = Add(kScrollBarClass, "", SBS_HORZ, 190, 330, 180, 17);
    Send(hbar, SBM_SETRANGE, 0, 100);
    Send(hbar, SBM_SETPOS, 30, 1);
    HWND vbar = Add(kScrollBarClass, "", SBS_VERT, 380, 300, 17, 100);
    SCROLLINFO info;
    info.fMask = SIF_ALL;
    info.nMax = 99;
    info.nPage = 30;
    info.nPos = 60;
    Send(vbar, SBM_SETSCROLLINFO, 1, reinterpret_cast<LPARAM>(&info));
  }
};

TEST_F(RenderTest, EveryControlInEachState) {
  BuildStatics();
  BuildButtons();
  HWND selected = BuildEdits();
  BuildLists();
  BuildTheRest();
  SetFocus(selected);
  Send(selected, EM_SETSEL, 0, 8);
  Pump();
  Compare(host_, "plain_controls.png");
}

TEST_F(RenderTest, FocusLookOfEachKind) {
  struct Focused { const char* name; const char* cls; const char* text; uint32_t style; int w, h; };
  const Focused cases[] = {
      {"push", kButtonClass, "Focused", BS_DEFPUSHBUTTON, 90, 26},
      {"check", kButtonClass, "Focused check", BS_AUTOCHECKBOX, 130, 20},
      {"radio", kButtonClass, "Focused radio", BS_AUTORADIOBUTTON, 130, 20},
      {"list", kListBoxClass, "", WS_BORDER, 100, 50},
      {"drop_list", kComboBoxClass, "", CBS_DROPDOWNLIST, 110, 100},
      {"tabs", kTabClass, "", 0, 150, 50},
      {"scroll_bar", kScrollBarClass, "", SBS_HORZ, 150, 17},
  };
  for (const Focused& c : cases) {
    HWND w = Add(c.cls, c.text, c.style | WS_TABSTOP, 10, 10, c.w, c.h);
    if (c.cls == kListBoxClass) {
      for (const char* t : {"Odd", "Even", "None"}) SendText(w, LB_ADDSTRING, 0, t);
      Send(w, LB_SETCURSEL, 1);
    } else if (c.cls == kComboBoxClass) {
      for (const char* t : {"Odd", "Even", "None"}) SendText(w, CB_ADDSTRING, 0, t);
      Send(w, CB_SETCURSEL, 1);
    } else if (c.cls == kTabClass) {
      for (const char* title : {"One", "Two"}) {
        TCITEM item;
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<char*>(title);
        Send(w, TCM_INSERTITEM, 9, reinterpret_cast<LPARAM>(&item));
      }
    } else if (c.cls == kScrollBarClass) {
      Send(w, SBM_SETPOS, 40, 1);
    }
    SetFocus(w);
    Pump();
    Compare(w, (std::string("focused_") + c.name + ".png").c_str());
    DestroyWindow(w);
  }
}

TEST_F(RenderTest, DroppedComboList) {
  HWND combo = Add(kComboBoxClass, "", CBS_DROPDOWNLIST | WS_VSCROLL, 20, 20, 120, 110, 1);
  for (const char* t : {"1200", "2400", "4800", "9600", "19200", "38400", "115200"}) {
    SendText(combo, CB_ADDSTRING, 0, t);
  }
  Send(combo, CB_SETCURSEL, 2);
  SetFocus(combo);
  Send(combo, CB_SHOWDROPDOWN, 1);
  Pump();
  HWND popup = ControlOf<ComboBoxControl>(combo)->popup();
  ASSERT_NE(popup, nullptr);
  Compare(popup, "combo_dropped_list.png");
  Compare(combo, "combo_focused_field.png");
}

}  // namespace
}  // namespace qmk::platform::ui::controls::testing
