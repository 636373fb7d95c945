// functions_statistical.cpp: SUM, AVERAGE, MIN and MAX over values and ranges.
#include <iterator>
#include <vector>

#include "toolkit/formula/data_manager.h"
#include "toolkit/formula/errors.h"
#include "toolkit/formula/function.h"
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

using platform::Variant;

namespace {

enum class Fold { kSum, kAverage, kMin, kMax };

struct Accumulator {
  Fold fold;
  double total = 0.0;
  bool started = false;
  long long divisor = 0;

  // One contributing value; a text or boolean is left out of MIN and MAX. The conversion's
  // failure code, or 0.
  int Take(CExtFormulaValue& v, bool scalarArgument) {
    v.NormalizeDate();
    const bool extreme = fold == Fold::kMin || fold == Fold::kMax;
    if (extreme && (v.m_value.Type() == platform::VT_BOOL || v.m_value.Type() == platform::VT_BSTR)) return 0;
    if (!v.ChangeType(platform::VT_R8)) return kErrFloatConversion;
    const double x = v.m_value.DoubleValue();
    if (!extreme) {
      total += x;
      // AVERAGE's divisor counts a scalar argument only when it is not 0.
      if (scalarArgument && x != 0.0) ++divisor;
    } else if (!started || (fold == Fold::kMin ? x < total : x > total)) {
      total = x;
    }
    started = true;
    return 0;
  }
};

template <Fold kFold>
int Aggregate(FunctionCall& call) {
  std::vector<CExtFormulaValue> values;
  if (int code = CExtFormulaFunction::EvaluateArguments(values, call, platform::VT_R8, kErrFloatConversion))
    return code;
  Accumulator acc{kFold};
  for (size_t i = 0; i < values.size(); ++i) {
    CExtFormulaValue& arg = values[i];
    const CExtFormulaItem* argItem = call.ArgumentItem(static_cast<int>(i));
    if (arg.m_nKind == CExtFormulaValue::kScalar) {
      if (int code = acc.Take(arg, true)) return call.Fail(code, argItem);
      continue;
    }
    if (arg.m_nKind != CExtFormulaValue::kRange) return call.Fail(kErrEmptyParameter, argItem);
    long long walked = -1;
    int failure = 0;
    call.manager.ForEachExistingCell(arg.m_range, [&](int column, int row) {
      ++walked;
      CExtFormulaValue cell;
      if (!call.manager.GetCellValue(call.context, column, row, cell, argItem)) {
        failure = kErrDependency;
        return false;
      }
      failure = acc.Take(cell, false);
      return failure == 0;
    });
    if (failure != 0) return call.Fail(failure, argItem);
    // The divisor grows by the index of the last cell walked plus one, and not at all when
    // that index is 0: a range with one existing cell adds to the sum only.
    if (walked > 0) acc.divisor += walked + 1;
  }
  if (kFold == Fold::kAverage) {
    if (acc.divisor == 0) return call.Fail(kErrDivisionByZero);
    return call.Result(Variant::R8(acc.total / static_cast<double>(acc.divisor)));
  }
  return call.Result(Variant::R8(acc.total));
}

const char kNumber[] = "Number parameter.";

const FunctionSpec kStatistical[] = {
    {"AVERAGE", 1, -1, Aggregate<Fold::kAverage>, "Returns the average (arithmetic mean) of its arguments.",
     "number%d", kNumber, true},
    {"MAX", 1, -1, Aggregate<Fold::kMax>, "Returns the largest value in a set of values.", "number%d", kNumber,
     true},
    {"MIN", 1, -1, Aggregate<Fold::kMin>, "Returns the smallest number in a set of values.", "number%d", kNumber,
     true},
    {"SUM", 1, -1, Aggregate<Fold::kSum>, "Adds all the numbers in a range of cells.", "number%d", kNumber, true},
};

}  // namespace

FunctionFamily StatisticalFunctions() { return {kStatistical, std::size(kStatistical)}; }

}  // namespace qmk::toolkit::formula
