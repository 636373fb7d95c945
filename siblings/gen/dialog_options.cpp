// dialog_options.cpp: dialog options and window places remembered by dialog name, for the life
// of the process. The window is reached only through the hooks the library installs, because
// this library knows no window system.
#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <string>

#include "qmk/QmkGen.h"

namespace {

struct Remembered {
  std::string options;
  bool has_rect = false;
  int rect[4] = {};
};

struct Store {
  std::mutex lock;
  GenWindowHooks hooks{};
  bool has_hooks = false;
  std::map<std::string, Remembered> by_name;
};

Store& TheStore() {
  static Store store;
  return store;
}

}  // namespace

extern "C" {

QMK_API void GenSetWindowHooks(const GenWindowHooks* hooks) {
  Store& store = TheStore();
  std::lock_guard<std::mutex> hold(store.lock);
  // A struct from an older caller may be shorter: only whole members are taken.
  store.hooks = GenWindowHooks{};
  store.has_hooks = hooks && hooks->size >= sizeof(GenWindowHooks);
  if (store.has_hooks) store.hooks = *hooks;
}

QMK_API int GenGetDialogOpts(QMK_HWND window, const char* name, char* buffer, int size) {
  if (buffer && size > 0) buffer[0] = '\0';
  if (!name || !*name) return 0;
  Store& store = TheStore();
  Remembered found;
  GenWindowHooks hooks{};
  {
    std::lock_guard<std::mutex> hold(store.lock);
    const auto it = store.by_name.find(name);
    if (it == store.by_name.end()) return 0;
    found = it->second;
    if (store.has_hooks) hooks = store.hooks;
  }
  if (buffer && size > 0) {
    const size_t n = std::min(found.options.size(), static_cast<size_t>(size - 1));
    std::memcpy(buffer, found.options.data(), n);
    buffer[n] = '\0';
  }
  // The hook runs outside the lock: moving a window sends messages that may come back here.
  if (window && found.has_rect && hooks.set_rect) hooks.set_rect(window, found.rect);
  return 1;
}

QMK_API int GenSetDialogOpts(QMK_HWND window, const char* name, const char* options) {
  if (!name || !*name) return 0;
  Store& store = TheStore();
  GenWindowHooks hooks{};
  {
    std::lock_guard<std::mutex> hold(store.lock);
    if (store.has_hooks) hooks = store.hooks;
  }
  Remembered entry;
  entry.options = options ? options : "";
  if (window && hooks.get_rect) entry.has_rect = hooks.get_rect(window, entry.rect) != 0;
  std::lock_guard<std::mutex> hold(store.lock);
  Remembered& kept = store.by_name[name];
  // A window that is already gone keeps the place it had last time.
  if (!entry.has_rect && kept.has_rect) {
    entry.has_rect = true;
    std::memcpy(entry.rect, kept.rect, sizeof entry.rect);
  }
  kept = entry;
  return 1;
}

}
