// res_dlg.cpp: the dialog object's binding to its window and its modal run.
#include "toolkit/dialogs/res_dlg.h"

#include "platform/module_state.h"
#include "toolkit/dialogs/resource_manager.h"
#include "toolkit/dialogs/resource_manager_holder.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
constexpr const char* kObjectProp = "qmk.dialog-object";

// The toolkit's module state, entered around modal runs so that resources resolve in it.
platform::ModuleState& ToolkitModule() {
  static platform::ModuleState state{"qmkscan-toolkit"};
  return state;
}

class ModuleGuard {
 public:
  ModuleGuard() : previous_(platform::CurrentModule()) {
    ++ToolkitModule().entries;
    platform::SetCurrentModule(&ToolkitModule());
  }
  ~ModuleGuard() { platform::SetCurrentModule(previous_); }
  ModuleGuard(const ModuleGuard&) = delete;
  ModuleGuard& operator=(const ModuleGuard&) = delete;

 private:
  platform::ModuleState* previous_;
};

}  // namespace

CExtResDlg::CExtResDlg(int template_id, HWND parent)
    : m_hWndParent(parent), m_nTemplateId(template_id) {
  InstallToolkitSeams();
}

CExtResDlg::~CExtResDlg() {
  if (ui::IsWindow(m_hWnd)) {
    ui::RemoveProp(m_hWnd, kObjectProp);
    ui::DestroyWindow(m_hWnd);
  }
}

intptr_t CExtResDlg::DoModal() {
  ModuleGuard guard;
  return ui::DialogBoxParam(m_nTemplateId, m_hWndParent, &CExtResDlg::DialogProc,
                            reinterpret_cast<LPARAM>(this));
}

intptr_t CExtResDlg::RunModalIndirect(const ui::DialogTemplate& tpl) {
  ModuleGuard guard;
  return ui::DialogBoxIndirectParam(tpl, m_hWndParent, &CExtResDlg::DialogProc,
                                    reinterpret_cast<LPARAM>(this), tpl.id);
}

bool CExtResDlg::Create(int template_id, HWND parent) {
  m_nTemplateId = template_id;
  m_hWndParent = parent;
  return ui::CreateDialogParam(template_id, parent, &CExtResDlg::DialogProc,
                               reinterpret_cast<LPARAM>(this)) != nullptr;
}

bool CExtResDlg::DestroyWindow() { return ui::IsWindow(m_hWnd) && ui::DestroyWindow(m_hWnd); }

bool CExtResDlg::IsChildDialog() const {
  return (ui::GetWindowLongPtr(m_hWnd, ui::GWL_STYLE) & ui::WS_CHILD) != 0;
}

theme::WindowHandle CExtResDlg::PmBridge_GetSafeHwnd() const {
  return reinterpret_cast<theme::WindowHandle>(m_hWnd);
}

CExtResDlg* CExtResDlg::FromHandle(HWND hwnd) {
  return static_cast<CExtResDlg*>(ui::GetProp(hwnd, kObjectProp));
}

void CExtResDlg::EndDialog(intptr_t result) {
  if (IsChildDialog())
    ui::ShowWindow(m_hWnd, ui::SW_HIDE);
  else
    ui::EndDialog(m_hWnd, result);
}

intptr_t CExtResDlg::WindowProc(unsigned msg, WPARAM wp, LPARAM, bool& handled) {
  handled = false;
  if (msg == ui::WM_INITDIALOG) {
    handled = true;
    // The dialog's font follows the resource manager's language when it names a face.
    ResourceManager()->ApplyLanguageFont(m_hWnd, 1, false);
    return OnInitDialog() ? 1 : 0;
  }
  if (msg == ui::WM_COMMAND && (wp & 0xFFFF) == static_cast<WPARAM>(ui::IDOK)) {
    handled = true;
    OnOK();
  } else if (msg == ui::WM_COMMAND && (wp & 0xFFFF) == static_cast<WPARAM>(ui::IDCANCEL)) {
    handled = true;
    OnCancel();
  }
  return 0;
}

intptr_t CExtResDlg::DialogProc(HWND hwnd, unsigned msg, WPARAM wp, LPARAM lp) {
  CExtResDlg* self = FromHandle(hwnd);
  if (msg == ui::WM_INITDIALOG) {
    self = reinterpret_cast<CExtResDlg*>(lp);
    if (!self) return 0;
    self->m_hWnd = hwnd;
    ui::SetProp(hwnd, kObjectProp, self);
    self->PmBridge_Install();
  }
  if (!self) return 0;
  bool handled = false;
  const intptr_t result = self->WindowProc(msg, wp, lp, handled);
  if (msg == ui::WM_NCDESTROY) {
    ui::RemoveProp(hwnd, kObjectProp);
    self->PmBridge_Uninstall();
    self->m_hWnd = nullptr;
  }
  if (!handled) return 0;
  // A dialog procedure says "handled" by returning nonzero; the answer itself travels apart.
  if (msg == ui::WM_INITDIALOG) return result;
  if (ui::IsWindow(hwnd)) ui::SetDialogResult(hwnd, result);
  return 1;
}

}  // namespace qmk::toolkit
