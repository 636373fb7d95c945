// backend_select_test.cpp: which back end runs, where its module is looked for, and the
// headless back end's own records.
#include <gmock/gmock.h>

#include "platform/ui/headless_backend.h"
#include "support/scoped_env.h"
#include "ui/ui_fixture.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;

TEST(BackendChoice, EnvironmentAndDisplayDecide) {
  struct Case {
    const char* qmk_ui;
    const char* display;
    const char* wayland;
    bool module;
    const char* want;
  };
  const Case cases[] = {
      {nullptr, nullptr, nullptr, true, "headless"},   // no display
      {nullptr, ":0", nullptr, true, "gtk3"},          // X11
      {nullptr, nullptr, "wayland-0", true, "gtk3"},   // Wayland
      {nullptr, ":0", nullptr, false, "headless"},     // no module beside the library
      {nullptr, "", "", true, "headless"},             // empty variables are no display
      {"headless", ":0", nullptr, true, "headless"},   // asked for
      {"gtk3", nullptr, nullptr, false, "gtk3"},       // asked for; the loader falls back later
      {"motif", ":0", nullptr, true, "gtk3"},          // unknown: chosen by display
  };
  for (const Case& c : cases)
    EXPECT_EQ(ChooseBackendName(c.qmk_ui, c.display, c.wayland, c.module), c.want)
        << (c.qmk_ui ? c.qmk_ui : "-") << " " << (c.display ? c.display : "-");
}

TEST(BackendChoice, ModuleFolderFromTheEnvironmentComesFirst) {
  ScopedEnv env("QMK_UI_MODULE_DIR", "/opt/qmk/modules");
  const auto path = ModuleSearchPath();
  ASSERT_GE(path.size(), 2u);
  EXPECT_EQ(path[0], "/opt/qmk/modules");
}

class Headless : public UiTest {};

TEST_F(Headless, InstallingABackEndIsRefusedWhileWindowsExist) {
  HWND t = CreateWindowEx(0, "Recorder", "t", WS_POPUP, 0, 0, 10, 10, nullptr, 0, nullptr);
  EXPECT_FALSE(InstallBackend(MakeHeadlessBackend().release()));
  DestroyWindow(t);
  EXPECT_TRUE(InstallBackend(MakeHeadlessBackend().release()));
  EXPECT_FALSE(InstallBackend(nullptr));
}

TEST_F(Headless, SurfacesFollowTopLevelWindows) {
  HWND t = CreateWindowEx(0, "Recorder", "Title", WS_POPUP | WS_CAPTION, 5, 6, 70, 80, nullptr,
                          0, nullptr);
  const auto* s = headless()->surface(t);
  ASSERT_NE(s, nullptr);
  EXPECT_FALSE(s->visible);
  EXPECT_TRUE(s->params.decorated);
  EXPECT_EQ(s->params.screen_rect, (Rect{5, 6, 75, 86}));
  ShowWindow(t, SW_SHOW);
  MoveWindow(t, 10, 10, 30, 30, true);
  SetWindowText(t, "Renamed");
  Pump();
  s = headless()->surface(t);
  EXPECT_TRUE(s->visible);
  EXPECT_EQ(headless()->active(), t);
  EXPECT_EQ(s->params.screen_rect, (Rect{10, 10, 40, 40}));
  EXPECT_EQ(s->params.title, "Renamed");
  EXPECT_GT(s->presents, 0);
  HWND child = CreateWindowEx(0, "Recorder", "c", WS_CHILD | WS_VISIBLE, 0, 0, 5, 5, t, 1, nullptr);
  EXPECT_EQ(headless()->surface(child), nullptr);  // children are ours alone
  SetCapture(child);
  EXPECT_EQ(headless()->grab(), t);
  ReleaseCapture();
  EXPECT_EQ(headless()->grab(), nullptr);
  DestroyWindow(t);
  EXPECT_EQ(headless()->surface(t), nullptr);
}

TEST_F(Headless, ClipboardHoldsText) {
  std::string text;
  EXPECT_FALSE(CurrentBackend().GetClipboardText(&text));
  EXPECT_TRUE(CurrentBackend().SetClipboardText("copied"));
  EXPECT_TRUE(CurrentBackend().GetClipboardText(&text));
  EXPECT_EQ(text, "copied");
}

TEST_F(Headless, NativeParentMakesDialogsTransientForIt) {
  HWND host = WrapNativeWindow(0x4200007);
  EXPECT_EQ(WrapNativeWindow(0x4200007), host);
  EXPECT_EQ(NativeWindowId(host), 0x4200007u);
  HWND dlg = CreateWindowEx(0, "Recorder", "d", WS_POPUP, 0, 0, 10, 10, host, 0, nullptr);
  EXPECT_EQ(GetParent(dlg), host);
  EXPECT_EQ(headless()->surface(dlg)->params.native_parent, 0x4200007u);
  DestroyWindow(dlg);
  DestroyWindow(host);
}

TEST_F(Headless, InjectedTextArrivesAsCharacters) {
  HWND t = CreateWindowEx(0, "Recorder", "t", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr, 0,
                          nullptr);
  std::vector<WPARAM> chars;
  int id = AddMessageFilter([&](MSG& m) {
    if (m.message == WM_CHAR) chars.push_back(m.wParam);
    return false;
  });
  InjectText("a\xC3\xA9\xE2\x82\xAC\xFF");  // a, e acute, euro sign, a stray byte
  Pump();
  RemoveMessageFilter(id);
  EXPECT_THAT(chars, ::testing::ElementsAre(0x61, 0xE9, 0x20AC, 0xFFFD));
  DestroyWindow(t);
}

TEST_F(Headless, IdleHandlersRunUntilTheyAreDoneAndAgainAfterInput) {
  std::vector<int> counts;
  const int id = AddIdleHandler([&](int count) {
    counts.push_back(count);
    return count < 2;
  });
  // One idle turn per batch, until the handler says it is done.
  for (int i = 0; i < 5; ++i) PumpMessages(0);
  EXPECT_THAT(counts, ::testing::ElementsAre(0, 1, 2));
  PostMessage(nullptr, WM_APP, 0, 0);
  PumpMessages(0);
  RemoveIdleHandler(id);
  EXPECT_THAT(counts, ::testing::ElementsAre(0, 1, 2, 0));
}

TEST_F(Headless, QuitEndsTheLoopWithItsCode) {
  PostQuitMessage(3);
  EXPECT_EQ(RunMessageLoop(), 3);
  // With no window and nothing to wait for, the loop ends rather than hang.
  EXPECT_EQ(RunMessageLoop(), 0);
}

}  // namespace
}  // namespace qmk::testing
