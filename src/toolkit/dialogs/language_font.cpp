// language_font.cpp: the default font source and the installed window access.
#include "toolkit/dialogs/language_font.h"

namespace qmk::toolkit {
namespace {

FontDescription BuiltinDefaultFont() { return FontDescription{}; }

DefaultFontSource g_font_source = &BuiltinDefaultFont;

FontWindowAccess& Access() {
  static FontWindowAccess access;
  return access;
}

}  // namespace

FontDescription DefaultFont() { return g_font_source(); }

void SetDefaultFontSource(DefaultFontSource source) {
  g_font_source = source ? source : &BuiltinDefaultFont;
}

void SetFontWindowAccess(FontWindowAccess access) { Access() = std::move(access); }
const FontWindowAccess& GetFontWindowAccess() { return Access(); }

}  // namespace qmk::toolkit
