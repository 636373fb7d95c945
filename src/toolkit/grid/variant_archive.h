// variant_archive.h: the archive form of a variant value: its 16-bit type, then the payload.
#pragma once

#include "platform/archive.h"
#include "platform/variant/variant.h"

namespace qmk::toolkit::grid {

// Payloads: 1 byte for I1 and UI1; 2 for I2, UI2 and BOOL; 4 for I4, UI4, INT, UINT, R4, ERROR
// and HRESULT; 8 for R8, DATE, CY, I8 and UI8; 16 for DECIMAL (reserved word, scale, sign, high
// 32 bits, low 64 bits); a 32-bit byte count and the bytes for a string; nothing for EMPTY and
// NULL. Loading fails on an unknown type or a short archive and leaves `value` alone.
bool StoreVariant(platform::Archive& ar, const platform::Variant& value);
bool LoadVariant(platform::Archive& ar, platform::Variant& value);

}  // namespace qmk::toolkit::grid
