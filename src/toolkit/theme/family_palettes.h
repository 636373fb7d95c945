// family_palettes.h: the colours of the shaded theme families as data: a few seed colours per
// family, one recipe that derives every logical colour from the seeds, and the shape of faces.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "toolkit/theme/widget_state.h"

namespace qmk::toolkit::theme {

class CExtPaintManager;

// Logical colour indices that the shaded families install; WidgetLook points at them.
enum ModernColor : int {
  kClrDialogTop = 3000, kClrDialogBottom, kClrFaceTop, kClrFaceBottom, kClrBorder, kClrHotBorder,
  kClrHotTop, kClrPressed, kClrHotBottom, kClrPressedBorder, kClrText, kClrDisabledText,
  kClrLabelText, kClrField, kClrFieldBorder, kClrFieldDisabled, kClrMark, kClrTabStrip,
  kClrTabSelectedTop, kClrTabSelectedBottom, kClrTabBorder, kClrProgressTrack, kClrProgressTop,
  kClrProgressBottom, kClrScrollTrack, kClrSelection, kClrSelectionText, kClrGripper,
  kClrGroupLine, kClrIconArea, kClrFocus, kClrPressedBottom, kClrDisabledLabel,
  kClrModernLast = kClrDisabledLabel
};

// The seeds of a family. White and black follow as fixed seeds that recipes may name.
enum Seed : int {
  kSeedBack, kSeedFace, kSeedEdge, kSeedAccent, kSeedPress, kSeedSelect, kSeedInk, kSeedLabel,
  kSeedField, kSeedMark, kSeedProgress, kSeedCount, kSeedWhite = kSeedCount, kSeedBlack
};

// A seed is a system colour slot lightened or darkened, or a fixed colour.
struct SeedColor {
  int slot;         // system slot, or -1 for the fixed colour
  uint32_t rgb;     // the fixed colour (red in the low byte)
  int lightness;    // HLS lightness change of a slot's colour, in hundredths (-100..100)
};
constexpr SeedColor Fixed(uint32_t rgb) { return {-1, rgb, 0}; }
constexpr SeedColor Slot(int slot, int lightness = 0) { return {slot, 0, lightness}; }

struct ThemeShape {
  int radius;
  bool glossy;
  bool gradient;
  bool block_progress;
};

struct FamilyPalette {
  const char* key;      // stable name, as tools and tests ask for it
  const char* family;   // the family it belongs to, such as "Office 2007"
  SeedColor seeds[kSeedCount];
  ThemeShape shape;
};

// One derived colour: `kCopy` takes seed a; `kMix` is Mix100(a, b, part); `kShade` changes the
// HLS lightness of seed a by part hundredths.
enum class RecipeOp { kCopy, kMix, kShade };
struct RecipeRow {
  int index;
  RecipeOp op;
  int a, b, part;
};
std::span<const RecipeRow> ModernRecipe();

// The palette of a key, or null.
const FamilyPalette* FindPalette(std::string_view key);
std::span<const FamilyPalette> AllPalettes();

// The colour of a seed with the given system colours (slots 0..30).
uint32_t ResolveSeed(const FamilyPalette& palette, int seed, std::span<const uint32_t> system);
// The colour a recipe row gives.
uint32_t ResolveRecipe(const RecipeRow& row, const FamilyPalette& palette,
                       std::span<const uint32_t> system);
// Installs every colour of the recipe into `pm` under its logical index.
void InstallPalette(CExtPaintManager& pm, const FamilyPalette& palette,
                    std::span<const uint32_t> system);

// The look that draws with the logical colours above, in the palette's shape.
WidgetLook ModernLook(const ThemeShape& shape);

}  // namespace qmk::toolkit::theme
