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
#include "toolkit/dialogs/sample_dialog.h"

namespace qmkscan {
namespace {

using namespace qmk::platform::ui;

constexpr int kSampleDialog = qmk::toolkit::kSampleDialogTemplate;

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

// The toolkit's sample dialog, which prints what the person entered when OK is pressed.
class SampleDialog : public qmk::toolkit::CSampleDialog {
 protected:
  void OnOK() override {
    PrintValues(m_hWnd);
    CSampleDialog::OnOK();
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
