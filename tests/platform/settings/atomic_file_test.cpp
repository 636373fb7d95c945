// Locked, atomic replacement of settings files, and the path helpers beside it.
#include "platform/settings/atomic_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

#include "platform/settings/paths.h"
#include "support/settings_sandbox.h"

namespace qmk::platform {
namespace {

namespace fs = std::filesystem;

class AtomicFileTest : public ::testing::Test {
 protected:
  testing::SettingsSandbox sandbox_;
  std::string path_ = sandbox_.root() + "/values.txt";

  std::vector<std::string> FolderEntries() const {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(sandbox_.root()))
      names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(AtomicFileTest, AnEditStartsFromTheFileAndADeclinedOneChangesNothing) {
  ASSERT_TRUE(UpdateFileLocked(path_, [](std::string& t) { t = "one"; return true; }));
  ASSERT_TRUE(UpdateFileLocked(path_, [](std::string& t) { t += " two"; return true; }));
  EXPECT_FALSE(UpdateFileLocked(path_, [](std::string& t) { t = "lost"; return false; }));
  std::string text;
  ASSERT_EQ(ReadWholeFile(path_, text), ReadStatus::kOk);
  EXPECT_EQ(text, "one two");
}

TEST_F(AtomicFileTest, TemporaryFilesOfKilledWritersAreSweptAndNoneIsLeft) {
  std::ofstream(sandbox_.root() + "/.values.txt.tmp-99999-0") << "half a write";
  std::ofstream(sandbox_.root() + "/.other.tmp-1-0") << "someone else's";
  ASSERT_TRUE(UpdateFileLocked(path_, [](std::string& t) { t = "x"; return true; }));
  EXPECT_EQ(FolderEntries(), (std::vector<std::string>{".other.tmp-1-0", "values.txt"}));
}

TEST_F(AtomicFileTest, TheFilesPermissionsSurviveAReplace) {
  std::ofstream(path_) << "x";
  chmod(path_.c_str(), 0600);
  ASSERT_TRUE(UpdateFileLocked(path_, [](std::string& t) { t = "y"; return true; }));
  struct stat st {};
  ASSERT_EQ(stat(path_.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);
}

TEST_F(AtomicFileTest, ThreadsAppendingAtOnceLoseNothing) {
  constexpr int kThreads = 4, kEach = 50;
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([&] {
      for (int i = 0; i < kEach; ++i)
        UpdateFileLocked(path_, [](std::string& text) { text += "x"; return true; });
    });
  for (auto& t : threads) t.join();
  std::string text;
  ASSERT_EQ(ReadWholeFile(path_, text), ReadStatus::kOk);
  EXPECT_EQ(text.size(), size_t{kThreads * kEach});
}

TEST_F(AtomicFileTest, ReadsTellMissingFromUnreadable) {
  std::string text;
  EXPECT_EQ(ReadWholeFile(path_, text), ReadStatus::kMissing);
  EXPECT_EQ(ReadWholeFile(sandbox_.root(), text), ReadStatus::kFailed);  // a folder
  EXPECT_EQ(ReadWholeFile(path_ + "/below", text), ReadStatus::kMissing);
}

TEST_F(AtomicFileTest, TouchCreatesEmptyAndKeepsWhatIsThere) {
  ASSERT_TRUE(TouchFile(path_));
  EXPECT_EQ(fs::file_size(path_), 0u);
  std::ofstream(path_) << "kept";
  ASSERT_TRUE(TouchFile(path_));
  EXPECT_EQ(fs::file_size(path_), 4u);
  EXPECT_FALSE(TouchFile(sandbox_.root() + "/missing/x"));
}

TEST(SettingsPaths, AppendStopsShortOfTheLimit) {
  struct Case {
    std::string base, more, want;
    bool ok;
  };
  const std::string long_name(250, 'n');
  const Case cases[] = {
      {"/a", "b", "/a/b", true},
      {"/a/", "b", "/a/b", true},
      {"", "b", "b", true},
      {"/a", "/abs", "/abs", true},
      {"/a", "", "/a", true},
      {"/base", long_name, "/base/" + long_name, true},  // 256 characters
      {"/basefolder", long_name, "/basefolder", false},  // 261 characters: refused
  };
  for (const Case& c : cases) {
    std::string path = c.base;
    EXPECT_EQ(PathAppend(path, c.more), c.ok) << c.base << " + " << c.more.size();
    EXPECT_EQ(path, c.ok ? c.want : c.base);
  }
}

TEST(SettingsPaths, ParentFolders) {
  EXPECT_EQ(ParentFolder("/a/b/c.ini"), "/a/b");
  EXPECT_EQ(ParentFolder("/c.ini"), "/");
  EXPECT_EQ(ParentFolder("c.ini"), "");
}

TEST_F(AtomicFileTest, CreateFoldersMakesEveryLevelOnce) {
  const std::string deep = sandbox_.root() + "/a/b/c";
  EXPECT_TRUE(CreateFolders(deep));
  EXPECT_TRUE(CreateFolders(deep));
  EXPECT_TRUE(fs::is_directory(deep));
  std::ofstream(sandbox_.root() + "/file") << "x";
  EXPECT_FALSE(CreateFolders(sandbox_.root() + "/file/below"));
  EXPECT_FALSE(CreateFolders(""));
}

TEST_F(AtomicFileTest, CommonDataFolderDefaultsAndCanBeUnknown) {
  sandbox_.Unset("QMK_COMMON_DATA");
  EXPECT_EQ(CommonDataFolder(), "/var/lib");
  sandbox_.Set("QMK_COMMON_DATA", "");
  EXPECT_EQ(CommonDataFolder(), "");
}

}  // namespace
}  // namespace qmk::platform
