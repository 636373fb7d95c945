// paint_manager.h: CExtPaintManager, the base of every theme: the colour table and its
// translation map, the shaded helper brushes, fonts, scaling, and the widget drawing operations.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/draw/text.h"
#include "toolkit/theme/runtime_class.h"
#include "toolkit/theme/widget_state.h"

namespace qmk::platform {
class Archive;
}

namespace qmk::toolkit::theme {

// A font as the system describes it: a height in logical units (negative for the character
// height), a weight, an output quality and a face.
struct LogFont {
  int lfHeight = -12;
  int lfWeight = 400;
  int lfQuality = 0;
  std::string lfFaceName = "DejaVu Sans";
  bool operator==(const LogFont&) const = default;
};

// A shaded brush: a plain colour, or on palette displays a 16 by 16 pattern of two colours.
struct HelperBrush {
  uint32_t color = 0;
  bool pattern = false;
  std::array<uint32_t, 16 * 16> pixels{};
};

// Bits of m_dwSyncFontFlags.
constexpr unsigned kFontFlagClearType = 8;  // quality 5
constexpr unsigned kFontFlagSegoeUI = 32;   // prefer "Segoe UI" when it is installed

class CExtPaintManager : public CObject {
  QMK_DECLARE_DYNCREATE(CExtPaintManager)

 public:
  CExtPaintManager();
  ~CExtPaintManager() override;

  // ---- object: stores the class name; the holder reads it back and installs.
  virtual void Serialize(platform::Archive& ar);

  // ---- dpi
  bool UiScalingIsEnabled(int axis) const;
  // value * dpi / 96 for axis 0 (x), 1 (y) or 2 (the third axis); unscaled when disabled.
  int UiScale(int value, int axis = 0) const;

  // ---- fonts
  virtual void SyncSysColors();
  const LogFont& NormalLogFont() const { return m_lfNormal; }
  const platform::FontSpec& Font(int which = 0) const { return m_fonts[static_cast<unsigned>(which) % 3]; }
  unsigned m_dwSyncFontFlags = 0;

  // ---- theme identity
  virtual bool IsHighContrast() const { return false; }
  // Short family name shown by tools, such as "Office 2003".
  virtual const char* FamilyName() const { return "Office 2000"; }

  // ---- colours
  // The colour of a system slot (0..30), an installed index, or a logical index (1000 and up).
  virtual uint32_t GetColor(int index, const CObject* object = nullptr, intptr_t lParam = 0);
  // Appends `rgb` to the colour array, or finds it there; returns its index. With index >= 0
  // the entry there is replaced instead, when it exists.
  int InstallColor(uint32_t rgb, int index = -1);
  // Points a logical index at an entry of the colour array.
  void SetTranslatedColor(int logical, int entry) { m_mapColorTranslate[logical] = entry; }
  // Installs `rgb` and points a logical index at it.
  void InstallTranslatedColor(int logical, uint32_t rgb) { SetTranslatedColor(logical, InstallColor(rgb)); }
  // Rereads the system colours and rebuilds the table and brushes for a display of `bits`.
  void RefreshColors(int bits);
  virtual void InitTranslatedColors();
  virtual void InitHelperBrushes();
  int ColorDepth() const { return m_nColorDepth; }
  size_t ColorCount() const { return m_colors.size(); }
  bool HasTranslation(int logical) const { return m_mapColorTranslate.count(logical) != 0; }
  const HelperBrush& Brush(int which) const { return m_brushes[static_cast<unsigned>(which) % 6]; }
  const HelperBrush& SystemBrush(int which) const {
    return m_systemBrushes[static_cast<unsigned>(which) % 6];
  }
  int GetShadowAlpha() const { return m_nShadowAlpha; }

  // ---- widgets. The base class draws the raised and sunken edges of the classic look; themes
  // that answer a WidgetLook draw flat or shaded faces from its colours instead.
  virtual const WidgetLook* GetWidgetLook() const { return nullptr; }
  virtual void PaintDialogBackground(DrawTarget& dc, const DrawRect& rc);
  virtual void PaintGripper(DrawTarget& dc, const DrawRect& rc);
  virtual void PaintLabel(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
  virtual void PaintPushButton(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
  virtual void PaintCheckBox(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
  virtual void PaintRadioButton(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
  virtual void PaintGroupBox(DrawTarget& dc, const DrawRect& rc, const std::string& caption, unsigned state);
  virtual void PaintEdit(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
  virtual void PaintComboBox(DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
  virtual void PaintComboDropList(DrawTarget& dc, const DrawRect& rc, const std::vector<std::string>& items,
                                  int selected);
  virtual void PaintSpinButtons(DrawTarget& dc, const DrawRect& rc, unsigned up_state, unsigned down_state);
  virtual void PaintTabStrip(DrawTarget& dc, const DrawRect& rc, const std::vector<std::string>& tabs,
                             int selected, int hot);
  virtual void PaintProgress(DrawTarget& dc, const DrawRect& rc, int pos, int range, unsigned state);
  virtual void PaintScrollBar(DrawTarget& dc, PAINTSCROLLBARDATA& data);
  virtual void PaintMessageBox(DrawTarget& dc, const DrawRect& body, const DrawRect& icon_area, int icon);

 protected:
  // The base class's translation map, applied by every theme before its own entries.
  void InitBaseTranslation();

  std::vector<uint32_t> m_colors;
  std::map<int, int> m_mapColorTranslate;
  std::array<HelperBrush, 6> m_brushes{};
  std::array<HelperBrush, 6> m_systemBrushes{};
  int m_nColorDepth = 32;
  int m_nShadowAlpha = 0;
  LogFont m_lfNormal;
  std::array<platform::FontSpec, 3> m_fonts{};
};

// Windows' MulDiv: a * b / c rounded half away from zero; -1 when c is 0.
int MulDiv(int a, int b, int c);

}  // namespace qmk::toolkit::theme
