// clipboard.h: the text clipboard the edit controls cut, copy and paste through.
#pragma once

#include <string>

namespace qmk::platform::ui::controls {

// The back end supplies the real clipboard; tests and the headless back end use the memory one.
class TextClipboard {
 public:
  virtual ~TextClipboard() = default;
  virtual void SetText(const std::string& text) = 0;
  // False when the clipboard holds no text.
  virtual bool GetText(std::string* text) const = 0;
};

class MemoryClipboard : public TextClipboard {
 public:
  void SetText(const std::string& text) override {
    text_ = text;
    has_text_ = true;
  }
  bool GetText(std::string* text) const override {
    if (!has_text_) return false;
    *text = text_;
    return true;
  }
  void Clear() { has_text_ = false; text_.clear(); }

 private:
  std::string text_;
  bool has_text_ = false;
};

// The clipboard the controls use: the back end's unless another is installed.
TextClipboard& CurrentClipboard();
// Installs `clipboard` (not owned); null goes back to the back end's.
void SetCurrentClipboard(TextClipboard* clipboard);

}  // namespace qmk::platform::ui::controls
