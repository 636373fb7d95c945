// cmd_ui_demo.cpp: qmkscan ui-demo: the sample dialog with every plain control, in a theme,
// live on the back end in use, or rendered to a PNG file.
#include <cstdio>
#include <string>

#include "commands.h"
#include "platform/ui/backend.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/dialogs/subclass_controls.h"

namespace qmkscan {
namespace {

using namespace qmk::platform::ui;

constexpr int kSampleDialog = 9000;

void AddItems(HWND dlg, int id, unsigned msg, std::initializer_list<const char*> items) {
  for (const char* item : items)
    SendDlgItemMessage(dlg, id, msg, 0, reinterpret_cast<LPARAM>(item));
}

void Fill(HWND dlg) {
  SetDlgItemText(dlg, 1001, "Ada Lovelace");
  AddItems(dlg, 1002, CB_ADDSTRING, {"Red", "Green", "Blue"});
  SendDlgItemMessage(dlg, 1002, CB_SETCURSEL, 1, 0);
  SendDlgItemMessage(dlg, 1004, UDM_SETRANGE32, 0, 99);
  SendDlgItemMessage(dlg, 1004, UDM_SETPOS32, 0, 3);
  CheckRadioButton(dlg, 1005, 1007, 1006);
  CheckDlgButton(dlg, 1008, BST_CHECKED);
  CheckDlgButton(dlg, 1009, BST_INDETERMINATE);
  AddItems(dlg, 1010, LB_ADDSTRING, {"First sheet", "Second sheet", "Third sheet", "Fourth sheet"});
  SendDlgItemMessage(dlg, 1010, LB_SETCURSEL, 1, 0);
  AddItems(dlg, 1013, CB_ADDSTRING, {"Daily", "Weekly", "Monthly"});
  SetDlgItemText(dlg, 1013, "Weekly");
  for (const char* page : {"General", "Paper", "Output"}) {
    controls::TCITEM item;
    item.mask = controls::TCIF_TEXT;
    std::string text = page;
    item.pszText = text.data();
    const auto count = SendDlgItemMessage(dlg, 1014, TCM_GETITEMCOUNT, 0, 0);
    SendDlgItemMessage(dlg, 1014, TCM_INSERTITEM, static_cast<WPARAM>(count),
                       reinterpret_cast<LPARAM>(&item));
  }
  SendDlgItemMessage(dlg, 1015, PBM_SETRANGE32, 0, 100);
  SendDlgItemMessage(dlg, 1015, PBM_SETPOS, 60, 0);
  SendDlgItemMessage(dlg, 1016, SBM_SETRANGE, 0, 100);
  SendDlgItemMessage(dlg, 1016, SBM_SETPOS, 30, 1);
}

void PrintValues(HWND dlg) {
  char colour[64] = {};
  const auto sel = SendDlgItemMessage(dlg, 1002, CB_GETCURSEL, 0, 0);
  if (sel >= 0)
    SendDlgItemMessage(dlg, 1002, CB_GETLBTEXT, static_cast<WPARAM>(sel),
                       reinterpret_cast<LPARAM>(colour));
  int size = 0;
  for (int id = 1005; id <= 1007; ++id)
    if (IsDlgButtonChecked(dlg, id)) size = id - 1004;
  std::printf("name: %s\ncolour: %s\ncount: %s\nsize: %d\nprint: %s\nlist: %ld\n",
              GetDlgItemText(dlg, 1001).c_str(), colour, GetDlgItemText(dlg, 1003).c_str(), size,
              IsDlgButtonChecked(dlg, 1008) ? "yes" : "no",
              static_cast<long>(SendDlgItemMessage(dlg, 1010, LB_GETCURSEL, 0, 0)));
}

// The sample dialog on the toolkit's dialog base, so that it wears the current theme.
class SampleDialog : public qmk::toolkit::CExtResizableDialog {
 public:
  SampleDialog() : CExtResizableDialog(kSampleDialog) {}

 protected:
  bool OnInitDialog() override {
    qmk::toolkit::SubclassChildControls(m_hWnd);
    Fill(m_hWnd);
    return CExtResizableDialog::OnInitDialog();
  }
  void OnOK() override {
    PrintValues(m_hWnd);
    CExtResizableDialog::OnOK();
  }
};

}  // namespace

int RunUiDemo(Args& args) {
  const auto png = args.Option("png");
  if (!SelectThemeOption(args, "ui-demo") || !args.NoUnknownOptions("ui-demo")) return 2;
  SampleDialog dialog;
  if (png) {
    // A picture needs no display: it is drawn on the headless back end.
    InstallBackend(MakeHeadlessBackend().release());
    if (!dialog.Create(kSampleDialog, nullptr)) {
      std::fprintf(stderr, "ui-demo: %s\n", LastDialogError().c_str());
      return 1;
    }
    ShowWindow(dialog.GetSafeHwnd(), SW_SHOW);
    PumpMessages(0);
    const bool ok = RenderWindowToPng(dialog.GetSafeHwnd(), *png);
    dialog.DestroyWindow();
    if (!ok) {
      std::fprintf(stderr, "ui-demo: cannot write %s\n", png->c_str());
      return 1;
    }
    std::printf("wrote %s\n", png->c_str());
    return 0;
  }
  std::printf("back end: %s\n", CurrentBackend().Name());
  const intptr_t result = dialog.DoModal();
  if (result < 0) {
    std::fprintf(stderr, "ui-demo: %s\n", LastDialogError().c_str());
    return 1;
  }
  if (result != IDOK) std::printf("cancelled\n");
  return 0;
}

}  // namespace qmkscan
