// The scanner configuration dialog as a person sees it, in one theme of each family, compared
// with reference pictures within a tolerance.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/theme_families.h"
#include "discovery/configure_view_fixture.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/theme/selection.h"
#include "ui/picture_compare.h"

namespace qmk::testing {
namespace {

namespace ui = platform::ui;

// This folder's references, through the shared comparison (which starts in tests/ui/reference).
::testing::AssertionResult MatchesDiscoveryReference(const platform::DrawTarget& picture,
                                                     const std::string& name) {
  return MatchesReference(picture, "../../discovery/reference/" + name);
}

class ConfigurePictures : public ConfigureViewTest, public ::testing::WithParamInterface<Family> {
 protected:
  void SetUp() override {
    ConfigureViewTest::SetUp();
    ASSERT_TRUE(SelectFamilyTheme(GetParam().theme_id));
  }
  void TearDown() override {
    SelectPlainTheme();
    ConfigureViewTest::TearDown();
  }
};

TEST_P(ConfigurePictures, SerialScannerWithItsPortSettings) {
  Store(511, /*printer=*/true);
  comm_ = sct_config_ex{9600, 'E', 7, 2, 3, 10, 0};
  discovery::CDlgConfigureScanner dialog(config_, comm_, services_);
  ASSERT_TRUE(dialog.Create(discovery::CDlgConfigureScanner::kIdd, nullptr)) << ui::LastDialogError();
  ui::ShowWindow(dialog.GetSafeHwnd(), ui::SW_SHOW);
  ui::PumpMessages(0);
  auto picture = ui::RenderWindow(dialog.GetSafeHwnd());
  dialog.DestroyWindow();
  ASSERT_NE(picture, nullptr);
  const std::string name = std::string("configure-") + GetParam().name;
  picture->WritePng((PictureOutputDir() / (name + ".png")).string());
  EXPECT_TRUE(MatchesDiscoveryReference(*picture, name));
}

INSTANTIATE_TEST_SUITE_P(Families, ConfigurePictures, ::testing::ValuesIn(kFamilies), FamilyTestName);

}  // namespace
}  // namespace qmk::testing
