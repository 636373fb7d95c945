// label_text.cpp: wrapping a label's text at spaces, line breaks and, when asked, inside long
// words, and measuring it in the label's own font.
#include "toolkit/dialogs/label_text.h"

#include <algorithm>

#include "platform/ui/control_messages.h"
#include "platform/ui/window.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;

bool IsContinuationByte(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// The length of the longest head of `word` that fits `width`, ending on a character boundary;
// at least one character, so that a line too narrow for any still moves on.
size_t FittingHead(const std::string& word, const TextWidth& measure, int width) {
  std::vector<size_t> ends;
  for (size_t i = 1; i <= word.size(); ++i)
    if (i == word.size() || !IsContinuationByte(word[i])) ends.push_back(i);
  // Widths grow with the head, so the last end that fits is found by halving.
  const auto fits = std::partition_point(ends.begin(), ends.end(),
                                         [&](size_t end) { return measure(word.substr(0, end)) <= width; });
  return fits == ends.begin() ? ends.front() : *(fits - 1);
}

// The label's own font, the window system's control font when it was given none: dialogs are
// laid out, and message boxes measure their text, in it.
ui::HFONT FontOrDefault(ui::HFONT font) { return font ? font : ui::GetStockGuiFont(); }

platform::FontSpec SpecOf(ui::HFONT font, const platform::FontSpec& fallback) {
  ui::LOGFONT lf;
  if (!font || !ui::GetObject(font, &lf) || lf.height <= 0) return fallback;
  platform::FontSpec spec;
  spec.face = lf.face;
  spec.pixels = lf.height;
  spec.bold = lf.weight >= 700;
  return spec;
}

std::string EscapeMnemonics(const std::string& text) {
  std::string out;
  for (char c : text) {
    out += c;
    if (c == '&') out += '&';
  }
  return out;
}

}  // namespace

std::vector<std::string> WrapLabelText(const std::string& text, const TextWidth& measure, int width, bool wrap,
                                       bool break_words) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start <= text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string para = text.substr(start, end - start);
    if (!para.empty() && para.back() == '\r') para.pop_back();
    while (wrap && measure(para) > width) {
      // The longest head that fits and ends before a space.
      size_t cut = std::string::npos;
      for (size_t sp = para.find(' '); sp != std::string::npos; sp = para.find(' ', sp + 1)) {
        if (measure(para.substr(0, sp)) > width) break;
        cut = sp;
      }
      if (cut == std::string::npos && break_words) {
        const size_t head = FittingHead(para, measure, width);
        if (head >= para.size()) break;  // the last character, alone and still too wide
        lines.push_back(para.substr(0, head));
        para = para.substr(head);
        continue;
      }
      if (cut == std::string::npos) cut = para.find(' ');
      if (cut == std::string::npos) break;
      lines.push_back(para.substr(0, cut));
      para = para.substr(cut + 1);
    }
    lines.push_back(para);
    start = end + 1;
  }
  return lines;
}

int LabelTextLayout::Width() const { return widths.empty() ? 0 : *std::max_element(widths.begin(), widths.end()); }

LabelTextLayout LayOutText(ui::HFONT font, const std::string& text, int width, bool wrap, bool break_words) {
  const ui::HFONT hfont = FontOrDefault(font);
  LabelTextLayout out;
  out.font = SpecOf(hfont, theme::g_PaintManager().GetPM()->Font());
  out.line_height = platform::MeasureText("Ag", out.font).height;
  // Lines break where the dialog's own measure says, so that a text laid out by it fits.
  const TextWidth measure = [&](const std::string& line) {
    const std::string shown = platform::StripMnemonics(line).text;
    return hfont ? ui::GetTextExtent(hfont, shown).cx : platform::MeasureText(shown, out.font).width;
  };
  out.lines = WrapLabelText(text, measure, width, wrap, break_words);
  for (const std::string& line : out.lines) out.widths.push_back(measure(line));
  return out;
}

LabelTextLayout LayOutLabelText(ui::HWND label, int width) {
  const auto style = static_cast<uint32_t>(ui::GetWindowLongPtr(label, ui::GWL_STYLE));
  std::string text = ui::GetWindowText(label);
  if (style & ui::SS_NOPREFIX) text = EscapeMnemonics(text);
  const uint32_t kind = style & ui::SS_TYPEMASK;
  const bool wrap = kind == ui::SS_LEFT || kind == ui::SS_CENTER || kind == ui::SS_RIGHT;
  const auto font = reinterpret_cast<ui::HFONT>(ui::SendMessage(label, ui::WM_GETFONT, 0, 0));
  return LayOutText(font, text, width, wrap, (style & kSsEditControl) != 0);
}

}  // namespace qmk::toolkit
