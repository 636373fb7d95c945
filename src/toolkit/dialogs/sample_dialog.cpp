// sample_dialog.cpp: the sample dialog's themed controls and the values it shows.
#include "toolkit/dialogs/sample_dialog.h"

#include <initializer_list>
#include <string>

#include "platform/ui/control_messages.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/subclass_controls.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;

void AddItems(ui::HWND dlg, int id, unsigned msg, std::initializer_list<const char*> items) {
  for (const char* item : items) ui::SendDlgItemMessage(dlg, id, msg, 0, reinterpret_cast<ui::LPARAM>(item));
}

void AddTabs(ui::HWND dlg, int id, std::initializer_list<const char*> titles) {
  for (const char* title : titles) {
    std::string text = title;
    ui::controls::TCITEM item;
    item.mask = ui::controls::TCIF_TEXT;
    item.pszText = text.data();
    const auto count = ui::SendDlgItemMessage(dlg, id, ui::TCM_GETITEMCOUNT, 0, 0);
    ui::SendDlgItemMessage(dlg, id, ui::TCM_INSERTITEM, static_cast<ui::WPARAM>(count),
                           reinterpret_cast<ui::LPARAM>(&item));
  }
}

}  // namespace

bool CSampleDialog::OnInitDialog() {
  // The list and the tab strip have no row in the subclassing table: the dialog binds its own.
  m_wndList.SubclassWindow(ui::GetDlgItem(m_hWnd, kSampleListId));
  m_wndTabs.SubclassWindow(ui::GetDlgItem(m_hWnd, kSampleTabsId));
  m_nThemedByWalk = SubclassChildControls(m_hWnd);
  FillSampleDialog(m_hWnd);
  return CExtResizableDialog::OnInitDialog();
}

void FillSampleDialog(ui::HWND dlg) {
  ui::SetDlgItemText(dlg, 1001, "Ada Lovelace");
  AddItems(dlg, 1002, ui::CB_ADDSTRING, {"Red", "Green", "Blue"});
  ui::SendDlgItemMessage(dlg, 1002, ui::CB_SETCURSEL, 1, 0);
  ui::SendDlgItemMessage(dlg, 1004, ui::UDM_SETRANGE32, 0, 99);
  ui::SendDlgItemMessage(dlg, 1004, ui::UDM_SETPOS32, 0, 3);
  ui::CheckRadioButton(dlg, 1005, 1007, 1006);
  ui::CheckDlgButton(dlg, 1008, ui::BST_CHECKED);
  ui::CheckDlgButton(dlg, 1009, ui::BST_INDETERMINATE);
  AddItems(dlg, kSampleListId, ui::LB_ADDSTRING, {"First sheet", "Second sheet", "Third sheet", "Fourth sheet"});
  ui::SendDlgItemMessage(dlg, kSampleListId, ui::LB_SETCURSEL, 1, 0);
  AddItems(dlg, 1013, ui::CB_ADDSTRING, {"Daily", "Weekly", "Monthly"});
  ui::SetDlgItemText(dlg, 1013, "Weekly");
  AddTabs(dlg, kSampleTabsId, {"General", "Paper", "Output"});
  ui::SendDlgItemMessage(dlg, 1015, ui::PBM_SETRANGE32, 0, 100);
  ui::SendDlgItemMessage(dlg, 1015, ui::PBM_SETPOS, 60, 0);
  ui::SendDlgItemMessage(dlg, 1016, ui::SBM_SETRANGE, 0, 100);
  ui::SendDlgItemMessage(dlg, 1016, ui::SBM_SETPOS, 30, 1);
}

}  // namespace qmk::toolkit
