// language_font.h: the font description a language font is built from, where the default one
// comes from, and how a font reaches a tree of windows.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace qmk::toolkit {

// Face names hold at most 31 bytes and a terminating zero.
constexpr size_t kFontFaceBytes = 32;

struct FontDescription {
  int height = -11;  // negative: character height in pixels
  int weight = 400;
  bool italic = false;
  bool underline = false;
  uint8_t charset = 1;  // the default character set
  char face[kFontFaceBytes] = "DejaVu Sans";
};

// The font that dialogs use when nothing chooses another. Until the theme's paint manager
// exists it comes from this replaceable source; the paint manager installs its own default font
// through SetDefaultFontSource when it stands. A null source restores the built-in one.
using DefaultFontSource = FontDescription (*)();
FontDescription DefaultFont();
void SetDefaultFontSource(DefaultFontSource source);

// The window system as the language font needs it: a window, its children, and a message sent
// to one. The window system installs it; nothing here includes the window system's headers.
using WindowRef = void*;
constexpr unsigned kMessageSetFont = 48;
struct FontWindowAccess {
  // Sends `message` with its two arguments to `window`.
  std::function<void(WindowRef window, unsigned message, uintptr_t wparam, intptr_t lparam)> send;
  // The direct children of `window`, first to last.
  std::function<std::vector<WindowRef>(WindowRef window)> children;
};
void SetFontWindowAccess(FontWindowAccess access);
const FontWindowAccess& GetFontWindowAccess();

}  // namespace qmk::toolkit
