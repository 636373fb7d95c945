// rich_content_window.cpp: the rich content control's window procedure: text, size, painting,
// the wheel, the keys, clicks on its bar and hit tests.
#include "toolkit/richcontent/rich_content_window.h"

#include "platform/ui/paint.h"
#include "toolkit/dialogs/themed_paint.h"

namespace qmk::toolkit::richcontent {
namespace {

namespace ui = platform::ui;

constexpr const char* kViewProp = "qmk-rich-content-view";

void Scrolled(ui::HWND hwnd, bool moved) {
  if (moved) ui::InvalidateRect(hwnd, nullptr, false);
}

bool OnKey(ui::HWND hwnd, RichContentView& view, unsigned key) {
  int target = view.ScrollPosition();
  ui::Rect client;
  ui::GetClientRect(hwnd, &client);
  switch (key) {
    case ui::VK_UP: target -= RichContentView::kLineStep; break;
    case ui::VK_DOWN: target += RichContentView::kLineStep; break;
    case ui::VK_PRIOR: target -= client.Height(); break;
    case ui::VK_NEXT: target += client.Height(); break;
    case ui::VK_HOME: target = 0; break;
    case ui::VK_END: target = view.MaxScroll(); break;
    default: return false;
  }
  Scrolled(hwnd, view.ScrollTo(target));
  return true;
}

void Paint(ui::HWND hwnd, RichContentView& view) {
  ui::PAINTSTRUCT ps;
  ui::Dc* dc = ui::BeginPaint(hwnd, &ps);
  ui::Rect client;
  ui::GetClientRect(hwnd, &client);
  PaintThemed(dc, client, [&view](platform::DrawTarget& target, const platform::DrawRect&) { view.Paint(target); });
  ui::EndPaint(hwnd, &ps);
}

ui::LRESULT RichContentProc(ui::HWND hwnd, unsigned msg, ui::WPARAM wp, ui::LPARAM lp) {
  RichContentView* view = RichContentViewOf(hwnd);
  switch (msg) {
    case ui::WM_CREATE: {
      const auto* cs = reinterpret_cast<const ui::CREATESTRUCT*>(lp);
      view = new RichContentView();
      ui::SetProp(hwnd, kViewProp, view);
      view->Resize(cs->cx, cs->cy);
      view->SetText(cs->lpszName ? cs->lpszName : "");
      return 0;
    }
    case ui::WM_NCDESTROY:
      delete static_cast<RichContentView*>(ui::RemoveProp(hwnd, kViewProp));
      return ui::DefWindowProc(hwnd, msg, wp, lp);
    default:
      break;
  }
  if (!view) return ui::DefWindowProc(hwnd, msg, wp, lp);
  switch (msg) {
    case ui::WM_SETTEXT: {
      const ui::LRESULT result = ui::DefWindowProc(hwnd, msg, wp, lp);
      const char* text = reinterpret_cast<const char*>(lp);
      view->SetText(text ? text : "");
      ui::InvalidateRect(hwnd, nullptr, false);
      return result;
    }
    case ui::WM_SIZE:
      view->Resize(ui::LOWORD(static_cast<uintptr_t>(lp)), ui::HIWORD(static_cast<uintptr_t>(lp)));
      ui::InvalidateRect(hwnd, nullptr, false);
      return 0;
    case ui::WM_ERASEBKGND:
      return 1;  // the paint covers everything
    case ui::WM_PAINT:
      Paint(hwnd, *view);
      return 0;
    case ui::WM_MOUSEWHEEL: {
      // A positive delta turns the wheel away from the person: the view goes up.
      const int delta = static_cast<int16_t>(ui::HIWORD(wp));
      Scrolled(hwnd, view->ScrollBy(-delta * 3 * RichContentView::kLineStep / 120));
      return 0;
    }
    case ui::WM_KEYDOWN:
      return OnKey(hwnd, *view, static_cast<unsigned>(wp)) ? 0 : ui::DefWindowProc(hwnd, msg, wp, lp);
    case ui::WM_GETDLGCODE:
      return ui::DLGC_WANTARROWS;
    case ui::WM_LBUTTONDOWN: {
      ui::SetFocus(hwnd);
      const int before = view->ScrollPosition();
      if (view->ClickBar(ui::GET_X_LPARAM(lp), ui::GET_Y_LPARAM(lp))) Scrolled(hwnd, view->ScrollPosition() != before);
      return 0;
    }
    case RCM_HITTEST:
      return reinterpret_cast<ui::LRESULT>(view->ItemAt(ui::GET_X_LPARAM(lp), ui::GET_Y_LPARAM(lp)));
    case RCM_GETSCROLLPOS:
      return view->ScrollPosition();
    case RCM_SETSCROLLPOS: {
      const bool moved = view->ScrollTo(static_cast<int>(wp));
      Scrolled(hwnd, moved);
      return moved ? 1 : 0;
    }
    default:
      return ui::DefWindowProc(hwnd, msg, wp, lp);
  }
}

}  // namespace

bool RegisterRichContentClass() {
  ui::WNDCLASS wc;
  if (ui::GetClassInfo(kRichContentClassName, &wc)) return true;
  wc.lpszClassName = kRichContentClassName;
  wc.lpfnWndProc = &RichContentProc;
  wc.style = ui::CS_DBLCLKS;
  wc.background = ui::kNoBackground;
  return ui::RegisterClass(wc);
}

RichContentView* RichContentViewOf(ui::HWND hwnd) {
  if (!ui::IsWindow(hwnd) || ui::GetClassName(hwnd) != kRichContentClassName) return nullptr;
  return static_cast<RichContentView*>(ui::GetProp(hwnd, kViewProp));
}

}  // namespace qmk::toolkit::richcontent
