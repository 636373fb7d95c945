// cmd_sheet.cpp: qmkscan sheet: loads a sheet of cell texts, computes it, applies changes and
// prints the values.
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iostream>
#include <sstream>

#include "commands.h"
#include "toolkit/formula/formula_provider.h"
#include "toolkit/formula/errors.h"

namespace qmkscan {
namespace {

using namespace qmk::toolkit::formula;

double Seconds(std::chrono::steady_clock::time_point since) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

// Processor time of this process since `since`: on a busy machine the wall clock says little.
double CpuSeconds(std::clock_t since) { return static_cast<double>(std::clock() - since) / CLOCKS_PER_SEC; }

std::string CellValueText(const CExtFormulaGridCell& cell) {
  if (cell.GetErrorCode() != 0) return cell.DisplayText();
  if (cell.IsEmpty()) return "";
  return ScalarText(cell.ValueGet());
}

void PrintCell(const CExtFormulaDataManager& sheet, int column, int row) {
  const CExtFormulaGridCell* cell = sheet.FindCell(column, row);
  if (cell == nullptr || (cell->IsEmpty() && !cell->IsFormula())) return;
  std::printf("%s\t%s\n", sheet.GetAlphabet().FormatCell(column, row).c_str(), CellValueText(*cell).c_str());
}

struct CellInput {
  int column, row;
  std::string text;
};

// Cells in rows, left to right: tab-separated texts from A1. Empty texts are left out.
bool ReadSheet(std::istream& in, std::vector<CellInput>& cells) {
  std::string line;
  for (int row = 0; std::getline(in, line); ++row) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::stringstream fields(line);
    std::string text;
    for (int column = 0; std::getline(fields, text, '\t'); ++column)
      if (!text.empty()) cells.push_back({column, row, std::move(text)});
  }
  return !in.bad();
}

bool ReadPosition(const CExtFormulaDataManager& sheet, const std::string& name, CellPos& pos) {
  const char* p = name.c_str();
  pos = sheet.GetAlphabet().ParseCell(p);
  return pos.column >= 0;
}

}  // namespace

int RunSheet(Args& args) {
  std::vector<std::string> sets;
  while (std::optional<std::string> set = args.Option("set")) sets.push_back(*set);
  const std::optional<std::string> range = args.Option("print");
  const bool timing = args.Flag("time");
  if (!args.NoUnknownOptions("sheet")) return 2;
  if (args.rest().size() != 1) {
    std::fprintf(stderr, "usage: qmkscan sheet FILE|- [--set A1=TEXT]... [--print RANGE] [--time]\n");
    return 2;
  }
  // The cells live in a sparse grid store joined with the formula engine.
  CExtFormulaDataProvider sheet(16384, 1048576);
  CExtGridRangeSet printed;
  if (range) {
    const size_t colon = range->find(':');
    bool bad1 = false, bad2 = false;
    const std::string first = range->substr(0, colon), second = colon == std::string::npos ? first : range->substr(colon + 1);
    const CellRect rect = sheet.GetAlphabet().ParseRange(first.c_str(), second.c_str(), bad1, bad2, &sheet);
    if (bad1 || bad2 || rect.left < 0) {
      std::fprintf(stderr, "qmkscan sheet: --print wants a range like A1:C10, not \"%s\"\n", range->c_str());
      return 2;
    }
    printed.Add(rect);
  }
  const std::string& path = args.rest()[0];
  std::ifstream file;
  if (path != "-") {
    file.open(path);
    if (!file) {
      std::fprintf(stderr, "qmkscan sheet: cannot read \"%s\"\n", path.c_str());
      return 1;
    }
  }
  // The file is read first: the timing covers the engine, not the reading of text.
  std::vector<CellInput> cells;
  if (!ReadSheet(path == "-" ? std::cin : file, cells)) return 1;
  const auto start = std::chrono::steady_clock::now();
  const std::clock_t cpuStart = std::clock();
  for (const CellInput& cell : cells) sheet.PutCellText(cell.column, cell.row, cell.text);
  if (timing) std::fprintf(stderr, "cells stored: %.6f s (cpu %.6f s)\n", Seconds(start), CpuSeconds(cpuStart));
  sheet.RecomputeAll();
  if (timing)
    std::fprintf(stderr, "build and compute: %.6f s (cpu %.6f s), %zu formulas\n", Seconds(start),
                 CpuSeconds(cpuStart), sheet.GetFormulaCellCount());
  auto visible = [&](int column, int row) { return printed.IsEmpty() || printed.Contains(column, row); };
  if (sets.empty()) {
    std::vector<std::pair<CellPos, bool>> all;
    sheet.ForEachExistingCell(CExtGridRangeSet(CellRect{0, 0, sheet.GetAlphabet().GetMaxColumn(), sheet.GetAlphabet().GetMaxRow()}),
                              [&](int column, int row) {
                                if (visible(column, row)) PrintCell(sheet, column, row);
                                return true;
                              });
    return 0;
  }
  for (const std::string& set : sets) {
    const size_t eq = set.find('=');
    CellPos pos;
    if (eq == std::string::npos || !ReadPosition(sheet, set.substr(0, eq), pos)) {
      std::fprintf(stderr, "qmkscan sheet: --set wants CELL=TEXT, not \"%s\"\n", set.c_str());
      return 2;
    }
    const auto changed = std::chrono::steady_clock::now();
    const std::clock_t cpuChanged = std::clock();
    const std::vector<CellPos> recomputed = sheet.SetCellText(pos.column, pos.row, set.substr(eq + 1));
    if (timing)
      std::fprintf(stderr, "change %s: %.6f s (cpu %.6f s), %zu cells recomputed\n", set.substr(0, eq).c_str(),
                   Seconds(changed), CpuSeconds(cpuChanged), recomputed.size());
    std::printf("set ");
    PrintCell(sheet, pos.column, pos.row);
    for (const CellPos& p : recomputed)
      if (visible(p.column, p.row)) PrintCell(sheet, p.column, p.row);
  }
  return 0;
}

}  // namespace qmkscan
