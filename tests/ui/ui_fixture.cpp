// ui_fixture.cpp: the test fixture, the recorder class and the tiny test controls.
#include "ui/ui_fixture.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "platform/ui/control_messages.h"
#include "platform/ui/headless_backend.h"
#include "platform/ui/paint.h"

namespace qmk::testing {

using namespace platform::ui;

namespace {

// ---- Recorder --------------------------------------------------------------------------------
struct Named {
  unsigned msg;
  const char* name;
};
constexpr Named kNames[] = {
    {WM_CREATE, "WM_CREATE"}, {WM_DESTROY, "WM_DESTROY"}, {WM_MOVE, "WM_MOVE"},
    {WM_SIZE, "WM_SIZE"}, {WM_ACTIVATE, "WM_ACTIVATE"}, {WM_SETFOCUS, "WM_SETFOCUS"},
    {WM_KILLFOCUS, "WM_KILLFOCUS"}, {WM_ENABLE, "WM_ENABLE"}, {WM_PAINT, "WM_PAINT"},
    {WM_CLOSE, "WM_CLOSE"}, {WM_ERASEBKGND, "WM_ERASEBKGND"}, {WM_SHOWWINDOW, "WM_SHOWWINDOW"},
    {WM_GETMINMAXINFO, "WM_GETMINMAXINFO"}, {WM_WINDOWPOSCHANGING, "WM_WINDOWPOSCHANGING"},
    {WM_WINDOWPOSCHANGED, "WM_WINDOWPOSCHANGED"}, {WM_NCCREATE, "WM_NCCREATE"},
    {WM_NCDESTROY, "WM_NCDESTROY"}, {WM_NCCALCSIZE, "WM_NCCALCSIZE"},
    {WM_NCACTIVATE, "WM_NCACTIVATE"}, {WM_KEYDOWN, "WM_KEYDOWN"}, {WM_KEYUP, "WM_KEYUP"},
    {WM_CHAR, "WM_CHAR"}, {WM_SYSKEYDOWN, "WM_SYSKEYDOWN"}, {WM_SYSKEYUP, "WM_SYSKEYUP"},
    {WM_SYSCHAR, "WM_SYSCHAR"}, {WM_TIMER, "WM_TIMER"}, {WM_MOUSEMOVE, "WM_MOUSEMOVE"},
    {WM_LBUTTONDOWN, "WM_LBUTTONDOWN"}, {WM_LBUTTONUP, "WM_LBUTTONUP"},
    {WM_CAPTURECHANGED, "WM_CAPTURECHANGED"}, {WM_SETFONT, "WM_SETFONT"},
    {WM_COMMAND, "WM_COMMAND"}, {WM_NCPAINT, "WM_NCPAINT"}, {WM_MOUSEACTIVATE, "WM_MOUSEACTIVATE"},
    {WM_CANCELMODE, "WM_CANCELMODE"}, {WM_STYLECHANGING, "WM_STYLECHANGING"},
    {WM_STYLECHANGED, "WM_STYLECHANGED"}, {WM_APP, "WM_APP"},
};

// Messages that only make noise in a sequence.
bool Quiet(unsigned msg) {
  return msg == WM_NCHITTEST || msg == WM_GETTEXT || msg == WM_GETTEXTLENGTH ||
         msg == WM_GETDLGCODE || msg == WM_NULL || msg == WM_SETTEXT || msg == WM_PRINT ||
         msg == WM_PRINTCLIENT;
}

LRESULT RecorderProc(HWND hwnd, unsigned msg, WPARAM wp, LPARAM lp) {
  if (!Quiet(msg)) {
    std::string name = msg == WM_NCCREATE && lp
                           ? reinterpret_cast<const CREATESTRUCT*>(lp)->lpszName
                           : GetWindowText(hwnd);
    RecordedMessages().push_back(name + ":" + MessageName(msg));
  }
  return DefWindowProc(hwnd, msg, wp, lp);
}

// ---- Test controls ---------------------------------------------------------------------------
template <class State>
State* StateOf(HWND h) {
  return reinterpret_cast<State*>(GetWindowLongPtr(h, GWLP_USERDATA));
}

// A control's state is made with its window and freed with it.
template <class State>
void KeepState(HWND h, unsigned msg) {
  if (msg == WM_NCCREATE) SetWindowLongPtr(h, GWLP_USERDATA, reinterpret_cast<intptr_t>(new State));
  if (msg == WM_NCDESTROY) {
    delete StateOf<State>(h);
    SetWindowLongPtr(h, GWLP_USERDATA, 0);
  }
}

// Gaining or losing the focus redraws a control (its focus mark or caret).
bool RedrawOnFocus(HWND h, unsigned msg) {
  if (msg != WM_SETFOCUS && msg != WM_KILLFOCUS) return false;
  InvalidateRect(h, nullptr, true);
  return true;
}

// One WM_PAINT of a control: its client rectangle, a device context with its font selected.
class Painting {
 public:
  explicit Painting(HWND h) : h_(h), dc(BeginPaint(h, &ps_)) {
    GetClientRect(h, &r);
    dc->SelectFont(reinterpret_cast<HFONT>(SendMessage(h, WM_GETFONT, 0, 0)));
  }
  ~Painting() { EndPaint(h_, &ps_); }

 private:
  HWND h_;
  PAINTSTRUCT ps_;

 public:
  Dc* dc;
  Rect r;
};

struct ButtonState {
  unsigned check = 0;
  bool pressed = false;
};

ButtonState* ButtonOf(HWND h) { return StateOf<ButtonState>(h); }

uint32_t Style(HWND h) { return static_cast<uint32_t>(GetWindowLongPtr(h, GWL_STYLE)); }

void Notify(HWND h, unsigned code) {
  SendMessage(GetParent(h), WM_COMMAND,
              MAKEWPARAM(static_cast<unsigned>(GetDlgCtrlID(h)), code),
              reinterpret_cast<LPARAM>(h));
}

void ButtonClick(HWND h) {
  ButtonState* b = ButtonOf(h);
  const uint32_t type = Style(h) & BS_TYPEMASK;
  if (type == BS_AUTOCHECKBOX) b->check = b->check ? 0 : 1;
  if (type == BS_AUTO3STATE) b->check = (b->check + 1) % 3;
  if (type == BS_AUTORADIOBUTTON) {
    // An automatic radio button clears the others of its group.
    HWND dlg = GetParent(h);
    for (HWND o = GetNextDlgGroupItem(dlg, h, false); o && o != h;
         o = GetNextDlgGroupItem(dlg, o, false))
      if ((Style(o) & BS_TYPEMASK) == BS_AUTORADIOBUTTON) SendMessage(o, BM_SETCHECK, 0, 0);
    b->check = 1;
  }
  InvalidateRect(h, nullptr, true);
  Notify(h, BN_CLICKED);
}

void PaintButton(HWND h) {
  Painting paint(h);
  Dc* dc = paint.dc;
  const Rect r = paint.r;
  const uint32_t type = Style(h) & BS_TYPEMASK;
  const std::string text = GetWindowText(h);
  if (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON) {
    dc->FillRect(r, 0xFFE1E1E1u);
    dc->FrameRect(r, type == BS_DEFPUSHBUTTON ? 0xFFD77800u : 0xFFADADADu);
    Rect t = r;
    dc->DrawText(text, &t, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  } else {
    const int box = 11;
    const int top = (r.Height() - box) / 2;
    Rect mark{0, top, box, top + box};
    dc->FillRect(mark, 0xFFFFFFFFu);
    dc->FrameRect(mark, 0xFF333333u);
    if (ButtonOf(h)->check == 1) dc->FillRect({3, top + 3, box - 3, top + box - 3}, 0xFF333333u);
    if (ButtonOf(h)->check == 2) dc->FillRect({3, top + 3, box - 3, top + box - 3}, 0xFF999999u);
    Rect t{box + 4, 0, r.right, r.bottom};
    dc->DrawText(text, &t, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
  }
  if (GetFocus() == h) dc->DrawFocusRect({1, 1, r.right - 1, r.bottom - 1});
}

LRESULT ButtonProc(HWND h, unsigned msg, WPARAM wp, LPARAM lp) {
  KeepState<ButtonState>(h, msg);
  if (RedrawOnFocus(h, msg)) return 0;
  switch (msg) {
    case WM_GETDLGCODE: {
      const uint32_t type = Style(h) & BS_TYPEMASK;
      if (type == BS_DEFPUSHBUTTON) return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
      if (type == BS_PUSHBUTTON) return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
      if (type == BS_AUTORADIOBUTTON || type == BS_RADIOBUTTON)
        return DLGC_BUTTON | DLGC_RADIOBUTTON;
      if (type == BS_GROUPBOX) return DLGC_STATIC;
      return DLGC_BUTTON;
    }
    case WM_LBUTTONDOWN:
      SetFocus(h);
      SetCapture(h);
      ButtonOf(h)->pressed = true;
      return 0;
    case WM_LBUTTONUP: {
      const bool was = ButtonOf(h)->pressed;
      ButtonOf(h)->pressed = false;
      if (GetCapture() == h) ReleaseCapture();
      Rect r;
      GetClientRect(h, &r);
      if (was && PtInRect(r, {GET_X_LPARAM(lp), GET_Y_LPARAM(lp)})) ButtonClick(h);
      return 0;
    }
    case WM_CHAR:
      if (wp == ' ') ButtonClick(h);
      return 0;
    case BM_CLICK:
      ButtonClick(h);
      return 0;
    case BM_GETCHECK:
      return ButtonOf(h)->check;
    case BM_SETCHECK:
      ButtonOf(h)->check = static_cast<unsigned>(wp);
      InvalidateRect(h, nullptr, true);
      return 0;
    case BM_SETSTYLE:
      SetWindowLongPtr(h, GWL_STYLE, (Style(h) & ~BS_TYPEMASK) | (wp & BS_TYPEMASK));
      InvalidateRect(h, nullptr, true);
      return 0;
    case WM_PAINT:
      PaintButton(h);
      return 0;
    default:
      break;
  }
  return DefWindowProc(h, msg, wp, lp);
}

// The edit keeps its text as the window text; the selection is kept in two properties.
struct EditState {
  size_t anchor = 0, caret = 0;
};

EditState* EditOf(HWND h) { return StateOf<EditState>(h); }

void ReplaceSelection(HWND h, const std::string& with) {
  EditState* e = EditOf(h);
  std::string text = GetWindowText(h);
  const size_t a = std::min({e->anchor, e->caret, text.size()});
  const size_t b = std::min(std::max(e->anchor, e->caret), text.size());
  text.replace(a, b - a, with);
  DefWindowProc(h, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  e->anchor = e->caret = a + with.size();
  InvalidateRect(h, nullptr, true);
  Notify(h, EN_CHANGE);
}

LRESULT EditProc(HWND h, unsigned msg, WPARAM wp, LPARAM lp) {
  KeepState<EditState>(h, msg);
  if (RedrawOnFocus(h, msg)) return 0;
  switch (msg) {
    case WM_GETDLGCODE: {
      const auto* m = reinterpret_cast<const MSG*>(lp);
      if (m && m->message == WM_KEYDOWN && m->wParam == VK_RETURN && (Style(h) & ES_WANTRETURN))
        return DLGC_WANTALLKEYS;
      return DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
    }
    case WM_LBUTTONDOWN:
      SetFocus(h);
      return 0;
    case EM_SETSEL: {
      const size_t len = GetWindowText(h).size();
      EditState* e = EditOf(h);
      e->anchor = std::min(static_cast<size_t>(wp), len);
      e->caret = lp < 0 ? len : std::min(static_cast<size_t>(lp), len);
      return 0;
    }
    case EM_GETSEL:
      return MAKELPARAM(static_cast<unsigned>(std::min(EditOf(h)->anchor, EditOf(h)->caret)),
                        static_cast<unsigned>(std::max(EditOf(h)->anchor, EditOf(h)->caret)));
    case WM_KEYDOWN: {
      EditState* e = EditOf(h);
      const size_t len = GetWindowText(h).size();
      const bool shift = GetKeyState(VK_SHIFT) < 0;
      size_t to = e->caret;
      if (wp == VK_HOME) to = 0;
      if (wp == VK_END) to = len;
      if (wp == VK_LEFT && to > 0) --to;
      if (wp == VK_RIGHT && to < len) ++to;
      if (wp == VK_DELETE) {
        if (e->anchor == e->caret && e->caret < len) e->caret++;
        ReplaceSelection(h, "");
        return 0;
      }
      e->caret = to;
      if (!shift) e->anchor = to;
      InvalidateRect(h, nullptr, true);
      return 0;
    }
    case WM_CHAR: {
      if (Style(h) & ES_READONLY) return 0;
      if (wp == 8) {
        EditState* e = EditOf(h);
        if (e->anchor == e->caret && e->caret > 0) e->anchor--;
        ReplaceSelection(h, "");
        return 0;
      }
      if (wp < 0x20 || wp > 0x7E) return 0;
      if ((Style(h) & ES_NUMBER) && !std::isdigit(static_cast<int>(wp))) return 0;
      ReplaceSelection(h, std::string(1, static_cast<char>(wp)));
      return 0;
    }
    case WM_SETTEXT: {
      const LRESULT r = DefWindowProc(h, msg, wp, lp);
      EditOf(h)->anchor = EditOf(h)->caret = 0;
      InvalidateRect(h, nullptr, true);
      return r;
    }
    case WM_PAINT: {
      Painting paint(h);
      Dc* dc = paint.dc;
      const Rect r = paint.r;
      dc->FillRect(r, 0xFFFFFFFFu);
      Rect t{2, 0, r.right - 2, r.bottom};
      dc->DrawText(GetWindowText(h), &t, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
      if (GetFocus() == h) {
        const std::string before = GetWindowText(h).substr(0, EditOf(h)->caret);
        const int x = 2 + GetTextExtent(dc->font(), before).cx;
        dc->Line(x, 2, x, r.bottom - 2, 0xFF000000u);
      }
      return 0;
    }
    default:
      break;
  }
  return DefWindowProc(h, msg, wp, lp);
}

struct ComboState {
  std::vector<std::string> items;
  int cur = -1;
};

ComboState* ComboOf(HWND h) { return StateOf<ComboState>(h); }

bool SameText(const std::string& a, const char* b) {
  return b && a.size() == std::strlen(b) &&
         std::equal(a.begin(), a.end(), b, [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) ==
                  std::tolower(static_cast<unsigned char>(y));
         });
}

void Select(HWND h, int index) {
  ComboState* c = ComboOf(h);
  index = std::clamp(index, 0, static_cast<int>(c->items.size()) - 1);
  if (index == c->cur) return;
  c->cur = index;
  InvalidateRect(h, nullptr, true);
  Notify(h, CBN_SELCHANGE);
}

LRESULT ComboProc(HWND h, unsigned msg, WPARAM wp, LPARAM lp) {
  KeepState<ComboState>(h, msg);
  if (RedrawOnFocus(h, msg)) return 0;
  switch (msg) {
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_LBUTTONDOWN:
      SetFocus(h);
      return 0;
    case CB_ADDSTRING:
      ComboOf(h)->items.push_back(reinterpret_cast<const char*>(lp));
      return static_cast<LRESULT>(ComboOf(h)->items.size()) - 1;
    case CB_GETCOUNT:
      return static_cast<LRESULT>(ComboOf(h)->items.size());
    case CB_GETCURSEL:
      return ComboOf(h)->cur;
    case CB_SETCURSEL:
      if (static_cast<size_t>(wp) >= ComboOf(h)->items.size()) return CB_ERR;
      ComboOf(h)->cur = static_cast<int>(wp);
      InvalidateRect(h, nullptr, true);
      return static_cast<LRESULT>(wp);
    case CB_FINDSTRINGEXACT: {
      const auto& items = ComboOf(h)->items;
      for (size_t i = 0; i < items.size(); ++i)
        if (SameText(items[i], reinterpret_cast<const char*>(lp))) return static_cast<LRESULT>(i);
      return CB_ERR;
    }
    case CB_GETLBTEXT: {
      const auto& items = ComboOf(h)->items;
      if (wp >= items.size()) return CB_ERR;
      std::strcpy(reinterpret_cast<char*>(lp), items[wp].c_str());
      return static_cast<LRESULT>(items[wp].size());
    }
    case WM_KEYDOWN:
      if (ComboOf(h)->items.empty()) return 0;
      if (wp == VK_HOME) Select(h, 0);
      if (wp == VK_END) Select(h, static_cast<int>(ComboOf(h)->items.size()) - 1);
      if (wp == VK_DOWN || wp == VK_RIGHT) Select(h, ComboOf(h)->cur + 1);
      if (wp == VK_UP || wp == VK_LEFT) Select(h, ComboOf(h)->cur - 1);
      return 0;
    case WM_PAINT: {
      Painting paint(h);
      Dc* dc = paint.dc;
      const Rect r = paint.r;
      dc->FillRect(r, 0xFFFFFFFFu);
      dc->FrameRect(r, 0xFF7A7A7Au);
      dc->FillRect({r.right - r.Height(), 1, r.right - 1, r.bottom - 1}, 0xFFDDDDDDu);
      const ComboState* c = ComboOf(h);
      Rect t{3, 0, r.right - r.Height() - 2, r.bottom};
      if (c->cur >= 0)
        dc->DrawText(c->items[static_cast<size_t>(c->cur)], &t,
                     DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
      if (GetFocus() == h) dc->DrawFocusRect({2, 2, r.right - r.Height() - 1, r.bottom - 2});
      return 0;
    }
    default:
      break;
  }
  return DefWindowProc(h, msg, wp, lp);
}

LRESULT StaticProc(HWND h, unsigned msg, WPARAM wp, LPARAM lp) {
  if (msg == WM_GETDLGCODE) return DLGC_STATIC;
  if (msg == WM_PAINT) {
    Painting paint(h);
    paint.dc->DrawText(GetWindowText(h), &paint.r, DT_LEFT | DT_WORDBREAK);
    return 0;
  }
  return DefWindowProc(h, msg, wp, lp);
}

}  // namespace

void UiTest::ServeOrderTemplate() {
  platform::ui::SetTemplateSource([](int id, uint16_t) -> std::optional<std::string> {
    if (id == kOrder) return std::string(kOrderTemplate);
    return std::nullopt;
  });
}

const char* const kOrderTemplate = R"(# An order form made of the test controls.
dialog 9100
caption "Order"
position 0 0 200 120
font "DejaVu Sans" 8
style WS_POPUP | WS_CAPTION | DS_MODALFRAME | DS_CENTER
control "TestStatic" -1 "&Name:" 8 8 40 10 style WS_GROUP
control "TestEdit" 101 "" 50 6 100 12 style WS_TABSTOP exstyle WS_EX_CLIENTEDGE
control "TestStatic" -1 "&Colour:" 8 24 40 10 style WS_GROUP
control "TestCombo" 102 "" 50 22 100 12 style WS_TABSTOP
control "TestButton" 103 "&Small" 8 42 60 10 style BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP
control "TestButton" 104 "&Medium" 8 54 60 10 style BS_AUTORADIOBUTTON
control "TestButton" 105 "&Large" 8 66 60 10 style BS_AUTORADIOBUTTON
control "TestButton" 106 "&Print" 100 42 60 10 style BS_AUTOCHECKBOX | WS_GROUP | WS_TABSTOP
control "TestButton" IDOK "OK" 90 96 50 14 style BS_DEFPUSHBUTTON | WS_GROUP | WS_TABSTOP
control "TestButton" IDCANCEL "Cancel" 144 96 50 14 style WS_TABSTOP
end
)";;

std::vector<std::string>& RecordedMessages() {
  static std::vector<std::string> log;
  return log;
}

const char* MessageName(unsigned msg) {
  for (const Named& n : kNames)
    if (n.msg == msg) return n.name;
  return "other";
}

void RegisterRecorder() {
  WNDCLASS wc;
  wc.lpszClassName = "Recorder";
  wc.lpfnWndProc = RecorderProc;
  RegisterClass(wc);
}

void RegisterTestControls() {
  struct Entry {
    const char* name;
    WNDPROC proc;
  };
  for (const Entry& e : {Entry{"TestButton", ButtonProc}, Entry{"TestEdit", EditProc},
                         Entry{"TestCombo", ComboProc}, Entry{"TestStatic", StaticProc}}) {
    WNDCLASS wc;
    wc.lpszClassName = e.name;
    wc.lpfnWndProc = e.proc;
    RegisterClass(wc);  // refuses quietly when already there
  }
}

void UiTest::SetUp() {
  ASSERT_TRUE(InstallBackend(MakeHeadlessBackend().release()));
  RegisterRecorder();
  RegisterTestControls();
  RecordedMessages().clear();
  ClearDialogScripts();
}

void UiTest::TearDown() {
  for (HWND t : GetChildren(nullptr))
    if (!NativeWindowId(t)) DestroyWindow(t);
  MSG msg;
  while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
  }
  ClearDialogScripts();
  SetTemplateSource({});
}

void UiTest::Pump() {
  for (int i = 0; i < 10; ++i) PumpMessages(0);
}

}  // namespace qmk::testing
