// corvid_app.cpp: the application object's load-time steps and routing.
#include "frame/corvid_app.h"

#include "frame/help.h"
#include "frame/module_state_guard.h"
#include "frame/operator.h"
#include "platform/process.h"
#include "platform/ui/window.h"

namespace qmk::frame {
namespace {

platform::ModuleState* g_toolkit_state = nullptr;
const void* g_module_instance = nullptr;
const void* g_resource_instance = nullptr;

}  // namespace

CCorvidApp::CCorvidApp()
    // The framework's guess at a help file beside the module, which InitInstance drops.
    : m_strHelpFilePath(platform::ApplicationName() + ".chm"), m_bHtmlHelp(true) {}

bool CCorvidApp::InitInstance() {
  g_toolkit_state = &ThisModule();
  m_strHelpFilePath.clear();
  g_module_instance = &ThisModule();
  g_resource_instance = &ThisModule();
  return true;
}

QMK_HWND CCorvidApp::ActiveWindow() const {
  return m_hActiveWnd ? m_hActiveWnd : platform::ui::GetActiveWindow();
}

int CCorvidApp::DoMessageBox(const std::string& text, unsigned flags, unsigned prompt_id) {
  const QMK_HWND active = ActiveWindow();
  const QMK_HWND parent = active ? active : (m_pMainWnd ? m_hLastActivePopup : nullptr);
  return CurrentOperator().MessageBox(parent, text, "", flags, static_cast<int>(prompt_id));
}

void CCorvidApp::HtmlHelp(uintptr_t, unsigned command) {
  ShowHelp(nullptr, *this, static_cast<int>(command));
}

bool CCorvidApp::WinHelp(uintptr_t data, unsigned) {
  if (!m_pMainWnd) return false;
  m_bHelpMode = false;
  ++m_nIdleKicks;
  HtmlHelp(data, kHelpContext);
  return true;
}

CQmkScanApp& TheApp() {
  static CQmkScanApp app;
  static const bool initialised = app.InitInstance();
  (void)initialised;
  return app;
}

platform::ModuleState* ToolkitModuleState() { return g_toolkit_state; }
const void* ModuleInstance() { return g_module_instance; }
const void* ResourceInstance() { return g_resource_instance; }

}  // namespace qmk::frame
