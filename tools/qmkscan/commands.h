// commands.h: the commands of qmkscan and the small argument reader they share.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "args.h"

namespace qmkscan {

using qmk::tools::Args;
using qmk::tools::IntOption;

struct Command {
  const char* name;
  const char* usage;    // one line: arguments and options
  const char* summary;  // one line: what it does
  int (*run)(Args& args);
};

int RunDemo(Args& args);
int RunScan(Args& args);
int RunDefineForm(Args& args);
int RunPorts(Args& args);
int RunProbe(Args& args);
int RunName(Args& args);
int RunSimulateSerial(Args& args);
int RunBitmap(Args& args);
int RunFormula(Args& args);
int RunAutoName(Args& args);
int RunSettings(Args& args);
int RunType(Args& args);
int RunPlaces(Args& args);
int RunZone(Args& args);
int RunMarkup(Args& args);
int RunThemeSheet(Args& args);
int RunGrid(Args& args);
int RunUiDemo(Args& args);
int RunSheet(Args& args);
int RunThemes(Args& args);
int RunMsgBox(Args& args);
void PrintThemeList();
// Selects the theme of "--theme ID" when given; false (with a message) for a bad id.
bool SelectThemeOption(Args& args, const char* command);
int RunRender(Args& args);
int RunDialog(Args& args);
int RunOptions(Args& args);
int RunConfigure(Args& args);

}  // namespace qmkscan
