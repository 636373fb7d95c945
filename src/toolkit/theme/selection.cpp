// selection.cpp: the table from theme id to class, and the selection by id.
#include "toolkit/theme/selection.h"

#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/theme_classes.h"

namespace qmk::toolkit::theme {
namespace {

const ThemeChoice kChoices[] = {
    {29750, QMK_RUNTIME_CLASS(CExtPaintManager), "Office 2000"},
    {29751, QMK_RUNTIME_CLASS(CExtPaintManagerXP), "Office XP / Visual Studio .NET"},
    {29752, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003), "Office 2003"},
    {29753, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003NoThemes),
     "Office 2003 (without Windows XP theme colors)"},
    {29754, QMK_RUNTIME_CLASS(CExtPaintManagerStudio2005), "Visual Studio 2005"},
    {29755, QMK_RUNTIME_CLASS(CExtPaintManagerStudio2008), "Visual Studio 2008"},
    {29756, QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP), "Native Windows XP / Vista / 7"},
    {29757, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1), "Office 2007 (Release 1)"},
    {29758, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_LunaBlue), "Office 2007 (Release 2) Luna-Blue"},
    {29759, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian), "Office 2007 (Release 2) Obsidian"},
    {29760, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Silver), "Office 2007 (Release 2) Silver"},
    {29761, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_LunaBlue), "Office 2007 (Release 3) Luna-Blue"},
    {29762, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Obsidian), "Office 2007 (Release 3) Obsidian"},
    {29763, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Silver), "Office 2007 (Release 3) Silver"},
    {29764, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R1), "Office 2010 (Release 1)"},
};

// Theme names with no case of their own in the selection: their ids select the base class.
const char* const kNamesWithoutClass[] = {
    "Office 2010 (Release 2) Blue", "Office 2010 (Release 2) Silver",
    "Office 2010 (Release 2) Black", "Visual Studio 2010", "Skin",
    "Load Skin From .XML File", "Load Skin From .SKIN File",
};
constexpr int kFirstNameWithoutClass = 29765;

}  // namespace

std::span<const ThemeChoice> ThemeChoices() { return kChoices; }

const CRuntimeClass* PaintManagerClassForId(int id) {
  for (const ThemeChoice& c : kChoices)
    if (c.id == id) return c.cls;
  return QMK_RUNTIME_CLASS(CExtPaintManager);
}

std::string ThemeDisplayName(int id) {
  for (const ThemeChoice& c : kChoices)
    if (c.id == id) return c.display_name;
  const int k = id - kFirstNameWithoutClass;
  if (k >= 0 && k < static_cast<int>(std::size(kNamesWithoutClass))) return kNamesWithoutClass[k];
  return {};
}

bool SelectPaintManagerById(int id, const std::function<void(int)>& tell_recognition) {
  const bool installed = g_PaintManager().InstallPaintManagerByClass(PaintManagerClassForId(id));
  if (tell_recognition) tell_recognition(id);
  return installed;
}

}  // namespace qmk::toolkit::theme
