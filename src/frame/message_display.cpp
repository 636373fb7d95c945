// message_display.cpp: loading, formatting and showing messages through the operator.
#include "frame/message_display.h"

#include <cstdarg>
#include <cstdio>
#include <vector>

#include "frame/operator.h"
#include "platform/process.h"
#include "qmk/QmkGen.h"
#include "toolkit/dialogs/string_table.h"

namespace qmk::frame {
namespace {

int ShowUnloadable(int id, unsigned flags) {
  char text[200];
  std::snprintf(text, sizeof text,
                "Program error: cannot display the proper dialog because the string %i could not "
                "be loaded from the resource",
                id);
  return DisplayMessage(text, flags);
}

}  // namespace

unsigned WithDefaultIcon(unsigned flags) {
  if (flags & 0xF0) return flags;
  switch (flags & 0x0F) {
    case kMbOk:
    case kMbOkCancel: return flags | kMbIconExclamation;
    case kMbYesNoCancel:
    case kMbYesNo: return flags | kMbIconQuestion;
    default: return flags;
  }
}

std::string MessageCaption() {
  const char* host_name = GenGetMainAppModuleName();
  return host_name ? host_name : platform::ApplicationName();
}

int ShowMessage(int id, unsigned flags) {
  std::string text;
  if (!toolkit::LoadString(id, text)) return ShowUnloadable(id, flags);
  return DisplayMessage(text, flags);
}

int ShowMessageFormatted(int id, unsigned flags, ...) {
  std::string format;
  if (!toolkit::LoadString(id, format)) return ShowUnloadable(id, flags);
  va_list args, again;
  va_start(args, flags);
  va_copy(again, args);
  const int length = std::vsnprintf(nullptr, 0, format.c_str(), args);
  std::vector<char> text(length >= 0 ? static_cast<size_t>(length) + 1 : 1);
  const int written = length >= 0 ? std::vsnprintf(text.data(), text.size(), format.c_str(), again) : -1;
  va_end(again);
  va_end(args);
  if (written < 0) {
    char failed[200];
    std::snprintf(failed, sizeof failed,
                  "Program error: cannot display the proper dialog because the string %i could "
                  "not properly formatted.",
                  id);
    return DisplayMessage(failed, flags);
  }
  return DisplayMessage(text.data(), flags);
}

int DisplayMessage(const std::string& text, unsigned flags) {
  const std::string caption = MessageCaption();
  GenTraceDebugFormatted("Display Message Box", "%s,%s", caption.c_str(), text.c_str());
  // The library has no main window of its own: its boxes have no parent.
  return CurrentOperator().MessageBox(nullptr, text, caption, WithDefaultIcon(flags), GenGetHelpId());
}

}  // namespace qmk::frame
