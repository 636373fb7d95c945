// The scanner configuration dialog on the GTK back end, on a virtual X server: it opens, the
// scripted operator drives its real controls, and it closes with the values typed. Skipped with
// a message where Xvfb cannot start or the GTK module wasn't built.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include "discovery/configure_view_fixture.h"
#include "platform/ui/backend.h"
#include "support/xvfb.h"

namespace qmk::testing {
namespace {

namespace ui = platform::ui;
using namespace discovery::config_ids;

class ConfigureOnGtk : public ConfigureViewTest {
 protected:
  void TearDown() override {
    // Back to the headless window system for the tests that follow in this program.
    EXPECT_TRUE(ui::InstallBackend(ui::MakeHeadlessBackend().release()));
    ConfigureViewTest::TearDown();
  }
};

TEST_F(ConfigureOnGtk, OpensIsDrivenAndCloses) {
#ifndef QMK_UI_GTK3_MODULE
  GTEST_SKIP() << "the GTK back end module is not built here";
#else
  QMK_REQUIRE_XVFB();
  // The accessibility bridge wants a session bus that tests don't have.
  setenv("NO_AT_BRIDGE", "1", 0);
  void* module = dlopen(QMK_UI_GTK3_MODULE, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  auto create = reinterpret_cast<ui::CreateBackendFn>(dlsym(module, ui::kCreateBackendSymbol));
  ASSERT_NE(create, nullptr);
  ASSERT_TRUE(ui::InstallBackend(create(ui::kBackendAbiVersion))) << "GTK cannot open " << getenv("DISPLAY");
  ASSERT_STREQ(ui::CurrentBackend().Name(), "gtk3");

  Store(511);
  comm_ = sct_config_ex{9600, 'E', 7, 1, 3, 10, 0};
  EXPECT_EQ(Run(Script()
                    .Check(kPrinter)
                    .Choose(kBaudList, "19200")
                    .SetText(kTimeout, "30")
                    .Check(kData8)
                    .Check(kNone)
                    .Press(ui::IDOK)),
            ui::IDOK);
  EXPECT_TRUE(config_.feat_mask.transport_printer);
  EXPECT_EQ(comm_.baud, 19200u);
  EXPECT_EQ(comm_.timeout, 30);
  EXPECT_EQ(comm_.data_bits, 8);
  EXPECT_EQ(comm_.parity, 'N');
  EXPECT_TRUE(Messages().empty());
#endif
}

}  // namespace
}  // namespace qmk::testing
