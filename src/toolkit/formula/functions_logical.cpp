// functions_logical.cpp: the logical functions and CHOOSE, the one lookup function.
#include <iterator>

#include "toolkit/formula/errors.h"
#include "toolkit/formula/function.h"
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

using platform::Variant;

namespace {

int True(FunctionCall& call) { return call.Result(Variant::Bool(true)); }
int False(FunctionCall& call) { return call.Result(Variant::Bool(false)); }

// Only the branch taken is computed.
int If(FunctionCall& call) {
  if (int code = call.Argument(0, call.value)) return code;
  if (!call.value.ChangeType(platform::VT_BOOL)) return call.Fail(kErrBoolConversion);
  const bool test = call.value.m_value.BoolValue();
  if (!test && call.ArgumentCount() < 3) return call.Result(Variant::Bool(false));
  const int code = call.Argument(test ? 1 : 2, call.value);
  if (code == 0) call.value.m_nKind = CExtFormulaValue::kScalar;
  return code;
}

int IfError(FunctionCall& call) {
  if (call.Argument(0, call.value) == 0) return 0;
  call.errorItem = nullptr;
  return call.Argument(1, call.value);
}

int Not(FunctionCall& call) {
  CExtFormulaValue x;
  if (int code = call.ArgumentAs(0, platform::VT_BOOL, kErrBoolConversion, x)) return code;
  return call.Result(Variant::Bool(!x.m_value.BoolValue()));
}

// AND and OR stop at the first argument that decides; the rest stay uncomputed.
template <bool kStopAt>
int Junction(FunctionCall& call) {
  for (int i = 0; i < call.ArgumentCount(); ++i) {
    CExtFormulaValue x;
    if (int code = call.ArgumentAs(i, platform::VT_BOOL, kErrBoolConversion, x)) return code;
    if (x.m_value.BoolValue() == kStopAt) return call.Result(Variant::Bool(kStopAt));
  }
  return call.Result(Variant::Bool(!kStopAt));
}

int Choose(FunctionCall& call) {
  CExtFormulaValue index;
  if (int code = call.Argument(0, index)) return code;
  // The code is that of a boolean conversion although the index is an integer.
  if (!index.ChangeType(platform::VT_I4)) return call.Fail(kErrBoolConversion, call.ArgumentItem(0));
  const long long n = index.m_value.SignedValue();
  if (n < 1 || n > call.ArgumentCount() - 1) return call.Fail(kErrParameterRange);
  return call.Argument(static_cast<int>(n), call.value);
}

const char kValue[] = "Value parameter.";

const FunctionSpec kLogical[] = {
    {"AND", 1, -1, Junction<false>, "Returns TRUE if all its arguments are TRUE.", "logical%d", kValue},
    {"OR", 1, -1, Junction<true>, "Returns TRUE if any argument is TRUE.", "logical%d", kValue},
    {"NOT", 1, 1, Not, "Changes FALSE to TRUE, or TRUE to FALSE.", "logical", kValue},
    {"IF", 2, 3, If,
     "Checks whether condition is met, and returns one value if TRUE, and another value if FALSE.",
     "logical_test,value_if_true,value_if_false", kValue},
    {"IFERROR", 2, 2, IfError,
     "Returns value_if_error if expression is an error and the value of the expression itself otherwise.",
     "value,value_if_error", kValue},
    {"TRUE", 0, 0, True, "Returns the logical value TRUE.", "", kValue},
    {"FALSE", 0, 0, False, "Returns the logical value FALSE.", "", kValue},
};

const FunctionSpec kLookup[] = {
    {"CHOOSE", 2, -1, Choose, "Chooses a value from a list of values, based on an index number.",
     "index_num,value%d", kValue},
};

}  // namespace

FunctionFamily LogicalFunctions() { return {kLogical, std::size(kLogical)}; }
FunctionFamily LookupFunctions() { return {kLookup, std::size(kLookup)}; }

}  // namespace qmk::toolkit::formula
