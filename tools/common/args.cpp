// args.cpp: reading options of the form --name VALUE, --name=VALUE and --flag.
#include "args.h"

#include <cstdio>

#include "platform/text.h"

namespace qmk::tools {

std::optional<std::string> Args::Option(const std::string& name) {
  const std::string flag = "--" + name;
  for (size_t i = 0; i < words_.size(); ++i) {
    if (words_[i] == flag && i + 1 < words_.size()) {
      std::string value = words_[i + 1];
      words_.erase(words_.begin() + static_cast<long>(i), words_.begin() + static_cast<long>(i) + 2);
      return value;
    }
    if (words_[i].rfind(flag + "=", 0) == 0) {
      std::string value = words_[i].substr(flag.size() + 1);
      words_.erase(words_.begin() + static_cast<long>(i));
      return value;
    }
  }
  return std::nullopt;
}

bool Args::Flag(const std::string& name) {
  for (size_t i = 0; i < words_.size(); ++i)
    if (words_[i] == "--" + name) {
      words_.erase(words_.begin() + static_cast<long>(i));
      return true;
    }
  return false;
}

bool Args::NoUnknownOptions(const char* command) const {
  bool clean = true;
  for (const std::string& w : words_)
    if (w.rfind("--", 0) == 0) {
      std::fprintf(stderr, "%s %s: unknown option %s\n", program_.c_str(), command, w.c_str());
      clean = false;
    }
  return clean;
}

std::optional<long> IntOption(Args& args, const std::string& name, long fallback, long low,
                              long high) {
  const std::optional<std::string> text = args.Option(name);
  if (!text) return fallback;
  long value = 0;
  if (!platform::ParseBoundedInt(*text, low, high, &value, 0)) {
    if (low == LONG_MIN && high == LONG_MAX)
      std::fprintf(stderr, "%s: --%s wants a number, not \"%s\"\n", args.program().c_str(),
                   name.c_str(), text->c_str());
    else
      std::fprintf(stderr, "%s: --%s wants a number from %ld to %ld, not \"%s\"\n",
                   args.program().c_str(), name.c_str(), low, high, text->c_str());
    return std::nullopt;
  }
  return value;
}

}  // namespace qmk::tools
