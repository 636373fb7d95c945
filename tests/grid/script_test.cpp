// script_test.cpp: the grid script: a whole run, and the refusals with their line numbers.
#include <gtest/gtest.h>

#include <sstream>

#include "toolkit/grid/script.h"

using qmk::toolkit::grid::RunGridScript;

namespace {

std::string RunScript(const std::string& script, bool ok = true) {
  std::istringstream in(script);
  std::string out, error;
  EXPECT_EQ(RunGridScript(in, out, error), ok) << error;
  return ok ? out : error;
}

TEST(GridScript, BuildsChangesAndPrintsAGrid) {
  const std::string out = RunScript(
      "size 4 5   # four columns, five rows\n"
      "reserved 0 1\n"
      "cell 0 0 text Price\n"
      "cell 0 1 i4 30\n"
      "cell 0 2 r8  1.5 \n"
      "cell 0 3 i4\n"  // blank text is 0 for a number
      "cell 1 1 text  a b \n"
      "join 1 2 2 2\n"
      "order columns 0+\n"
      "order rows 3-\n"
      "insert columns 2 1\n"
      "remove rows 4 1\n"
      "sort rows\n");
  // Row 4 goes, and the row sort record 3 stays: rows correct their order in the insert sense.
  EXPECT_EQ(out,
            "grid 5 columns, 4 rows, reserved 0, 1\n"
            "cell 0 0 text \"Price\"\n"
            "cell 0 1 i4 \"0\"\n"
            "cell 1 1 empty\n"
            "cell 2 1 empty\n"
            "cell 3 1 empty\n"
            "cell 0 2 r8 \"1.5\"\n"
            "cell 1 2 empty extent 3,2\n"
            "cell 2 2 empty extent -1,0\n"
            "cell 3 2 empty extent -2,0\n"
            "cell 0 3 i4 \"30\"\n"
            "cell 1 3 text \"a b\" extent 0,-1\n"
            "cell 2 3 empty extent -1,-1\n"
            "cell 3 3 empty extent -2,-1\n"
            "join 1 2 3x2\n"
            "order columns: 0+\n"
            "order rows: 3-\n");
}

TEST(GridScript, CellsOfTheirOwnKindShowTheirText) {
  const std::string out = RunScript(
      "size 3 2\n"
      "cell 0 0 duration 90 min\n"
      "cell 1 0 ipaddress 10.0.0.010\n"
      "cell 2 0 fraction 0.75\n"
      "cell 0 1 hotkey ctrl+shift+s\n"
      "cell 1 1 i4 5\n"
      "cell 1 1 size 2048\n"  // a kind replaces the cell that was there
      "sort rows\n");
  EXPECT_EQ(out,
            "grid 3 columns, 2 rows, reserved 0, 0\n"
            "cell 0 0 duration \"01:30:00\"\n"
            "cell 1 0 ipaddress \"10.0.0.10\"\n"
            "cell 2 0 fraction \"3/4\"\n"
            "cell 0 1 hotkey \"Ctrl+Shift+S\"\n"
            "cell 1 1 size \"2.00 KB\"\n"
            "order columns: none\n"
            "order rows: none\n");
  EXPECT_EQ(RunScript("size 2 2\ncell 0 0 ipaddress 300.1.1.1\n", false), "line 2: cell: \"300.1.1.1\" is no ipaddress");
  EXPECT_EQ(RunScript("size 2 2\ncell 4 0 duration 5\n", false), "line 2: cell: outside the grid");
}

TEST(GridScript, RefusalsNameTheLine) {
  struct Case { const char* script; const char* error; };
  for (const Case& c : {Case{"size 2 2\ncell 5 0 i4 1\n", "line 2: cell: outside the grid, or not a value cell"},
                        Case{"size 2 2\ncell 0 0 i4 abc\n", "line 2: cell: \"abc\" is no i4"},
                        Case{"size 2 2\ncell 0 0 money 1\n", "line 2: cell: unknown type \"money\""},
                        Case{"size 2 2\n\nremove rows 1 5\n", "line 3: remove: refused (outside the grid)"},
                        Case{"size 2 2\norder rows 1\n", "line 2: order: \"1\" is not N+ or N-"},
                        Case{"size 2 2\njoin 1 1 2 2\n", "line 2: join: outside the grid or too large"},
                        Case{"frobnicate\n", "line 1: cannot read \"frobnicate\""}})
    EXPECT_EQ(RunScript(c.script, false), c.error) << c.script;
}

}  // namespace
