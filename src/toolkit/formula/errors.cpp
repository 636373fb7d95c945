// errors.cpp: the texts of the formula result codes.
#include "toolkit/formula/errors.h"

#include <iterator>

namespace qmk::toolkit::formula {
namespace {

struct ErrorText {
  int code;
  const char* text;
};

constexpr ErrorText kErrorTexts[] = {
    {kErrNone, "No error."},
    {kErrSyntax, "Syntax error."},
    {kErrNoMemory, "Not enough memory."},
    {kErrDivisionByZero, "Division by zero."},
    {kErrDivisionByNegative, "Division by negative."},
    {kErrInvalidType, "Invalid type for operation."},
    {kErrFunctionAsIdentifier, "Function name cannot be used as identifier."},
    {kErrFactorial, "Factorial cannot be computed."},
    {kErrCannotCompute, "Cannot compute function result."},
    {kErrParameterRange, "Parameter is out of range."},
    {kErrDependency, "Dependency computation error."},
    {kErrUnknownIdentifier, "Unknown identifier or variable name."},
    {kErrRangeResult, "Expression result is the reference to the range of cells."},
    {kErrConversion, "Type conversion error."},
    {kErrFloatConversion, "Floating point type conversion error."},
    {kErrFloatConversionLeft, "Floating point type conversion error for the left part of expression."},
    {kErrFloatConversionRight, "Floating point type conversion error for the right part of expression."},
    {kErrBoolConversion, "Boolean type conversion error."},
    {kErrFixedConversion, "Numeric type (fixed point) conversion error."},
    {kErrStringConversion, "String type conversion error."},
    {kErrDateConversion, "Date/time type conversion error."},
    {kErrStringLeft, "String value is required in the left part of expression."},
    {kErrStringRight, "String value is required in the right part of expression."},
    {kErrNonEmptyString, "Non empty string value is required."},
    {kErrUnknownFunction, "Unknown function."},
    {kErrNotImplemented, "Function is not implemented."},
    {kErrParameterCount, "Invalid parameter count."},
    {kErrEmptyParameter, "Function cannot accept empty/unknown values in parameters."},
    {kErrRangeParameter, "Function cannot accept cell ranges in parameters."},
};

}  // namespace

std::string GetErrorText(int code) {
  for (const ErrorText& e : kErrorTexts)
    if (e.code == code) return e.text;
  return "Unknown error (" + std::to_string(code) + ").";
}

}  // namespace qmk::toolkit::formula
