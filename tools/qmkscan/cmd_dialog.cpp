// cmd_dialog.cpp: qmkscan dialog NAME: shows one of the library's dialogs with sample data on
// the back end in use, or renders it to a PNG file on the headless back end.
#include <cstdio>
#include <cstring>
#include <string>

#include "commands.h"
#include "dialog_samples.h"
#include "frame/corvid_dialog.h"
#include "platform/ui/backend.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmkscan {
namespace {

using namespace qmk::platform::ui;

// One row per dialog; the rows stay in the order `qmkscan dialog --list` prints them.
const DialogSampleEntry kDialogs[] = {
    {"sample", "the sample dialog with one of every control", MakeSampleDialog},
    {"scan-error", "the faults of a failed sheet: read it again or stop", MakeScanErrorSample},
    {"wait-connect", "the notice while a scanner connects", MakeWaitConnectSample},
    {"wait-lamp", "the lamp warm-up countdown with its Cancel button", MakeWaitLampSample},
    {"scan-options", "the scanning options dialog with its two pages", MakeScanOptionsDialog},
    {"auto-name", "the automatic file naming dialog", MakeAutoNameDialog},
    {"conversion", "the conversion options dialog", MakeConversionDialog},
    {"edit", "the edit options dialog", MakeEditDialog},
    {"configure", "the scanner configuration dialog over a serial scanner's records", MakeConfigureDialog},
};

const DialogSampleEntry* FindDialog(const std::string& name) {
  for (const DialogSampleEntry& entry : kDialogs)
    if (name == entry.name) return &entry;
  return nullptr;
}

void PrintDialogList() {
  for (const DialogSampleEntry& entry : kDialogs) std::printf("%-14s %s\n", entry.name, entry.summary);
}

int RunLive(DialogSample& sample) {
  std::printf("back end: %s\n", CurrentBackend().Name());
  const intptr_t result = sample.Dialog().DoModal();
  if (result < 0) {
    std::fprintf(stderr, "dialog: %s\n", LastDialogError().c_str());
    return 1;
  }
  sample.PrintResult(result);
  return 0;
}

}  // namespace

int RunDialog(Args& args) {
  const bool list = args.Flag("list");
  const auto png = args.Option("png");
  if (!SelectThemeOption(args, "dialog") || !args.NoUnknownOptions("dialog")) return 2;
  if (list) {
    PrintDialogList();
    return 0;
  }
  const auto& words = args.rest();
  const DialogSampleEntry* entry = words.size() == 1 ? FindDialog(words[0]) : nullptr;
  if (!entry) {
    std::fprintf(stderr, "dialog: %s; the dialogs are:\n",
                 words.empty() ? "name a dialog" : words.size() > 1 ? "name one dialog" : "unknown dialog");
    PrintDialogList();
    return 2;
  }
  // A picture needs no display: it is drawn on the headless back end.
  if (png) InstallBackend(MakeHeadlessBackend().release());
  qmk::toolkit::InstallToolkitSeams();
  auto sample = entry->make();
  return png ? RenderDialogSample(*sample, *png, "dialog") : RunLive(*sample);
}

int RenderNamedDialog(const char* name, const std::string& png) {
  const DialogSampleEntry* entry = FindDialog(name);
  if (!entry || !InstallBackend(MakeHeadlessBackend().release())) return 1;
  qmk::toolkit::InstallToolkitSeams();
  auto sample = entry->make();
  return RenderDialogSample(*sample, png, "demo");
}

}  // namespace qmkscan
