// compare_test.cpp: VarCmp's four results across mixed types.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/variant/change_type.h"

namespace qmk::platform {
namespace {

TEST(VarCmp, MixedTypes) {
  Decimal half;
  half.lo64 = 5;
  half.scale = 1;
  struct Case {
    Variant left, right;
    unsigned flags;
    HRESULT want;
  };
  for (const Case& c : std::initializer_list<Case>{
           {Variant::I4(1), Variant::I4(2), 0, VARCMP_LT},
           {Variant::I2(2), Variant::R8(2.0), 0, VARCMP_EQ},
           {Variant::R8(2.5), Variant::I4(2), 0, VARCMP_GT},
           {Variant::UI8(UINT64_MAX), Variant::I8(-1), 0, VARCMP_GT},
           {Variant::I8(INT64_MAX), Variant::I8(INT64_MAX - 1), 0, VARCMP_GT},
           {Variant::Dec(half), Variant::R8(0.5), 0, VARCMP_EQ},
           {Variant::Dec(half), Variant::Cy(5000), 0, VARCMP_EQ},
           {Variant::Dec(half), Variant::I4(1), 0, VARCMP_LT},
           {Variant::Cy(-10000), Variant::Bool(true), 0, VARCMP_EQ},
           // True is -1, so it is less than False.
           {Variant::Bool(true), Variant::Bool(false), 0, VARCMP_LT},
           {Variant::Date(1.5), Variant::R8(1.5), 0, VARCMP_EQ},
           {Variant::Date(-1.25), Variant::Date(-1.0), 0, VARCMP_LT},
           // Empty is 0 beside a number and "" beside a text.
           {Variant(), Variant::I4(0), 0, VARCMP_EQ},
           {Variant(), Variant::R8(-0.5), 0, VARCMP_GT},
           {Variant(), Variant::Str(""), 0, VARCMP_EQ},
           {Variant(), Variant::Str("a"), 0, VARCMP_LT},
           {Variant(), Variant(), 0, VARCMP_EQ},
           // Any number is less than any text, whatever the text says.
           {Variant::I4(5), Variant::Str("1"), 0, VARCMP_LT},
           {Variant::Str(""), Variant::R8(1e300), 0, VARCMP_GT},
           {Variant::Bool(true), Variant::Str("True"), 0, VARCMP_LT},
           {Variant::Str("abc"), Variant::Str("abd"), 0, VARCMP_LT},
           {Variant::Str("abc"), Variant::Str("ab"), 0, VARCMP_GT},
           {Variant::Str("ABC"), Variant::Str("abc"), 0, VARCMP_GT},
           {Variant::Str("ABC"), Variant::Str("abc"), NORM_IGNORECASE, VARCMP_EQ},
           {Variant::Null(), Variant::I4(1), 0, VARCMP_NULL},
           {Variant::Str("x"), Variant::Null(), 0, VARCMP_NULL},
           {Variant::Null(), Variant::Null(), 0, VARCMP_NULL},
           {Variant::Error(3), Variant::Error(4), 0, VARCMP_LT},
           {Variant::Error(3), Variant::I4(3), 0, DISP_E_TYPEMISMATCH},
           {Variant::Hresult(0), Variant::Str(""), 0, DISP_E_TYPEMISMATCH},
           // NaN sorts below every number and equals itself.
           {Variant::R8(NAN), Variant::R8(-INFINITY), 0, VARCMP_LT},
           {Variant::R8(NAN), Variant::R8(NAN), 0, VARCMP_EQ},
       }) {
    Variant lt, rt;
    ChangeType(lt, c.left, VT_BSTR);
    ChangeType(rt, c.right, VT_BSTR);
    EXPECT_EQ(VarCmp(c.left, c.right, c.flags), c.want)
        << "type " << c.left.Type() << " " << lt.StringValue() << " vs type " << c.right.Type() << " " << rt.StringValue();
  }
}

TEST(VarCmp, IsAntisymmetric) {
  const Variant values[] = {Variant(), Variant::I4(-3), Variant::R8(2.5), Variant::Bool(true), Variant::Str("m"),
                            Variant::Date(1.0), Variant::Cy(1), Variant::UI1(200)};
  for (const Variant& a : values)
    for (const Variant& b : values) {
      const HRESULT ab = VarCmp(a, b), ba = VarCmp(b, a);
      ASSERT_GE(ab, 0);
      EXPECT_EQ(ab, 2 - ba) << a.Type() << " vs " << b.Type();
    }
}

TEST(VarCmp, UnknownTypeCodes) {
  EXPECT_EQ(VarCmp(Variant::I4(1), Variant::I4(1)), VARCMP_EQ);
  Variant bad;
  EXPECT_EQ(ChangeType(bad, Variant::I4(1), static_cast<VarType>(13)), DISP_E_BADVARTYPE);
}

}  // namespace
}  // namespace qmk::platform
