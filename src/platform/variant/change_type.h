// change_type.h: conversion of a Variant to another type, and comparison of two, by the
// Automation rules.
#pragma once

#include "platform/locale.h"
#include "platform/variant/variant.h"

namespace qmk::platform {

// Converts `source` to type `to` into `dest` (which may be `source` itself). On failure `dest`
// is left as it was and the result says why: DISP_E_TYPEMISMATCH for a value that has no form
// in the target, DISP_E_OVERFLOW for one that does not fit, DISP_E_BADVARTYPE for an unknown
// type code. Texts are read and written in `locale`.
HRESULT ChangeType(Variant& dest, const Variant& source, VarType to, const Locale& locale = EnUsLocale());

// The four results of VarCmp.
constexpr HRESULT VARCMP_LT = 0;
constexpr HRESULT VARCMP_EQ = 1;
constexpr HRESULT VARCMP_GT = 2;
constexpr HRESULT VARCMP_NULL = 3;
// Flag of VarCmp: compare strings without regard to letter case.
constexpr unsigned NORM_IGNORECASE = 1;

// Compares two values: one of the four results, or a failure code for values that cannot be
// compared.
HRESULT VarCmp(const Variant& left, const Variant& right, unsigned flags = 0);

}  // namespace qmk::platform
