// script.h: the grid script: a few line commands that build a grid (cells with values and types,
// joins, sort orders), change it (inserts, removals, moves, a sort) and print the result.
#pragma once

#include <istream>
#include <string>

namespace qmk::toolkit::grid {

// Runs the script from `in` on a sparse store with joins. On success `out` holds the cells in
// reading order, the joins and both sort orders; on failure `error` names the line and the fault,
// and `out` holds nothing.
bool RunGridScript(std::istream& in, std::string& out, std::string& error);

}  // namespace qmk::toolkit::grid
