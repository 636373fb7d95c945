// paint_manager_holder.h: CExtPaintManagerAutoPtr, the process-wide holder of the current theme:
// what it learns of the platform when made, the install order, its sinks and the change message.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/theme/runtime_class.h"

namespace qmk::platform {
class Archive;
}

namespace qmk::toolkit::theme {

class CExtPaintManager;
class CExtPaintManagerAutoPtr;

// A party that hears theme events: windows through CExtPmBridge, other modules directly.
class CExtPmSynchronizeSink {
 public:
  virtual ~CExtPmSynchronizeSink() = default;
  virtual void PmBridge_OnPaintManagerChanged(CExtPaintManagerAutoPtr* sender) = 0;
  virtual void PmBridge_OnSysColorChange(CExtPaintManagerAutoPtr* sender) { (void)sender; }
};

// The operating system's version as the holder records it.
struct OsVersionInfo {
  std::string name = "Unknown";
  unsigned long major = 0, minor = 0, build = 0;
  std::string extra;
};

// The active visual style: its file and colour scheme; empty when there is none.
struct VisualStyle {
  std::string file;
  std::string color_scheme;
};

// What the holder asks of the platform when made. Each is replaceable; the defaults answer for
// a desktop that the window system has not described yet.
struct PlatformQueries {
  std::function<int(int axis)> screen_dpi;        // default 96
  std::function<int()> color_depth;               // default 32
  std::function<OsVersionInfo()> os_version;      // default: uname
  std::function<VisualStyle()> visual_style;      // default: none
  // The address of an optional call in a library, or null when not available (the default).
  std::function<void*(const char* library, const char* symbol)> resolve;
};
PlatformQueries DefaultPlatformQueries();

// Family bits of the operating system word.
constexpr unsigned kOsFamilyUnknown = 0;
constexpr unsigned kOsFamilyLinux = 0x0100;
constexpr unsigned kOsFamilyUnix = 0x0200;

// Bits of the dpi scaling flag word.
constexpr unsigned kScaleX = 1, kScaleY = 2, kScaleZ = 4;

// The name under which windows register the change message.
constexpr const char* kMsgPaintManagerChangedName =
    "CExtPaintManager::CExtPaintManagerAutoPtr::m_nMsgPaintManagerChanged";

// The optional calls the holder looks for, and the library each belongs to.
struct OptionalCall {
  const char* library;
  const char* name;
};
extern const OptionalCall kOptionalCalls[11];

class CExtPaintManagerAutoPtr {
 public:
  explicit CExtPaintManagerAutoPtr(const PlatformQueries& queries = DefaultPlatformQueries());
  ~CExtPaintManagerAutoPtr();
  CExtPaintManagerAutoPtr(const CExtPaintManagerAutoPtr&) = delete;
  CExtPaintManagerAutoPtr& operator=(const CExtPaintManagerAutoPtr&) = delete;

  // The current theme; the plain one is installed on first use.
  CExtPaintManager* GetPM();
  CExtPaintManager* operator->() { return GetPM(); }
  bool HasPM() const { return m_pPaintManager != nullptr; }

  // Creates an object of the class and installs it; a null class installs the plain theme.
  // False, and nothing changes, when the class can't be created or isn't a paint manager.
  bool InstallPaintManagerByClass(const CRuntimeClass* cls);
  // Takes ownership of `pm` and installs it: see the order in the implementation.
  bool InstallPaintManager(CExtPaintManager* pm);

  // Stores the class name and the theme's state; loading makes the object and installs it.
  bool Serialize(platform::Archive& ar);

  // Sinks hear every change; they are not owned.
  void AddSink(CExtPmSynchronizeSink* sink);
  void RemoveSink(CExtPmSynchronizeSink* sink);
  bool HasSink(const CExtPmSynchronizeSink* sink) const;
  // Tells sinks and windows that the system colours changed, after rebuilding the colours.
  void OnSysColorChange();

  // The change message goes to every window through this call; the window system sets it.
  void SetBroadcast(std::function<void(const char* message_name)> broadcast);

  // A dpi for tests and for the window system when the screen changes; axis 0, 1 or 2.
  void SetDpi(int axis, int dpi);
  int Dpi(int axis) const;
  bool IsScaled(int axis) const;
  void* OptionalCallAddress(const std::string& name) const;

  // Fields in the order the holder keeps them.
  CExtPaintManager* m_pPaintManager = nullptr;
  std::vector<CExtPmSynchronizeSink*> m_sinks;
  bool m_bPaintManagerLoading = false;
  std::string m_strOsVer = "Unknown";
  OsVersionInfo m_version;
  unsigned m_dwOsFamily = kOsFamilyUnknown;
  int m_nLPX = 96, m_nLPY = 96, m_nLPZ = 96;
  unsigned m_dwDpiScaling = 15;
  int m_nDesktopColorDepth = 32;
  VisualStyle m_visualStyle;
  std::map<std::string, void*> m_optionalCalls;
  bool m_bLayeredHighColorAvailable = false;

 private:
  void TellSinks(bool colors_only);
  std::function<void(const char*)> m_broadcast;
};

// The one holder of the process.
CExtPaintManagerAutoPtr& g_PaintManager();

}  // namespace qmk::toolkit::theme
