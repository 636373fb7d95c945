// The scanner configuration dialog as a person sees it, in one theme of each family, compared
// with reference pictures within a tolerance.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "discovery/configure_view_fixture.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/theme/selection.h"
#include "ui/picture_compare.h"

namespace qmk::testing {
namespace {

namespace ui = platform::ui;

struct Family {
  const char* name;
  int theme_id;
};
const Family kFamilies[] = {
    {"office2000", 29750}, {"officexp", 29751},   {"office2003", 29752},
    {"office2003-plain", 29753}, {"studio2005", 29754}, {"native", 29756},
    {"office2007", 29757}, {"office2010", 29764},
};

// This folder's references, through the shared comparison (which starts in tests/ui/reference).
::testing::AssertionResult MatchesDiscoveryReference(const platform::DrawTarget& picture,
                                                     const std::string& name) {
  const std::string relative = "../../discovery/reference/" + name;
  std::filesystem::create_directories(PictureOutputDir() / "../../discovery/reference");
  return MatchesReference(picture, relative);
}

class ConfigurePictures : public ConfigureViewTest, public ::testing::WithParamInterface<Family> {
 protected:
  void SetUp() override {
    ConfigureViewTest::SetUp();
    ASSERT_TRUE(toolkit::theme::SelectPaintManagerById(GetParam().theme_id, [](int) {}));
  }
  void TearDown() override {
    toolkit::theme::SelectPaintManagerById(29750, [](int) {});
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

INSTANTIATE_TEST_SUITE_P(Families, ConfigurePictures, ::testing::ValuesIn(kFamilies),
                         [](const ::testing::TestParamInfo<Family>& p) {
                           std::string n = p.param.name;
                           for (char& c : n)
                             if (c == '-') c = '_';
                           return n;
                         });

}  // namespace
}  // namespace qmk::testing
