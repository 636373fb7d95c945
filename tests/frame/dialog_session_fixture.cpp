// dialog_session_fixture.cpp: set-up of the tests that answer through real dialogs.
#include "dialog_session_fixture.h"

#include "platform/ui/backend.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/dialog_profile.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmk::testing {

using namespace platform::ui;

namespace {
// The sample dialog stands in for the host's main window.
constexpr int kHostTemplate = 9000;
intptr_t HostProc(HWND, unsigned, WPARAM, LPARAM) { return 0; }
}  // namespace

void DialogSessionTest::SetUp() {
  SessionTest::SetUp();
  ASSERT_TRUE(InstallBackend(MakeHeadlessBackend().release()));
  toolkit::InstallToolkitSeams();
  toolkit::SetDialogProfilePath("");
  ClearDialogScripts();
  scripted_ = frame::SetOperator(&dialogs_);
  host_ = CreateDialogParam(kHostTemplate, nullptr, HostProc, 0);
  ASSERT_NE(host_, nullptr) << LastDialogError();
  ShowWindow(host_, SW_SHOW);
  Pump();
}

void DialogSessionTest::TearDown() {
  for (HWND t : GetChildren(nullptr))
    if (!NativeWindowId(t)) DestroyWindow(t);
  Pump();
  ClearDialogScripts();
  frame::SetOperator(scripted_);
  SessionTest::TearDown();
}

void DialogSessionTest::Pump() {
  for (int i = 0; i < 5; ++i) PumpMessages(0);
}

HWND DialogSessionTest::FindDialog(int template_id) {
  for (HWND t : GetChildren(nullptr))
    if (GetDialogTemplateId(t) == template_id && IsWindowVisible(t)) return t;
  return nullptr;
}

Rect DialogSessionTest::ScreenRect(HWND window) {
  Rect r{};
  GetWindowRect(window, &r);
  return r;
}

}  // namespace qmk::testing
