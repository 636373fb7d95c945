// family_palettes.cpp: seed colours and face shapes of each shaded family, the recipe that
// derives their logical colours, and its installer.
#include "toolkit/theme/family_palettes.h"

#include <iterator>

#include "toolkit/bitmap/colour.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/system_colors.h"

namespace qmk::toolkit::theme {
namespace {

using bitmap::RGB;

constexpr uint32_t Hex(uint32_t rrggbb) {
  return RGB(rrggbb >> 16, (rrggbb >> 8) & 0xFF, rrggbb & 0xFF);
}

// Shapes: corner radius, glossy halves, shading, block progress.
constexpr ThemeShape kSquareShaded{0, false, true, false};
constexpr ThemeShape kSquareFlat{0, false, false, false};
constexpr ThemeShape kRoundGlossy{3, true, true, false};
constexpr ThemeShape kRoundShaded{2, false, true, false};
constexpr ThemeShape kNativeShape{3, false, true, true};

// Seeds in the order: back, face, edge, accent, press, select, ink, label, field, mark, progress.
constexpr FamilyPalette kPalettes[] = {
    {"native", "Native",
     {Fixed(Hex(0xECE9D8)), Fixed(Hex(0xE3E1D6)), Fixed(Hex(0x003C74)), Fixed(Hex(0xF8B330)),
      Fixed(Hex(0xD6D2C2)), Fixed(Hex(0x316AC5)), Fixed(Hex(0x000000)), Fixed(Hex(0x000000)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x21A121)), Fixed(Hex(0x2FBF2F))},
     kNativeShape},
    {"office2003-blue", "Office 2003",
     {Fixed(Hex(0xB9D1F3)), Fixed(Hex(0x9EBEF5)), Fixed(Hex(0x002D96)), Fixed(Hex(0xFFD58E)),
      Fixed(Hex(0xFE9355)), Fixed(Hex(0x316AC5)), Fixed(Hex(0x000000)), Fixed(Hex(0x000000)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x002D96)), Fixed(Hex(0x3A6FD0))},
     kSquareShaded},
    {"office2003-olive", "Office 2003",
     {Fixed(Hex(0xD9E0BE)), Fixed(Hex(0xB7C691)), Fixed(Hex(0x637A45)), Fixed(Hex(0xFFD58E)),
      Fixed(Hex(0xFE9355)), Fixed(Hex(0x758D5E)), Fixed(Hex(0x000000)), Fixed(Hex(0x000000)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x3D4F25)), Fixed(Hex(0x8FA65E))},
     kSquareShaded},
    {"office2003-silver", "Office 2003",
     {Fixed(Hex(0xE3E2EC)), Fixed(Hex(0xC4C3D6)), Fixed(Hex(0x6E6D8F)), Fixed(Hex(0xFFD58E)),
      Fixed(Hex(0xFE9355)), Fixed(Hex(0x7C7C94)), Fixed(Hex(0x000000)), Fixed(Hex(0x000000)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x3F3D56)), Fixed(Hex(0x8C8AAC))},
     kSquareShaded},
    // Without theme colours the family shades the desktop's own greys.
    {"office2003-system", "Office 2003",
     {Slot(COLOR_BTNFACE, 10), Slot(COLOR_BTNFACE), Slot(COLOR_BTNSHADOW, -30), Fixed(Hex(0xFFD58E)),
      Fixed(Hex(0xFE9355)), Slot(COLOR_HIGHLIGHT), Slot(COLOR_BTNTEXT), Slot(COLOR_WINDOWTEXT),
      Slot(COLOR_WINDOW), Slot(COLOR_WINDOWTEXT), Slot(COLOR_HIGHLIGHT)},
     kSquareShaded},
    {"studio2005", "Visual Studio 2005",
     {Fixed(Hex(0xEEEDE5)), Fixed(Hex(0xE0DDD0)), Fixed(Hex(0xACA899)), Fixed(Hex(0xC1D2EE)),
      Fixed(Hex(0x98B5E2)), Fixed(Hex(0x316AC5)), Fixed(Hex(0x000000)), Fixed(Hex(0x000000)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x000080)), Fixed(Hex(0x316AC5))},
     kSquareShaded},
    {"studio2008", "Visual Studio 2008",
     {Fixed(Hex(0xD9DEEA)), Fixed(Hex(0xE8EBF2)), Fixed(Hex(0x8E9BBC)), Fixed(Hex(0xB7D2F0)),
      Fixed(Hex(0x8DB2E3)), Fixed(Hex(0x3399FF)), Fixed(Hex(0x000000)), Fixed(Hex(0x1C2A47)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x1C3D7A)), Fixed(Hex(0x3399FF))},
     kSquareShaded},
    {"studio2010", "Visual Studio 2010",
     {Fixed(Hex(0x293955)), Fixed(Hex(0xCED4DF)), Fixed(Hex(0x8E9BBC)), Fixed(Hex(0xFFE8A6)),
      Fixed(Hex(0xFFD580)), Fixed(Hex(0x3399FF)), Fixed(Hex(0x000000)), Fixed(Hex(0xFFFFFF)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x1E2D47)), Fixed(Hex(0xFFC94A))},
     kSquareFlat},
    {"office2007-r1", "Office 2007",
     {Fixed(Hex(0xBFDBFF)), Fixed(Hex(0xD3E5FA)), Fixed(Hex(0x8DB2E3)), Fixed(Hex(0xFFDB94)),
      Fixed(Hex(0xFFC373)), Fixed(Hex(0x3D7BD1)), Fixed(Hex(0x15428B)), Fixed(Hex(0x15428B)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x2A4F80)), Fixed(Hex(0x4F9E1D))},
     kRoundGlossy},
    {"office2007-r2-lunablue", "Office 2007",
     {Fixed(Hex(0xC4DBF8)), Fixed(Hex(0xD8E7FA)), Fixed(Hex(0x7DA2CE)), Fixed(Hex(0xFFDB94)),
      Fixed(Hex(0xFFC373)), Fixed(Hex(0x3D7BD1)), Fixed(Hex(0x15428B)), Fixed(Hex(0x15428B)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x2A4F80)), Fixed(Hex(0x4F9E1D))},
     kRoundGlossy},
    {"office2007-r2-obsidian", "Office 2007",
     {Fixed(Hex(0x535353)), Fixed(Hex(0xD6D7D9)), Fixed(Hex(0x3A3A3A)), Fixed(Hex(0xFFDB94)),
      Fixed(Hex(0xFFC373)), Fixed(Hex(0x7A8BA3)), Fixed(Hex(0x000000)), Fixed(Hex(0xFFFFFF)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x262626)), Fixed(Hex(0x5C8E2F))},
     kRoundGlossy},
    {"office2007-r2-silver", "Office 2007",
     {Fixed(Hex(0xD0D4DD)), Fixed(Hex(0xEBEDF1)), Fixed(Hex(0x9BA3AE)), Fixed(Hex(0xFFDB94)),
      Fixed(Hex(0xFFC373)), Fixed(Hex(0x6E7C94)), Fixed(Hex(0x4C535C)), Fixed(Hex(0x4C535C)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x3B4048)), Fixed(Hex(0x5C8E2F))},
     kRoundGlossy},
    {"office2007-r3-lunablue", "Office 2007",
     {Fixed(Hex(0xBFDBFF)), Fixed(Hex(0xDAE9FC)), Fixed(Hex(0x6F9DD9)), Fixed(Hex(0xFFDB94)),
      Fixed(Hex(0xFFC373)), Fixed(Hex(0x3D7BD1)), Fixed(Hex(0x15428B)), Fixed(Hex(0x15428B)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x1F3F6E)), Fixed(Hex(0x4F9E1D))},
     kRoundGlossy},
    {"office2007-r3-obsidian", "Office 2007",
     {Fixed(Hex(0x474747)), Fixed(Hex(0xDCDDDF)), Fixed(Hex(0x2E2E2E)), Fixed(Hex(0xFFDB94)),
      Fixed(Hex(0xFFC373)), Fixed(Hex(0x7A8BA3)), Fixed(Hex(0x000000)), Fixed(Hex(0xF2F2F2)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x202020)), Fixed(Hex(0x5C8E2F))},
     kRoundGlossy},
    {"office2007-r3-silver", "Office 2007",
     {Fixed(Hex(0xD6DAE3)), Fixed(Hex(0xEEF0F4)), Fixed(Hex(0x8E97A3)), Fixed(Hex(0xFFDB94)),
      Fixed(Hex(0xFFC373)), Fixed(Hex(0x6E7C94)), Fixed(Hex(0x4C535C)), Fixed(Hex(0x4C535C)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x33383F)), Fixed(Hex(0x5C8E2F))},
     kRoundGlossy},
    {"office2010-blue", "Office 2010",
     {Fixed(Hex(0xCFDDEE)), Fixed(Hex(0xF1F6FB)), Fixed(Hex(0xA0B3CF)), Fixed(Hex(0xFDE68C)),
      Fixed(Hex(0xF8C55C)), Fixed(Hex(0x4B7BC0)), Fixed(Hex(0x1E395B)), Fixed(Hex(0x1E395B)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x1E395B)), Fixed(Hex(0x06B025))},
     kRoundShaded},
    {"office2010-silver", "Office 2010",
     {Fixed(Hex(0xE9EDF1)), Fixed(Hex(0xFCFCFD)), Fixed(Hex(0xB6BABF)), Fixed(Hex(0xFDE68C)),
      Fixed(Hex(0xF8C55C)), Fixed(Hex(0x7B8591)), Fixed(Hex(0x3B3B3B)), Fixed(Hex(0x3B3B3B)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x3B3B3B)), Fixed(Hex(0x06B025))},
     kRoundShaded},
    {"office2010-black", "Office 2010",
     {Fixed(Hex(0x5B5B5B)), Fixed(Hex(0xE3E3E3)), Fixed(Hex(0x333333)), Fixed(Hex(0xFDE68C)),
      Fixed(Hex(0xF8C55C)), Fixed(Hex(0x8A8A8A)), Fixed(Hex(0x000000)), Fixed(Hex(0xFFFFFF)),
      Fixed(Hex(0xFFFFFF)), Fixed(Hex(0x262626)), Fixed(Hex(0x06B025))},
     kRoundShaded},
};

using enum RecipeOp;
constexpr RecipeRow kRecipe[] = {
    {kClrDialogTop, kShade, kSeedBack, 0, 25},
    {kClrDialogBottom, kCopy, kSeedBack, 0, 0},
    {kClrFaceTop, kMix, kSeedWhite, kSeedFace, 60},
    {kClrFaceBottom, kCopy, kSeedFace, 0, 0},
    {kClrBorder, kCopy, kSeedEdge, 0, 0},
    {kClrHotBorder, kShade, kSeedAccent, 0, -35},
    {kClrHotTop, kMix, kSeedWhite, kSeedAccent, 55},
    {kClrPressed, kCopy, kSeedPress, 0, 0},
    {kClrHotBottom, kCopy, kSeedAccent, 0, 0},
    {kClrPressedBorder, kShade, kSeedPress, 0, -40},
    {kClrText, kCopy, kSeedInk, 0, 0},
    {kClrDisabledText, kMix, kSeedInk, kSeedFace, 40},
    {kClrLabelText, kCopy, kSeedLabel, 0, 0},
    {kClrField, kCopy, kSeedField, 0, 0},
    {kClrFieldBorder, kMix, kSeedEdge, kSeedField, 70},
    {kClrFieldDisabled, kMix, kSeedFace, kSeedField, 50},
    {kClrMark, kCopy, kSeedMark, 0, 0},
    {kClrTabStrip, kShade, kSeedBack, 0, -8},
    {kClrTabSelectedTop, kCopy, kSeedField, 0, 0},
    {kClrTabSelectedBottom, kMix, kSeedField, kSeedFace, 50},
    {kClrTabBorder, kCopy, kSeedEdge, 0, 0},
    {kClrProgressTrack, kMix, kSeedField, kSeedFace, 60},
    {kClrProgressTop, kMix, kSeedWhite, kSeedProgress, 45},
    {kClrProgressBottom, kCopy, kSeedProgress, 0, 0},
    {kClrScrollTrack, kMix, kSeedFace, kSeedField, 40},
    {kClrSelection, kMix, kSeedSelect, kSeedField, 35},
    {kClrSelectionText, kCopy, kSeedInk, 0, 0},
    {kClrGripper, kShade, kSeedEdge, 0, -20},
    {kClrGroupLine, kMix, kSeedEdge, kSeedBack, 70},
    {kClrIconArea, kMix, kSeedWhite, kSeedBack, 70},
    {kClrFocus, kCopy, kSeedSelect, 0, 0},
    {kClrPressedBottom, kMix, kSeedWhite, kSeedPress, 25},
    {kClrDisabledLabel, kMix, kSeedLabel, kSeedBack, 55},
};

uint32_t Shade(uint32_t rgb, int hundredths) {
  bitmap::HLS v = bitmap::RGBtoHLS(rgb);
  v.l = bitmap::ApplyDelta(v.l, hundredths / 100.0);
  return bitmap::HLStoRGB(v.h, v.l, v.s);
}

}  // namespace

std::span<const RecipeRow> ModernRecipe() { return kRecipe; }
std::span<const FamilyPalette> AllPalettes() { return kPalettes; }

const FamilyPalette* FindPalette(std::string_view key) {
  for (const FamilyPalette& p : kPalettes)
    if (key == p.key) return &p;
  return nullptr;
}

uint32_t ResolveSeed(const FamilyPalette& palette, int seed, std::span<const uint32_t> system) {
  if (seed == kSeedWhite) return RGB(255, 255, 255);
  if (seed == kSeedBlack || seed < 0 || seed >= kSeedCount) return 0;
  const SeedColor& s = palette.seeds[seed];
  if (s.slot < 0) return s.rgb;
  const uint32_t base = static_cast<size_t>(s.slot) < system.size() ? system[s.slot] : 0;
  return s.lightness ? Shade(base, s.lightness) : base;
}

uint32_t ResolveRecipe(const RecipeRow& row, const FamilyPalette& palette,
                       std::span<const uint32_t> system) {
  const uint32_t a = ResolveSeed(palette, row.a, system);
  switch (row.op) {
    case RecipeOp::kMix: return bitmap::Mix100(a, ResolveSeed(palette, row.b, system), row.part);
    case RecipeOp::kShade: return Shade(a, row.part);
    case RecipeOp::kCopy: break;
  }
  return a;
}

void InstallPalette(CExtPaintManager& pm, const FamilyPalette& palette,
                    std::span<const uint32_t> system) {
  for (const RecipeRow& row : kRecipe)
    pm.InstallTranslatedColor(row.index, ResolveRecipe(row, palette, system));
}

WidgetLook ModernLook(const ThemeShape& shape) {
  WidgetLook l{};
  l.dialog_top = kClrDialogTop;
  l.dialog_bottom = kClrDialogBottom;
  l.face_top = kClrFaceTop;
  l.face_bottom = kClrFaceBottom;
  l.border = kClrBorder;
  l.hot_top = kClrHotTop;
  l.hot_bottom = kClrHotBottom;
  l.hot_border = kClrHotBorder;
  l.pressed_top = kClrPressed;
  l.pressed_bottom = kClrPressedBottom;
  l.pressed_border = kClrPressedBorder;
  l.text = kClrText;
  l.disabled_text = kClrDisabledText;
  l.label_text = kClrLabelText;
  l.disabled_label = kClrDisabledLabel;
  l.field = kClrField;
  l.field_border = kClrFieldBorder;
  l.field_disabled = kClrFieldDisabled;
  l.mark = kClrMark;
  l.tab_strip = kClrTabStrip;
  l.tab_selected_top = kClrTabSelectedTop;
  l.tab_selected_bottom = kClrTabSelectedBottom;
  l.tab_border = kClrTabBorder;
  l.progress_track = kClrProgressTrack;
  l.progress_top = kClrProgressTop;
  l.progress_bottom = kClrProgressBottom;
  l.scroll_track = kClrScrollTrack;
  l.selection = kClrSelection;
  l.selection_text = kClrSelectionText;
  l.gripper = kClrGripper;
  l.group_line = kClrGroupLine;
  l.icon_area = kClrIconArea;
  l.focus = kClrFocus;
  l.radius = shape.radius;
  l.glossy = shape.glossy;
  l.gradient = shape.gradient;
  l.block_progress = shape.block_progress;
  return l;
}

}  // namespace qmk::toolkit::theme
