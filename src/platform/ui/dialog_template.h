// dialog_template.h: dialog templates: their parsed form, the reader of the text form, the
// built-in table compiled from resources/dialogs, and the replaceable source of template text.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qmk::platform::ui {

struct DialogItemTemplate {
  std::string class_name;  // "Button", "Edit", ... or any registered class
  int id = 0;
  std::string text;
  uint32_t style = 0;      // WS_CHILD | WS_VISIBLE are always added
  uint32_t ex_style = 0;
  int x = 0, y = 0, cx = 0, cy = 0;  // dialog units
};

struct DialogTemplate {
  int id = 0;                        // the number on the "dialog" line
  int x = 0, y = 0, cx = 0, cy = 0;  // dialog units
  uint32_t style = 0;
  uint32_t ex_style = 0;
  std::string caption;
  std::string font_face = "DejaVu Sans";
  int font_points = 8;
  std::vector<DialogItemTemplate> items;
};

struct TemplateError {
  int line = 0;  // 1-based; 0 when the error is not on one line
  std::string message;
};

// Reads the text form (docs/ui.md). On failure returns false with the first error; `out` is then
// unspecified.
bool ParseDialogTemplate(std::string_view text, DialogTemplate* out, TemplateError* error);

// A style word given by names ("WS_TABSTOP | BS_AUTORADIOBUTTON") or numbers; false for an
// unknown name.
bool ParseStyleWord(std::string_view text, uint32_t* out);

// Language identifiers of the platform model (1033 is US English) and the tags of file names.
constexpr uint16_t kLangEnglishUS = 1033;
uint16_t LanguageFromTag(std::string_view tag);  // 0 for an unknown tag
std::string_view TagFromLanguage(uint16_t lang);  // empty for an unknown language

// One template compiled into the library from resources/dialogs/<id>.<tag>.dlg.
struct BuiltinTemplate {
  int id;
  uint16_t language;
  const char* tag;
  const char* text;
};
std::span<const BuiltinTemplate> BuiltinTemplates();

// Where dialog creation gets template text by (id, language). The default searches the built-in
// table for the language, then for US English. Returns the previous source; an empty function
// restores the default.
using TemplateSource = std::function<std::optional<std::string>(int id, uint16_t language)>;
TemplateSource SetTemplateSource(TemplateSource source);
std::optional<std::string> FindTemplateText(int id, uint16_t language);
// The language asked for when a dialog is created by id (default US English).
void SetDialogLanguage(uint16_t language);
uint16_t DialogLanguage();

}  // namespace qmk::platform::ui
