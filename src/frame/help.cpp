// help.cpp: help addresses, finding the browser and starting it.
#include "frame/help.h"

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "frame/corvid_app.h"
#include "frame/message_display.h"
#include "qmk/QmkGen.h"

extern char** environ;

namespace qmk::frame {

const char kHelpSiteBase[] = "https://help.quillmark.com\\MarkDesk Plus\\Help\\v83\\";

namespace {

bool IsExecutable(const std::string& path) {
  struct stat info;
  return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) && access(path.c_str(), X_OK) == 0;
}

std::string FindOnPath(const std::string& program) {
  const char* path = std::getenv("PATH");
  std::string dirs = path ? path : "/usr/bin:/bin";
  size_t start = 0;
  while (start <= dirs.size()) {
    size_t end = dirs.find(':', start);
    if (end == std::string::npos) end = dirs.size();
    const std::string candidate = dirs.substr(start, end - start) + "/" + program;
    if (end > start && IsExecutable(candidate)) return candidate;
    start = end + 1;
  }
  return {};
}

// The default: $BROWSER (its first entry, when it lists several), else xdg-open.
class DesktopLauncher : public BrowserLauncher {
 public:
  bool FindBrowser(std::string& program) override {
    const char* browser = std::getenv("BROWSER");
    if (browser && *browser) {
      program = std::string(browser).substr(0, std::string(browser).find(':'));
      return true;
    }
    program = FindOnPath("xdg-open");
    return !program.empty();
  }

  // The address arrives quoted to be one command-line argument; a program started without a
  // shell splitting it gets it as one argument already, so the quotes go. A short-lived shell
  // starts the browser in the background and is waited for at once, so the browser outlives
  // this call without leaving a child behind; the shell fails when the program can't be found.
  bool Start(const std::string& program, const std::string& argument,
             const std::string& folder) override {
    std::string address = argument;
    if (address.size() >= 2 && address.front() == '"' && address.back() == '"')
      address = address.substr(1, address.size() - 2);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    struct stat info;
    if (!folder.empty() && stat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode))
      posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    std::string script = "command -v \"$0\" >/dev/null 2>&1 || exit 127; \"$0\" \"$1\" >/dev/null 2>&1 &";
    std::string shell = "sh", dash_c = "-c", name = program;
    std::vector<char*> argv = {shell.data(), dash_c.data(), script.data(), name.data(),
                               address.data(), nullptr};
    pid_t child = 0;
    const int failed = posix_spawn(&child, "/bin/sh", &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) return false;
    int status = 0;
    if (waitpid(child, &status, 0) != child) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
};

DesktopLauncher& DefaultLauncher() {
  static DesktopLauncher launcher;
  return launcher;
}

BrowserLauncher* g_launcher = nullptr;

HelpContext CommonServicesContext() { return HelpContext{GenGetHelpId(), {}}; }

HelpContextSource g_context_source = nullptr;

// The folder of the tools, the browser's working folder.
std::string ToolsFolder() {
  const char* tools = std::getenv("QMK_TOOLS_DIR");
  return tools ? tools : "";
}

}  // namespace

BrowserLauncher* SetBrowserLauncher(BrowserLauncher* launcher) {
  BrowserLauncher* previous = g_launcher;
  g_launcher = launcher;
  return previous;
}

HelpContextSource SetHelpContextSource(HelpContextSource source) {
  HelpContextSource previous = g_context_source;
  g_context_source = source;
  return previous;
}

std::string HelpFileName(const std::string& path) {
  if (path.empty() || path.back() == '/' || path.back() == '\\') return path;
  const size_t slash = path.find_last_of("/\\");
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  const size_t dot = name.rfind('.');
  if (dot != std::string::npos) name.erase(dot);
  return name;
}

std::string HelpAddress(const std::string& name, int id, int command) {
  std::vector<char> text(sizeof kHelpSiteBase + name.size() + 64);
  switch (command) {
    case kHelpContext:
    case kHelpFinder:
      std::snprintf(text.data(), text.size(), "\"%s%s\\main_CSH.htm#%i\"", kHelpSiteBase, name.c_str(), id);
      break;
    case kHelpIndex:
      std::snprintf(text.data(), text.size(), "\"%s%s\\main_CSH.htm#102|Main_Window.htm|Index\"",
                    kHelpSiteBase, name.c_str());
      break;
    case kHelpSearch:
      std::snprintf(text.data(), text.size(), "\"%s%s\\main_CSH.htm?Search\"", kHelpSiteBase, name.c_str());
      break;
    default:  // contents, and every command not known
      std::snprintf(text.data(), text.size(), "\"%s%s\\main_CSH.htm\"", kHelpSiteBase, name.c_str());
      break;
  }
  std::string address;
  for (const char* c = text.data(); *c; ++c)
    if (*c != ' ') address += *c;
  return address;
}

void ShowHelp(QMK_HWND owner, const CCorvidApp& app, int command) {
  (void)owner;  // the browser is a program of its own: the owner only anchors the boxes below
  std::string path = app.help_file_path();
  const HelpContext context = (g_context_source ? g_context_source : CommonServicesContext)();
  if (!context.component.empty()) path = context.component;
  const std::string argument = HelpAddress(HelpFileName(path), context.id, command);
  BrowserLauncher& launcher = g_launcher ? *g_launcher : DefaultLauncher();
  std::string browser;
  if (!launcher.FindBrowser(browser)) {
    DisplayMessage("The default browser could not be found", kMbIconStop);
    return;
  }
  if (!launcher.Start(browser, argument, ToolsFolder()))
    DisplayMessage("Could not open web browser to access help system", kMbIconStop);
}

}  // namespace qmk::frame
