// theme_classes.h: the tree of theme classes below CExtPaintManager.
#pragma once

#include <span>
#include <string_view>

#include "toolkit/theme/family_palettes.h"
#include "toolkit/theme/paint_manager.h"

namespace qmk::toolkit::theme {

// Flat faces tinted with the highlight colour; the colours of the mixes in xp_colors.cpp.
class CExtPaintManagerXP : public CExtPaintManager {
  QMK_DECLARE_DYNCREATE(CExtPaintManagerXP)
 public:
  CExtPaintManagerXP();
  void InitTranslatedColors() override;
  const WidgetLook* GetWidgetLook() const override;
  const char* FamilyName() const override { return "Office XP"; }
};

// The look of the desktop's visual styles; where there are none, its own rounded faces.
class CExtPaintManagerNativeXP : public CExtPaintManager {
  QMK_DECLARE_DYNCREATE(CExtPaintManagerNativeXP)
 public:
  void InitTranslatedColors() override;
  const WidgetLook* GetWidgetLook() const override;
  const char* FamilyName() const override { return "Native"; }

 private:
  WidgetLook m_look{};
};

// Shaded faces from a family palette; on palette displays the flat XP look.
class CExtPaintManagerOffice2003 : public CExtPaintManagerXP {
  QMK_DECLARE_DYNCREATE(CExtPaintManagerOffice2003)
 public:
  void InitTranslatedColors() override;
  const WidgetLook* GetWidgetLook() const override;
  const char* FamilyName() const override { return Palette().family; }
  // The palette this class draws with; Office 2003 picks it by the visual style's scheme.
  virtual const FamilyPalette& Palette() const;

 private:
  WidgetLook m_look{};
};

class CExtPaintManagerOffice2003NoThemes : public CExtPaintManagerOffice2003 {
  QMK_DECLARE_DYNCREATE(CExtPaintManagerOffice2003NoThemes)
 public:
  const FamilyPalette& Palette() const override;
};

// Declares a class of the shaded families whose only difference is its palette.
#define QMK_PALETTE_THEME(cls, base)                    \
  class cls : public base {                             \
    QMK_DECLARE_DYNCREATE(cls)                          \
   public:                                              \
    const FamilyPalette& Palette() const override;      \
  };

QMK_PALETTE_THEME(CExtPaintManagerStudio2005, CExtPaintManagerOffice2003)
QMK_PALETTE_THEME(CExtPaintManagerStudio2008, CExtPaintManagerStudio2005)
QMK_PALETTE_THEME(CExtPaintManagerStudio2010, CExtPaintManagerStudio2005)

// Office 2007 and later add the fixed hot and pressed colours 3006 to 3009.
class CExtPaintManagerOffice2007_Impl : public CExtPaintManagerOffice2003 {
  QMK_DECLARE_DYNCREATE(CExtPaintManagerOffice2007_Impl)
 public:
  CExtPaintManagerOffice2007_Impl();
  void InitTranslatedColors() override;
  const FamilyPalette& Palette() const override;
};

QMK_PALETTE_THEME(CExtPaintManagerOffice2007_R1, CExtPaintManagerOffice2007_Impl)
QMK_PALETTE_THEME(CExtPaintManagerOffice2007_R2_LunaBlue, CExtPaintManagerOffice2007_Impl)
QMK_PALETTE_THEME(CExtPaintManagerOffice2007_R2_Silver, CExtPaintManagerOffice2007_Impl)
QMK_PALETTE_THEME(CExtPaintManagerOffice2007_R2_Obsidian, CExtPaintManagerOffice2007_Impl)
QMK_PALETTE_THEME(CExtPaintManagerOffice2007_R3_LunaBlue, CExtPaintManagerOffice2007_R2_LunaBlue)
QMK_PALETTE_THEME(CExtPaintManagerOffice2007_R3_Silver, CExtPaintManagerOffice2007_R2_Silver)
QMK_PALETTE_THEME(CExtPaintManagerOffice2007_R3_Obsidian, CExtPaintManagerOffice2007_R2_Obsidian)
QMK_PALETTE_THEME(CExtPaintManagerOffice2007_Blue, CExtPaintManagerOffice2007_R3_LunaBlue)
QMK_PALETTE_THEME(CExtPaintManagerOffice2007_Black, CExtPaintManagerOffice2007_R3_Obsidian)
QMK_PALETTE_THEME(CExtPaintManagerOffice2007_Silver, CExtPaintManagerOffice2007_R3_Silver)
QMK_PALETTE_THEME(CExtPaintManagerOffice2010_Impl, CExtPaintManagerOffice2007_Impl)
QMK_PALETTE_THEME(CExtPaintManagerOffice2010_R1, CExtPaintManagerOffice2010_Impl)
QMK_PALETTE_THEME(CExtPaintManagerOffice2010_R2_Blue, CExtPaintManagerOffice2010_Impl)
QMK_PALETTE_THEME(CExtPaintManagerOffice2010_R2_Silver, CExtPaintManagerOffice2010_Impl)
QMK_PALETTE_THEME(CExtPaintManagerOffice2010_R2_Black, CExtPaintManagerOffice2010_Impl)

#undef QMK_PALETTE_THEME

// The fixed colours of the Office 2007 table, by logical index.
struct FixedColor {
  int index;
  uint32_t rgb;
};
extern const FixedColor kOffice2007Fixed[4];

// Every theme class, the base first.
std::span<const CRuntimeClass* const> AllPaintManagerClasses();
// The theme class of a class name, or null (also for names of classes that are not themes).
const CRuntimeClass* FindPaintManagerClass(std::string_view name);

}  // namespace qmk::toolkit::theme
