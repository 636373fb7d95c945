// errors.h: the result codes of formula evaluation and their texts.
#pragma once

#include <string>

namespace qmk::toolkit::formula {

enum FormulaError : int {
  kErrNone = 0,
  kErrSyntax = 1,
  kErrNoMemory = 2,
  kErrDivisionByZero = 3,
  kErrDivisionByNegative = 4,
  kErrInvalidType = 5,
  kErrFunctionAsIdentifier = 6,
  kErrFactorial = 7,
  kErrCannotCompute = 8,
  kErrParameterRange = 9,
  kErrDependency = 10,
  kErrUnknownIdentifier = 11,
  kErrRangeResult = 12,
  kErrConversion = 20,
  kErrFloatConversion = 21,
  kErrFloatConversionLeft = 22,
  kErrFloatConversionRight = 23,
  kErrBoolConversion = 24,
  kErrFixedConversion = 25,
  kErrStringConversion = 26,
  kErrDateConversion = 27,
  kErrStringLeft = 30,
  kErrStringRight = 31,
  kErrNonEmptyString = 32,
  kErrUnknownFunction = 100,
  kErrNotImplemented = 101,
  kErrParameterCount = 102,
  kErrEmptyParameter = 103,
  kErrRangeParameter = 104,
};

// The user-facing text of a code; codes without a text give "Unknown error (N).".
std::string GetErrorText(int code);

}  // namespace qmk::toolkit::formula
