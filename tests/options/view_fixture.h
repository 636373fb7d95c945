// view_fixture.h: the headless window system, a private settings store and option services whose
// naming dialog is the real one on screen, for the tests that drive the option dialogs' views.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "fake_option_services.h"
#include "options/auto_name_dialog_view.h"
#include "platform/ui/backend.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "support/settings_sandbox.h"
#include "toolkit/dialogs/dialog_profile.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmk::options::testing {

// Fake services, but the naming dialog asked for is shown and scripted like any other.
class ScreenOptionServices : public FakeOptionServices {
 public:
  int RunAutoNameDialog(CAutoNameDialog& dialog) override {
    ++auto_name_runs;
    view::CAutoNameDialog screen(dialog, platform::ui::GetActiveWindow());
    return static_cast<int>(screen.DoModal());
  }
};

class OptionViewTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(platform::ui::InstallBackend(platform::ui::MakeHeadlessBackend().release()));
    toolkit::InstallToolkitSeams();
    toolkit::SetDialogProfilePath("");
    platform::ui::ClearDialogScripts();
  }
  void TearDown() override {
    EXPECT_EQ(platform::ui::PendingDialogScripts(), 0) << "a scripted dialog never opened";
    platform::ui::ClearDialogScripts();
  }

  // A record whose every byte is set, so that a byte the dialog must not touch shows any change.
  static build_data PatternedRecord() {
    build_data r;
    auto* bytes = reinterpret_cast<unsigned char*>(&r);
    for (size_t i = 0; i < sizeof r; ++i) bytes[i] = static_cast<unsigned char>(0x41 + i % 23);
    return r;
  }

  static void Put(char* field, size_t size, const char* text) {
    std::memset(field, 0, size);
    std::memcpy(field, text, std::min(std::strlen(text), size - 1));
  }

  qmk::testing::SettingsSandbox sandbox_;
  ScreenOptionServices services_;
};

// The offsets of the bytes in which two records differ.
inline std::vector<size_t> DifferingBytes(const build_data& a, const build_data& b) {
  std::vector<size_t> at;
  const auto* x = reinterpret_cast<const unsigned char*>(&a);
  const auto* y = reinterpret_cast<const unsigned char*>(&b);
  for (size_t i = 0; i < sizeof a; ++i)
    if (x[i] != y[i]) at.push_back(i);
  return at;
}

// True when every offset lies inside one of the fields [offset, offset + size).
struct FieldSpan {
  size_t offset, size;
};
inline ::testing::AssertionResult OnlyInside(const std::vector<size_t>& at,
                                             std::initializer_list<FieldSpan> fields) {
  for (size_t offset : at) {
    bool inside = false;
    for (const FieldSpan& f : fields) inside |= offset >= f.offset && offset < f.offset + f.size;
    if (!inside) return ::testing::AssertionFailure() << "byte " << offset << " changed";
  }
  return ::testing::AssertionSuccess();
}

#define QMK_SPAN(field) ::qmk::options::testing::FieldSpan{offsetof(build_data, field), sizeof(build_data::field)}

}  // namespace qmk::options::testing
