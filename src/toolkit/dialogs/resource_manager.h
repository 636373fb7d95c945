// resource_manager.h: CExtResourceManager, the road of every resource load: which language,
// which module, and the fall-back to the neutral language.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/dialogs/language_font.h"
#include "toolkit/dialogs/language_ids.h"
#include "toolkit/dialogs/resource_memory_buffer.h"
#include "toolkit/dialogs/resource_module.h"

namespace qmk::platform {
class Archive;
}
namespace qmk::toolkit::bitmap {
class CExtBitmap;
}

namespace qmk::toolkit {

using HRESOURCEMODULE = const ResourceModule*;

// One registered module: its handle, and whether the manager deletes it when it goes.
struct RscInstEntry {
  HRESOURCEMODULE m_hModule = nullptr;
  bool m_bFreeModule = false;
};

// The module the framework's own lookup searches (the library's compiled-in resources unless
// replaced). Null restores the built-in one.
HRESOURCEMODULE FrameworkResourceModule();
void SetFrameworkResourceModule(HRESOURCEMODULE module);

class CExtResourceManager {
 public:
  // The locale code page language -1 means "not set".
  explicit CExtResourceManager(bool bAllowCustomLang = false,
                               uint16_t nLangIdDesired = kLangIdNeutral,
                               int32_t nLangCodePage = -1);
  virtual ~CExtResourceManager();
  CExtResourceManager(const CExtResourceManager&) = delete;
  CExtResourceManager& operator=(const CExtResourceManager&) = delete;

  // 12 bytes: flags (bit 0 = custom language allowed), the desired language, and a zero word.
  // Loading a short archive changes nothing and returns false.
  virtual bool Serialize(platform::Archive& ar);

  bool IsCustomLangAllowed() const { return m_bAllowCustomLang; }
  void AllowCustomLang(bool bAllow = true) { m_bAllowCustomLang = bAllow; }
  bool IsRightToLeftLanguage() const;
  void SetCodePageLanguage(int32_t nLangCodePage) { m_nLangCodePage = nLangCodePage; }
  int32_t GetCodePageLanguage() const { return m_nLangCodePage; }

  uint16_t GetLangIdDesired() const { return m_nLangIdDesired; }
  void SetLangIdDesired(uint16_t nLangIdDesired) { m_nLangIdDesired = nLangIdDesired; }
  static uint16_t GetLangIdNeutral() { return kLangIdNeutral; }

  // Registered modules are searched in the order they were added. A module added twice keeps
  // its first place. With bFree the manager deletes the module when it is removed or destroyed.
  bool RegisterResourceModule(HRESOURCEMODULE hModule, bool bFree = false);
  bool UnregisterResourceModule(HRESOURCEMODULE hModule);
  const std::vector<RscInstEntry>& GetRegisteredModules() const { return m_arrRscInst; }

  // Locale information in the resource language (the desired one, then the neutral, then the
  // user's and the system's defaults, then language 0); the first that answers wins. Results
  // count bytes with the terminating zero, 0 for failure; a size of 0 asks for the size needed.
  int GetLocaleInfo(uint32_t type, char* buffer, int size) const;
  int GetLocaleInfo(uint32_t type, std::string& out) const;
  std::string GetLocaleInfo(uint32_t type) const;
  // The same for one language alone, without fall-backs.
  static int GetLocaleInfo(uint32_t language, uint32_t type, char* buffer, int size);
  static int GetLocaleInfo(uint32_t language, uint32_t type, std::string& out);

  // The search by the manager's languages; see FindResourceHandleEx.
  HRESOURCEMODULE FindResourceHandle(int type, const ResourceName& name,
                                     uint16_t* outLang = nullptr,
                                     std::string_view* outResource = nullptr) const;
  HRESOURCEMODULE FindResourceHandleEx(int type, const ResourceName& name, uint16_t langDesired,
                                       uint16_t langNeutral, uint16_t* outLang,
                                       std::string_view* outResource) const;

  // A null or empty face clears it; a different face drops the font built from the old one.
  void SetLanguageFontFace(const char* face);
  const std::string& GetLanguageFontFace() const { return m_strLangFontFace; }
  // The default font with the language face (cut to 31 bytes), built on first need; null when
  // no face is set.
  const FontDescription* GetLanguageFont();
  // Sends the set-font message with the language font to `window` and, with depth above 0, to
  // its children with depth - 1. False when the window system gave no access or no window.
  bool ApplyLanguageFont(WindowRef window, int depth = 1, bool redraw = true);

  // The bytes of a resource in the manager's language order; false and an empty buffer when no
  // module has it.
  bool LoadResourceBuffer(int type, const ResourceName& name, CExtResourceMemoryBuffer& buffer,
                          uint16_t* outLang = nullptr) const;
  bool LoadString(int id, std::string& out) const;
  bool LoadDialogTemplate(int id, std::string& text) const;
  bool LoadMenu(const ResourceName& name, CExtResourceMemoryBuffer& buffer) const;
  bool LoadAccelerators(const ResourceName& name, CExtResourceMemoryBuffer& buffer) const;
  bool LoadIcon(const ResourceName& name, CExtResourceMemoryBuffer& buffer) const;
  bool LoadCursor(const ResourceName& name, CExtResourceMemoryBuffer& buffer) const;
  bool LoadBitmap(const ResourceName& name, bitmap::CExtBitmap& picture) const;

 private:
  // One language in the registered modules, in order.
  HRESOURCEMODULE SearchRegistered(int type, const ResourceName& name, uint16_t language,
                                   uint16_t* outLang, std::string_view* outResource) const;
  // The framework's lookup: the user's default language, then the neutral one, then any.
  static std::optional<std::string_view> FrameworkLookup(int type, const ResourceName& name,
                                                         uint16_t* outLang);
  uint16_t EffectiveUiLanguage() const;

  bool m_bAllowCustomLang;
  uint16_t m_nLangIdDesired;
  int32_t m_nLangCodePage;
  std::vector<RscInstEntry> m_arrRscInst;
  std::string m_strLangFontFace;
  std::unique_ptr<FontDescription> m_pLangFont;
};

}  // namespace qmk::toolkit
