// dialog_session_fixture.h: a simulated scanner whose questions are answered by the library's
// own dialogs on the headless back end, over a host window of the window system.
#pragma once

#include <string>

#include "frame/dialog_operator.h"
#include "platform/ui/types.h"
#include "support/settings_sandbox.h"
#include "support/sim_fixture.h"

namespace qmk::testing {

class DialogSessionTest : public SessionTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Takes in injected input and runs what is due, as the thread would between waits.
  static void Pump();
  // The visible top-level window made from `template_id`, or null.
  static platform::ui::HWND FindDialog(int template_id);
  // A window's rectangle on the screen.
  static platform::ui::Rect ScreenRect(platform::ui::HWND window);

  platform::ui::HWND host_ = nullptr;  // the host's main window
  frame::DialogOperator dialogs_;

 private:
  SettingsSandbox sandbox_;
  frame::Operator* scripted_ = nullptr;
};

}  // namespace qmk::testing
