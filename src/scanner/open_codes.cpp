// open_codes.cpp: the mapping tables of session open.
#include "scanner/open_codes.h"

namespace qmk::scanner {
namespace {

struct CodeRange {
  int first, last, code;
};

constexpr CodeRange kOpenCodes[] = {
    {1, 1, 1149},   {2, 7, 1150},   {8, 8, 1151},   {9, 10, 1152},  {11, 11, 1153},
    {29, 32, 1153}, {12, 12, 1154}, {13, 13, 1155}, {14, 14, 1156}, {15, 26, 1157},
    {27, 27, 1158}, {28, 28, 1159}, {34, 34, 1160}, {38, 38, 1187}, {-2, -2, 1080},
};

constexpr CodeRange kCommSetCodes[] = {{-7, -7, 2081}, {-8, -8, 2082}, {-10, -10, 2084}, {-11, -11, 2085}};
constexpr CodeRange kPresenceCodes[] = {{-9, -9, 2083}, {-3, -3, 1095}};
constexpr CodeRange kBarSetCodes[] = {{-4, -4, 1083}, {-3, -3, 1098}};

template <class Table>
int Lookup(const Table& table, int result, int fallback) {
  for (const CodeRange& r : table)
    if (result >= r.first && result <= r.last) return r.code;
  return fallback;
}

}  // namespace

int MapOpenResult(int result, unsigned series) {
  return Lookup(kOpenCodes, result, series == 12 ? 1186 : 1095);
}

int MapCommSetResult(int result) { return Lookup(kCommSetCodes, result, 1095); }

int MapPresenceResult(int result) { return Lookup(kPresenceCodes, result, 0); }

int MapBarSetResult(int result) { return Lookup(kBarSetCodes, result, 0); }

}  // namespace qmk::scanner
