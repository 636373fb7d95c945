// The resource manager: language search and fall-backs, locale information, the language font,
// the holder's sinks and the archive form.
#include "toolkit/dialogs/resource_manager.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

#include "platform/archive.h"
#include "toolkit/bitmap/bitmap.h"
#include "toolkit/dialogs/builtin_resources.h"
#include "toolkit/dialogs/locale_info.h"
#include "toolkit/dialogs/resource_manager_holder.h"
#include "toolkit/dialogs/string_table.h"

namespace qmk::toolkit {
namespace {

constexpr uint16_t kGerman = 1031, kFrench = 1036;

// A table that records every language it was asked for.
class RecordingModule : public ResourceTable {
 public:
  std::optional<std::string_view> Find(int type, const ResourceName& name,
                                       uint16_t language) const override {
    asked.push_back(language);
    return ResourceTable::Find(type, name, language);
  }
  mutable std::vector<uint16_t> asked;
};

// Puts the process-wide settings back after each test.
class ResourceManagerTest : public ::testing::Test {
 protected:
  void TearDown() override {
    SetFrameworkResourceModule(nullptr);
    SetUserDefaultLanguage(kLangEnglishUs);
    SetDefaultFontSource(nullptr);
    SetFontWindowAccess({});
    SetLocaleSource(nullptr);
    ResourceManager().RemoveSink(nullptr);
    ResourceManager().InstallResourceManager(nullptr);
  }
};

TEST_F(ResourceManagerTest, CustomLanguageOffAsksNoRegisteredModuleAndTakesTheFrameworkLookup) {
  RecordingModule registered, framework;
  registered.AddCopy(kResourceTypeString, 1, kGerman, "registered");
  framework.AddCopy(kResourceTypeString, 1, kGerman, "framework de");
  framework.AddCopy(kResourceTypeString, 1, kLangEnglishUs, "framework en");
  SetFrameworkResourceModule(&framework);
  CExtResourceManager manager(false, kGerman);
  manager.RegisterResourceModule(&registered);
  std::string text;
  ASSERT_TRUE(manager.LoadString(1, text));
  EXPECT_EQ(text, "framework en");  // the desired German is not asked for
  EXPECT_TRUE(registered.asked.empty());
  SetUserDefaultLanguage(kGerman);
  ASSERT_TRUE(manager.LoadString(1, text));
  EXPECT_EQ(text, "framework de");
}

TEST_F(ResourceManagerTest, SearchAsksDesiredThenNeutralAndOnlyOnceWhenTheyAreEqual) {
  struct Case {
    uint16_t desired;
    std::vector<uint16_t> asked;
  };
  for (const Case& c : {Case{kLangEnglishUs, {kLangEnglishUs}}, Case{kGerman, {kGerman, kLangEnglishUs}}}) {
    RecordingModule module;
    CExtResourceManager manager(true, c.desired);
    manager.RegisterResourceModule(&module);
    uint16_t lang = 0;
    std::string_view bytes = "left over";
    EXPECT_EQ(manager.FindResourceHandle(kResourceTypeDialog, 77, &lang, &bytes), nullptr);
    EXPECT_EQ(module.asked, c.asked) << "desired " << c.desired;
    EXPECT_EQ(lang, kLangEnglishUs);
    EXPECT_EQ(bytes.data(), nullptr);
  }
}

TEST_F(ResourceManagerTest, RegisteredModulesAreSearchedInOrderPerLanguage) {
  ResourceTable first, second;
  first.AddCopy(kResourceTypeMenu, "MAIN", kLangEnglishUs, "first en");
  second.AddCopy(kResourceTypeMenu, "main", kGerman, "second de");
  CExtResourceManager manager(true, kGerman);
  EXPECT_TRUE(manager.RegisterResourceModule(&first));
  EXPECT_TRUE(manager.RegisterResourceModule(&second));
  EXPECT_FALSE(manager.RegisterResourceModule(&first));  // once only, first place kept
  EXPECT_FALSE(manager.RegisterResourceModule(nullptr));
  uint16_t lang = 0;
  std::string_view bytes;
  // The desired language in any module beats the neutral one in an earlier module.
  EXPECT_EQ(manager.FindResourceHandle(kResourceTypeMenu, "Main", &lang, &bytes), &second);
  EXPECT_EQ(bytes, "second de");
  EXPECT_EQ(lang, kGerman);
  manager.SetLangIdDesired(kFrench);
  EXPECT_EQ(manager.FindResourceHandle(kResourceTypeMenu, "main", &lang, &bytes), &first);
  EXPECT_EQ(lang, kLangEnglishUs);
  EXPECT_TRUE(manager.UnregisterResourceModule(&first));
  EXPECT_EQ(manager.FindResourceHandle(kResourceTypeMenu, "main", &lang, &bytes), nullptr);
}

TEST_F(ResourceManagerTest, AMissingStringFallsToTheNeutralLanguage) {
  CExtResourceManager manager(true, kGerman);
  manager.RegisterResourceModule(&BuiltinResources());
  CExtResourceMemoryBuffer buffer;
  uint16_t lang = 0;
  ASSERT_TRUE(manager.LoadResourceBuffer(kResourceTypeString, 8, buffer, &lang));
  EXPECT_EQ(buffer.View(), "\nScannen abgebrochen.");
  EXPECT_EQ(lang, kGerman);
  ASSERT_TRUE(manager.LoadResourceBuffer(kResourceTypeString, 27, buffer, &lang));
  EXPECT_EQ(buffer.View(), "Multiple feed error");
  EXPECT_EQ(lang, kLangEnglishUs);
  EXPECT_FALSE(manager.LoadResourceBuffer(kResourceTypeString, 999999, buffer, &lang));
  EXPECT_TRUE(buffer.IsEmpty());
}

TEST_F(ResourceManagerTest, LibraryTextsFollowTheInstalledManagerAndStayEnglishByDefault) {
  std::string text;
  ASSERT_TRUE(LoadString(7, text));
  EXPECT_EQ(text, "\nScanning in progress.");
  ResourceManager()->AllowCustomLang(true);
  ResourceManager().SetLangIdDesired(kGerman);
  ASSERT_TRUE(LoadString(7, text));
  EXPECT_EQ(text, "\nScannen läuft.");
  ASSERT_TRUE(LoadString(28, text));
  EXPECT_EQ(text, "Deskew error");
}

TEST_F(ResourceManagerTest, DialogTemplateTablesJoinAModuleByIdAndLanguage) {
  struct Row {
    int id;
    const char* language;
    const char* text;
  };
  static const Row kRows[] = {{300, "en", "DIALOG en"}, {300, "de", "DIALOG de"},
                              {301, "en", "only en"},   {302, "xx", "unknown"},
                              {303, "en", nullptr}};
  ResourceTable module;
  EXPECT_EQ(AddDialogTemplates(module, kRows), 3u);
  CExtResourceManager manager(true, kGerman);
  manager.RegisterResourceModule(&module);
  std::string text;
  struct Case {
    int id;
    bool found;
    const char* want;
  };
  for (const Case& c : {Case{300, true, "DIALOG de"}, Case{301, true, "only en"}, Case{302, false, ""}}) {
    text.clear();
    EXPECT_EQ(manager.LoadDialogTemplate(c.id, text), c.found) << c.id;
    EXPECT_EQ(text, c.want) << c.id;
  }
}

TEST_F(ResourceManagerTest, RightToLeftTakesCodePageThenDesiredThenUserDefault) {
  struct Case {
    bool allow;
    uint16_t desired;
    int32_t code_page;
    uint16_t user_default;
    bool want;
  };
  const Case cases[] = {
      {true, 1025, -1, 1033, true},        // first of the list
      {true, 16385, -1, 1033, true},       // last of the list
      {true, 1024, -1, 1033, false},       // just below the first
      {true, 16386, -1, 1033, false},      // just above the last
      {true, 1026, -1, 1033, false},       // between two listed ones
      {true, 1056, -1, 1033, true},
      {true, 1033, 1037, 1033, true},      // the locale value wins over the desired language
      {true, 1037, 1033, 1033, false},
      {true, 1033, 0x10401, 1033, true},   // a locale identifier with sort bits: its language
      {false, 1025, -1, 1033, false},      // without custom language the user default counts
      {false, 1033, -1, 1037, true},
  };
  for (const Case& c : cases) {
    SetUserDefaultLanguage(c.user_default);
    CExtResourceManager manager(c.allow, c.desired, c.code_page);
    EXPECT_EQ(manager.IsRightToLeftLanguage(), c.want)
        << c.allow << " " << c.desired << " " << c.code_page << " " << c.user_default;
  }
}

// A German locale for the locale information tests: US English but for the facts it overrides.
class GermanLocale : public platform::Locale {
 public:
  char DecimalSeparator() const override { return ','; }
  char ThousandsSeparator() const override { return '.'; }
  std::string CurrencySymbol() const override { return "EUR"; }
  std::string TrueName() const override { return "Wahr"; }
  std::string FalseName() const override { return "Falsch"; }
  platform::DateOrder GetDateOrder() const override { return platform::DateOrder::kDayMonthYear; }
  char DateSeparator() const override { return '.'; }
  char TimeSeparator() const override { return ':'; }
  std::string AmDesignator() const override { return ""; }
  std::string PmDesignator() const override { return ""; }
  bool Uses24HourClock() const override { return true; }
  std::string MonthName(int month, bool abbreviated) const override {
    return month == 3 ? (abbreviated ? "Mrz" : "März") : "x";
  }
};

const platform::Locale* GermanAndEnglish(uint32_t language) {
  static const GermanLocale german;
  if (language == kGerman) return &german;
  if (language == kLangEnglishUs || language == kLangUserDefault) return &platform::EnUsLocale();
  return nullptr;
}

TEST_F(ResourceManagerTest, LocaleInfoTriesDesiredNeutralThenDefaults) {
  SetLocaleSource(&GermanAndEnglish);
  struct Case {
    bool allow;
    uint16_t desired;
    uint32_t type;
    const char* want;
  };
  const Case cases[] = {
      {true, kGerman, kLocaleDecimal, ","},
      {true, kGerman, kLocaleMonthName1 + 2, "März"},
      {true, kGerman, kLocaleAbbrevMonthName1 + 2, "Mrz"},
      {true, kGerman, kLocaleDateOrder, "1"},
      {true, kGerman, kLocaleTimeFormat, "1"},
      {true, kGerman, kLocaleLanguageId, "0407"},
      {true, kFrench, kLocaleDecimal, "."},   // no French facts: the neutral language answers
      {false, kGerman, kLocaleDecimal, "."},  // custom language off: only the default forms
      {true, kGerman, 0x7777, ""},            // a type nobody answers
  };
  for (const Case& c : cases) {
    CExtResourceManager manager(c.allow, c.desired);
    EXPECT_EQ(manager.GetLocaleInfo(c.type), c.want) << c.desired << " type " << c.type;
  }
  CExtResourceManager manager(true, kGerman);
  char buffer[8];
  EXPECT_EQ(manager.GetLocaleInfo(kLocaleCurrency, buffer, 0), 4);  // size asked
  EXPECT_EQ(manager.GetLocaleInfo(kLocaleCurrency, buffer, 4), 4);
  EXPECT_STREQ(buffer, "EUR");
  // Too small for German "EUR", but the neutral "$" fits: the first non-zero result wins.
  EXPECT_EQ(manager.GetLocaleInfo(kLocaleCurrency, buffer, 3), 2);
  EXPECT_STREQ(buffer, "$");
}

FontDescription BigFont() {
  FontDescription f;
  f.height = -20;
  f.weight = 700;
  return f;
}

TEST_F(ResourceManagerTest, LanguageFontIsTheDefaultFontWithTheFaceAndIsKeptForTheSameFace) {
  SetDefaultFontSource(&BigFont);
  CExtResourceManager manager;
  EXPECT_EQ(manager.GetLanguageFont(), nullptr);  // no face, no font
  manager.SetLanguageFontFace("Noto Sans Arabic");
  const FontDescription* font = manager.GetLanguageFont();
  ASSERT_NE(font, nullptr);
  EXPECT_STREQ(font->face, "Noto Sans Arabic");
  EXPECT_EQ(font->height, -20);
  EXPECT_EQ(font->weight, 700);
  manager.SetLanguageFontFace("Noto Sans Arabic");
  EXPECT_EQ(manager.GetLanguageFont(), font);  // the same face keeps the font
  const std::string long_face(40, 'F');
  manager.SetLanguageFontFace(long_face.c_str());
  EXPECT_EQ(manager.GetLanguageFontFace(), long_face);
  EXPECT_EQ(std::string(manager.GetLanguageFont()->face), long_face.substr(0, 31));
  manager.SetLanguageFontFace(nullptr);
  EXPECT_EQ(manager.GetLanguageFontFace(), "");
  EXPECT_EQ(manager.GetLanguageFont(), nullptr);
}

TEST_F(ResourceManagerTest, ApplyLanguageFontSendsSetFontDownToTheDepth) {
  // Window 1 has children 2 and 3; window 2 has child 4.
  std::map<uintptr_t, std::vector<uintptr_t>> tree = {{1, {2, 3}}, {2, {4}}};
  std::vector<std::pair<uintptr_t, intptr_t>> sent;
  const void* font_seen = nullptr;
  CExtResourceManager manager;
  EXPECT_FALSE(manager.ApplyLanguageFont(reinterpret_cast<WindowRef>(1)));  // no window system yet
  SetFontWindowAccess({[&](WindowRef w, unsigned msg, uintptr_t wparam, intptr_t lparam) {
                         EXPECT_EQ(msg, 48u);
                         font_seen = reinterpret_cast<const void*>(wparam);
                         sent.emplace_back(reinterpret_cast<uintptr_t>(w), lparam);
                       },
                       [&](WindowRef w) {
                         std::vector<WindowRef> out;
                         for (uintptr_t c : tree[reinterpret_cast<uintptr_t>(w)])
                           out.push_back(reinterpret_cast<WindowRef>(c));
                         return out;
                       }});
  manager.SetLanguageFontFace("DejaVu Serif");
  struct Case {
    int depth;
    bool redraw;
    std::vector<std::pair<uintptr_t, intptr_t>> want;
  };
  const Case cases[] = {
      {0, true, {{1, 1}}},
      {1, false, {{1, 0}, {2, 0}, {3, 0}}},
      {2, true, {{1, 1}, {2, 1}, {4, 1}, {3, 1}}},
  };
  for (const Case& c : cases) {
    sent.clear();
    EXPECT_TRUE(manager.ApplyLanguageFont(reinterpret_cast<WindowRef>(1), c.depth, c.redraw));
    EXPECT_EQ(sent, c.want) << "depth " << c.depth;
    EXPECT_EQ(font_seen, manager.GetLanguageFont());
  }
  EXPECT_FALSE(manager.ApplyLanguageFont(nullptr));
}

class Sink : public CExtResourceManagerSink {
 public:
  explicit Sink(bool accept) : accept_(accept) {}
  bool OnResourceManagerAttach(CExtResourceManagerAutoPtr&) override { return accept_; }
  void OnResourceManagerInstalled(CExtResourceManager&) override { ++installs; }
  void OnLanguageChanged(uint16_t language) override { languages.push_back(language); }
  int installs = 0;
  std::vector<uint16_t> languages;

 private:
  bool accept_;
};

TEST_F(ResourceManagerTest, HolderSinksAddAndRemoveByTheRules) {
  CExtResourceManagerAutoPtr& holder = ResourceManager();
  Sink a(true), b(true), refusing(false);
  EXPECT_FALSE(holder.AddSink(nullptr));
  EXPECT_FALSE(holder.AddSink(&refusing));
  EXPECT_TRUE(holder.AddSink(&a));
  EXPECT_TRUE(holder.AddSink(&a));  // already there: nothing changes
  EXPECT_TRUE(holder.AddSink(&b));
  EXPECT_EQ(holder.GetSinks(), (std::vector<CExtResourceManagerSink*>{&a, &b}));
  holder.SetLangIdDesired(kGerman);
  holder.InstallResourceManager(std::make_unique<CExtResourceManager>(true, kFrench));
  EXPECT_EQ(a.languages, std::vector<uint16_t>{kGerman});
  EXPECT_EQ(b.installs, 1);
  EXPECT_EQ(holder->GetLangIdDesired(), kFrench);
  EXPECT_TRUE(holder.RemoveSink(&a));
  EXPECT_FALSE(holder.RemoveSink(&a));
  EXPECT_EQ(holder.GetSinks(), (std::vector<CExtResourceManagerSink*>{&b}));
  EXPECT_TRUE(holder.AddSink(&a));
  EXPECT_TRUE(holder.RemoveSink(nullptr));  // null clears the list
  EXPECT_TRUE(holder.GetSinks().empty());
}

TEST_F(ResourceManagerTest, ArchiveFormIsTwelveBytes) {
  CExtResourceManager stored(true, kGerman);
  platform::Archive out = platform::Archive::ToMemory();
  ASSERT_TRUE(stored.Serialize(out));
  const std::vector<uint8_t> bytes = out.TakeStored();
  EXPECT_EQ(bytes, (std::vector<uint8_t>{1, 0, 0, 0, 0x07, 0x04, 0, 0, 0, 0, 0, 0}));

  // Only bit 0 of the flags counts; the third word is not read.
  const uint8_t in[12] = {0xFE, 0xFF, 0, 0, 0x0C, 0x04, 0, 0, 9, 9, 9, 9};
  CExtResourceManager loaded(true, kLangEnglishUs);
  platform::Archive ar = platform::Archive::FromMemory(in, sizeof in);
  ASSERT_TRUE(loaded.Serialize(ar));
  EXPECT_FALSE(loaded.IsCustomLangAllowed());
  EXPECT_EQ(loaded.GetLangIdDesired(), 1036);

  CExtResourceManager untouched(true, kGerman);
  platform::Archive short_ar = platform::Archive::FromMemory(in, 11);
  EXPECT_FALSE(untouched.Serialize(short_ar));
  EXPECT_TRUE(untouched.IsCustomLangAllowed());
  EXPECT_EQ(untouched.GetLangIdDesired(), kGerman);
}

TEST_F(ResourceManagerTest, BitmapResourcesAreReadWithoutAFileHeader) {
  // A 2x1 24-bit picture: the 40-byte header, then one row of two pixels padded to 8 bytes.
  const uint8_t dib[] = {40, 0, 0, 0, 2, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24, 0, 0, 0, 0, 0, 8, 0, 0, 0,
                         0,  0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                         0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0, 0};
  ResourceTable module;
  module.AddCopy(kResourceTypeBitmap, "CHECK", kLangEnglishUs,
                 std::string(reinterpret_cast<const char*>(dib), sizeof dib));
  SetFrameworkResourceModule(&module);
  bitmap::CExtBitmap picture;
  ASSERT_TRUE(CExtResourceManager().LoadBitmap("check", picture));
  EXPECT_EQ(picture.Width(), 2);
  bitmap::RGBQUAD pixel;
  ASSERT_TRUE(picture.GetPixel(1, 0, pixel));
  EXPECT_EQ(pixel.rgbBlue, 0x40);
  EXPECT_EQ(pixel.rgbRed, 0x60);
  EXPECT_FALSE(CExtResourceManager().LoadBitmap("other", picture));
}

TEST_F(ResourceManagerTest, RegisteredModulesFreedOnlyWhenAskedTo) {
  // A module handed over with bFree is deleted with the manager; ASan reports a leak otherwise,
  // and a double free if the kept module were deleted too.
  ResourceTable kept;
  {
    CExtResourceManager manager(true);
    manager.RegisterResourceModule(new ResourceTable, true);
    manager.RegisterResourceModule(&kept, false);
  }
  kept.AddCopy(kResourceTypeIcon, 1, 1033, "still here");
  EXPECT_EQ(kept.Find(kResourceTypeIcon, 1, 1033), "still here");
}

}  // namespace
}  // namespace qmk::toolkit
