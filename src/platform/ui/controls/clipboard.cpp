// clipboard.cpp: the process-wide clipboard the edit controls use.
#include "platform/ui/controls/clipboard.h"

namespace qmk::platform::ui::controls {
namespace {
MemoryClipboard& FallbackClipboard() {
  static MemoryClipboard clipboard;
  return clipboard;
}
TextClipboard* g_installed = nullptr;
}  // namespace

TextClipboard& CurrentClipboard() {
  return g_installed ? *g_installed : FallbackClipboard();
}

void SetCurrentClipboard(TextClipboard* clipboard) { g_installed = clipboard; }

}  // namespace qmk::platform::ui::controls
