// resource_manager.cpp: the language search of CExtResourceManager, its loaders, locale
// information, the language font and the archive form.
#include "toolkit/dialogs/resource_manager.h"

#include <algorithm>
#include <cstring>

#include "platform/archive.h"
#include "toolkit/bitmap/bitmap.h"
#include "toolkit/dialogs/builtin_resources.h"
#include "toolkit/dialogs/locale_info.h"

namespace qmk::toolkit {
namespace {

HRESOURCEMODULE g_framework_module = nullptr;

constexpr uint32_t kArchiveCustomLangBit = 1;

}  // namespace

HRESOURCEMODULE FrameworkResourceModule() {
  return g_framework_module ? g_framework_module : &BuiltinResources();
}

void SetFrameworkResourceModule(HRESOURCEMODULE module) { g_framework_module = module; }

CExtResourceManager::CExtResourceManager(bool bAllowCustomLang, uint16_t nLangIdDesired,
                                         int32_t nLangCodePage)
    : m_bAllowCustomLang(bAllowCustomLang),
      m_nLangIdDesired(nLangIdDesired),
      m_nLangCodePage(nLangCodePage) {}

CExtResourceManager::~CExtResourceManager() {
  for (const RscInstEntry& entry : m_arrRscInst)
    if (entry.m_bFreeModule) delete entry.m_hModule;
}

bool CExtResourceManager::Serialize(platform::Archive& ar) {
  uint8_t bytes[12] = {};
  if (ar.IsStoring()) {
    const uint32_t words[3] = {m_bAllowCustomLang ? kArchiveCustomLangBit : 0u, m_nLangIdDesired, 0u};
    for (int w = 0; w < 3; ++w)
      for (int b = 0; b < 4; ++b) bytes[w * 4 + b] = static_cast<uint8_t>(words[w] >> (8 * b));
    ar.Write(bytes, sizeof bytes);
    return ar.ok();
  }
  if (ar.Read(bytes, sizeof bytes) != sizeof bytes) return false;
  uint32_t words[3] = {};
  for (int w = 0; w < 3; ++w)
    for (int b = 0; b < 4; ++b) words[w] |= static_cast<uint32_t>(bytes[w * 4 + b]) << (8 * b);
  m_bAllowCustomLang = (words[0] & kArchiveCustomLangBit) != 0;
  m_nLangIdDesired = static_cast<uint16_t>(words[1]);
  return true;
}

uint16_t CExtResourceManager::EffectiveUiLanguage() const {
  // The locale value is a locale identifier: its language sits in the low 16 bits.
  if (m_nLangCodePage != -1) return static_cast<uint16_t>(m_nLangCodePage & 0xFFFF);
  return m_bAllowCustomLang ? m_nLangIdDesired : UserDefaultLanguage();
}

bool CExtResourceManager::IsRightToLeftLanguage() const {
  return IsRightToLeftLanguageId(EffectiveUiLanguage());
}

bool CExtResourceManager::RegisterResourceModule(HRESOURCEMODULE hModule, bool bFree) {
  if (!hModule) return false;
  for (const RscInstEntry& entry : m_arrRscInst)
    if (entry.m_hModule == hModule) return false;
  m_arrRscInst.push_back({hModule, bFree});
  return true;
}

bool CExtResourceManager::UnregisterResourceModule(HRESOURCEMODULE hModule) {
  const auto it = std::find_if(m_arrRscInst.begin(), m_arrRscInst.end(),
                               [&](const RscInstEntry& e) { return e.m_hModule == hModule; });
  if (it == m_arrRscInst.end()) return false;
  if (it->m_bFreeModule) delete it->m_hModule;
  m_arrRscInst.erase(it);
  return true;
}

// ---- locale information ----

int CExtResourceManager::GetLocaleInfo(uint32_t language, uint32_t type, char* buffer, int size) {
  std::string text;
  if (size < 0 || !GetLocaleInfo(language, type, text)) return 0;
  const int needed = static_cast<int>(text.size()) + 1;
  if (size == 0) return needed;
  if (!buffer) return 0;
  if (size < needed) {
    buffer[0] = '\0';
    return 0;
  }
  std::memcpy(buffer, text.c_str(), static_cast<size_t>(needed));
  return needed;
}

int CExtResourceManager::GetLocaleInfo(uint32_t language, uint32_t type, std::string& out) {
  const platform::Locale* locale = LocaleOfLanguage(language);
  std::string text;
  if (!locale || !LocaleInfoText(*locale, language, type, text)) return 0;
  out = std::move(text);
  return static_cast<int>(out.size()) + 1;
}

int CExtResourceManager::GetLocaleInfo(uint32_t type, char* buffer, int size) const {
  std::vector<uint32_t> order;
  if (m_bAllowCustomLang) order = {m_nLangIdDesired, GetLangIdNeutral()};
  for (uint32_t language : {uint32_t{kLangUserDefault}, uint32_t{kLangSystemDefault}, 0u})
    order.push_back(language);
  for (uint32_t language : order)
    if (const int result = GetLocaleInfo(language, type, buffer, size)) return result;
  return 0;
}

int CExtResourceManager::GetLocaleInfo(uint32_t type, std::string& out) const {
  const int needed = GetLocaleInfo(type, nullptr, 0);
  if (needed <= 0) return 0;
  std::vector<char> buffer(static_cast<size_t>(needed) + 64);
  const int result = GetLocaleInfo(type, buffer.data(), static_cast<int>(buffer.size()));
  if (result) out.assign(buffer.data());
  return result;
}

std::string CExtResourceManager::GetLocaleInfo(uint32_t type) const {
  std::string out;
  GetLocaleInfo(type, out);
  return out;
}

// ---- the search ----

HRESOURCEMODULE CExtResourceManager::SearchRegistered(int type, const ResourceName& name,
                                                      uint16_t language, uint16_t* outLang,
                                                      std::string_view* outResource) const {
  for (const RscInstEntry& entry : m_arrRscInst) {
    if (const auto found = entry.m_hModule->Find(type, name, language)) {
      if (outLang) *outLang = language;
      if (outResource) *outResource = *found;
      return entry.m_hModule;
    }
  }
  return nullptr;
}

std::optional<std::string_view> CExtResourceManager::FrameworkLookup(int type,
                                                                     const ResourceName& name,
                                                                     uint16_t* outLang) {
  const ResourceModule& module = *FrameworkResourceModule();
  for (uint16_t language : {UserDefaultLanguage(), kLangIdNeutral}) {
    if (const auto found = module.Find(type, name, language)) {
      if (outLang) *outLang = language;
      return found;
    }
  }
  if (const auto any = module.AnyLanguageOf(type, name)) {
    if (outLang) *outLang = *any;
    return module.Find(type, name, *any);
  }
  return std::nullopt;
}

HRESOURCEMODULE CExtResourceManager::FindResourceHandleEx(int type, const ResourceName& name,
                                                          uint16_t langDesired,
                                                          uint16_t langNeutral, uint16_t* outLang,
                                                          std::string_view* outResource) const {
  if (outLang) *outLang = GetLangIdNeutral();
  if (outResource) *outResource = {};
  if (!m_bAllowCustomLang) {
    const auto found = FrameworkLookup(type, name, outLang);
    if (!found) return nullptr;
    if (outResource) *outResource = *found;
    return FrameworkResourceModule();
  }
  if (HRESOURCEMODULE hit = SearchRegistered(type, name, langDesired, outLang, outResource))
    return hit;
  if (langDesired == langNeutral) return nullptr;
  return SearchRegistered(type, name, langNeutral, outLang, outResource);
}

HRESOURCEMODULE CExtResourceManager::FindResourceHandle(int type, const ResourceName& name,
                                                        uint16_t* outLang,
                                                        std::string_view* outResource) const {
  return FindResourceHandleEx(type, name, m_nLangIdDesired, GetLangIdNeutral(), outLang,
                              outResource);
}

// ---- loading ----

bool CExtResourceManager::LoadResourceBuffer(int type, const ResourceName& name,
                                             CExtResourceMemoryBuffer& buffer,
                                             uint16_t* outLang) const {
  buffer.Empty();
  std::optional<std::string_view> found;
  uint16_t language = GetLangIdNeutral();
  if (!m_bAllowCustomLang) {
    found = FrameworkLookup(type, name, &language);
  } else {
    // Each language in turn: the registered modules, then the library's own.
    std::vector<uint16_t> order = {m_nLangIdDesired};
    if (m_nLangIdDesired != GetLangIdNeutral()) order.push_back(GetLangIdNeutral());
    for (size_t i = 0; i < order.size() && !found; ++i) {
      std::string_view bytes;
      if (SearchRegistered(type, name, order[i], &language, &bytes)) found = bytes;
      else if ((found = FrameworkResourceModule()->Find(type, name, order[i]))) language = order[i];
    }
  }
  if (!found || !buffer.Assign(*found)) return false;
  if (outLang) *outLang = language;
  return true;
}

bool CExtResourceManager::LoadString(int id, std::string& out) const {
  CExtResourceMemoryBuffer buffer;
  if (!LoadResourceBuffer(kResourceTypeString, id, buffer)) return false;
  out.assign(buffer.View());
  return true;
}

bool CExtResourceManager::LoadDialogTemplate(int id, std::string& text) const {
  CExtResourceMemoryBuffer buffer;
  if (!LoadResourceBuffer(kResourceTypeDialog, id, buffer)) return false;
  text.assign(buffer.View());
  return true;
}

bool CExtResourceManager::LoadMenu(const ResourceName& name, CExtResourceMemoryBuffer& buffer) const {
  return LoadResourceBuffer(kResourceTypeMenu, name, buffer);
}

bool CExtResourceManager::LoadAccelerators(const ResourceName& name,
                                           CExtResourceMemoryBuffer& buffer) const {
  return LoadResourceBuffer(kResourceTypeAccelerator, name, buffer);
}

bool CExtResourceManager::LoadIcon(const ResourceName& name, CExtResourceMemoryBuffer& buffer) const {
  return LoadResourceBuffer(kResourceTypeIcon, name, buffer);
}

bool CExtResourceManager::LoadCursor(const ResourceName& name,
                                     CExtResourceMemoryBuffer& buffer) const {
  return LoadResourceBuffer(kResourceTypeCursor, name, buffer);
}

bool CExtResourceManager::LoadBitmap(const ResourceName& name, bitmap::CExtBitmap& picture) const {
  CExtResourceMemoryBuffer buffer;
  if (!LoadResourceBuffer(kResourceTypeBitmap, name, buffer)) return false;
  // Bitmap resources are stored as the platform stores them: without the file header.
  return picture.FromMemory(buffer.GetBuffer(), buffer.GetSize(), true);
}

// ---- language font ----

void CExtResourceManager::SetLanguageFontFace(const char* face) {
  const std::string next = face ? face : "";
  if (next == m_strLangFontFace) return;
  m_strLangFontFace = next;
  m_pLangFont.reset();
}

const FontDescription* CExtResourceManager::GetLanguageFont() {
  if (m_strLangFontFace.empty()) return nullptr;
  if (!m_pLangFont) {
    auto font = std::make_unique<FontDescription>(DefaultFont());
    std::memset(font->face, 0, sizeof font->face);
    std::memcpy(font->face, m_strLangFontFace.data(),
                std::min(m_strLangFontFace.size(), sizeof font->face - 1));
    m_pLangFont = std::move(font);
  }
  return m_pLangFont.get();
}

namespace {

void SendFontDown(const FontWindowAccess& access, WindowRef window, int depth, uintptr_t font,
                  bool redraw) {
  access.send(window, kMessageSetFont, font, redraw ? 1 : 0);
  if (depth <= 0 || !access.children) return;
  for (WindowRef child : access.children(window))
    if (child) SendFontDown(access, child, depth - 1, font, redraw);
}

}  // namespace

bool CExtResourceManager::ApplyLanguageFont(WindowRef window, int depth, bool redraw) {
  const FontWindowAccess& access = GetFontWindowAccess();
  if (!window || !access.send) return false;
  const auto font = reinterpret_cast<uintptr_t>(GetLanguageFont());
  SendFontDown(access, window, depth, font, redraw);
  return true;
}

}  // namespace qmk::toolkit
