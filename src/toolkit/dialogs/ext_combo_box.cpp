// ext_combo_box.cpp: the combo's themed field and drop button, and the theme's list when dropped.
#include "toolkit/dialogs/ext_combo_box.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/controls/combo_box_control.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/combo_drop_list.h"
#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
using ui::controls::ComboBoxControl;
// The plain field's sunken edge is two pixels wide; the theme's frame takes its place.
constexpr int kFieldEdge = 2;

}  // namespace

int CExtComboBox::Kind() const { return static_cast<int>(Style() & ui::CBS_TYPEMASK); }

bool CExtComboBox::PaintsClient() const { return Kind() == static_cast<int>(ui::CBS_DROPDOWNLIST); }

ui::HWND CExtComboBox::DroppedList() const {
  auto* plain = ui::controls::ControlOf<ComboBoxControl>(m_hWnd);
  if (!plain || !plain->model().dropped()) return nullptr;
  return ui::IsWindow(plain->popup()) ? plain->popup() : nullptr;
}

unsigned CExtComboBox::PaintState() const {
  unsigned state = BaseState();
  if (DroppedList()) state |= theme::kStatePressed;
  // The field of a combo with an edit shows the focus by its caret, not by a highlight.
  if (Kind() != static_cast<int>(ui::CBS_DROPDOWNLIST) && ui::GetFocus() == m_hWnd) state &= ~theme::kStateFocused;
  return state;
}

ThemedControl::LRESULT CExtComboBox::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  LRESULT r = 0;
  const bool over_plain = !PaintsClient() && Kind() != static_cast<int>(ui::CBS_SIMPLE);
  if (over_plain && msg == ui::WM_PAINT) {
    r = ThemedControl::WindowProc(msg, wp, lp);
    ui::Dc* dc = ui::GetDC(m_hWnd);
    PaintOverPlain(dc);
    if (dc) ui::ReleaseDC(m_hWnd, dc);
    return r;
  }
  if (over_plain && msg == ui::WM_PRINTCLIENT) {
    r = ThemedControl::WindowProc(msg, wp, lp);
    PaintOverPlain(ui::DcFromWParam(wp));
    return r;
  }
  r = ThemedControl::WindowProc(msg, wp, lp);
  switch (msg) {
    case ui::WM_SETFOCUS:
    case ui::WM_KILLFOCUS:
    case ui::WM_ENABLE:
    case ui::WM_SETTEXT:
    case ui::CB_SETCURSEL:
    case ui::CB_SHOWDROPDOWN:
    case ui::WM_LBUTTONDOWN:
    case ui::WM_LBUTTONUP:
    case ui::WM_KEYDOWN:
    case ui::WM_SYSKEYDOWN:
    case ui::WM_CAPTURECHANGED:
      ThemeDroppedList();
      Invalidate();
      break;
    default:
      break;
  }
  return r;
}

void CExtComboBox::ThemeDroppedList() {
  const HWND list = DroppedList();
  if (!list || FromHandle(list)) return;
  auto* painter = new ComboDropList(m_hWnd);
  if (!painter->SubclassWindow(list)) {
    delete painter;
    return;
  }
  painter->SetAutoDelete(true);
  ui::InvalidateRect(list, nullptr, false);
}

void CExtComboBox::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  PaintParentBackground(target, rc);
  theme::g_PaintManager()->PaintComboBox(target, rc, Text(), PaintState());
}

void CExtComboBox::PaintOverPlain(ui::Dc* dc) const {
  ui::Rect client;
  if (!dc || !ui::GetClientRect(m_hWnd, &client) || client.IsEmpty()) return;
  auto& pm = *theme::g_PaintManager().GetPM();
  platform::DrawTarget picture(client.Width(), client.Height());
  if (!picture.ok()) return;
  pm.PaintComboBox(picture, client, "", PaintState());
  auto image = platform::DeviceImage::Create(picture.Pixels());
  if (!image) return;
  const int w = client.Width(), h = client.Height(), e = kFieldEdge;
  const ui::Rect button = theme::layout::ComboBox(pm, theme::draw::Deflate(client, 1, 1)).button;
  // The frame round the plain field, and the drop button.
  const ui::Rect parts[] = {{0, 0, w, e}, {0, h - e, w, h}, {0, e, e, h - e}, {w - e, e, w, h - e},
                            {button.left - 1, button.top, button.right, button.bottom}};
  for (const ui::Rect& part : parts)
    if (!part.IsEmpty()) dc->DrawImage(*image, part, part);
}

}  // namespace qmk::toolkit
