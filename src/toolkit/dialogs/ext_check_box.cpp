// ext_check_box.cpp: the check box's mark and text, or a push face for push-like boxes.
#include "toolkit/dialogs/ext_check_box.h"

#include "toolkit/theme/painters.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit {

void CExtCheckBox::PaintFace(platform::DrawTarget& target, const platform::DrawRect& rc, const std::string& text,
                             unsigned state) {
  constexpr uint32_t kPushLike = 0x1000;
  if (Style() & kPushLike) {
    CExtButton::PaintFace(target, rc, text, state);
    return;
  }
  auto& pm = *theme::g_PaintManager().GetPM();
  const platform::DrawRect box{rc.left + m_nMarginLeft, rc.top + m_nMarginTop, rc.right - m_nMarginRight,
                               rc.bottom - m_nMarginBottom};
  const uint32_t custom = CustomTextColor(state);
  const std::string shown = custom == kThemeColor ? text : std::string();
  if (IsRadio()) pm.PaintRadioButton(target, box, shown, state);
  else pm.PaintCheckBox(target, box, shown, state);
  if (custom != kThemeColor) theme::PaintText(pm, target, theme::layout::CheckBox(pm, box).text, text, custom);
}

}  // namespace qmk::toolkit
