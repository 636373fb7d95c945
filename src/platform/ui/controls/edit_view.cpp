// edit_view.cpp: measuring, hit testing and painting of an edit model's lines.
#include "platform/ui/controls/edit_view.h"

#include <cairo.h>

#include <algorithm>

#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {
namespace {

// The line as drawn: password characters in place of its bytes.
std::string ShownLine(const EditModel& model, const EditView& view, int line) {
  std::string text = model.Line(line);
  if (model.options().password) return std::string(text.size(), view.password_char);
  return text;
}

int Top(const EditModel& model, const EditView& view) {
  if (view.vcenter && !model.options().multi_line) {
    return view.area.top + (view.area.Height() - view.line_height) / 2;
  }
  return view.area.top;
}

// The x of the line's first character, after alignment and scrolling.
int LineLeft(const EditModel& model, const EditView& view, const std::string& shown) {
  int x = view.area.left - model.scroll_x();
  if (view.align == TextAlign::kLeft) return x;
  int room = view.area.Width() - MeasureText(view.font, shown);
  if (room <= 0) return x;
  return view.align == TextAlign::kCenter ? x + room / 2 : x + room;
}

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

}  // namespace

int MeasureText(HFONT font, std::string_view text) {
  if (text.empty()) return 0;
  return GetTextExtent(font, std::string(text)).cx;
}

TextWidth WidthIn(HFONT font) {
  return [font](std::string_view s) { return MeasureText(font, s); };
}

int CharFromPoint(const EditModel& model, const EditView& view, Point p) {
  int line = model.first_line() + (p.y - Top(model, view)) / std::max(1, view.line_height);
  if (p.y < Top(model, view)) line = model.first_line() - 1;
  line = std::clamp(line, 0, model.LineCount() - 1);
  std::string shown = ShownLine(model, view, line);
  int x = p.x - LineLeft(model, view, shown);
  // The boundary whose x is nearest the point; never inside a UTF-8 sequence.
  int best = 0, best_distance = x < 0 ? -x : x;
  for (int i = 1; i <= static_cast<int>(shown.size()); ++i) {
    if (i < static_cast<int>(shown.size()) && IsContinuation(shown[i])) continue;
    int d = MeasureText(view.font, std::string_view(shown).substr(0, i)) - x;
    if (d < 0) d = -d;
    if (d < best_distance) {
      best = i;
      best_distance = d;
    }
  }
  return model.LineIndex(line) + best;
}

Point PosFromChar(const EditModel& model, const EditView& view, int index) {
  index = std::clamp(index, 0, model.Length());
  int line = model.LineFromChar(index);
  std::string shown = ShownLine(model, view, line);
  int column = std::min(index - model.LineIndex(line), static_cast<int>(shown.size()));
  int x = LineLeft(model, view, shown) +
          MeasureText(view.font, std::string_view(shown).substr(0, column));
  int y = Top(model, view) + (line - model.first_line()) * view.line_height;
  return {x, y};
}

void PaintEditText(Dc& dc, const EditModel& model, const EditView& view, bool focused,
                   bool enabled, bool show_selection) {
  cairo_t* cr = dc.cairo();
  cairo_save(cr);
  cairo_rectangle(cr, view.area.left, view.area.top, view.area.Width(), view.area.Height());
  cairo_clip(cr);
  uint32_t color = enabled ? colors::kText : colors::kGrayText;
  int top = Top(model, view);
  int last = std::min(model.LineCount(), model.first_line() +
                                             view.area.Height() / std::max(1, view.line_height) + 1);
  for (int line = model.first_line(); line < last; ++line) {
    std::string shown = ShownLine(model, view, line);
    int y = top + (line - model.first_line()) * view.line_height;
    int left = LineLeft(model, view, shown);
    Rect text{left, y, left + MeasureText(view.font, shown) + 2, y + view.line_height};
    dc.SetTextColor(color);
    Rect r = text;
    dc.DrawText(shown, &r, DT_SINGLELINE | DT_NOPREFIX | DT_LEFT | DT_NOCLIP);
    if (!show_selection || !model.HasSelection()) continue;
    int start = model.LineIndex(line);
    int s = std::max(model.SelStart(), start) - start;
    int e = std::min(model.SelEnd(), start + model.LineLength(line)) - start;
    bool takes_break = model.SelEnd() > start + model.LineLength(line) &&
                       line + 1 < model.LineCount();
    if (s > e || (s == e && !takes_break)) continue;
    int x0 = left + MeasureText(view.font, std::string_view(shown).substr(0, s));
    int x1 = left + MeasureText(view.font, std::string_view(shown).substr(0, e));
    // A selected line break shows as a little block past the line's end.
    if (takes_break) x1 += std::max(4, view.line_height / 3);
    Rect sel{x0, y, x1, y + view.line_height};
    cairo_save(cr);
    cairo_rectangle(cr, sel.left, sel.top, sel.Width(), sel.Height());
    cairo_clip(cr);
    dc.FillRect(sel, focused ? colors::kSelection : colors::kShadow);
    dc.SetTextColor(colors::kSelectionText);
    r = text;
    dc.DrawText(shown, &r, DT_SINGLELINE | DT_NOPREFIX | DT_LEFT | DT_NOCLIP);
    cairo_restore(cr);
  }
  if (focused) {
    Point caret = PosFromChar(model, view, model.caret());
    dc.FillRect({caret.x, caret.y, caret.x + 1, caret.y + view.line_height}, colors::kText);
  }
  cairo_restore(cr);
}

}  // namespace qmk::platform::ui::controls
