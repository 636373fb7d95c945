// builtin_resources.h: the resources compiled into the library (string tables of resources/, one
// per language) as one module, and how tables of dialog templates join it.
#pragma once

#include <string_view>

#include "toolkit/dialogs/resource_module.h"

namespace qmk::toolkit {

// The library's own module: every string table of resources/ under type 6, keyed by string id
// and the language of its file. Built on first use.
ResourceTable& BuiltinResources();

// Adds one dialog template (type 5) under `id` in the language of the file suffix `language`
// ("en", "de", ...). The text is kept as a view: compiled-in tables live for the whole run.
// False for an unknown suffix.
bool AddDialogTemplate(ResourceTable& module, int id, const char* language, std::string_view text);

// Adds every row of a table of {int id; const char* language; const char* text;} rows, or of
// the window system's compiled templates ({id, language number, tag, text}). Returns how many
// joined; rows with an unknown language or no text are left out.
template <class Rows>
size_t AddDialogTemplates(ResourceTable& module, const Rows& rows) {
  size_t added = 0;
  for (const auto& row : rows) {
    // The window system's rows carry the file suffix as `tag` beside a numeric language.
    const char* suffix = nullptr;
    if constexpr (requires { row.tag; })
      suffix = row.tag;
    else
      suffix = row.language;
    if (row.text && AddDialogTemplate(module, row.id, suffix, row.text)) ++added;
  }
  return added;
}

}  // namespace qmk::toolkit
