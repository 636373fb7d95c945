// themed_list_rows.cpp: list colours from the theme's look, and one row of a themed list.
#include "toolkit/dialogs/themed_list_rows.h"

#include "platform/draw/text.h"
#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/system_colors.h"

namespace qmk::toolkit {

ListColors ListColorsOf(theme::CExtPaintManager& pm) {
  if (const theme::WidgetLook* l = pm.GetWidgetLook())
    return {pm.GetColor(l->field),     pm.GetColor(l->field_border),   pm.GetColor(l->text),
            pm.GetColor(l->selection), pm.GetColor(l->selection_text), pm.GetColor(l->focus)};
  return {pm.GetColor(theme::COLOR_WINDOW),    pm.GetColor(theme::COLOR_WINDOWTEXT),
          pm.GetColor(theme::COLOR_WINDOWTEXT), pm.GetColor(theme::COLOR_HIGHLIGHT),
          pm.GetColor(theme::COLOR_HIGHLIGHTTEXT), pm.GetColor(theme::COLOR_WINDOWTEXT)};
}

void PaintListRow(theme::CExtPaintManager& pm, platform::DrawTarget& target, const platform::DrawRect& row,
                  const std::string& text, bool selected, const ListColors& colors) {
  if (selected) theme::draw::Fill(target, row, colors.selection);
  platform::DrawText(target, theme::draw::Deflate(row, 3, 0), text, pm.Font(),
                     selected ? colors.selection_text : colors.text);
}

}  // namespace qmk::toolkit
