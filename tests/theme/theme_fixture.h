// theme_fixture.h: puts the process-wide theme state (holder, system colours, fonts) back to a
// known desktop before and after each test.
#pragma once

#include <gtest/gtest.h>

#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/system_colors.h"
#include "toolkit/theme/theme_classes.h"
#include "toolkit/theme/ui_font.h"

namespace qmk::toolkit::theme::testing {

class ThemeTest : public ::testing::Test {
 protected:
  void SetUp() override { Reset(); }
  void TearDown() override { Reset(); }

  static void Reset() {
    SetSystemColorSource({});
    // A fixed font, so that a GTK setting of the machine running the tests changes nothing.
    SetUiFontSource([](int dpi_y) {
      LogFont lf;
      lf.lfHeight = -MulDiv(9, dpi_y, 72);
      return lf;
    });
    SetFaceQuery([](const std::string& face) { return face == "DejaVu Sans"; });
    CExtPaintManagerAutoPtr& holder = g_PaintManager();
    holder.SetBroadcast({});
    holder.m_dwDpiScaling = 15;
    for (int axis = 0; axis < 3; ++axis) holder.SetDpi(axis, 96);
    holder.m_nDesktopColorDepth = 32;
    holder.m_visualStyle = {};
    holder.m_bPaintManagerLoading = false;
    holder.InstallPaintManagerByClass(nullptr);
  }

  // A fresh theme of `cls` with its colours made for a display of `bits`.
  static std::unique_ptr<CExtPaintManager> Make(const CRuntimeClass* cls, int bits = 32) {
    std::unique_ptr<CExtPaintManager> pm(static_cast<CExtPaintManager*>(cls->CreateObject()));
    pm->SyncSysColors();
    pm->RefreshColors(bits);
    return pm;
  }
};

}  // namespace qmk::toolkit::theme::testing
