// cmd_grid.cpp: qmkscan grid: runs a grid script from a file or standard input and prints the
// cells, joins and sort orders that result.
#include <cstdio>
#include <fstream>
#include <iostream>

#include "commands.h"
#include "toolkit/grid/script.h"

namespace qmkscan {

int RunGrid(Args& args) {
  if (!args.NoUnknownOptions("grid")) return 2;
  if (args.rest().size() != 1) {
    std::fprintf(stderr, "usage: qmkscan grid FILE|-\n");
    return 2;
  }
  const std::string& name = args.rest()[0];
  std::ifstream file;
  if (name != "-") {
    file.open(name);
    if (!file) {
      std::fprintf(stderr, "qmkscan grid: cannot open \"%s\"\n", name.c_str());
      return 1;
    }
  }
  std::string out, error;
  if (!qmk::toolkit::grid::RunGridScript(name == "-" ? std::cin : file, out, error)) {
    std::fprintf(stderr, "qmkscan grid: %s\n", error.c_str());
    return 1;
  }
  std::fputs(out.c_str(), stdout);
  return 0;
}

}  // namespace qmkscan
