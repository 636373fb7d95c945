// backend_select.cpp: choosing, loading and starting the back end: headless, or the GTK 3
// module found by dlopen when a display is there.
#include <dlfcn.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include "platform/ui/headless.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {
namespace {

constexpr const char* kModuleFile = "qmkscan-ui-gtk3.so";

std::unique_ptr<Backend>& Current() {
  static std::unique_ptr<Backend> backend;
  return backend;
}

// The loaded GTK module, for its entry points beside the back end's own.
void*& ModuleHandle() {
  static void* handle = nullptr;
  return handle;
}

// The module's call that makes our windows transient for a host's GtkWindow.
constexpr const char* kSetParentSymbol = "qmk_ui_gtk3_set_parent_window";

// The folder of the binary that holds this code: the library, or a program linked statically.
std::string OwnFolder() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<void*>(&OwnFolder), &info) || !info.dli_fname) return {};
  std::error_code ec;
  auto path = std::filesystem::canonical(info.dli_fname, ec);
  if (ec) return {};
  return path.parent_path().string();
}

std::string FindModule() {
  std::error_code ec;
  for (const std::string& dir : ModuleSearchPath()) {
    const auto candidate = std::filesystem::path(dir) / kModuleFile;
    if (std::filesystem::is_regular_file(candidate, ec)) return candidate.string();
  }
  return {};
}

std::unique_ptr<Backend> LoadModule(const std::string& path) {
  // Loaded for the life of the process: a toolkit with its own threads does not unload.
  void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle) {
    Trace("ui: cannot load %s: %s", path.c_str(), dlerror());
    return nullptr;
  }
  auto create = reinterpret_cast<CreateBackendFn>(dlsym(handle, kCreateBackendSymbol));
  if (!create) {
    Trace("ui: %s has no %s", path.c_str(), kCreateBackendSymbol);
    return nullptr;
  }
  std::unique_ptr<Backend> backend(create(kBackendAbiVersion));
  if (!backend) Trace("ui: %s refused interface version %d", path.c_str(), kBackendAbiVersion);
  else ModuleHandle() = handle;
  return backend;
}

std::unique_ptr<Backend> StartChosen() {
  const std::string module = FindModule();
  const std::string name = ChooseBackendName(std::getenv("QMK_UI"), std::getenv("DISPLAY"),
                                             std::getenv("WAYLAND_DISPLAY"), !module.empty());
  if (name == "gtk3") {
    if (module.empty()) {
      Trace("ui: QMK_UI=gtk3 but %s is not found; using headless", kModuleFile);
    } else if (auto backend = LoadModule(module)) {
      if (backend->Start(&Host())) return backend;
      ModuleHandle() = nullptr;
      Trace("ui: the gtk3 back end cannot start (no display?); using headless");
    }
  }
  auto headless = MakeHeadlessBackend();
  headless->Start(&Host());
  return headless;
}

}  // namespace

std::string ChooseBackendName(const char* qmk_ui, const char* display, const char* wayland,
                              bool module_found) {
  if (qmk_ui && !std::strcmp(qmk_ui, "headless")) return "headless";
  if (qmk_ui && !std::strcmp(qmk_ui, "gtk3")) return "gtk3";
  if (qmk_ui && *qmk_ui) Trace("ui: QMK_UI=%s is not a back end; choosing by display", qmk_ui);
  const bool has_display = (display && *display) || (wayland && *wayland);
  return has_display && module_found ? "gtk3" : "headless";
}

std::vector<std::string> ModuleSearchPath() {
  std::vector<std::string> dirs;
  if (const char* env = std::getenv("QMK_UI_MODULE_DIR"); env && *env) dirs.push_back(env);
  // Beside the library, and in its module folder (lib/qmkscan when installed).
  if (std::string own = OwnFolder(); !own.empty()) {
    dirs.push_back(own);
    dirs.push_back(own + "/qmkscan");
  }
#ifdef QMK_BUILD_TREE
  dirs.push_back(std::string(QMK_BUILD_TREE) + "/src/platform/ui/gtk3");
  dirs.push_back(std::string(QMK_BUILD_TREE) + "/src");
#endif
  return dirs;
}

Backend& TheBackend() {
  if (!Current()) Current() = StartChosen();
  return *Current();
}

bool BackendStarted() { return Current() != nullptr; }

Backend& CurrentBackend() { return TheBackend(); }

bool InstallBackend(Backend* backend) {
  std::unique_ptr<Backend> owned(backend);
  if (!owned) return false;
  for (HWND t : TopLevels())
    if (!NativeWindowId(t)) return false;
  if (!owned->Start(&Host())) return false;
  if (Current()) Current()->Stop();
  Current() = std::move(owned);
  return true;
}

bool SetHostGtkParentWindow(void* gtk_window) {
  TheBackend();
  if (!ModuleHandle()) return false;
  using SetParentFn = int (*)(void*);
  auto set_parent = reinterpret_cast<SetParentFn>(dlsym(ModuleHandle(), kSetParentSymbol));
  return set_parent && set_parent(gtk_window) != 0;
}

bool MessageBeep(unsigned) {
  if (!BackendStarted()) return false;
  TheBackend().Beep();
  return true;
}

}  // namespace qmk::platform::ui
