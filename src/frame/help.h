// help.h: the help engine: a help request becomes a web address opened in the default browser.
#pragma once

#include <string>

#include "qmk/QmkScan.h"

namespace qmk::frame {

class CCorvidApp;

// Help commands.
constexpr int kHelpContext = 0, kHelpContents = 1, kHelpIndex = 2, kHelpSearch = 3,
              kHelpFinder = 15;

// Where help pages live: the maker's web server and the product's folder on it.
extern const char kHelpSiteBase[];

// Finds and starts the program that shows web pages. Replaceable, so tests read the address.
class BrowserLauncher {
 public:
  virtual ~BrowserLauncher() = default;
  // The program that opens "http" addresses; false when there is none.
  virtual bool FindBrowser(std::string& program) = 0;
  // Starts `program` with `argument` in `folder`; false when it could not be started.
  virtual bool Start(const std::string& program, const std::string& argument,
                     const std::string& folder) = 0;
};

// Installs `launcher` (not owned); null returns to the default, which takes $BROWSER, else
// xdg-open from the PATH. Returns the previous one.
BrowserLauncher* SetBrowserLauncher(BrowserLauncher* launcher);

// The current help context and the name of its help component (empty when none).
struct HelpContext {
  int id = 0;
  std::string component;
};
// Where the help engine takes the current context from; by default the common services'
// current help id with no component. Returns the previous source.
using HelpContextSource = HelpContext (*)();
HelpContextSource SetHelpContextSource(HelpContextSource source);

// The name part of a help file path: folder and extension removed. A path that ends in a
// separator stays as it is.
std::string HelpFileName(const std::string& path);

// The browser's argument for a help command: the address in double quotes, every blank removed.
std::string HelpAddress(const std::string& name, int id, int command);

// Opens help for `command` in the default browser. `owner` may be null. Failures are told
// through the message display and go no further.
void ShowHelp(QMK_HWND owner, const CCorvidApp& app, int command);

}  // namespace qmk::frame
