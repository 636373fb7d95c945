// terminal_operator.cpp: notices and message boxes on a terminal.
#include "frame/terminal_operator.h"

#include "frame/scan_error_texts.h"

#include <cctype>
#include <cstring>
#include <string>

namespace qmk::frame {
namespace {

class TerminalNotice : public Notice {
 public:
  TerminalNotice(std::FILE* out, std::string text) : out_(out), text_(std::move(text)) {}
  void SetText(const std::string& text) override {
    if (text != text_) shown_ = false;
    text_ = text;
    if (visible_) Print();
  }
  void Show(bool visible) override {
    visible_ = visible;
    if (visible) Print();
  }
  Rect Bounds() const override { return Rect{0, 0, 40, 3}; }
  void MoveTo(int, int) override {}
  bool Cancelled() const override { return false; }

 private:
  void Print() {
    if (shown_) return;
    // A notice's text may open with blank lines for the dialog's layout; a terminal wants one.
    std::string line;
    for (char c : text_) {
      if (c == '\n') c = ' ';
      if (c != ' ' || (!line.empty() && line.back() != ' ')) line += c;
    }
    std::fprintf(out_, "%s\n", line.c_str());
    shown_ = true;
  }
  std::FILE* out_;
  std::string text_;
  bool visible_ = false;
  bool shown_ = false;
};

struct ButtonSet {
  const char* prompt;
  const char* letters;   // first letter of each answer
  int ids[3];            // button ids, same order
};

// Button types of the flags' low nibble.
constexpr ButtonSet kButtons[] = {
    {"[o]k", "o", {1}},
    {"[o]k / [c]ancel", "oc", {1, 2}},
    {"[a]bort / [r]etry / [i]gnore", "ari", {3, 4, 5}},
    {"[y]es / [n]o / [c]ancel", "ync", {6, 7, 2}},
    {"[y]es / [n]o", "yn", {6, 7}},
    {"[r]etry / [c]ancel", "rc", {4, 2}},
};

}  // namespace

std::unique_ptr<Notice> TerminalOperator::CreateNotice(QMK_HWND, const std::string& text, bool) {
  return std::make_unique<TerminalNotice>(out_, text);
}

int TerminalOperator::MessageBox(QMK_HWND, const std::string& text, const std::string& caption,
                                 unsigned flags, int) {
  const unsigned type = flags & 0x0F;
  const ButtonSet& set = kButtons[type < std::size(kButtons) ? type : 0];
  std::fprintf(out_, "%s%s%s\n", caption.c_str(), caption.empty() ? "" : ": ", text.c_str());
  for (;;) {
    std::fprintf(out_, "%s? ", set.prompt);
    std::fflush(out_);
    char line[64];
    if (!std::fgets(line, sizeof line, in_)) {
      std::fprintf(out_, "\n");
      return ClosedBoxAnswer(flags);
    }
    const char* answer = line;
    while (*answer == ' ') ++answer;
    const char* hit = *answer ? std::strchr(set.letters, std::tolower(static_cast<unsigned char>(*answer))) : nullptr;
    if (hit) return set.ids[hit - set.letters];
  }
}

int TerminalOperator::ShowScanErrorList(const std::vector<std::string>& faults) {
  std::string text = kScanErrorHeading;
  for (const std::string& f : faults) text += "\n  " + f;
  text += "\n";
  text += kScanErrorAdvice;
  return MessageBox(nullptr, text, kScanErrorTitle, 0x01, 0) == 1 ? 1 : 2;
}

}  // namespace qmk::frame
