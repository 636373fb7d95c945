// commands.h: the commands of qmkscan and the small argument reader they share.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qmkscan {

// The words after the command name, with "--name value" options taken out by name.
class Args {
 public:
  explicit Args(std::vector<std::string> words) : words_(std::move(words)) {}
  // The value of "--name VALUE" or "--name=VALUE", removed from the words; nullopt if absent.
  std::optional<std::string> Option(const std::string& name);
  // True if the flag "--name" was given; removes it.
  bool Flag(const std::string& name);
  // What is left once the options were taken: positional words, and unknown options.
  const std::vector<std::string>& rest() const { return words_; }
  // An error line for each word left that starts with "--"; true when none is left.
  bool NoUnknownOptions(const char* command) const;

 private:
  std::vector<std::string> words_;
};

// An integer option with a default; prints an error and returns nullopt for a bad number.
std::optional<long> IntOption(Args& args, const std::string& name, long fallback);

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
int RunGrid(Args& args);
int RunSheet(Args& args);

}  // namespace qmkscan
