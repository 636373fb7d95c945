// cmd_msgbox.cpp: qmkscan msgbox: the toolkit's message box, live or drawn to a PNG file, and
// the theme option it shares with ui-demo.
#include <climits>
#include <cstdio>
#include <memory>

#include "commands.h"
#include "platform/ui/backend.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/msg_box.h"
#include "toolkit/theme/selection.h"

namespace qmkscan {

using namespace qmk::platform::ui;

bool SelectThemeOption(Args& args, const char* command) {
  const std::optional<long> id = IntOption(args, "theme", 29750, INT_MIN, INT_MAX);
  if (!id) return false;
  qmk::toolkit::theme::SelectPaintManagerById(static_cast<int>(*id), [](int) {});
  (void)command;
  return true;
}

int RunMsgBox(Args& args) {
  const std::optional<long> set = IntOption(args, "buttons", 0, 0, 15);
  const std::optional<std::string> png = args.Option("png");
  if (!set || !SelectThemeOption(args, "msgbox") || !args.NoUnknownOptions("msgbox")) return 2;
  if (args.rest().size() != 1) {
    std::fprintf(stderr, "usage: qmkscan msgbox TEXT [--buttons SET] [--theme ID] [--png FILE]\n");
    return 2;
  }
  const std::string& text = args.rest()[0];
  const uint32_t style = static_cast<uint32_t>(*set) | 0x40;
  if (!png) {
    const int id = qmk::toolkit::ExtMsgBox(nullptr, text.c_str(), "qmkscan", style);
    std::printf("%d\n", id);
    return 0;
  }
  // A picture needs no display: the box is drawn on the headless back end once it stands,
  // then closed.
  InstallBackend(MakeHeadlessBackend().release());
  bool written = false;
  const int idle = AddIdleHandler([&](int) {
    const HWND box = GetActiveWindow();
    if (box && !written) {
      written = RenderWindowToPng(box, *png);
      PostMessage(box, WM_CLOSE, 0, 0);
    }
    return false;
  });
  qmk::toolkit::ExtMsgBox(nullptr, text.c_str(), "qmkscan", style | qmk::toolkit::kMbNoBeep);
  RemoveIdleHandler(idle);
  if (!written) {
    std::fprintf(stderr, "qmkscan msgbox: cannot write %s\n", png->c_str());
    return 1;
  }
  std::printf("wrote %s\n", png->c_str());
  return 0;
}

}  // namespace qmkscan
