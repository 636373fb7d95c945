// template_source.cpp: the built-in dialog templates, the languages of their file names, and the
// replaceable function that dialog creation asks for template text.
#include <cstring>
#include <vector>

#include "platform/ui/dialog_template.h"

namespace qmk::platform::ui {

// Generated at build time from resources/dialogs/<id>.<tag>.dlg.
struct RawTemplate {
  int id;
  const char* tag;
  const char* text;
};
extern const RawTemplate kRawTemplates[];
extern const size_t kRawTemplateCount;

namespace {

struct LanguageTag {
  const char* tag;
  uint16_t lang;
};

constexpr LanguageTag kLanguages[] = {
    {"en", 1033},    {"en-GB", 2057}, {"de", 1031},    {"fr", 1036},    {"es", 3082},
    {"it", 1040},    {"nl", 1043},    {"pt", 2070},    {"pt-BR", 1046}, {"ru", 1049},
    {"pl", 1045},    {"cs", 1029},    {"sk", 1051},    {"hu", 1038},    {"ro", 1048},
    {"bg", 1026},    {"el", 1032},    {"tr", 1055},    {"sv", 1053},    {"da", 1030},
    {"fi", 1035},    {"nb", 1044},    {"uk", 1058},    {"ja", 1041},    {"ko", 1042},
    {"zh-CN", 2052}, {"zh-TW", 1028}, {"ar", 1025},    {"he", 1037},    {"th", 1054},
    {"vi", 1066},    {"id", 1057},    {"hr", 1050},    {"sl", 1060},    {"lt", 1063},
};

TemplateSource& Source() {
  static TemplateSource source;
  return source;
}

uint16_t g_dialog_language = kLangEnglishUS;

std::optional<std::string> FindBuiltin(int id, uint16_t language) {
  for (const BuiltinTemplate& t : BuiltinTemplates())
    if (t.id == id && t.language == language) return std::string(t.text);
  return std::nullopt;
}

}  // namespace

uint16_t LanguageFromTag(std::string_view tag) {
  for (const LanguageTag& l : kLanguages)
    if (tag == l.tag) return l.lang;
  return 0;
}

std::string_view TagFromLanguage(uint16_t lang) {
  for (const LanguageTag& l : kLanguages)
    if (lang == l.lang) return l.tag;
  return {};
}

std::span<const BuiltinTemplate> BuiltinTemplates() {
  static const std::vector<BuiltinTemplate> table = [] {
    std::vector<BuiltinTemplate> t;
    for (size_t i = 0; i < kRawTemplateCount; ++i) {
      const RawTemplate& r = kRawTemplates[i];
      t.push_back({r.id, LanguageFromTag(r.tag), r.tag, r.text});
    }
    return t;
  }();
  return table;
}

TemplateSource SetTemplateSource(TemplateSource source) {
  TemplateSource old = std::move(Source());
  Source() = std::move(source);
  return old;
}

std::optional<std::string> FindTemplateText(int id, uint16_t language) {
  if (Source()) return Source()(id, language);
  // The language asked for, then US English, as the resource search falls back.
  if (auto text = FindBuiltin(id, language)) return text;
  if (language != kLangEnglishUS) return FindBuiltin(id, kLangEnglishUS);
  return std::nullopt;
}

void SetDialogLanguage(uint16_t language) { g_dialog_language = language; }
uint16_t DialogLanguage() { return g_dialog_language; }

}  // namespace qmk::platform::ui
