// The help engine: addresses for every command, the file name part, the browser launch and its
// failures told through the message display; the application object's help routing.
#include "frame/help.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "frame/corvid_app.h"
#include "frame/scripted_operator.h"
#include "support/scoped_env.h"

namespace qmk::frame {
namespace {

const std::string kBase = "\"https://help.quillmark.com\\MarkDeskPlus\\Help\\v83\\";

class RecordingLauncher : public BrowserLauncher {
 public:
  bool has_browser = true;
  bool starts = true;
  std::vector<std::string> started;
  bool FindBrowser(std::string& program) override {
    program = "viewer";
    return has_browser;
  }
  bool Start(const std::string& program, const std::string& argument, const std::string&) override {
    started.push_back(program + " " + argument);
    return starts;
  }
};

HelpContext g_context;
HelpContext TestContext() { return g_context; }

class HelpTest : public ::testing::Test {
 protected:
  void SetUp() override {
    previous_launcher_ = SetBrowserLauncher(&launcher_);
    previous_source_ = SetHelpContextSource(TestContext);
    previous_op_ = SetOperator(&op_);
    g_context = HelpContext{1234, ""};
  }
  void TearDown() override {
    SetBrowserLauncher(previous_launcher_);
    SetHelpContextSource(previous_source_);
    SetOperator(previous_op_);
  }
  RecordingLauncher launcher_;
  ScriptedOperator op_;
  BrowserLauncher* previous_launcher_ = nullptr;
  HelpContextSource previous_source_ = nullptr;
  Operator* previous_op_ = nullptr;
  CCorvidApp app_;
};

TEST(HelpAddress, EveryCommand) {
  struct Case { int command; std::string tail; };
  const Case cases[] = {
      {0, "Scan\\main_CSH.htm#1234\""},
      {15, "Scan\\main_CSH.htm#1234\""},
      {1, "Scan\\main_CSH.htm\""},
      {2, "Scan\\main_CSH.htm#102|Main_Window.htm|Index\""},
      {3, "Scan\\main_CSH.htm?Search\""},
      {7, "Scan\\main_CSH.htm\""},
      {-1, "Scan\\main_CSH.htm\""},
  };
  for (const Case& c : cases) EXPECT_EQ(HelpAddress("Scan", 1234, c.command), kBase + c.tail) << c.command;
}

TEST(HelpAddress, HasNoBlankAnywhere) {
  const std::string address = HelpAddress("My Help", -5, 0);
  EXPECT_EQ(address.find(' '), std::string::npos);
  EXPECT_EQ(address, kBase + "MyHelp\\main_CSH.htm#-5\"");
}

TEST(HelpFileName, FolderAndExtensionGo) {
  struct Case { const char* path; const char* want; };
  for (const Case c : {Case{"", ""}, {"Scan.chm", "Scan"}, {"/a/b/Scan.chm", "Scan"},
                       {"C:\\x\\Guide.v2.chm", "Guide.v2"}, {"/a/b/", "/a/b/"}, {"plain", "plain"}})
    EXPECT_EQ(HelpFileName(c.path), c.want) << c.path;
}

TEST_F(HelpTest, TopicRequestStartsTheBrowserWithTheAddress) {
  app_.InitInstance();
  ShowHelp(nullptr, app_, kHelpContext);
  ASSERT_EQ(launcher_.started.size(), 1u);
  // The help file path is empty after start-up: no name between the folder and the page.
  EXPECT_EQ(launcher_.started[0], "viewer " + kBase + "\\main_CSH.htm#1234\"");
  EXPECT_TRUE(op_.events().empty());
}

TEST_F(HelpTest, ComponentNameReplacesTheHelpFile) {
  app_.InitInstance();
  g_context = HelpContext{7, "/opt/help/Scanner Guide.chm"};
  ShowHelp(nullptr, app_, kHelpSearch);
  ASSERT_EQ(launcher_.started.size(), 1u);
  EXPECT_EQ(launcher_.started[0], "viewer " + kBase + "ScannerGuide\\main_CSH.htm?Search\"");
}

TEST_F(HelpTest, FailuresAreToldWithTheStopIcon) {
  struct Case { bool has; bool starts; const char* text; };
  for (const Case c : {Case{false, true, "The default browser could not be found"},
                       {true, false, "Could not open web browser to access help system"}}) {
    op_.ClearEvents();
    launcher_.has_browser = c.has;
    launcher_.starts = c.starts;
    ShowHelp(nullptr, app_, kHelpContents);
    ASSERT_EQ(op_.events().size(), 1u);
    EXPECT_NE(op_.events()[0].find(c.text), std::string::npos) << op_.events()[0];
    EXPECT_NE(op_.events()[0].find("flags=0x10"), std::string::npos) << op_.events()[0];
  }
}

TEST_F(HelpTest, WinHelpNeedsAMainWindowAndAsksForTheTopic) {
  app_.InitInstance();
  EXPECT_FALSE(app_.WinHelp(0, kHelpIndex));
  EXPECT_TRUE(launcher_.started.empty());
  app_.m_pMainWnd = reinterpret_cast<QMK_HWND>(0x40);
  app_.m_bHelpMode = true;
  EXPECT_TRUE(app_.WinHelp(0, kHelpIndex));
  EXPECT_FALSE(app_.help_mode());
  EXPECT_EQ(app_.idle_kicks(), 1);
  ASSERT_EQ(launcher_.started.size(), 1u);
  EXPECT_NE(launcher_.started[0].find("#1234"), std::string::npos);
}

TEST(DefaultLauncher, StartsBrowserFromTheEnvironmentWithTheUnquotedAddress) {
  const std::filesystem::path dir = std::filesystem::temp_directory_path() /
                                    ("qmk_help_" + std::to_string(getpid()));
  std::filesystem::create_directories(dir);
  const std::filesystem::path browser = dir / "browser", seen = dir / "seen";
  {
    std::ofstream script(browser);
    script << "#!/bin/sh\nprintf '%s' \"$1\" > " << seen.string() << ".tmp && mv " << seen.string()
           << ".tmp " << seen.string() << "\n";
  }
  std::filesystem::permissions(browser, std::filesystem::perms::owner_all);
  testing::ScopedEnv use("BROWSER", browser.string());
  HelpContextSource previous = SetHelpContextSource([] { return HelpContext{55, ""}; });
  ScriptedOperator op;
  Operator* previous_op = SetOperator(&op);
  CCorvidApp app;
  app.InitInstance();
  ShowHelp(nullptr, app, kHelpContext);
  std::string address;
  for (int i = 0; i < 200 && address.empty(); ++i) {
    std::ifstream in(seen);
    std::getline(in, address);
    if (address.empty()) usleep(10000);
  }
  EXPECT_EQ(address, "https://help.quillmark.com\\MarkDeskPlus\\Help\\v83\\\\main_CSH.htm#55");
  EXPECT_TRUE(op.events().empty());
  {
    testing::ScopedEnv missing("BROWSER", (dir / "absent").string());
    ShowHelp(nullptr, app, kHelpContents);
  }
  ASSERT_EQ(op.events().size(), 1u);
  EXPECT_NE(op.events()[0].find("Could not open web browser"), std::string::npos);
  SetOperator(previous_op);
  SetHelpContextSource(previous);
  std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace qmk::frame
