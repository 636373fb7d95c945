// args.h: the option reader of the project's command-line programs: "--name VALUE",
// "--name=VALUE" and "--flag", with integers checked against their bounds.
#pragma once

#include <climits>
#include <optional>
#include <string>
#include <vector>

namespace qmk::tools {

// The words after the command name, with options taken out by name.
class Args {
 public:
  // `program` opens every error line, as in "qmkscan scan: ...".
  explicit Args(std::vector<std::string> words, std::string program = "qmkscan")
      : words_(std::move(words)), program_(std::move(program)) {}
  // The value of "--name VALUE" or "--name=VALUE", removed from the words; nullopt if absent.
  std::optional<std::string> Option(const std::string& name);
  // True if the flag "--name" was given; removes it.
  bool Flag(const std::string& name);
  // What is left once the options were taken: positional words, and unknown options.
  const std::vector<std::string>& rest() const { return words_; }
  // An error line for each word left that starts with "--"; true when none is left.
  bool NoUnknownOptions(const char* command) const;
  const std::string& program() const { return program_; }

 private:
  std::vector<std::string> words_;
  std::string program_;
};

// An integer option in [low, high] with a default; prints an error and returns nullopt for a bad
// or out-of-range number. Numbers may be written in decimal or, with 0x, in hex.
std::optional<long> IntOption(Args& args, const std::string& name, long fallback,
                              long low = LONG_MIN, long high = LONG_MAX);

}  // namespace qmk::tools
