// optional_library.cpp: resolving the visual style and composition calls by name.
#include "toolkit/theme/optional_library.h"

#include <algorithm>

namespace qmk::toolkit::theme {
namespace {

const char* const kUxThemeCalls[] = {
    "OpenThemeData", "OpenThemeDataEx", "CloseThemeData", "DrawThemeBackground", "DrawThemeText",
    "DrawThemeTextEx", "GetThemeBackgroundContentRect", "GetThemeBackgroundExtent",
    "GetThemePartSize", "GetThemeTextExtent", "GetThemeTextMetrics", "GetThemeBackgroundRegion",
    "HitTestThemeBackground", "DrawThemeEdge", "DrawThemeIcon", "IsThemePartDefined",
    "IsThemeBackgroundPartiallyTransparent", "GetThemeColor", "GetThemeMetric", "GetThemeString",
    "GetThemeBool", "GetThemeInt", "GetThemeEnumValue", "GetThemePosition", "GetThemeFont",
    "GetThemeRect", "GetThemeMargins", "GetThemeIntList", "GetThemePropertyOrigin",
    "SetWindowTheme", "GetThemeFilename", "GetThemeSysColor", "GetThemeSysColorBrush",
    "GetThemeSysBool", "GetThemeSysSize", "GetThemeSysFont", "GetThemeSysString",
    "GetThemeSysInt", "IsThemeActive", "IsAppThemed", "GetWindowTheme",
    "EnableThemeDialogTexture", "IsThemeDialogTextureEnabled", "GetThemeAppProperties",
    "SetThemeAppProperties", "GetCurrentThemeName", "GetThemeDocumentationProperty",
    "DrawThemeParentBackground", "EnableTheming", "DrawThemeBackgroundEx",
};

const char* const kDwmCalls[] = {
    "DwmDefWindowProc", "DwmEnableBlurBehindWindow", "DwmEnableComposition", "DwmEnableMMCSS",
    "DwmExtendFrameIntoClientArea", "DwmGetColorizationColor", "DwmGetCompositionTimingInfo",
    "DwmGetWindowAttribute", "DwmIsCompositionEnabled", "DwmModifyPreviousDxFrameDuration",
    "DwmQueryThumbnailSourceSize", "DwmRegisterThumbnail", "DwmSetDxFrameDuration",
    "DwmSetPresentParameters", "DwmSetWindowAttribute", "DwmUnregisterThumbnail",
    "DwmUpdateThumbnailProperties",
};

const char* const kControlClasses[] = {
    "BUTTON", "TOOLBAR", "REBAR", "MENU", "COMBOBOX", "HEADER",
    "TRACKBAR", "STATUS", "EDIT", "PROGRESS", "SCROLLBAR", "TASKBAND",
};

// Calls a resolved test of the form BOOL f(void); false when it is missing.
bool AskBool(void* address) {
  return address && reinterpret_cast<int (*)()>(address)() != 0;
}

}  // namespace

COptionalLibrary::COptionalLibrary(const char* library, std::span<const char* const> names)
    : m_strLibrary(library), m_names(names), m_addresses(names.size(), nullptr) {}

void COptionalLibrary::Load(const SymbolResolver& resolve) {
  std::fill(m_addresses.begin(), m_addresses.end(), nullptr);
  m_bLoaded = false;
  if (!resolve) return;
  for (size_t i = 0; i < m_names.size(); ++i) {
    m_addresses[i] = resolve(m_strLibrary, m_names[i]);
    m_bLoaded = m_bLoaded || m_addresses[i];
  }
}

void* COptionalLibrary::Address(const std::string& name) const {
  for (size_t i = 0; i < m_names.size(); ++i)
    if (name == m_names[i]) return m_addresses[i];
  return nullptr;
}

CExtUxTheme::CExtUxTheme(const SymbolResolver& resolve) : COptionalLibrary("UxTheme.dll", kUxThemeCalls) {
  Load(resolve);
}

bool CExtUxTheme::IsAppThemed() const { return AskBool(Address("IsAppThemed")); }
bool CExtUxTheme::IsThemeActive() const { return AskBool(Address("IsThemeActive")); }
std::span<const char* const> CExtUxTheme::ControlClasses() { return kControlClasses; }

CExtDWM::CExtDWM(const SymbolResolver& resolve) : COptionalLibrary("dwmapi.dll", kDwmCalls) {
  Load(resolve);
}

bool CExtDWM::IsCompositionEnabled() const {
  // The call reports through an out-parameter: HRESULT f(BOOL*).
  void* address = Address("DwmIsCompositionEnabled");
  if (!address) return false;
  int enabled = 0;
  return reinterpret_cast<long (*)(int*)>(address)(&enabled) == 0 && enabled != 0;
}

}  // namespace qmk::toolkit::theme
