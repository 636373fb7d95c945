// dialog_scenario_test.cpp: dialogs on the GTK back end, on a real X server: the order form's
// scripted scenario (the same one the headless tests play), Escape, timers and nested modal
// loops on the real clock, what the screen shows, and a host's GTK window that keeps painting.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/ui/backend.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "ui/ui_fixture.h"
#include "ui_gtk/gtk_session.h"

namespace qmk::platform::ui {
namespace {

using namespace qmk::testing;  // NOLINT: pumping and screenshot helpers

using testing::kOrder;
// The order form's controls.
constexpr int kName = 101, kColour = 102, kSmall = 103, kMedium = 104, kLarge = 105, kPrint = 106;
constexpr unsigned kOpenNested = WM_USER + 50;

// What the sample dialog's procedure saw and read back.
struct Outcome {
  std::string name = "unset", colour = "unset";
  unsigned small = 0, medium = 0, large = 0, print = 0;
  int ticks = 0;
  int end_after_ticks = 0;      // the dialog ends itself with 40 + ticks after this many
  bool open_nested = false;     // opens a second dialog from inside this one's loop
  intptr_t nested_result = 0;
  int depth_inside_nested = 0;
  GtkWidget* animate = nullptr;  // a host widget redrawn at every tick
};

// A dialog of the sample dialog's kind without controls, for what needs no controls.
constexpr int kBareDialog = 9901;
const DialogTemplate& Bare() {
  static DialogTemplate tpl = [] {
    DialogTemplate t;
    TemplateError error;
    EXPECT_TRUE(ParseDialogTemplate("dialog 9901\n"
                                    "caption \"Bare dialog\"\n"
                                    "position 0 0 160 80\n"
                                    "style WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER\n"
                                    "end\n",
                                    &t, &error))
        << error.line << ": " << error.message;
    return t;
  }();
  return tpl;
}

intptr_t SampleProc(HWND dlg, unsigned msg, WPARAM wparam, LPARAM lparam);

intptr_t RunBare(HWND owner, void* outcome) {
  return DialogBoxIndirectParam(Bare(), owner, SampleProc, reinterpret_cast<LPARAM>(outcome), kBareDialog);
}

Outcome* OutcomeOf(HWND dlg) { return static_cast<Outcome*>(GetProp(dlg, "outcome")); }

std::string ComboText(HWND dlg, int id) {
  const LRESULT index = SendDlgItemMessage(dlg, id, CB_GETCURSEL, 0, 0);
  if (index < 0) return "";
  char buffer[64] = {};
  SendDlgItemMessage(dlg, id, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer));
  return buffer;
}

intptr_t SampleProc(HWND dlg, unsigned msg, WPARAM wparam, LPARAM lparam) {
  Outcome* out = OutcomeOf(dlg);
  switch (msg) {
    case WM_INITDIALOG:
      SetProp(dlg, "outcome", reinterpret_cast<void*>(lparam));
      for (const char* colour : {"Red", "Green", "Blue"})
        SendDlgItemMessage(dlg, kColour, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(colour));
      SendDlgItemMessage(dlg, kColour, CB_SETCURSEL, 0, 0);
      CheckRadioButton(dlg, kSmall, kLarge, kSmall);
      SetTimer(dlg, 1, 15, nullptr);
      if (reinterpret_cast<Outcome*>(lparam)->open_nested) PostMessage(dlg, kOpenNested, 0, 0);
      return 1;
    case WM_TIMER:
      ++out->ticks;
      if (out->animate) gtk_widget_queue_draw(out->animate);
      if (out->end_after_ticks && out->ticks == out->end_after_ticks) EndDialog(dlg, 40 + out->ticks);
      return 1;
    case kOpenNested: {
      Outcome inner;
      inner.end_after_ticks = 2;
      out->nested_result = RunBare(dlg, &inner);
      out->depth_inside_nested = ModalDepth();
      EndDialog(dlg, 99);
      return 1;
    }
    case WM_COMMAND:
      if (LOWORD(wparam) == IDOK) {
        out->name = GetDlgItemText(dlg, kName);
        out->colour = ComboText(dlg, kColour);
        out->small = IsDlgButtonChecked(dlg, kSmall);
        out->medium = IsDlgButtonChecked(dlg, kMedium);
        out->large = IsDlgButtonChecked(dlg, kLarge);
        out->print = IsDlgButtonChecked(dlg, kPrint);
        EndDialog(dlg, IDOK);
        return 1;
      }
      if (LOWORD(wparam) == IDCANCEL) {
        EndDialog(dlg, IDCANCEL);
        return 1;
      }
      return 0;
    default:
      return 0;
  }
}

class GtkDialogTest : public GtkSession {
 protected:
  void SetUp() override {
    GtkSession::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    UseGtkModule();
    ASSERT_STREQ(CurrentBackend().Name(), "gtk3") << "the GTK module did not load";
    testing::RegisterTestControls();
    SetTemplateSource([](int id, uint16_t) -> std::optional<std::string> {
      if (id == kOrder) return std::string(testing::kOrderTemplate);
      for (const BuiltinTemplate& t : BuiltinTemplates())
        if (t.id == id && t.language == kLangEnglishUS) return std::string(t.text);
      return std::nullopt;
    });
    ClearDialogScripts();
  }
  void TearDown() override {
    if (!IsSkipped()) {
      ClearDialogScripts();
      SetTemplateSource({});
    }
    GtkSession::TearDown();
  }
  static intptr_t RunOrder(Outcome* out) {
    return DialogBoxParam(kOrder, nullptr, SampleProc, reinterpret_cast<LPARAM>(out));
  }
};

TEST_F(GtkDialogTest, TabTypePickArrowsAndEnterGiveTheValuesBack) {
  QueueDialogScript(DialogScript(kOrder)
                        .Type("Ada")    // the first tab stop, the name, has focus
                        .Key(VK_TAB)    // to the colour
                        .Key(VK_DOWN)   // Red -> Green
                        .Key(VK_TAB)    // to the checked radio button, Small
                        .Key(VK_DOWN)   // Medium
                        .Key(VK_DOWN)   // Large
                        .Key(VK_TAB)    // to Print
                        .Key(VK_SPACE)  // checked
                        .Key(VK_RETURN));  // the default button
  Outcome out;
  EXPECT_EQ(RunOrder(&out), IDOK) << ::testing::PrintToString(DialogScriptLog());
  EXPECT_EQ(out.name, "Ada");
  EXPECT_EQ(out.colour, "Green");
  EXPECT_EQ(out.small, BST_UNCHECKED);
  EXPECT_EQ(out.medium, BST_UNCHECKED);
  EXPECT_EQ(out.large, BST_CHECKED) << "the arrow keys did not move through the radio group";
  EXPECT_EQ(out.print, BST_CHECKED);
  EXPECT_EQ(PendingDialogScripts(), 0);
}

TEST_F(GtkDialogTest, EscapeCancelsAndNothingIsReadBack) {
  QueueDialogScript(DialogScript(kOrder).Type("typed").Key(VK_ESCAPE));
  Outcome out;
  EXPECT_EQ(RunOrder(&out), IDCANCEL);
  EXPECT_EQ(out.name, "unset");
}

// The sample dialog of resources/dialogs, one of every plain control.
constexpr int kSample = 9000;

struct SampleValues {
  std::string name, colour, count;
  int size = 0;
  bool print = false;
};

intptr_t SampleDialogProc(HWND dlg, unsigned msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_INITDIALOG) {
    SetProp(dlg, "values", reinterpret_cast<void*>(lparam));
    for (const char* colour : {"Red", "Green", "Blue"})
      SendDlgItemMessage(dlg, 1002, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(colour));
    SendDlgItemMessage(dlg, 1002, CB_SETCURSEL, 0, 0);
    for (const char* sheet : {"First sheet", "Second sheet", "Third sheet"})
      SendDlgItemMessage(dlg, 1010, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(sheet));
    CheckRadioButton(dlg, 1005, 1007, 1005);
    SendDlgItemMessage(dlg, 1015, PBM_SETPOS, 40, 0);
    return 1;
  }
  if (msg == WM_COMMAND && LOWORD(wparam) == IDOK) {
    auto* v = static_cast<SampleValues*>(GetProp(dlg, "values"));
    v->name = GetDlgItemText(dlg, 1001);
    v->count = GetDlgItemText(dlg, 1003);
    v->colour = ComboText(dlg, 1002);
    for (int id = 1005; id <= 1007; ++id)
      if (IsDlgButtonChecked(dlg, id)) v->size = id;
    v->print = IsDlgButtonChecked(dlg, 1008) == BST_CHECKED;
    EndDialog(dlg, IDOK);
    return 1;
  }
  return 0;
}

TEST_F(GtkDialogTest, SampleDialogFilledInByKeyboardWithTheRealControls) {
  QueueDialogScript(DialogScript(kSample)
                        .Type("Ada")     // the name has focus first
                        .Key(VK_TAB)     // the colour
                        .Key(VK_DOWN)    // Red -> Green
                        .Key(VK_TAB)     // the count
                        .Type("7")       // replaces the selected 1
                        .Key(VK_TAB)     // the checked radio button, Small
                        .Key(VK_DOWN)    // Medium
                        .Key(VK_DOWN)    // Large
                        .Key(VK_TAB)     // Print a copy
                        .Key(VK_SPACE)   // checked
                        .Key(VK_RETURN));  // OK
  SampleValues v;
  EXPECT_EQ(DialogBoxParam(kSample, nullptr, SampleDialogProc, reinterpret_cast<LPARAM>(&v)), IDOK)
      << ::testing::PrintToString(DialogScriptLog());
  EXPECT_EQ(v.name, "Ada");
  EXPECT_EQ(v.colour, "Green");
  EXPECT_EQ(v.count, "7");
  EXPECT_EQ(v.size, 1007);
  EXPECT_TRUE(v.print);
}

TEST_F(GtkDialogTest, SampleDialogEscapeCancels) {
  QueueDialogScript(DialogScript(kSample).Type("gone").Key(VK_ESCAPE));
  SampleValues v;
  EXPECT_EQ(DialogBoxParam(kSample, nullptr, SampleDialogProc, reinterpret_cast<LPARAM>(&v)), IDCANCEL);
  EXPECT_EQ(v.name, "");
}

// The whole road of a person's keys: X events into GTK, the back end, the window system's
// dialog manager and the edit control.
TEST_F(GtkDialogTest, KeysTypedIntoTheGtkWindowReachTheDialogsControls) {
  SampleValues v;
  HWND dlg = CreateDialogParam(kSample, nullptr, SampleDialogProc, reinterpret_cast<LPARAM>(&v));
  ASSERT_NE(dlg, nullptr);
  ShowWindow(dlg, 5 /* SW_SHOW */);
  GtkWidget* native = nullptr;
  ASSERT_TRUE(PumpUntil([&] {
    PumpMessages(0);
    GList* all = gtk_window_list_toplevels();
    for (GList* l = all; l; l = l->next)
      if (g_strcmp0(gtk_window_get_title(GTK_WINDOW(l->data)), "Sample dialog") == 0 &&
          gtk_widget_get_mapped(GTK_WIDGET(l->data)))
        native = GTK_WIDGET(l->data);
    g_list_free(all);
    return native != nullptr;
  }));
  SetFocus(GetDlgItem(dlg, 1001));
  for (guint key : {GDK_KEY_A, GDK_KEY_d, GDK_KEY_a}) {
    PutKey(native, true, key, key == GDK_KEY_A ? GDK_SHIFT_MASK : 0);
    PutKey(native, false, key, key == GDK_KEY_A ? GDK_SHIFT_MASK : 0);
  }
  PutKey(native, true, GDK_KEY_Tab);  // the dialog manager moves on to the colour
  PutKey(native, false, GDK_KEY_Tab);
  PutKey(native, true, GDK_KEY_Down);
  PutKey(native, false, GDK_KEY_Down);
  EXPECT_TRUE(PumpUntil([&] {
    PumpMessages(0);
    return GetDlgItemText(dlg, 1001) == "Ada" && ComboText(dlg, 1002) == "Green";
  })) << "name \"" << GetDlgItemText(dlg, 1001) << "\", colour \"" << ComboText(dlg, 1002) << "\"";
  DestroyWindow(dlg);
}

TEST_F(GtkDialogTest, EscapeCancelsABareDialog) {
  QueueDialogScript(DialogScript(kBareDialog).Key(VK_ESCAPE));
  Outcome out;
  EXPECT_EQ(RunBare(nullptr, &out), IDCANCEL) << ::testing::PrintToString(DialogScriptLog());
}

TEST_F(GtkDialogTest, TimersTickWhileTheModalLoopWaitsOnGtk) {
  Outcome out;
  out.end_after_ticks = 4;
  EXPECT_EQ(RunBare(nullptr, &out), 44);
  EXPECT_EQ(out.ticks, 4);
}

TEST_F(GtkDialogTest, ANestedModalLoopReturnsToTheOuterOne) {
  Outcome out;
  out.open_nested = true;
  EXPECT_EQ(ModalDepth(), 0);
  EXPECT_EQ(RunBare(nullptr, &out), 99);
  EXPECT_EQ(out.nested_result, 42);
  EXPECT_EQ(out.depth_inside_nested, 1) << "back in the outer loop after the inner one";
  EXPECT_EQ(ModalDepth(), 0);
}

TEST_F(GtkDialogTest, AHostGtkWindowKeepsPaintingWhileOurDialogIsUp) {
  GtkWidget* host = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  GtkWidget* area = gtk_drawing_area_new();
  int draws = 0;
  gtk_window_set_default_size(GTK_WINDOW(host), 160, 90);
  gtk_container_add(GTK_CONTAINER(host), area);
  g_signal_connect(area, "draw", G_CALLBACK(+[](GtkWidget*, cairo_t*, gpointer n) -> gboolean {
                     ++*static_cast<int*>(n);
                     return TRUE;
                   }),
                   &draws);
  gtk_widget_show_all(host);
  ASSERT_TRUE(PumpUntil([&] { return draws > 0; }));
  const int before = draws;
  Outcome out;
  out.end_after_ticks = 12;
  out.animate = area;  // the host's picture changes at every tick of our dialog's timer
  EXPECT_EQ(RunBare(nullptr, &out), 52);
  EXPECT_GE(draws - before, 6) << "the host's window stopped painting under our modal loop";
  gtk_widget_destroy(host);
}

// The real X window of the modeless sample dialog, pixel by pixel against the window system's
// own picture of it.
TEST_F(GtkDialogTest, TheScreenShowsTheDialogAsTheWindowSystemPaintedIt) {
  SampleValues v;
  HWND dlg = CreateDialogParam(kSample, nullptr, SampleDialogProc, reinterpret_cast<LPARAM>(&v));
  ASSERT_NE(dlg, nullptr);
  SetDlgItemText(dlg, 1001, "Grace Hopper");
  ShowWindow(dlg, 5 /* SW_SHOW */);
  Rect r;
  ASSERT_TRUE(GetWindowRect(dlg, &r));
  auto painted = RenderWindow(dlg);
  ASSERT_NE(painted, nullptr);
  const std::string shot_path = ShotPath("ui_gtk_sample_dialog.png");
  auto differing = [&] {
    GdkPixbuf* shot = Screenshot(r.left, r.top, r.Width(), r.Height());
    int count = 0;
    for (int y = 0; y < r.Height(); ++y)
      for (int x = 0; x < r.Width(); ++x) {
        uint32_t want = painted->GetPixel(x, y);
        uint32_t rgb = ((want & 0xFF) << 16) | (want & 0xFF00) | ((want >> 16) & 0xFF);
        uint32_t got = PixelAt(shot, x, y);
        for (int shift : {0, 8, 16})
          if (std::abs(int((rgb >> shift) & 0xFF) - int((got >> shift) & 0xFF)) > 8) {
            ++count;
            break;
          }
      }
    gdk_pixbuf_save(shot, shot_path.c_str(), "png", nullptr, nullptr);
    g_object_unref(shot);
    return count;
  };
  int last = -1;
  EXPECT_TRUE(PumpUntil([&] {
    PumpMessages(0);
    Drain();
    return (last = differing()) == 0;
  })) << last << " pixels differ; the screen is in " << shot_path;
  painted->WritePng(ShotPath("ui_gtk_sample_dialog_painted.png"));
  DestroyWindow(dlg);
}

}  // namespace
}  // namespace qmk::platform::ui
