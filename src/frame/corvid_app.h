// corvid_app.h: the module's application object: its load-time steps, its help routing and the
// framework's own message boxes.
#pragma once

#include <cstdint>
#include <string>

#include "platform/module_state.h"
#include "qmk/QmkScan.h"

namespace qmk::frame {

class CCorvidApp {
 public:
  CCorvidApp();
  virtual ~CCorvidApp() = default;

  // The load-time steps: hands the toolkit the module state, clears the help file path so that
  // the help engine takes its name from the common services, keeps the module instance.
  virtual bool InitInstance();

  // The framework's road for its own messages: parented to the active window, else the main
  // window's last active popup; no caption; the prompt id is the help id.
  virtual int DoMessageBox(const std::string& text, unsigned flags, unsigned prompt_id);
  // Every help request goes to the web help engine, with no window.
  virtual void HtmlHelp(uintptr_t data, unsigned command);
  // Old-style help: needs a main window (false without one, nothing done), then asks for the
  // topic of the current context.
  virtual bool WinHelp(uintptr_t data, unsigned command);

  const std::string& help_file_path() const { return m_strHelpFilePath; }
  bool html_help() const { return m_bHtmlHelp; }
  bool help_mode() const { return m_bHelpMode; }
  int idle_kicks() const { return m_nIdleKicks; }

  // The active window: the one set here, else the window system's active window, or null.
  QMK_HWND ActiveWindow() const;

  // Windows the framework knows: the main window, the active one, the main window's last
  // active popup. Set by the window layer or a host; null when there is none.
  QMK_HWND m_pMainWnd = nullptr;
  QMK_HWND m_hActiveWnd = nullptr;
  QMK_HWND m_hLastActivePopup = nullptr;
  bool m_bHelpMode = false;

 protected:
  std::string m_strHelpFilePath;
  bool m_bHtmlHelp = false;
  int m_nIdleKicks = 0;
};

// The application object of this library. Nothing of its own beyond the frame's.
class CQmkScanApp : public CCorvidApp {};

// The one application object, built and initialised on first use.
CQmkScanApp& TheApp();

// The module state the toolkit's own entry guard switches to; null until InitInstance.
platform::ModuleState* ToolkitModuleState();

// The module instance, kept twice as the code that loads toolkit resources reads its own copy.
const void* ModuleInstance();
const void* ResourceInstance();

}  // namespace qmk::frame
