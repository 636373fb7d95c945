// process_locale_test.cpp: number and currency input over locales of the C library, compiled
// with localedef, so the reading of localeconv() is tested for real.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/scoped_env.h"
#include "toolkit/edit/keystrokes.h"
#include "toolkit/edit/memory_edit.h"
#include "toolkit/edit/system_number.h"

namespace qmk::toolkit::edit {
namespace {

// The compiled locales are kept between runs in one folder under the temporary directory; each is
// built aside and moved in whole, so runs side by side never see half a locale.
std::filesystem::path LocaleCache() { return std::filesystem::temp_directory_path() / "qmk-test-locales"; }

bool EnsureLocale(const std::string& name) {
  const std::filesystem::path target = LocaleCache() / (name + ".UTF-8");
  std::error_code ec;
  if (std::filesystem::exists(target / "LC_NUMERIC", ec)) return true;
  std::filesystem::create_directories(LocaleCache(), ec);
  qmk::testing::TempDir scratch;
  const std::filesystem::path built = scratch.path() / (name + ".UTF-8");
  const std::string command = "localedef -i " + name + " -f UTF-8 " + built.string() + " >/dev/null 2>&1";
  if (std::system(command.c_str()) != 0) return false;
  std::filesystem::rename(built, target, ec);
  return std::filesystem::exists(target / "LC_NUMERIC", ec);
}

class ProcessLocales : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { built_ = EnsureLocale("de_DE") && EnsureLocale("en_IN"); }
  void SetUp() override {
    if (!built_) GTEST_SKIP() << "localedef could not build the test locales";
  }
  void TearDown() override { std::setlocale(LC_ALL, "C"); }

  // The locale `name`, read from the process after switching to it.
  std::unique_ptr<platform::Locale> Use(const char* name) {
    qmk::testing::ScopedEnv path("LOCPATH", LocaleCache().string());
    EXPECT_NE(std::setlocale(LC_ALL, name), nullptr) << name;
    return platform::ProcessLocale();
  }

  template <class Behavior>
  std::string Typed(const platform::Locale& locale, const std::string& keys) {
    MemoryEdit edit;
    Behavior behavior(&edit, -15, 2, locale);
    edit.SetBehavior(&behavior);
    const auto steps = ParseKeystrokes(keys, nullptr);
    if (steps)
      for (const Keystroke& k : *steps) Replay(edit, k);
    return edit.GetText();
  }

  static bool built_;
};
bool ProcessLocales::built_ = false;

TEST_F(ProcessLocales, GermanSeparatorsAndEuroBehind) {
  const auto locale = Use("de_DE.UTF-8");
  EXPECT_EQ(locale->NumberSetting(platform::kLocaleGrouping), "3;3");
  EXPECT_EQ(Typed<CExtEditSystemNumber>(*locale, "1234567,5"), "1.234.567,5");
  EXPECT_EQ(Typed<CExtEditSystemCurrency>(*locale, "1234,5"), "1.234,5 \xE2\x82\xAC");
  EXPECT_EQ(Typed<CExtEditSystemCurrency>(*locale, "1234,5-"), "-1.234,5 \xE2\x82\xAC");
}

TEST_F(ProcessLocales, IndianGroupsOfTwo) {
  const auto locale = Use("en_IN.UTF-8");
  EXPECT_EQ(locale->NumberSetting(platform::kLocaleGrouping), "3;2");
  EXPECT_EQ(Typed<CExtEditSystemNumber>(*locale, "123456789"), "12,34,56,789");
}

}  // namespace
}  // namespace qmk::toolkit::edit
