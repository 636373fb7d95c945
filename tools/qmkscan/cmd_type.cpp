// cmd_type.cpp: qmkscan type: replays keystrokes through the masked or the number behaviour of a
// windowless edit and prints the text and caret after each.
#include <clocale>
#include <cstdio>
#include <memory>

#include "commands.h"
#include "toolkit/edit/edit_masked.h"
#include "toolkit/edit/keystrokes.h"
#include "toolkit/edit/system_number.h"

namespace qmkscan {
namespace {

using namespace qmk::toolkit::edit;

void PrintState(const std::string& label, const MemoryEdit& edit) {
  int start = 0, end = 0;
  edit.GetSel(start, end);
  std::printf("%-12s \"%s\"  ", label.c_str(), edit.GetText().c_str());
  if (start == end)
    std::printf("caret %d\n", start);
  else
    std::printf("selection %d..%d\n", start, end);
}

// Every script is read before anything is typed, so a bad one changes nothing.
bool ReplayAll(MemoryEdit& edit, const std::vector<std::string>& scripts) {
  std::vector<Keystroke> steps;
  for (const std::string& script : scripts) {
    std::string error;
    const auto parsed = ParseKeystrokes(script, &error);
    if (!parsed) {
      std::fprintf(stderr, "qmkscan type: %s in \"%s\"\n", error.c_str(), script.c_str());
      return false;
    }
    steps.insert(steps.end(), parsed->begin(), parsed->end());
  }
  PrintState("start", edit);
  for (const Keystroke& step : steps) {
    Replay(edit, step);
    PrintState(step.Label(), edit);
  }
  return true;
}

int TypeMasked(Args& args, const std::string& mask) {
  const std::optional<std::string> prompt = args.Option("prompt");
  const bool insert = args.Flag("insert"), no_prompt = args.Flag("no-prompt"), no_advance = args.Flag("no-advance");
  if (!args.NoUnknownOptions("type")) return 2;
  if (prompt && prompt->size() != 1) {
    std::fprintf(stderr, "qmkscan type: --prompt wants one character\n");
    return 2;
  }
  CExtEditMasked edit;
  edit.SetInsertMode(insert);
  edit.SetShowPrompt(!no_prompt);
  edit.SetAdvanceToNextField(!no_advance);
  if (prompt) edit.SetPromptChar((*prompt)[0]);
  edit.SetMask(mask);
  return ReplayAll(edit, args.rest()) ? 0 : 1;
}

// "en-US" is the fixed table; any other name is a C library locale of this system.
std::unique_ptr<qmk::platform::Locale> ChooseLocale(const std::optional<std::string>& name) {
  if (!name || *name == "en-US") return nullptr;
  if (!std::setlocale(LC_ALL, name->c_str())) {
    std::fprintf(stderr, "qmkscan type: the system has no locale \"%s\" (see locale -a)\n", name->c_str());
    return nullptr;
  }
  return qmk::platform::ProcessLocale();
}

int TypeNumber(Args& args) {
  const bool currency = args.Flag("currency"), scientific = args.Flag("scientific");
  const bool no_grouping = args.Flag("no-grouping");
  const std::optional<std::string> locale_name = args.Option("locale");
  const std::optional<long> whole = IntOption(args, "whole", -15);
  const std::optional<long> fraction = IntOption(args, "fraction", -1);
  if (!whole || !fraction || !args.NoUnknownOptions("type")) return 2;
  if (*whole < -300 || *whole > 300 || *fraction < -1 || *fraction > 300) {
    std::fprintf(stderr, "qmkscan type: --whole wants -300..300 and --fraction -1..300\n");
    return 2;
  }
  const std::unique_ptr<qmk::platform::Locale> process = ChooseLocale(locale_name);
  if (locale_name && *locale_name != "en-US" && !process) return 2;
  const qmk::platform::Locale& locale = process ? *process : qmk::platform::EnUsLocale();
  MemoryEdit edit;
  std::unique_ptr<CExtEditSystemNumberCurrencyBase> behavior;
  if (currency)
    behavior = std::make_unique<CExtEditSystemCurrency>(&edit, static_cast<int>(*whole), static_cast<int>(*fraction), locale);
  else
    behavior = std::make_unique<CExtEditSystemNumber>(&edit, static_cast<int>(*whole), static_cast<int>(*fraction), locale);
  const uint32_t flags = (scientific ? CExtEditSystemNumberCurrencyBase::kScientific : 0) |
                         (no_grouping ? CExtEditSystemNumberCurrencyBase::kNoGrouping : 0);
  if (flags) behavior->SetFlags(flags);
  edit.SetBehavior(behavior.get());
  if (!ReplayAll(edit, args.rest())) return 1;
  std::printf("value %.15g\n", behavior->LongDoubleGet());
  return 0;
}

}  // namespace

int RunType(Args& args) {
  const std::optional<std::string> mask = args.Option("mask");
  const bool number = args.Flag("number");
  if (mask.has_value() == number) {
    std::fprintf(stderr, "usage: qmkscan type --mask MASK [--insert] [--no-prompt] [--prompt C] [--no-advance] KEYS...\n"
                         "       qmkscan type --number [--currency] [--locale NAME] [--whole N] [--fraction N] "
                         "[--scientific] [--no-grouping] KEYS...\n");
    return 2;
  }
  return mask ? TypeMasked(args, *mask) : TypeNumber(args);
}

}  // namespace qmkscan
