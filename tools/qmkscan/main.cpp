// main.cpp: qmkscan, the command-line host of QmkScan: the command table and --help.
#include <cstdio>
#include <cstring>
#include <iterator>

#include "commands.h"

namespace qmkscan {
namespace {

constexpr Command kCommands[] = {
    {"demo", "[--model ID] [--spectrum 0|1|2] [--read-mode N] [--bar-code-port N] [--examples DIR]",
     "a session told call by call, then a form taught and a batch of sheets scanned", RunDemo},
    {"scan", "--batch FILE --out DATAFILE [--model ID] [--form DESC] [--stop-on-empty] "
             "[--answer ok|cancel] [--read-level N]",
     "read the batch's sheets on a simulated scanner into a data file", RunScan},
    {"define-form", "--batch FILE --out DESC [--model ID] [--first-line] [--last-line] "
                    "[--front-only] [--read-level N]",
     "learn a form description from the batch's first sheet", RunDefineForm},
    {"ports", "[--check-open]", "list the serial ports with their names, paths and kinds", RunPorts},
    {"probe", "PORT [--search]",
     "ask what hangs on a serial port (COM3, \\\\.\\COM12 or a device path); print the setting "
     "and what the reply says", RunProbe},
    {"name", "--feat WORD [--firmware TEXT]", "print the display name of a feature word", RunName},
    {"simulate-serial", "[--baud N] [--stop-bits 1|2] [--fault MODE] [--link N] ...",
     "serve a simulated serial scanner on a pseudo-terminal and print its path", RunSimulateSerial},
    {"bitmap", "info FILE | convert IN OUT [--rle] | scale IN OUT W H [--filter NAME] | filter IN OUT --mono|--hls DH,DL,DS|--alpha D",
     "read, convert (BMP or PNG), resample and filter pictures with the toolkit's bitmap engine", RunBitmap},
    {"formula", "TEXT [--shift DX,DY | --compute]",
     "parse a formula; print its tree and printed form, or the text with references moved", RunFormula},
    {"autoname", "TEMPLATE [--form N] [--context] [--commit] [--data-dir D] [--sequence N] "
                 "[--reset never|daily|weekly|monthly] [--batch]",
     "expand a data file name template; with --commit take the number", RunAutoName},
    {"settings", "get KEY NAME | set KEY NAME TEXT | list [KEY] [--depth N]  [--machine] "
                 "[--ini NAME: SECTION KEY instead of KEY NAME]",
     "read and write the settings store (per-user keys, --machine keys, or an INI file)",
     RunSettings},
    {"type", "--mask MASK [--insert] [--no-prompt] [--prompt C] [--no-advance] KEYS... | --number [--currency] "
             "[--locale NAME] [--whole N] [--fraction N] [--scientific] [--no-grouping] KEYS...",
     "replay keystrokes (text, <BS>, <DEL>, <LEFT>, <S-RIGHT>, <PASTE:text>, ...) through an input behaviour",
     RunType},
    {"places", "[--zone NAME] [--at TIME]", "list the world map's places with their labels, zones and times", RunPlaces},
    {"zone", "OFFSET|NAME [--at TIME]", "print the world map's text for a zone (hours such as -3.5 or a zone name)",
     RunZone},
    {"markup", "FILE|- [--css FILE]",
     "read a rich content document; print its item tree, error codes and computed styles", RunMarkup},
    {"theme-sheet", "--theme ID --png FILE | --list",
     "draw every widget in every state in a theme to a PNG file, or list the theme ids", RunThemeSheet},
    {"grid", "FILE|-", "run a grid script (cells, joins, sort orders, inserts and removals, a sort); print the grid", RunGrid},
    {"ui-demo", "[--theme ID] [--png FILE]",
     "the sample dialog with every plain control, live, or drawn to a PNG file", RunUiDemo},
    {"sheet", "FILE|- [--set A1=TEXT]... [--print RANGE] [--time]",
     "compute a sheet of cell texts (tab-separated rows); apply changes and print what was recomputed", RunSheet},
    {"themes", "", "list the theme ids and their classes", RunThemes},
    {"msgbox", "TEXT [--buttons SET] [--theme ID] [--png FILE]",
     "show a message box and print the pressed button's id, or draw it to a PNG file", RunMsgBox},
    {"render", "FILE --png OUT [--width W] [--css FILE] [--hit X,Y]",
     "lay out and paint a rich content document to a PNG, or print the item under a point", RunRender},
    {"dialog", "NAME [--theme ID] [--png FILE] | --list",
     "show one of the library's dialogs with sample data, or render it to a PNG file", RunDialog},
    {"options", "scan|conversion|edit [--record FILE] [--png FILE] [--theme ID] [--level N]",
     "open an option dialog on a job record kept in a text file, written back on OK", RunOptions},
    {"configure", "[--model ID] [--port N] [--usb] [--auto] [--theme ID]",
     "run the scanner configuration dialog against the simulated scanners and print the records", RunConfigure},
};

void PrintHelp(std::FILE* out) {
  std::fprintf(out, "usage: qmkscan COMMAND [ARGS]\n\ncommands:\n");
  for (const Command& c : kCommands)
    std::fprintf(out, "  %s %s\n      %s\n", c.name, c.usage, c.summary);
  std::fprintf(out, "\nqmkscan --help prints this text.\n");
}

}  // namespace
}  // namespace qmkscan

int main(int argc, char** argv) {
  using namespace qmkscan;
  if (argc < 2 || !std::strcmp(argv[1], "--help") || !std::strcmp(argv[1], "-h") ||
      !std::strcmp(argv[1], "help")) {
    PrintHelp(argc < 2 ? stderr : stdout);
    return argc < 2 ? 2 : 0;
  }
  for (const Command& c : kCommands) {
    if (std::strcmp(argv[1], c.name) != 0) continue;
    Args args(std::vector<std::string>(argv + 2, argv + argc));
    return c.run(args);
  }
  std::fprintf(stderr, "qmkscan: unknown command \"%s\"; see qmkscan --help\n", argv[1]);
  return 2;
}
