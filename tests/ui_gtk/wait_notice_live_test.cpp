// wait_notice_live_test.cpp: the wait notices live on the GTK back end under Xvfb: the
// connection notice is on the screen while the thread blocks without pumping, as seen from
// another connection to the X server; and the lamp notice's Cancel, pressed by the scripted
// operator, ends the wait on the real clock.
#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "frame/dialog_operator.h"
#include "frame/message_pump.h"
#include "frame/modeless_info_dlg.h"
#include "frame/wait_notices.h"
#include "platform/draw/draw_target.h"
#include "platform/ui/backend.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "ui_gtk/gtk_session.h"
#include "ui_gtk/server_shot.h"

namespace qmk::testing {
namespace {

namespace ui = platform::ui;

// Pixels where the screen differs from the window system's picture by more than a small
// tolerance in some channel (the picture's words hold red in the low byte).
int DifferingPixels(const platform::DrawTarget& painted, const ServerShot& shot) {
  int count = 0;
  for (int y = 0; y < painted.height(); ++y)
    for (int x = 0; x < painted.width(); ++x) {
      const uint32_t want = painted.GetPixel(x, y);
      const uint32_t rgb = ((want & 0xFF) << 16) | (want & 0xFF00) | ((want >> 16) & 0xFF);
      const uint32_t got = shot.At(x, y);
      for (int shift : {0, 8, 16})
        if (std::abs(int((rgb >> shift) & 0xFF) - int((got >> shift) & 0xFF)) > 8) {
          ++count;
          break;
        }
    }
  return count;
}

// Dark pixels (text) in a picture.
int DarkPixels(const platform::DrawTarget& painted) {
  int count = 0;
  for (int y = 0; y < painted.height(); ++y)
    for (int x = 0; x < painted.width(); ++x) {
      const uint32_t p = painted.GetPixel(x, y);
      count += (p & 0xFF) < 0x60 && ((p >> 8) & 0xFF) < 0x60 && ((p >> 16) & 0xFF) < 0x60;
    }
  return count;
}

class LiveNotice : public GtkSession {
 protected:
  void SetUp() override {
    GtkSession::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    UseGtkModule();
    ASSERT_STREQ(ui::CurrentBackend().Name(), "gtk3") << "the GTK module did not load";
    ui::ClearDialogScripts();
    previous_ = frame::SetOperator(&dialogs_);
  }
  void TearDown() override {
    if (!IsSkipped()) {
      frame::SetOperator(previous_);
      ui::ClearDialogScripts();
    }
    GtkSession::TearDown();
  }

  frame::DialogOperator dialogs_;
  frame::Operator* previous_ = nullptr;
};

TEST_F(LiveNotice, ConnectionNoticeIsOnTheScreenWhileTheThreadBlocks) {
  Drain();
  frame::CScnWaitInfoMessage wait(nullptr);
  auto* notice = dynamic_cast<frame::CModelessInfoDlg*>(wait.m_pDialog.get());
  ASSERT_NE(notice, nullptr);
  const ui::HWND hwnd = notice->GetSafeHwnd();
  ui::Rect r{};
  ASSERT_TRUE(ui::GetWindowRect(hwnd, &r));

  // The connect holds the thread: nothing pumps here while another connection looks.
  ServerShot shot;
  std::thread look([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    shot.Take(r.left, r.top, r.Width(), r.Height());
  });
  look.join();
  ASSERT_TRUE(shot.error.empty()) << shot.error;
  const std::string path = ShotPath("ui_gtk_connecting_notice.png");
  shot.WritePng(path);

  const std::unique_ptr<platform::DrawTarget> painted = ui::RenderWindow(hwnd);
  ASSERT_NE(painted, nullptr);
  ASSERT_EQ(painted->width(), shot.width);
  EXPECT_GT(DarkPixels(*painted), 200) << "the window system's picture has the notice's text";
  EXPECT_EQ(ui::GetDlgItemText(hwnd, frame::kInfoLabelId),
            "Connecting to Scanner.\n\nPlease wait...");
  EXPECT_LE(DifferingPixels(*painted, shot), painted->width() * painted->height() / 200)
      << "the screen does not show the notice; it is in " << path;
}

TEST_F(LiveNotice, LampWaitEndsWhenTheScriptPressesTheNoticesCancel) {
  // The lamps need 90 seconds, one less at each asking: the notice asks when it is made and
  // at each tick of its timer, which runs on the real clock here.
  int asked = 0;
  auto remaining = [&asked] { return 90 - asked++; };
  ui::QueueDialogScript(ui::DialogScript(frame::kInfoDialogTemplate).Wait(1200).Press(ui::IDCANCEL));
  std::string text_at_cancel;
  {
    frame::CScnWaitLampWarmup wait(nullptr, remaining);
    ASSERT_NE(wait.m_pDialog, nullptr);
    const ui::HWND hwnd = dynamic_cast<frame::CModelessInfoDlg&>(*wait.m_pDialog).GetSafeHwnd();
    // The scan's waiting loop, bounded here so that a script that never plays fails instead.
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!wait.Cancelled() && std::chrono::steady_clock::now() < limit)
      frame::PumpWhileWaiting(100);
    text_at_cancel = ui::GetDlgItemText(hwnd, frame::kInfoLabelId);
    EXPECT_TRUE(wait.Cancelled());
    EXPECT_TRUE(ui::IsWindowVisible(hwnd)) << "Cancel only raises the flag";
  }
  EXPECT_THAT(ui::DialogScriptLog(), ::testing::ElementsAre("2001: wait 1200", "2001: click 2"));
  EXPECT_THAT(text_at_cancel,
              ::testing::MatchesRegex("Lamps are warming up\\.  1:2[89] minutes remaining\\."))
      << "the countdown ticked on the window system's timer while the script waited";
}

}  // namespace
}  // namespace qmk::testing
