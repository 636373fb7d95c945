// cmd_theme.cpp: qmkscan theme-sheet: draws every widget in every state in one theme to a PNG
// file, or lists the theme ids; qmkscan themes lists them too.
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include "commands.h"
#include "platform/draw/text.h"
#include "toolkit/theme/selection.h"
#include "toolkit/theme/theme_sheet.h"

namespace qmkscan {

void PrintThemeList() {
  for (const qmk::toolkit::theme::ThemeChoice& c : qmk::toolkit::theme::ThemeChoices())
    std::printf("%d  %-42s %s\n", c.id, c.display_name, c.cls->m_lpszClassName);
}

int RunThemes(Args& args) {
  if (!args.NoUnknownOptions("themes") || !args.rest().empty()) return 2;
  PrintThemeList();
  return 0;
}

int RunThemeSheet(Args& args) {
  namespace theme = qmk::toolkit::theme;
  if (args.Flag("list")) {
    if (!args.NoUnknownOptions("theme-sheet")) return 2;
    PrintThemeList();
    return 0;
  }
  const std::optional<std::string> id_text = args.Option("theme");
  const std::optional<std::string> png = args.Option("png");
  if (!args.NoUnknownOptions("theme-sheet")) return 2;
  if (!id_text || !png || !args.rest().empty()) {
    std::fprintf(stderr, "usage: qmkscan theme-sheet --theme ID --png FILE | --list\n");
    return 2;
  }
  // Any 32-bit id is a theme id: those without a class of their own draw the plain theme.
  char* end = nullptr;
  errno = 0;
  const long id = std::strtol(id_text->c_str(), &end, 10);
  if (id_text->empty() || *end != '\0' || errno == ERANGE || id < INT_MIN || id > INT_MAX) {
    std::fprintf(stderr, "qmkscan theme-sheet: --theme wants a 32-bit number, not \"%s\"\n", id_text->c_str());
    return 2;
  }
  const bool written = theme::WriteThemeSheetPng(static_cast<int>(id), *png);
  // The font caches go before exit, so that a leak checker sees only what the library keeps.
  qmk::platform::ReleaseFontCaches();
  if (!written) {
    std::fprintf(stderr, "qmkscan theme-sheet: can't write \"%s\"\n", png->c_str());
    return 1;
  }
  std::printf("%s: theme %ld, %s\n", png->c_str(), id,
              theme::PaintManagerClassForId(static_cast<int>(id))->m_lpszClassName);
  return 0;
}

}  // namespace qmkscan
