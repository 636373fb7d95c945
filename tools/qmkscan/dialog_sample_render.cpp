// dialog_sample_render.cpp: draws a dialog sample to a PNG file, for `qmkscan dialog --png` and
// `qmkscan options --png`.
#include <cstdio>

#include "dialog_samples.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"

namespace qmkscan {

int RenderDialogSample(DialogSample& sample, const std::string& png, const char* command) {
  using namespace qmk::platform::ui;
  auto& dialog = sample.Dialog();
  if (!dialog.Create(sample.TemplateId(), nullptr)) {
    std::fprintf(stderr, "%s: %s\n", command, LastDialogError().c_str());
    return 1;
  }
  ShowWindow(dialog.GetSafeHwnd(), SW_SHOW);
  PumpMessages(0);
  const bool ok = RenderWindowToPng(dialog.GetSafeHwnd(), png);
  dialog.DestroyWindow();
  if (!ok) {
    std::fprintf(stderr, "%s: cannot write %s\n", command, png.c_str());
    return 1;
  }
  std::printf("wrote %s\n", png.c_str());
  return 0;
}

}  // namespace qmkscan
