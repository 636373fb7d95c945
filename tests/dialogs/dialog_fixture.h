// dialog_fixture.h: the headless window system, a private settings store and test templates
// for the dialog tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/ui/headless.h"
#include "platform/ui/window.h"
#include "support/settings_sandbox.h"

namespace qmk::testing {

// A resizable dialog with an edit and a button on its top row, and a child page.
constexpr int kAnchorTemplate = 9901;
constexpr int kPageTemplate = 9902;

class DialogTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  void Pump();
  // A child's rectangle in its parent's client coordinates.
  static platform::ui::Rect ChildRect(platform::ui::HWND child);

  SettingsSandbox sandbox_;
};

}  // namespace qmk::testing
