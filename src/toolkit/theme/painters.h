// painters.h: the two ways widgets are drawn: the classic raised and sunken edges of the base
// theme, and the flat or shaded faces that a WidgetLook describes. Both share text and icons.
#pragma once

#include <string>
#include <vector>

#include "platform/draw/text.h"
#include "toolkit/theme/paint_manager.h"

namespace qmk::toolkit::theme {

// Text in the theme's normal font; captions take "&" mnemonics.
void PaintText(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text,
               uint32_t rgb, platform::TextAlign align = platform::TextAlign::kLeft);
// The message box's icon: a coloured disc with its sign, the same in every theme.
void PaintMessageIcon(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& area, int icon);

namespace classic {
void DialogBackground(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc);
void Gripper(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc);
void Label(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
void PushButton(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
void CheckBox(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state,
              bool radio);
void GroupBox(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& caption, unsigned state);
void Edit(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
void ComboBox(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::string& text, unsigned state);
void DropList(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::vector<std::string>& items,
              int selected);
void Spin(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, unsigned up, unsigned down);
void TabStrip(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, const std::vector<std::string>& tabs,
              int selected, int hot);
void Progress(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& rc, int pos, int range, unsigned state);
void ScrollBar(CExtPaintManager& pm, DrawTarget& dc, PAINTSCROLLBARDATA& data);
void MessageBox(CExtPaintManager& pm, DrawTarget& dc, const DrawRect& body, const DrawRect& icon_area, int icon);
}  // namespace classic

namespace modern {
void DialogBackground(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc);
void Gripper(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc);
void Label(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc,
           const std::string& text, unsigned state);
void PushButton(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc,
                const std::string& text, unsigned state);
void CheckBox(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc,
              const std::string& text, unsigned state, bool radio);
void GroupBox(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc,
              const std::string& caption, unsigned state);
void Edit(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc,
          const std::string& text, unsigned state);
void ComboBox(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc,
              const std::string& text, unsigned state);
void DropList(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc,
              const std::vector<std::string>& items, int selected);
void Spin(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc, unsigned up,
          unsigned down);
void TabStrip(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc,
              const std::vector<std::string>& tabs, int selected, int hot);
void Progress(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& rc, int pos,
              int range, unsigned state);
void ScrollBar(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, PAINTSCROLLBARDATA& data);
void MessageBox(CExtPaintManager& pm, const WidgetLook& look, DrawTarget& dc, const DrawRect& body,
                const DrawRect& icon_area, int icon);
}  // namespace modern

}  // namespace qmk::toolkit::theme
