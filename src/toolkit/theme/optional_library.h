// optional_library.h: CExtUxTheme and CExtDWM, thin wrappers of the desktop's visual style and
// composition libraries. Where a library is missing, which is the normal state on most
// desktops, every test answers no and themes draw their own faces.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace qmk::toolkit::theme {

// Finds a library's call by name; null when the library or the call is missing.
using SymbolResolver = std::function<void*(const char* library, const char* symbol)>;

// A library reached by name, holding the address (or null) of each call it was asked for.
class COptionalLibrary {
 public:
  COptionalLibrary(const char* library, std::span<const char* const> names);
  // Resolves every name; an empty resolver leaves everything missing.
  void Load(const SymbolResolver& resolve);
  bool IsLoaded() const { return m_bLoaded; }
  void* Address(const std::string& name) const;
  const char* LibraryName() const { return m_strLibrary; }
  std::span<const char* const> Names() const { return m_names; }

 private:
  const char* m_strLibrary;
  std::span<const char* const> m_names;
  std::vector<void*> m_addresses;
  bool m_bLoaded = false;
};

class CExtUxTheme : public COptionalLibrary {
 public:
  explicit CExtUxTheme(const SymbolResolver& resolve = {});
  bool IsAppThemed() const;
  bool IsThemeActive() const;
  // The control classes a native theme opens data for.
  static std::span<const char* const> ControlClasses();
};

class CExtDWM : public COptionalLibrary {
 public:
  explicit CExtDWM(const SymbolResolver& resolve = {});
  bool IsCompositionEnabled() const;
};

}  // namespace qmk::toolkit::theme
