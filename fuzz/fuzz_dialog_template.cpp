// fuzz_dialog_template.cpp: the dialog template reader on any text; a template it accepts is
// read again the same way, and every value stays within the form's ranges.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/ui/dialog_template.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace qmk::platform::ui;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  DialogTemplate t;
  TemplateError e;
  if (!ParseDialogTemplate(text, &t, &e)) {
    if (e.message.empty() || e.line < 0) std::abort();
    return 0;
  }
  if (t.items.size() > 1024 || t.cx < 0 || t.cy < 0 || t.font_points < 1 || t.font_points > 72)
    std::abort();
  for (const DialogItemTemplate& item : t.items)
    if (item.cx < 0 || item.cy < 0 || item.id < -1 || item.id > 65535 || item.class_name.empty() ||
        item.text.size() > 4096)
      std::abort();
  DialogTemplate again;
  if (!ParseDialogTemplate(text, &again, nullptr) || again.items.size() != t.items.size())
    std::abort();
  return 0;
}
