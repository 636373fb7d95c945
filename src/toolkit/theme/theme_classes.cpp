// theme_classes.cpp: class records of the theme tree, each family's palette and look.
#include "toolkit/theme/theme_classes.h"

#include <iterator>

#include "toolkit/bitmap/colour.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/system_colors.h"

namespace qmk::toolkit::theme {

QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerXP, CExtPaintManager)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerNativeXP, CExtPaintManager)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2003, CExtPaintManagerXP)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2003NoThemes, CExtPaintManagerOffice2003)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerStudio2005, CExtPaintManagerOffice2003)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerStudio2008, CExtPaintManagerStudio2005)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerStudio2010, CExtPaintManagerStudio2005)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_Impl, CExtPaintManagerOffice2003)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_R1, CExtPaintManagerOffice2007_Impl)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_R2_LunaBlue, CExtPaintManagerOffice2007_Impl)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_R2_Silver, CExtPaintManagerOffice2007_Impl)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_R2_Obsidian, CExtPaintManagerOffice2007_Impl)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_R3_LunaBlue, CExtPaintManagerOffice2007_R2_LunaBlue)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_R3_Silver, CExtPaintManagerOffice2007_R2_Silver)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_R3_Obsidian, CExtPaintManagerOffice2007_R2_Obsidian)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_Blue, CExtPaintManagerOffice2007_R3_LunaBlue)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_Black, CExtPaintManagerOffice2007_R3_Obsidian)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2007_Silver, CExtPaintManagerOffice2007_R3_Silver)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2010_Impl, CExtPaintManagerOffice2007_Impl)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2010_R1, CExtPaintManagerOffice2010_Impl)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2010_R2_Blue, CExtPaintManagerOffice2010_Impl)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2010_R2_Silver, CExtPaintManagerOffice2010_Impl)
QMK_IMPLEMENT_DYNCREATE(CExtPaintManagerOffice2010_R2_Black, CExtPaintManagerOffice2010_Impl)

const FixedColor kOffice2007Fixed[4] = {
    {3006, bitmap::RGB(0xFF, 0xFB, 0xD6)},
    {3007, bitmap::RGB(0xFF, 0xC3, 0x73)},
    {3008, bitmap::RGB(0xFF, 0xDB, 0x94)},
    {3009, bitmap::RGB(0xC2, 0x95, 0x5F)},
};

namespace {

// The flat look of the XP family, on its 1000 and 2000 series and the system slots.
constexpr WidgetLook kXpLook = {
    COLOR_BTNFACE, COLOR_BTNFACE,            // dialog
    COLOR_BTNFACE, COLOR_BTNFACE, 2002,      // face, border
    1001, 1001, 2004,                        // hot
    2003, 2003, 2004,                        // pressed
    COLOR_BTNTEXT, COLOR_GRAYTEXT, COLOR_WINDOWTEXT, COLOR_GRAYTEXT,
    COLOR_WINDOW, 2002, COLOR_BTNFACE,       // field
    COLOR_WINDOWTEXT,                        // mark
    2000, COLOR_WINDOW, COLOR_WINDOW, 2002,  // tabs
    COLOR_WINDOW, 1001, 2003,                // progress
    2000,                                    // scroll track
    1001, COLOR_WINDOWTEXT,                  // selection
    2002, 2002, 2000, 2004,                  // gripper, group line, icon area, focus
    0, false, false, false,
};

// Which Office 2003 palette the visual style's colour scheme asks for.
struct SchemePalette {
  const char* scheme;
  const char* palette;
};
constexpr SchemePalette kOffice2003Schemes[] = {
    {"normalcolor", "office2003-blue"},
    {"homestead", "office2003-olive"},
    {"metallic", "office2003-silver"},
};

const FamilyPalette& PaletteOf(const char* key) { return *FindPalette(key); }

const CRuntimeClass* const kAllClasses[] = {
    QMK_RUNTIME_CLASS(CExtPaintManager),
    QMK_RUNTIME_CLASS(CExtPaintManagerXP),
    QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003NoThemes),
    QMK_RUNTIME_CLASS(CExtPaintManagerStudio2005),
    QMK_RUNTIME_CLASS(CExtPaintManagerStudio2008),
    QMK_RUNTIME_CLASS(CExtPaintManagerStudio2010),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Impl),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_LunaBlue),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Silver),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_LunaBlue),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Silver),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Obsidian),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Blue),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Black),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Silver),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_Impl),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R1),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R2_Blue),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R2_Silver),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R2_Black),
};

}  // namespace

const WidgetLook* CExtPaintManagerXP::GetWidgetLook() const { return &kXpLook; }

void CExtPaintManagerNativeXP::InitTranslatedColors() {
  CExtPaintManager::InitTranslatedColors();
  if (m_nColorDepth > 8) InstallPalette(*this, PaletteOf("native"), QuerySystemColors());
  m_look = ModernLook(PaletteOf("native").shape);
}

const WidgetLook* CExtPaintManagerNativeXP::GetWidgetLook() const {
  // Palette displays get the classic edges, which need no blends.
  return m_nColorDepth > 8 ? &m_look : nullptr;
}

void CExtPaintManagerOffice2003::InitTranslatedColors() {
  CExtPaintManagerXP::InitTranslatedColors();
  if (m_nColorDepth > 8) InstallPalette(*this, Palette(), QuerySystemColors());
  m_look = ModernLook(Palette().shape);
}

const WidgetLook* CExtPaintManagerOffice2003::GetWidgetLook() const {
  return m_nColorDepth > 8 ? &m_look : CExtPaintManagerXP::GetWidgetLook();
}

const FamilyPalette& CExtPaintManagerOffice2003::Palette() const {
  // Without a known colour scheme (there is no visual style on most desktops) the family takes
  // its blue palette, so that it still looks unlike its variant without theme colours.
  const std::string& scheme = g_PaintManager().m_visualStyle.color_scheme;
  for (const SchemePalette& s : kOffice2003Schemes)
    if (scheme == s.scheme) return PaletteOf(s.palette);
  return PaletteOf("office2003-blue");
}

const FamilyPalette& CExtPaintManagerOffice2003NoThemes::Palette() const { return PaletteOf("office2003-system"); }
const FamilyPalette& CExtPaintManagerStudio2005::Palette() const { return PaletteOf("studio2005"); }
const FamilyPalette& CExtPaintManagerStudio2008::Palette() const { return PaletteOf("studio2008"); }
const FamilyPalette& CExtPaintManagerStudio2010::Palette() const { return PaletteOf("studio2010"); }

CExtPaintManagerOffice2007_Impl::CExtPaintManagerOffice2007_Impl() {
  m_dwSyncFontFlags = kFontFlagClearType | kFontFlagSegoeUI;
}

void CExtPaintManagerOffice2007_Impl::InitTranslatedColors() {
  CExtPaintManagerOffice2003::InitTranslatedColors();
  if (m_nColorDepth <= 8) return;
  for (const FixedColor& c : kOffice2007Fixed) InstallTranslatedColor(c.index, c.rgb);
}

const FamilyPalette& CExtPaintManagerOffice2007_Impl::Palette() const { return PaletteOf("office2007-r1"); }
const FamilyPalette& CExtPaintManagerOffice2007_R1::Palette() const { return PaletteOf("office2007-r1"); }
const FamilyPalette& CExtPaintManagerOffice2007_R2_LunaBlue::Palette() const { return PaletteOf("office2007-r2-lunablue"); }
const FamilyPalette& CExtPaintManagerOffice2007_R2_Silver::Palette() const { return PaletteOf("office2007-r2-silver"); }
const FamilyPalette& CExtPaintManagerOffice2007_R2_Obsidian::Palette() const { return PaletteOf("office2007-r2-obsidian"); }
const FamilyPalette& CExtPaintManagerOffice2007_R3_LunaBlue::Palette() const { return PaletteOf("office2007-r3-lunablue"); }
const FamilyPalette& CExtPaintManagerOffice2007_R3_Silver::Palette() const { return PaletteOf("office2007-r3-silver"); }
const FamilyPalette& CExtPaintManagerOffice2007_R3_Obsidian::Palette() const { return PaletteOf("office2007-r3-obsidian"); }
const FamilyPalette& CExtPaintManagerOffice2007_Blue::Palette() const { return PaletteOf("office2007-r3-lunablue"); }
const FamilyPalette& CExtPaintManagerOffice2007_Black::Palette() const { return PaletteOf("office2007-r3-obsidian"); }
const FamilyPalette& CExtPaintManagerOffice2007_Silver::Palette() const { return PaletteOf("office2007-r3-silver"); }
const FamilyPalette& CExtPaintManagerOffice2010_Impl::Palette() const { return PaletteOf("office2010-blue"); }
const FamilyPalette& CExtPaintManagerOffice2010_R1::Palette() const { return PaletteOf("office2010-blue"); }
const FamilyPalette& CExtPaintManagerOffice2010_R2_Blue::Palette() const { return PaletteOf("office2010-blue"); }
const FamilyPalette& CExtPaintManagerOffice2010_R2_Silver::Palette() const { return PaletteOf("office2010-silver"); }
const FamilyPalette& CExtPaintManagerOffice2010_R2_Black::Palette() const { return PaletteOf("office2010-black"); }

std::span<const CRuntimeClass* const> AllPaintManagerClasses() { return kAllClasses; }

const CRuntimeClass* FindPaintManagerClass(std::string_view name) {
  for (const CRuntimeClass* cls : kAllClasses)
    if (name == cls->m_lpszClassName) return cls;
  return nullptr;
}

}  // namespace qmk::toolkit::theme
