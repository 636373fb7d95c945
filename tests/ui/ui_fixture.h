// ui_fixture.h: a clean headless window system for each test, the tiny controls the tests put in
// dialogs, and a window class that records the messages it gets.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/ui/backend.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"

namespace qmk::testing {

// An order form made of the test controls (template 9100).
constexpr int kOrder = 9100;
extern const char* const kOrderTemplate;

// Registers TestButton, TestEdit, TestCombo and TestStatic (once per process).
void RegisterTestControls();

// Messages seen by windows of the class "Recorder", as "name:MESSAGE" lines; the name is the
// window text at creation.
std::vector<std::string>& RecordedMessages();
const char* MessageName(unsigned msg);
void RegisterRecorder();

class UiTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  // Processes everything that is pending, input included.
  void Pump();
  platform::ui::HeadlessBackend* headless() { return platform::ui::CurrentHeadless(); }
  // The order form comes through the template source, as the resource manager will give it.
  static void ServeOrderTemplate();
};

// A clock that only moves when the loop waits.
class ScopedManualClock {
 public:
  ScopedManualClock() { old_ = platform::SetClock(&clock_); }
  ~ScopedManualClock() { platform::SetClock(old_); }
  platform::ManualClock& clock() { return clock_; }

 private:
  platform::ManualClock clock_;
  platform::Clock* old_ = nullptr;
};

}  // namespace qmk::testing
