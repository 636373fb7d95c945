// paint_manager_holder.cpp: the holder's start-up steps, the install order and the sinks.
#include "toolkit/theme/paint_manager_holder.h"

#include <sys/utsname.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/archive.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/theme_classes.h"

namespace qmk::toolkit::theme {

const OptionalCall kOptionalCalls[11] = {
    {"image", "GradientFill"},         {"image", "AlphaBlend"},
    {"image", "AlphaDIBBlend"},        {"image", "TransparentBlt"},
    {"image", "TransparentDIBits"},    {"user", "AnimateWindow"},
    {"user", "SetLayeredWindowAttributes"}, {"user", "UpdateLayeredWindow"},
    {"user", "PrintWindow"},           {"user", "SetProcessDPIAware"},
    {"shell", "SHAutoComplete"},
};

namespace {

OsVersionInfo UnameVersion() {
  OsVersionInfo v;
  utsname u{};
  if (uname(&u) != 0) return v;
  v.name = u.sysname;
  // "6.1.0-13-amd64": major, minor and the third number as the build.
  unsigned long parts[3] = {0, 0, 0};
  const char* p = u.release;
  for (int i = 0; i < 3 && *p; ++i) {
    char* end = nullptr;
    parts[i] = std::strtoul(p, &end, 10);
    if (end == p) break;
    p = *end == '.' ? end + 1 : end;
    if (*end != '.') break;
  }
  v.major = parts[0];
  v.minor = parts[1];
  v.build = parts[2];
  v.extra = u.version;
  return v;
}

}  // namespace

PlatformQueries DefaultPlatformQueries() {
  PlatformQueries q;
  q.screen_dpi = [](int) { return 96; };
  q.color_depth = [] { return 32; };
  q.os_version = UnameVersion;
  q.visual_style = [] { return VisualStyle{}; };
  q.resolve = [](const char*, const char*) -> void* { return nullptr; };
  return q;
}

CExtPaintManagerAutoPtr::CExtPaintManagerAutoPtr(const PlatformQueries& q) {
  m_version = q.os_version ? q.os_version() : OsVersionInfo{};
  if (m_version.name == "Linux") m_dwOsFamily = kOsFamilyLinux;
  else if (m_version.name != "Unknown") m_dwOsFamily = kOsFamilyUnix;
  char text[512];
  std::snprintf(text, sizeof text, "%s v.%lu.%lu (build %lu) %s", m_version.name.c_str(),
                m_version.major, m_version.minor, m_version.build, m_version.extra.c_str());
  m_strOsVer = text;
  if (q.visual_style) m_visualStyle = q.visual_style();
  for (const OptionalCall& call : kOptionalCalls)
    m_optionalCalls[call.name] = q.resolve ? q.resolve(call.library, call.name) : nullptr;
  // Present only where a platform offers it; called at once so that the screen reads true dpi.
  if (void* aware = m_optionalCalls["SetProcessDPIAware"]) reinterpret_cast<int (*)()>(aware)();
  if (q.screen_dpi) {
    m_nLPX = q.screen_dpi(0);
    m_nLPY = q.screen_dpi(1);
    m_nLPZ = q.screen_dpi(2);
  }
  if (q.color_depth) m_nDesktopColorDepth = q.color_depth();
  m_bLayeredHighColorAvailable =
      m_nDesktopColorDepth >= 15 && m_optionalCalls["UpdateLayeredWindow"] != nullptr;
}

CExtPaintManagerAutoPtr::~CExtPaintManagerAutoPtr() { delete m_pPaintManager; }

CExtPaintManager* CExtPaintManagerAutoPtr::GetPM() {
  if (!m_pPaintManager) InstallPaintManager(new CExtPaintManager);
  return m_pPaintManager;
}

bool CExtPaintManagerAutoPtr::InstallPaintManagerByClass(const CRuntimeClass* cls) {
  if (!cls) return InstallPaintManager(new CExtPaintManager);
  CObject* object = cls->CreateObject();
  if (!object) return false;
  if (!object->IsKindOf(QMK_RUNTIME_CLASS(CExtPaintManager))) {
    delete object;
    return false;
  }
  return InstallPaintManager(static_cast<CExtPaintManager*>(object));
}

bool CExtPaintManagerAutoPtr::InstallPaintManager(CExtPaintManager* pm) {
  if (!pm) return false;
  // 1. The old theme goes, unless it is the one being installed or a load is under way.
  if (m_pPaintManager && m_pPaintManager != pm && !m_bPaintManagerLoading) delete m_pPaintManager;
  // 2. The new one is current from here on, so its set-up may ask the holder for itself.
  m_pPaintManager = pm;
  // 3. Fonts, then the colours for the desktop's depth.
  pm->SyncSysColors();
  pm->RefreshColors(m_nDesktopColorDepth);
  // 4. Everyone who draws hears of it.
  TellSinks(false);
  return true;
}

void CExtPaintManagerAutoPtr::OnSysColorChange() {
  GetPM()->SyncSysColors();
  m_pPaintManager->RefreshColors(m_nDesktopColorDepth);
  TellSinks(true);
}

void CExtPaintManagerAutoPtr::TellSinks(bool colors_only) {
  // A sink may remove itself while it is told; walk a copy.
  const std::vector<CExtPmSynchronizeSink*> sinks = m_sinks;
  for (CExtPmSynchronizeSink* sink : sinks) {
    if (!HasSink(sink)) continue;
    if (colors_only) sink->PmBridge_OnSysColorChange(this);
    else sink->PmBridge_OnPaintManagerChanged(this);
  }
  if (!colors_only && m_broadcast) m_broadcast(kMsgPaintManagerChangedName);
}

void CExtPaintManagerAutoPtr::AddSink(CExtPmSynchronizeSink* sink) {
  if (sink && !HasSink(sink)) m_sinks.push_back(sink);
}

void CExtPaintManagerAutoPtr::RemoveSink(CExtPmSynchronizeSink* sink) {
  m_sinks.erase(std::remove(m_sinks.begin(), m_sinks.end(), sink), m_sinks.end());
}

bool CExtPaintManagerAutoPtr::HasSink(const CExtPmSynchronizeSink* sink) const {
  return std::find(m_sinks.begin(), m_sinks.end(), sink) != m_sinks.end();
}

void CExtPaintManagerAutoPtr::SetBroadcast(std::function<void(const char*)> broadcast) {
  m_broadcast = std::move(broadcast);
}

void CExtPaintManagerAutoPtr::SetDpi(int axis, int dpi) {
  if (dpi <= 0) return;
  if (axis == 0) m_nLPX = dpi;
  if (axis == 1) m_nLPY = dpi;
  if (axis == 2) m_nLPZ = dpi;
}

int CExtPaintManagerAutoPtr::Dpi(int axis) const {
  return axis == 0 ? m_nLPX : axis == 1 ? m_nLPY : m_nLPZ;
}

bool CExtPaintManagerAutoPtr::IsScaled(int axis) const {
  const unsigned bit = axis == 0 ? kScaleX : axis == 1 ? kScaleY : axis == 2 ? kScaleZ : 0;
  return (m_dwDpiScaling & bit) != 0;
}

void* CExtPaintManagerAutoPtr::OptionalCallAddress(const std::string& name) const {
  const auto found = m_optionalCalls.find(name);
  return found == m_optionalCalls.end() ? nullptr : found->second;
}

bool CExtPaintManagerAutoPtr::Serialize(platform::Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteString(GetPM()->GetRuntimeClass()->m_lpszClassName);
    m_pPaintManager->Serialize(ar);
    return ar.ok();
  }
  const std::string name = ar.ReadString();
  const CRuntimeClass* cls = FindPaintManagerClass(name);
  if (!ar.ok() || !cls) return false;
  CObject* object = cls->CreateObject();
  if (!object) return false;
  auto* pm = static_cast<CExtPaintManager*>(object);
  pm->Serialize(ar);
  if (!ar.ok()) {
    delete pm;
    return false;
  }
  return InstallPaintManager(pm);
}

CExtPaintManagerAutoPtr& g_PaintManager() {
  static CExtPaintManagerAutoPtr holder;
  return holder;
}

}  // namespace qmk::toolkit::theme

