// The library's open-file chooser: its filter text, the folder listing, what a typed name means,
// and a run through the conversion dialog's browse button.
#include "options/file_chooser.h"

#include <gtest/gtest.h>

#include <fstream>

#include "options/conversion_options_model.h"
#include "options/option_dialogs.h"
#include "options/scanning_options_model.h"
#include "view_fixture.h"

namespace qmk::options::testing {
namespace {

namespace fs = std::filesystem;
using namespace platform::ui;

constexpr int kChooserTemplate = 2090, kIdcChooserName = 2093;

TEST(FileFilterText, PairsOfDescriptionAndPatterns) {
  struct Case {
    const char* text;
    std::vector<std::string> descriptions;
  };
  const Case cases[] = {
      {"Text (*.txt)|*.txt|All (*.*)|*.*|", {"Text (*.txt)", "All (*.*)"}},
      {"", {}},
      {"Dangling|", {}},
      {"|*.x|Named|*.y", {"Named"}},
  };
  for (const Case& c : cases) {
    std::vector<std::string> got;
    for (const FileFilter& f : ParseFileFilter(c.text)) got.push_back(f.description);
    EXPECT_EQ(got, c.descriptions) << c.text;
  }
  EXPECT_EQ(ParseFileFilter("T|*.txt;*.csv|")[0].patterns, "*.txt;*.csv");
}

class ChooserFolder : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "qmk-chooser-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    root_ = pattern;
    for (const char* name : {"a.txt", "B.TXT", "c.dat", ".hidden.txt"}) std::ofstream(root_ / name) << "x";
    fs::create_directory(root_ / "sub");
  }
  void TearDown() override { fs::remove_all(root_); }
  fs::path root_;
};

TEST_F(ChooserFolder, ListsFoldersThenMatchingFilesWithoutHiddenOnes) {
  EXPECT_EQ(ListFolder(root_.string(), "*.txt"),
            (std::vector<std::string>{"[..]", "[sub]", "B.TXT", "a.txt"}));
  EXPECT_EQ(ListFolder(root_.string(), "*.dat;*.txt"),
            (std::vector<std::string>{"[..]", "[sub]", "B.TXT", "a.txt", "c.dat"}));
  EXPECT_EQ(ListFolder((root_ / "missing").string(), "*"), std::vector<std::string>{"[..]"});
  const auto top = ListFolder("/", "*");
  EXPECT_TRUE(top.empty() || top[0] != "[..]") << "the root has no parent entry";
}

TEST_F(ChooserFolder, TypedNamesResolveAgainstTheFolder) {
  const std::string folder = root_.string();
  struct Case {
    std::string name, path;
    bool is_folder, folder_exists;
  };
  const Case cases[] = {
      {"a.txt", folder + "/a.txt", false, true},
      {"new.txt", folder + "/new.txt", false, true},  // need not exist
      {"sub", folder + "/sub", true, true},
      {"sub/", folder + "/sub", true, true},
      {"..", root_.parent_path().string(), true, true},
      {"/no/such/folder/x.txt", "/no/such/folder/x.txt", false, false},
      {"  ", "", false, false},
  };
  for (const Case& c : cases) {
    const ChooserTarget t = ResolveChooserName(folder, c.name);
    EXPECT_EQ(t.path, c.path) << c.name;
    EXPECT_EQ(t.is_folder, c.is_folder) << c.name;
    EXPECT_EQ(t.folder_exists, c.folder_exists) << c.name;
  }
}

// Fake services, but the browse button opens the library's own chooser.
class ChooserServices : public ScreenOptionServices {
 public:
  bool ChooseOpenFile(const std::string& title, const std::string& filter, const std::string& folder,
                      const std::string& file, std::string& chosen) override {
    return RunFileChooser(title, filter, folder, file, chosen);
  }
};

class ChooserRun : public OptionViewTest {
 protected:
  void SetUp() override {
    OptionViewTest::SetUp();
    std::string pattern = (fs::temp_directory_path() / "qmk-chooser-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    root_ = pattern;
    std::ofstream(root_ / "a.txt") << "x";
    fs::create_directory(root_ / "sub");
  }
  void TearDown() override {
    fs::remove_all(root_);
    OptionViewTest::TearDown();
  }
  fs::path root_;
};

TEST_F(ChooserRun, BrowseStartsAtTheCurrentNameAndTakesTheChosenFile) {
  ChooserServices services;
  build_data record{};
  const std::string start = (root_ / "start.txt").string();
  Put(record.postScanConversionFileName, sizeof record.postScanConversionFileName, start.c_str());
  QueueDialogScript(DialogScript(CConvertOptionsDialog::kIdd).Click(kIdcBrowse).Press(IDOK));
  QueueDialogScript(DialogScript(kChooserTemplate)
                        .SetText(kIdcChooserName, "sub")  // a folder: it opens
                        .Press(IDOK)
                        .SetText(kIdcChooserName, "../a.txt")
                        .Press(IDOK));
  ASSERT_TRUE(ShowConversionOptions(&record, 0, nullptr, services))
      << ::testing::PrintToString(DialogScriptLog());
  EXPECT_EQ(std::string(record.postScanConversionFileName), (root_ / "a.txt").string());
}

TEST_F(ChooserRun, CancelledChooserKeepsTheName) {
  ChooserServices services;
  build_data record{};
  const std::string start = (root_ / "start.txt").string();
  Put(record.postScanConversionFileName, sizeof record.postScanConversionFileName, start.c_str());
  QueueDialogScript(DialogScript(CConvertOptionsDialog::kIdd).Click(kIdcBrowse).Press(IDOK));
  QueueDialogScript(DialogScript(kChooserTemplate).SetText(kIdcChooserName, "a.txt").Press(IDCANCEL));
  ASSERT_TRUE(ShowConversionOptions(&record, 0, nullptr, services));
  EXPECT_EQ(std::string(record.postScanConversionFileName), start);
}

}  // namespace
}  // namespace qmk::options::testing
