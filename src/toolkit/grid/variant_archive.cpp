// variant_archive.cpp: StoreVariant and LoadVariant.
#include "toolkit/grid/variant_archive.h"

#include <cstring>

namespace qmk::toolkit::grid {

using namespace platform;

namespace {
void WriteU64(Archive& ar, uint64_t v) {
  ar.WriteU32(static_cast<uint32_t>(v));
  ar.WriteU32(static_cast<uint32_t>(v >> 32));
}
uint64_t ReadU64(Archive& ar) {
  const uint64_t lo = ar.ReadU32();
  return lo | (static_cast<uint64_t>(ar.ReadU32()) << 32);
}
template <class T, class F>
T Bits(F from) {
  T to;
  std::memcpy(&to, &from, sizeof to);
  return to;
}
}  // namespace

bool StoreVariant(Archive& ar, const Variant& v) {
  ar.WriteU16(v.Type());
  switch (v.Type()) {
    case VT_EMPTY: case VT_NULL: break;
    case VT_I1: case VT_UI1: ar.WriteU8(static_cast<uint8_t>(v.UnsignedValue())); break;
    case VT_I2: case VT_UI2: case VT_BOOL: ar.WriteU16(static_cast<uint16_t>(v.UnsignedValue())); break;
    case VT_I4: case VT_UI4: case VT_INT: case VT_UINT: case VT_ERROR: case VT_HRESULT:
      ar.WriteU32(static_cast<uint32_t>(v.UnsignedValue()));
      break;
    case VT_R4: ar.WriteU32(Bits<uint32_t>(v.SingleValue())); break;
    case VT_R8: case VT_DATE: WriteU64(ar, Bits<uint64_t>(v.DoubleValue())); break;
    case VT_CY: case VT_I8: case VT_UI8: WriteU64(ar, v.UnsignedValue()); break;
    case VT_DECIMAL: {
      const Decimal& d = v.DecimalValue();
      ar.WriteU16(0);
      ar.WriteU8(d.scale);
      ar.WriteU8(d.negative ? 0x80 : 0);
      ar.WriteU32(d.hi32);
      WriteU64(ar, d.lo64);
      break;
    }
    case VT_BSTR:
      ar.WriteU32(static_cast<uint32_t>(v.StringValue().size()));
      ar.Write(v.StringValue().data(), v.StringValue().size());
      break;
    default: return false;
  }
  return ar.ok();
}

bool LoadVariant(Archive& ar, Variant& value) {
  const auto vt = static_cast<VarType>(ar.ReadU16());
  Variant v;
  switch (vt) {
    case VT_EMPTY: break;
    case VT_NULL: v = Variant::Null(); break;
    case VT_I1: v = Variant::I1(static_cast<int8_t>(ar.ReadU8())); break;
    case VT_UI1: v = Variant::UI1(ar.ReadU8()); break;
    case VT_I2: v = Variant::I2(static_cast<int16_t>(ar.ReadU16())); break;
    case VT_UI2: v = Variant::UI2(ar.ReadU16()); break;
    case VT_BOOL: v = Variant::Bool(ar.ReadU16() != 0); break;
    case VT_I4: v = Variant::I4(static_cast<int32_t>(ar.ReadU32())); break;
    case VT_INT: v = Variant::Int(static_cast<int32_t>(ar.ReadU32())); break;
    case VT_UI4: v = Variant::UI4(ar.ReadU32()); break;
    case VT_UINT: v = Variant::UInt(ar.ReadU32()); break;
    case VT_ERROR: v = Variant::Error(static_cast<int32_t>(ar.ReadU32())); break;
    case VT_HRESULT: v = Variant::Hresult(static_cast<int32_t>(ar.ReadU32())); break;
    case VT_R4: v = Variant::R4(Bits<float>(ar.ReadU32())); break;
    case VT_R8: v = Variant::R8(Bits<double>(ReadU64(ar))); break;
    case VT_DATE: v = Variant::Date(Bits<double>(ReadU64(ar))); break;
    case VT_CY: v = Variant::Cy(static_cast<int64_t>(ReadU64(ar))); break;
    case VT_I8: v = Variant::I8(static_cast<int64_t>(ReadU64(ar))); break;
    case VT_UI8: v = Variant::UI8(ReadU64(ar)); break;
    case VT_DECIMAL: {
      Decimal d;
      ar.ReadU16();
      d.scale = ar.ReadU8();
      d.negative = (ar.ReadU8() & 0x80) != 0;
      d.hi32 = ar.ReadU32();
      d.lo64 = ReadU64(ar);
      if (d.scale > 28) return false;
      v = Variant::Dec(d);
      break;
    }
    case VT_BSTR: {
      const uint32_t size = ar.ReadU32();
      // A length beyond the data left is damage, not a reason to allocate.
      if (auto left = ar.Remaining(); !ar.ok() || (left && size > *left)) return false;
      std::string text(size, '\0');
      ar.Read(text.data(), size);
      v = Variant::Str(std::move(text));
      break;
    }
    default: return false;
  }
  if (!ar.ok()) return false;
  value = std::move(v);
  return true;
}

}  // namespace qmk::toolkit::grid
