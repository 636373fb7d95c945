// resolve.h: text to values for the rich content engine: colours, lengths in device pixels and
// character entities.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "toolkit/richcontent/style.h"

namespace qmk::toolkit::richcontent {

// A colour word (red in the low byte) from its text; `defaultColor` when it does not parse.
int32_t ResolveColor(std::string_view text, int32_t defaultColor);

// Device pixels from a length text. A null `fontRef` counts as a font of height 0.
int ResolveLength(const char* text, bool horizontal, const CExtRichFontDescription* fontRef,
                  int defaultValue, double* outPercent = nullptr, bool* outIsPercent = nullptr,
                  bool* outIsPlainNumber = nullptr, bool allowNegative = false);

// The character code of an entity name (without "&" and ";"), 0 when unknown.
int ResolveEntity(std::string_view name);
// The rows of the entity table (names spelled twice count twice).
size_t EntityRowCount();

// The display's dots per inch that lengths are converted with (96 by default).
void SetDisplayDpi(int horizontal, int vertical);
int DisplayDpi(bool horizontal);

// The rounding of lengths: up when the fraction is at least a half.
int RoundLength(double x);

}  // namespace qmk::toolkit::richcontent
