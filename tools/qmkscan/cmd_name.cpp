// cmd_name.cpp: qmkscan name: the display name of a feature word.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "commands.h"
#include "qmk/QmkScan.hpp"

namespace qmkscan {

int RunName(Args& args) {
  const auto word_text = args.Option("feat");
  const auto firmware = args.Option("firmware");
  if (!args.NoUnknownOptions("name")) return 2;
  if (!word_text) {
    std::fprintf(stderr, "qmkscan name: --feat WORD is required (such as 0x1e075 or 123)\n");
    return 2;
  }
  char* end = nullptr;
  errno = 0;
  const unsigned long long word = std::strtoull(word_text->c_str(), &end, 0);
  if (word_text->empty() || *end != '\0' || errno != 0 || word > 0xFFFFFFFFull ||
      (*word_text)[0] == '-') {
    std::fprintf(stderr, "qmkscan name: --feat wants a 32-bit number, not \"%s\"\n",
                 word_text->c_str());
    return 2;
  }
  feat_mask feat;
  const uint32_t bits = static_cast<uint32_t>(word);
  std::memcpy(&feat, &bits, sizeof feat);
  std::string name;
  ScnGetScannerName(feat, name, firmware ? firmware->c_str() : nullptr);
  std::printf("%s\n", name.c_str());
  return 0;
}

}  // namespace qmkscan
