// variant.h: Variant, a scalar value of the Automation model shared by the formula and grid engines.
#pragma once

#include <cstdint>
#include <string>

namespace qmk::platform {

// Type codes of the Automation model; the numbers are part of stored data and must not change.
enum VarType : uint16_t {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_HRESULT = 25,
};

// Result codes of the conversions, in the Automation numbering.
using HRESULT = int32_t;
constexpr HRESULT S_OK = 0;
constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005u);
constexpr HRESULT DISP_E_OVERFLOW = static_cast<HRESULT>(0x8002000Au);
constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008u);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000Eu);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);

// Booleans are stored as 0 and -1.
constexpr int16_t VARIANT_TRUE = -1;
constexpr int16_t VARIANT_FALSE = 0;

// A 96-bit unsigned mantissa with a decimal scale of 0..28 and a sign.
struct Decimal {
  uint8_t scale = 0;
  bool negative = false;
  uint32_t hi32 = 0;
  uint64_t lo64 = 0;

  bool operator==(const Decimal&) const = default;
  unsigned __int128 Mantissa() const { return (static_cast<unsigned __int128>(hi32) << 64) | lo64; }
  void SetMantissa(unsigned __int128 m) {
    hi32 = static_cast<uint32_t>(m >> 64);
    lo64 = static_cast<uint64_t>(m);
  }
  static constexpr unsigned __int128 kMaxMantissa = (static_cast<unsigned __int128>(1) << 96) - 1;
};

class Variant {
 public:
  Variant() = default;
  static Variant Null() { Variant v; v.vt_ = VT_NULL; return v; }
  static Variant I1(int8_t x) { Variant v; v.vt_ = VT_I1; v.i_ = x; return v; }
  static Variant I2(int16_t x) { Variant v; v.vt_ = VT_I2; v.i_ = x; return v; }
  static Variant I4(int32_t x) { Variant v; v.vt_ = VT_I4; v.i_ = x; return v; }
  static Variant I8(int64_t x) { Variant v; v.vt_ = VT_I8; v.i_ = x; return v; }
  static Variant Int(int32_t x) { Variant v; v.vt_ = VT_INT; v.i_ = x; return v; }
  static Variant UI1(uint8_t x) { Variant v; v.vt_ = VT_UI1; v.u_ = x; return v; }
  static Variant UI2(uint16_t x) { Variant v; v.vt_ = VT_UI2; v.u_ = x; return v; }
  static Variant UI4(uint32_t x) { Variant v; v.vt_ = VT_UI4; v.u_ = x; return v; }
  static Variant UI8(uint64_t x) { Variant v; v.vt_ = VT_UI8; v.u_ = x; return v; }
  static Variant UInt(uint32_t x) { Variant v; v.vt_ = VT_UINT; v.u_ = x; return v; }
  static Variant R4(float x) { Variant v; v.vt_ = VT_R4; v.r4_ = x; return v; }
  static Variant R8(double x) { Variant v; v.vt_ = VT_R8; v.r8_ = x; return v; }
  static Variant Date(double x) { Variant v; v.vt_ = VT_DATE; v.r8_ = x; return v; }
  // Currency: a 64-bit count of ten-thousandths.
  static Variant Cy(int64_t units) { Variant v; v.vt_ = VT_CY; v.i_ = units; return v; }
  static Variant Bool(bool x) { Variant v; v.vt_ = VT_BOOL; v.i_ = x ? VARIANT_TRUE : VARIANT_FALSE; return v; }
  static Variant Error(int32_t code) { Variant v; v.vt_ = VT_ERROR; v.i_ = code; return v; }
  static Variant Hresult(HRESULT code) { Variant v; v.vt_ = VT_HRESULT; v.i_ = code; return v; }
  static Variant Dec(const Decimal& d) { Variant v; v.vt_ = VT_DECIMAL; v.dec_ = d; return v; }
  static Variant Str(std::string s) { Variant v; v.vt_ = VT_BSTR; v.str_ = std::move(s); return v; }

  VarType Type() const { return vt_; }
  bool IsEmpty() const { return vt_ == VT_EMPTY; }
  // Back to VT_EMPTY, releasing a string.
  void Clear() { *this = Variant(); }

  // Raw payloads: the signed integer of I1..I8, INT, CY, BOOL, ERROR, HRESULT; the unsigned of
  // UI1..UI8, UINT; the double of R8 and DATE; the single of R4.
  int64_t SignedValue() const { return i_; }
  uint64_t UnsignedValue() const { return u_; }
  double DoubleValue() const { return r8_; }
  float SingleValue() const { return r4_; }
  const Decimal& DecimalValue() const { return dec_; }
  const std::string& StringValue() const { return str_; }
  bool BoolValue() const { return i_ != 0; }

  bool operator==(const Variant& other) const;

 private:
  VarType vt_ = VT_EMPTY;
  union {
    int64_t i_ = 0;
    uint64_t u_;
    double r8_;
    float r4_;
  };
  Decimal dec_;
  std::string str_;
};

// True for the types that hold a number: the integers, single, double, currency, decimal.
bool IsNumericType(VarType vt);
// True for the integer types that ChangeType rounds into, BOOL, ERROR and HRESULT excluded.
bool IsIntegerType(VarType vt);
// True for the codes this layer implements.
bool IsSupportedType(VarType vt);

}  // namespace qmk::platform
