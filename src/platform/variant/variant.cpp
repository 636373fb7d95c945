// variant.cpp: equality and the type classes of Variant.
#include "platform/variant/variant.h"

namespace qmk::platform {

bool IsIntegerType(VarType vt) {
  switch (vt) {
    case VT_I1: case VT_I2: case VT_I4: case VT_I8: case VT_INT:
    case VT_UI1: case VT_UI2: case VT_UI4: case VT_UI8: case VT_UINT:
      return true;
    default:
      return false;
  }
}

bool IsNumericType(VarType vt) {
  return IsIntegerType(vt) || vt == VT_R4 || vt == VT_R8 || vt == VT_CY || vt == VT_DECIMAL;
}

bool IsSupportedType(VarType vt) {
  return IsNumericType(vt) || vt == VT_EMPTY || vt == VT_NULL || vt == VT_DATE || vt == VT_BSTR ||
         vt == VT_ERROR || vt == VT_BOOL || vt == VT_HRESULT;
}

bool Variant::operator==(const Variant& other) const {
  if (vt_ != other.vt_) return false;
  switch (vt_) {
    case VT_EMPTY: case VT_NULL: return true;
    case VT_R4: return r4_ == other.r4_;
    case VT_R8: case VT_DATE: return r8_ == other.r8_;
    case VT_BSTR: return str_ == other.str_;
    case VT_DECIMAL: return dec_ == other.dec_;
    default: return i_ == other.i_;
  }
}

}  // namespace qmk::platform
