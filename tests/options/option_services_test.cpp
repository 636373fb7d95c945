// The running library's option services: the framework's own messages and the template check's
// owner window.
#include <gtest/gtest.h>

#include "frame/module_state_guard.h"
#include "frame/scripted_operator.h"
#include "options/auto_name_dialog_view.h"
#include "options/option_services.h"
#include "qmk/QmkGen.h"
#include "view_fixture.h"

namespace qmk::options::testing {
namespace {

using namespace platform::ui;

QMK_HWND g_sink_owner = nullptr;
int g_sink_calls = 0;
int RecordOwner(QMK_HWND owner, const char*, unsigned) {
  g_sink_owner = owner;
  ++g_sink_calls;
  return 1;
}

class LibraryServicesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    frame::ModuleStateGuard connect;  // entering the module connects the library's sink
    previous_ = frame::SetOperator(&op_);
  }
  void TearDown() override { frame::SetOperator(previous_); }

  frame::ScriptedOperator op_;
  frame::Operator* previous_ = nullptr;
};

// A number check of the framework speaks as the framework: no caption of the application, no
// help topic, the flags as given.
TEST_F(LibraryServicesTest, FrameworkTextsGoOutWithAnEmptyCaption) {
  DefaultOptionServices().ShowText("Please enter an integer between 1 and 63.", 0x30);
  ASSERT_EQ(op_.events().size(), 1u);
  EXPECT_EQ(op_.events()[0], "message \"\" \"Please enter an integer between 1 and 63.\" flags=0x30 help=0");
}

TEST_F(LibraryServicesTest, TheTemplateCheckTellsOverTheWindowItIsGiven) {
  const GenMessageSink previous = GenSetMessageSink(&RecordOwner);
  const QMK_HWND owner = reinterpret_cast<QMK_HWND>(0x1234);
  g_sink_calls = 0;
  EXPECT_FALSE(DefaultOptionServices().CheckAutoNameTemplate("Scan*", owner));
  EXPECT_TRUE(DefaultOptionServices().CheckAutoNameTemplate("Scan*S.dat", owner));
  GenSetMessageSink(previous);
  EXPECT_EQ(g_sink_calls, 1);
  EXPECT_EQ(g_sink_owner, owner);
}

// The naming dialog on screen hands its own window to the check.
class OwnerServices : public ScreenOptionServices {
 public:
  bool CheckAutoNameTemplate(const std::string& name_template, QMK_HWND owner) override {
    owner_is_naming_dialog = owner && GetDlgItem(owner, kIdcTemplate) && GetDlgItem(owner, kIdcNext);
    return FakeOptionServices::CheckAutoNameTemplate(name_template, owner);
  }
  bool owner_is_naming_dialog = false;
};

TEST_F(OptionViewTest, TheNamingDialogChecksItsTemplateOverItself) {
  OwnerServices services;
  std::string name_template = "Scan*S.dat";
  int16_t sequence = 0;
  uint8_t flags = QMK_AUTONAME_NEVER_RESET;
  QueueDialogScript(DialogScript(CAutoNameDialog::kIdd).Press(IDOK));
  CAutoNameDialog model(&name_template, &sequence, &flags, services);
  view::CAutoNameDialog dialog(model);
  ASSERT_EQ(dialog.DoModal(), IDOK);
  ASSERT_EQ(services.template_owners.size(), 1u);
  EXPECT_TRUE(services.owner_is_naming_dialog);
}

}  // namespace
}  // namespace qmk::options::testing
