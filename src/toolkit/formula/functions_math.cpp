// functions_math.cpp: the math and trigonometry functions.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iterator>

#include "toolkit/formula/errors.h"
#include "toolkit/formula/function.h"
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

using platform::Variant;

namespace {

constexpr double kPi = 3.141592653589793;

using Unary = int (*)(double x, double& result);
using Binary = int (*)(double x, double y, double& result);

// One argument converted to double, the routine, and a double result; the routine's error
// code is the call's.
template <Unary F>
int Numeric1(FunctionCall& call) {
  CExtFormulaValue x;
  if (int code = call.ArgumentAs(0, platform::VT_R8, kErrFloatConversion, x)) return code;
  double result = 0.0;
  if (int code = F(x.m_value.DoubleValue(), result)) return call.Fail(code);
  return call.Result(Variant::R8(result));
}

template <Binary F>
int Numeric2(FunctionCall& call) {
  CExtFormulaValue x, y;
  if (int code = call.ArgumentAs(0, platform::VT_R8, kErrFloatConversion, x)) return code;
  if (int code = call.ArgumentAs(1, platform::VT_R8, kErrFloatConversion, y)) return code;
  double result = 0.0;
  if (int code = F(x.m_value.DoubleValue(), y.m_value.DoubleValue(), result)) return call.Fail(code);
  return call.Result(Variant::R8(result));
}

#define QMK_UNARY(name, expr) \
  int name(double x, double& r) { r = (expr); return 0; }
QMK_UNARY(Abs, std::fabs(x))
QMK_UNARY(Sin, std::sin(x))
QMK_UNARY(Cos, std::cos(x))
QMK_UNARY(Tan, std::tan(x))
QMK_UNARY(Asin, std::asin(x))
QMK_UNARY(Acos, std::acos(x))
QMK_UNARY(Atan, std::atan(x))
QMK_UNARY(Sinh, std::sinh(x))
QMK_UNARY(Cosh, std::cosh(x))
QMK_UNARY(Tanh, std::tanh(x))
QMK_UNARY(Sqrt, std::sqrt(x))
QMK_UNARY(Ln, std::log(x))
QMK_UNARY(Log10, std::log10(x))
QMK_UNARY(SqrtPi, std::sqrt(x * kPi))
QMK_UNARY(Degrees, x * 180.0 / kPi)
QMK_UNARY(Radians, x * kPi / 180.0)
QMK_UNARY(Exp, std::pow(2.718281828459045, x))
QMK_UNARY(Sign, x < 0 ? -1.0 : x > 0 ? 1.0 : 0.0)
QMK_UNARY(Int, std::floor(x))
// EVEN is the ceiling only: 2.5 gives 3, not 4. Kept as the product has always computed it.
QMK_UNARY(Even, std::ceil(x))
#undef QMK_UNARY

int Odd(double x, double& r) {
  double v = std::ceil(std::fabs(x));
  if (std::fmod(v, 2.0) == 0.0) v += 1.0;  // also turns 0 into 1
  r = x < 0 ? -v : v;
  return 0;
}

int Fact(double x, double& r) {
  const double whole = std::floor(x);
  const double rounded = x - whole < 0.5 ? whole : whole + 1.0;
  // The cast wraps negatives round to huge values, which the limit refuses.
  if (rounded < 0 || rounded >= 171.0) return kErrFactorial;
  const uint32_t n = static_cast<uint32_t>(rounded);
  r = 1.0;
  for (uint32_t i = 2; i <= n; ++i) r *= i;
  return 0;
}

int Power(double x, double y, double& r) {
  r = std::pow(x, y);
  return 0;
}

// MOD of a negative number ignores the divisor: it is the distance to the next integer up.
int Mod(double x, double y, double& r) {
  if (y == 0.0) return kErrDivisionByZero;
  r = x < 0 ? std::ceil(-x) + x : std::fmod(x, y);
  return 0;
}

double Scaled(double x, double digits, double& scale) {
  const double d = digits - std::fmod(digits, 1.0);
  scale = std::pow(10.0, d);
  return x * scale;
}

int Trunc(double x, double y, double& r) {
  double p = 1;
  const double v = Scaled(x, y, p);
  r = (v - std::fmod(v, 1.0)) / p;
  return 0;
}

// ROUND looks at the signed fraction, so a negative value always rounds towards minus infinity.
int Round(double x, double y, double& r) {
  double p = 1;
  const double v = Scaled(x, y, p);
  r = (std::fmod(v, 1.0) >= 0.5 ? std::ceil(v) : std::floor(v)) / p;
  return 0;
}

int RoundDown(double x, double y, double& r) {
  double p = 1;
  r = std::floor(Scaled(x, y, p)) / p;
  return 0;
}

int RoundUp(double x, double y, double& r) {
  double p = 1;
  r = std::ceil(Scaled(x, y, p)) / p;
  return 0;
}

int Ceiling(double x, double y, double& r) {
  if (x < 0 || y < 0) return kErrDivisionByNegative;
  if (y == 0.0) {
    r = 0.0;
    return 0;
  }
  const double down = x - std::fmod(x, y);
  r = down == x ? down : down + y;
  return 0;
}

int Floor(double x, double y, double& r) {
  if (x < 0 || y < 0) return kErrDivisionByNegative;
  r = y == 0.0 ? 0.0 : x - std::fmod(x, y);
  return 0;
}

int RandBetween(double x, double y, double& r) {
  const double low = std::fmin(x, y), high = std::fmax(x, y);
  if (low == high) {
    r = low;
    return 0;
  }
  const double span = high - low;
  // The span is cast to an integer; one beyond its range (or no number at all) is held at
  // the limits instead of being undefined.
  long long n = 1;
  if (span >= 9.0e18) n = 9000000000000000000LL;
  else if (span >= 1.0) n = static_cast<long long>(span);
  r = std::fmin(high, std::fmax(low, static_cast<double>(std::rand() % n) + low));
  return 0;
}

int Pi(FunctionCall& call) { return call.Result(Variant::R8(kPi)); }

// The C library's generator, never seeded, as the product has it.
int Rand(FunctionCall& call) {
  const double r = static_cast<double>(std::rand() % 1073741823) / 1073741823.0;
  return call.Result(Variant::R8(std::fmin(1.0, std::fmax(0.0, r))));
}

const char kNumber[] = "Number parameter.";

const FunctionSpec kMath[] = {
    {"ABS", 1, 1, Numeric1<Abs>, "Returns the absolute value of a number.", "number", kNumber},
    {"ACOS", 1, 1, Numeric1<Acos>, "Returns the arccosine of a number, in radians.", "number", kNumber},
    {"ASIN", 1, 1, Numeric1<Asin>, "Returns the arcsine of a number, in radians.", "number", kNumber},
    {"ATAN", 1, 1, Numeric1<Atan>, "Returns the arctangent of a number, in radians.", "number", kNumber},
    {"COS", 1, 1, Numeric1<Cos>, "Returns the cosine of an angle.", "number", kNumber},
    {"COSH", 1, 1, Numeric1<Cosh>, "Returns the hyperbolic cosine of a number.", "number", kNumber},
    {"DEGREES", 1, 1, Numeric1<Degrees>, "Converts radians to degrees.", "angle", kNumber},
    {"EVEN", 1, 1, Numeric1<Even>, "Rounds a number up to the nearest integer.", "number", kNumber},
    {"EXP", 1, 1, Numeric1<Exp>, "Returns e raised to the power of a given number.", "number", kNumber},
    {"FACT", 1, 1, Numeric1<Fact>, "Returns the factorial of a number.", "number", kNumber},
    {"INT", 1, 1, Numeric1<Int>, "Rounds a number down to the nearest integer.", "number", kNumber},
    {"LN", 1, 1, Numeric1<Ln>, "Returns the natural logarithm of a number.", "number", kNumber},
    // LOG names a base in its texts but takes one argument: it is always the base-10 logarithm.
    {"LOG", 1, 1, Numeric1<Log10>, "Returns the logarithm of a number to the base you specify.", "number,base",
     "Base number parameter."},
    {"LOG10", 1, 1, Numeric1<Log10>, "Returns the base-10 logarithm of a number.", "number", kNumber},
    {"ODD", 1, 1, Numeric1<Odd>, "Rounds a number up to the nearest odd integer.", "number", kNumber},
    {"RADIANS", 1, 1, Numeric1<Radians>, "Converts degrees to radians.", "angle", kNumber},
    {"SIGN", 1, 1, Numeric1<Sign>, "Returns the sign of a number.", "number", kNumber},
    {"SIN", 1, 1, Numeric1<Sin>, "Returns the sine of an angle.", "number", kNumber},
    {"SINH", 1, 1, Numeric1<Sinh>, "Returns the hyperbolic sine of a number.", "number", kNumber},
    {"SQRT", 1, 1, Numeric1<Sqrt>, "Returns a positive square root.", "number", kNumber},
    {"SQRTPI", 1, 1, Numeric1<SqrtPi>, "Returns the square root of (number * pi).", "number", kNumber},
    {"TAN", 1, 1, Numeric1<Tan>, "Returns the tangent of an angle.", "number", kNumber},
    {"TANH", 1, 1, Numeric1<Tanh>, "Returns the hyperbolic tangent of a number.", "number", kNumber},
    {"CEILING", 2, 2, Numeric2<Ceiling>, "Rounds a number up to the nearest multiple of significance.",
     "number,significance", kNumber},
    {"FLOOR", 2, 2, Numeric2<Floor>, "Rounds a number down to the nearest multiple of significance.",
     "number,significance", kNumber},
    {"MOD", 2, 2, Numeric2<Mod>, "Returns the remainder after a number is divided by a divisor.", "number,divisor",
     kNumber},
    {"POWER", 2, 2, Numeric2<Power>, "Returns the result of a number raised to a power.", "number,power", kNumber},
    {"RANDBETWEEN", 2, 2, Numeric2<RandBetween>, "Returns a random number between the numbers you specify.",
     "bottom,top", kNumber},
    {"ROUND", 2, 2, Numeric2<Round>, "Rounds a number to a specified number of digits.", "number,num_digits",
     kNumber},
    {"ROUNDDOWN", 2, 2, Numeric2<RoundDown>, "Rounds a number down.", "number,num_digits", kNumber},
    {"ROUNDUP", 2, 2, Numeric2<RoundUp>, "Rounds a number up.", "number,num_digits", kNumber},
    {"TRUNC", 2, 2, Numeric2<Trunc>, "Truncates a number to an integer.", "number,num_digits", kNumber},
    {"PI", 0, 0, Pi, "Returns the value of pi, 3.14159265358979.", "", kNumber, false, true},
    {"RAND", 0, 0, Rand, "Returns a random number greater than or equal to 0 and less than 1.", "", kNumber},
};

}  // namespace

FunctionFamily MathFunctions() { return {kMath, std::size(kMath)}; }

}  // namespace qmk::toolkit::formula
