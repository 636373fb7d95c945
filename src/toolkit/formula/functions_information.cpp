// functions_information.cpp: the IS... checks, TYPE and N.
#include <cmath>
#include <iterator>

#include "toolkit/formula/errors.h"
#include "toolkit/formula/function.h"
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

using platform::Variant;
using platform::VarType;

namespace {

using Check = int (*)(FunctionCall& call, bool& result);

bool IsErrorValue(const Variant& v) {
  return v.Type() == platform::VT_ERROR || (v.Type() == platform::VT_HRESULT && v.SignedValue() != 0);
}

// Computes the argument into the value and checks it; with `errorIsTrue` a failing argument
// is the answer true rather than an error.
template <Check kCheck, bool kErrorIsTrue = false>
int CheckOne(FunctionCall& call) {
  bool result = false;
  if (const int code = call.Argument(0, call.value)) {
    if (!kErrorIsTrue) return code;
    call.errorItem = nullptr;
    result = true;
  } else if (const int code2 = kCheck(call, result)) {
    return code2;
  }
  return call.Result(Variant::Bool(result));
}

int Blank(FunctionCall& call, bool& r) { r = call.value.m_bEmpty; return 0; }
int NoText(FunctionCall& call, bool& r) {
  const Variant& v = call.value.m_value;
  r = call.value.m_bEmpty || (v.Type() == platform::VT_BSTR && v.StringValue().empty());
  return 0;
}
int IsText(FunctionCall& call, bool& r) { r = call.value.m_value.Type() == platform::VT_BSTR; return 0; }
int IsLogical(FunctionCall& call, bool& r) { r = call.value.m_value.Type() == platform::VT_BOOL; return 0; }
// An error value counts as a number here.
int IsNumber(FunctionCall& call, bool& r) {
  switch (call.value.m_value.Type()) {
    case 2: case 3: case 4: case 5: case 7: case 10: case 14: case 18: case 19: case 20: case 21: case 22: case 23:
    case 25: r = true; break;
    default: r = false; break;
  }
  return 0;
}
int IsError(FunctionCall& call, bool& r) { r = IsErrorValue(call.value.m_value); return 0; }

template <int kBit>
int Parity(FunctionCall& call, bool& r) {
  CExtFormulaValue& v = call.value;
  const VarType t = v.m_value.Type();
  if (t == platform::VT_R4 || t == platform::VT_R8) v.SetScalar(Variant::R8(std::trunc(std::fabs(
      t == platform::VT_R4 ? static_cast<double>(v.m_value.SingleValue()) : v.m_value.DoubleValue()))));
  if (!v.ChangeType(platform::VT_I8)) return call.Fail(kErrFixedConversion, call.ArgumentItem(0));
  const long long n = v.m_value.SignedValue();
  const unsigned long long magnitude = n < 0 ? 0ull - static_cast<unsigned long long>(n) : static_cast<unsigned long long>(n);
  r = static_cast<int>(magnitude & 1u) == kBit;
  return 0;
}

// TYPE never fails: a failing argument is an error value, 16.
int Type(FunctionCall& call) {
  CExtFormulaValue v;
  int type = 1;
  if (call.Argument(0, v) != 0) {
    call.errorItem = nullptr;
    type = 16;
  } else if (v.m_nKind != CExtFormulaValue::kScalar) {
    type = v.m_nKind == CExtFormulaValue::kRange ? 64 : 2;
  } else {
    const Variant& x = v.m_value;
    switch (x.Type()) {
      case platform::VT_BSTR: type = 2; break;
      case platform::VT_BOOL: type = 4; break;
      case platform::VT_ERROR: type = 16; break;
      case platform::VT_HRESULT: type = x.SignedValue() != 0 ? 16 : 1; break;
      default: type = 1; break;
    }
  }
  return call.Result(Variant::I4(type));
}

int N(FunctionCall& call) {
  CExtFormulaValue& v = call.value;
  if (int code = call.Argument(0, v)) return code;
  if (v.m_nKind != CExtFormulaValue::kScalar) return call.Result(Variant::I4(0));
  switch (v.m_value.Type()) {
    case platform::VT_DATE: v.NormalizeDate(); break;
    case platform::VT_BSTR:
    case platform::VT_BOOL:
      if (!v.ChangeType(platform::VT_R8)) return call.Fail(kErrFloatConversion, call.ArgumentItem(0));
      break;
    case platform::VT_ERROR:
    case platform::VT_DECIMAL:
    case platform::VT_INT:
    case platform::VT_UINT:
    case platform::VT_HRESULT:
      if (!v.ChangeType(platform::VT_I4)) return call.Fail(kErrFixedConversion, call.ArgumentItem(0));
      break;
    default: break;
  }
  return call.Result(v.m_value);
}

const char kValue[] = "Value parameter.";

const FunctionSpec kInformation[] = {
    {"ISBLANK", 1, 1, CheckOne<Blank>, "Checks whether a reference is to an empty cell, and returns TRUE or FALSE.",
     "value", kValue},
    {"ISERR", 1, 1, CheckOne<IsError, true>, "Checks whether a value is an error, and returns TRUE or FALSE.",
     "value", kValue},
    {"ISERROR", 1, 1, CheckOne<IsError, true>, "Checks whether a value is an error, and returns TRUE or FALSE.",
     "value", kValue},
    {"ISEVEN", 1, 1, CheckOne<Parity<0>>, "Returns TRUE if the number is even.", "number", "Number parameter."},
    {"ISLOGICAL", 1, 1, CheckOne<IsLogical>, "Checks whether a value is a logical value (TRUE or FALSE).", "value",
     kValue},
    {"ISNA", 1, 1, CheckOne<IsError, true>, "Checks whether a value is an error, and returns TRUE or FALSE.",
     "value", kValue},
    {"ISNOTEXT", 1, 1, CheckOne<NoText>, "Checks whether a value is not text, and returns TRUE or FALSE.", "value",
     kValue},
    {"ISNUMBER", 1, 1, CheckOne<IsNumber>, "Checks whether a value is a number, and returns TRUE or FALSE.",
     "value", kValue},
    {"ISODD", 1, 1, CheckOne<Parity<1>>, "Returns TRUE if the number is odd.", "number", "Number parameter."},
    {"ISTEXT", 1, 1, CheckOne<IsText>, "Checks whether a value is text, and returns TRUE or FALSE.", "value",
     kValue},
    {"N", 1, 1, N, "Converts non-number value to a number, dates to serial numbers, TRUE to 1, anything else to 0.",
     "value", kValue},
    {"TYPE", 1, 1, Type,
     "Returns an integrer representing the data type of a value: number = 1; text = 2; logical value = 4; error "
     "value = 16; array = 64.",
     "value", kValue},
};

}  // namespace

FunctionFamily InformationFunctions() { return {kInformation, std::size(kInformation)}; }

}  // namespace qmk::toolkit::formula
