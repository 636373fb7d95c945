// clipboard.cpp: the process-wide clipboard the edit controls use: the back end's, unless a
// test or host installs another.
#include "platform/ui/controls/clipboard.h"

#include "platform/ui/backend.h"

namespace qmk::platform::ui::controls {
namespace {

class BackendClipboard : public TextClipboard {
 public:
  void SetText(const std::string& text) override { CurrentBackend().SetClipboardText(text); }
  bool GetText(std::string* text) const override {
    return CurrentBackend().GetClipboardText(text);
  }
};

TextClipboard* g_installed = nullptr;

}  // namespace

TextClipboard& CurrentClipboard() {
  static BackendClipboard backend;
  return g_installed ? *g_installed : backend;
}

void SetCurrentClipboard(TextClipboard* clipboard) { g_installed = clipboard; }

}  // namespace qmk::platform::ui::controls
