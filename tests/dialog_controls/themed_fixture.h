// themed_fixture.h: the plain controls' test host with the toolkit's seams installed, so that
// themed controls bound to the host's children hear theme changes and paint through the theme.
#pragma once

#include "platform/ui/dialog.h"
#include "toolkit/dialogs/toolkit_seams.h"
#include "toolkit/theme/selection.h"
#include "ui_controls/control_fixture.h"

namespace qmk::testing {

using namespace platform::ui;
using platform::ui::controls::testing::ControlTest;
using platform::ui::controls::testing::HeardLog;
using platform::ui::controls::testing::NotifyAnswer;

class ThemedTest : public ControlTest {
 protected:
  static void SetUpTestSuite() {
    ControlTest::SetUpTestSuite();
    toolkit::InstallToolkitSeams();
  }
  void TearDown() override {
    toolkit::theme::SelectPaintManagerById(29750, [](int) {});
    ControlTest::TearDown();
  }
  // The centre of a rectangle given in a window's client coordinates.
  static Point Centre(const Rect& r) { return {(r.left + r.right) / 2, (r.top + r.bottom) / 2}; }
  static bool Visible(HWND h) { return (GetWindowLongPtr(h, GWL_STYLE) & WS_VISIBLE) != 0; }
  static Rect RectIn(HWND child) {
    Rect r;
    GetWindowRect(child, &r);
    MapWindowRect(nullptr, GetParent(child), &r);
    return r;
  }
};

}  // namespace qmk::testing
