// themed_dialog_test.cpp: the sample dialog on the toolkit's dialog base, wearing a theme, live on
// the GTK back end under the virtual X server: filled in by the scripted operator and closed by
// OK with its values read back, and shown on the screen as the theme painted it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/ui/backend.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/theme/selection.h"
#include "ui_gtk/gtk_session.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;

constexpr int kSample = 9000;
constexpr int kOffice2007 = 29757, kPlain = 29750;

struct Values {
  std::string name = "unset", colour = "unset", count = "unset";
  int size = 0;
  bool print = false;
};

// The sample dialog as a toolkit dialog: filled at initialisation, read back on OK.
class ThemedSample : public toolkit::CExtResizableDialog {
 public:
  ThemedSample() : CExtResizableDialog(kSample) {}
  Values values;

 protected:
  bool OnInitDialog() override {
    for (const char* colour : {"Red", "Green", "Blue"})
      SendDlgItemMessage(m_hWnd, 1002, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(colour));
    SendDlgItemMessage(m_hWnd, 1002, CB_SETCURSEL, 0, 0);
    CheckRadioButton(m_hWnd, 1005, 1007, 1005);
    return CExtResizableDialog::OnInitDialog();
  }
  void OnOK() override {
    values.name = GetDlgItemText(m_hWnd, 1001);
    values.count = GetDlgItemText(m_hWnd, 1003);
    char colour[64] = {};
    const LRESULT sel = SendDlgItemMessage(m_hWnd, 1002, CB_GETCURSEL, 0, 0);
    if (sel >= 0)
      SendDlgItemMessage(m_hWnd, 1002, CB_GETLBTEXT, static_cast<WPARAM>(sel),
                         reinterpret_cast<LPARAM>(colour));
    values.colour = colour;
    for (int id = 1005; id <= 1007; ++id)
      if (IsDlgButtonChecked(m_hWnd, id)) values.size = id;
    values.print = IsDlgButtonChecked(m_hWnd, 1008) == BST_CHECKED;
    CExtResizableDialog::OnOK();
  }
};

class GtkThemedDialog : public GtkSession {
 protected:
  void SetUp() override {
    GtkSession::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    UseGtkModule();
    ASSERT_STREQ(CurrentBackend().Name(), "gtk3") << "the GTK module did not load";
    ClearDialogScripts();
    ASSERT_TRUE(Select(kOffice2007));
  }
  void TearDown() override {
    if (!IsSkipped()) {
      ClearDialogScripts();
      Select(kPlain);
    }
    GtkSession::TearDown();
  }
  static bool Select(int id) { return toolkit::theme::SelectPaintManagerById(id, [](int) {}); }
};

TEST_F(GtkThemedDialog, FilledInByTheOperatorAndClosedByOkGivesTheValuesBack) {
  QueueDialogScript(DialogScript(kSample)
                        .Type("Ada")     // the name has focus first
                        .Key(VK_TAB)     // the colour
                        .Key(VK_DOWN)    // Red -> Green
                        .Key(VK_TAB)     // the count
                        .Type("7")
                        .Key(VK_TAB)     // the checked radio button, Small
                        .Key(VK_DOWN)    // Medium
                        .Key(VK_DOWN)    // Large
                        .Key(VK_TAB)     // Print a copy
                        .Key(VK_SPACE)   // checked
                        .Press(IDOK));
  ThemedSample dialog;
  EXPECT_EQ(dialog.DoModal(), IDOK) << ::testing::PrintToString(DialogScriptLog());
  EXPECT_EQ(dialog.values.name, "Ada");
  EXPECT_EQ(dialog.values.colour, "Green");
  EXPECT_EQ(dialog.values.count, "7");
  EXPECT_EQ(dialog.values.size, 1007);
  EXPECT_TRUE(dialog.values.print);
  EXPECT_EQ(PendingDialogScripts(), 0);
}

TEST_F(GtkThemedDialog, CancelLeavesTheValuesUnread) {
  QueueDialogScript(DialogScript(kSample).Type("gone").Press(IDCANCEL));
  ThemedSample dialog;
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(dialog.values.name, "unset");
}

// Pixels of two pictures (the window system's ABGR words, the screen's RGB) that differ by more
// than a small tolerance in some channel.
int DifferingPixels(const platform::DrawTarget& painted, GdkPixbuf* shot) {
  int count = 0;
  for (int y = 0; y < painted.height(); ++y)
    for (int x = 0; x < painted.width(); ++x) {
      const uint32_t want = painted.GetPixel(x, y);
      const uint32_t rgb = ((want & 0xFF) << 16) | (want & 0xFF00) | ((want >> 16) & 0xFF);
      const uint32_t got = PixelAt(shot, x, y);
      for (int shift : {0, 8, 16})
        if (std::abs(int((rgb >> shift) & 0xFF) - int((got >> shift) & 0xFF)) > 8) {
          ++count;
          break;
        }
    }
  return count;
}

TEST_F(GtkThemedDialog, TheScreenShowsTheThemedDialogNotThePlainOne) {
  ThemedSample dialog;
  ASSERT_TRUE(dialog.Create(kSample, nullptr));
  const HWND dlg = dialog.GetSafeHwnd();
  ShowWindow(dlg, SW_SHOW);
  Rect r;
  ASSERT_TRUE(GetWindowRect(dlg, &r));
  const std::unique_ptr<platform::DrawTarget> themed = RenderWindow(dlg);
  ASSERT_NE(themed, nullptr);
  const std::string shot_path = ShotPath("ui_gtk_themed_dialog.png");
  int last = -1;
  EXPECT_TRUE(PumpUntil([&] {
    PumpMessages(0);
    Drain();
    GdkPixbuf* shot = Screenshot(r.left, r.top, r.Width(), r.Height());
    last = DifferingPixels(*themed, shot);
    gdk_pixbuf_save(shot, shot_path.c_str(), "png", nullptr, nullptr);
    g_object_unref(shot);
    return last == 0;
  })) << last << " pixels differ from the themed picture; the screen is in " << shot_path;

  // The same dialog in the plain look is another picture: the screen showed the theme.
  ASSERT_TRUE(Select(kPlain));
  PumpMessages(0);
  const std::unique_ptr<platform::DrawTarget> plain = RenderWindow(dlg);
  ASSERT_NE(plain, nullptr);
  int changed = 0;
  for (int y = 0; y < plain->height(); ++y)
    for (int x = 0; x < plain->width(); ++x) changed += plain->GetPixel(x, y) != themed->GetPixel(x, y);
  EXPECT_GT(changed, plain->width() * plain->height() / 4) << "the theme barely changed the dialog";
  dialog.DestroyWindow();
}

}  // namespace
}  // namespace qmk::testing
