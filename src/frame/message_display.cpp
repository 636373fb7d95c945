// message_display.cpp: loading, formatting and showing messages through the operator.
#include "frame/message_display.h"

#include <cstdarg>
#include <cstdio>
#include <vector>

#include "frame/corvid_app.h"
#include "frame/operator.h"
#include "platform/process.h"
#include "qmk/QmkGen.h"
#include "toolkit/dialogs/string_table.h"

namespace qmk::frame {
namespace {

constexpr char kUnloadable[] =
    "Program error: cannot display the proper dialog because the string %i could not be loaded "
    "from the resource";
constexpr char kUnformattable[] =
    "Program error: cannot display the proper dialog because the string %i could not properly "
    "formatted.";

// A box that says which string failed, so a missing text never means a missing box.
int ShowProgramError(const char* format, int id, unsigned flags) {
  char text[200];
  std::snprintf(text, sizeof text, format, id);
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
  if (!toolkit::LoadString(id, text)) return ShowProgramError(kUnloadable, id, flags);
  return DisplayMessage(text, flags);
}

int ShowMessageFormatted(int id, unsigned flags, ...) {
  std::string format;
  if (!toolkit::LoadString(id, format)) return ShowProgramError(kUnloadable, id, flags);
  va_list args, again;
  va_start(args, flags);
  va_copy(again, args);
  const int length = std::vsnprintf(nullptr, 0, format.c_str(), args);
  std::vector<char> text(length >= 0 ? static_cast<size_t>(length) + 1 : 1);
  const int written = length >= 0 ? std::vsnprintf(text.data(), text.size(), format.c_str(), again) : -1;
  va_end(again);
  va_end(args);
  if (written < 0) return ShowProgramError(kUnformattable, id, flags);
  return DisplayMessage(text.data(), flags);
}

int DisplayMessage(const std::string& text, unsigned flags) {
  const std::string caption = MessageCaption();
  GenTraceDebugFormatted("Display Message Box", "%s,%s", caption.c_str(), text.c_str());
  // The application's main window when there is one; a library loaded by a host has none unless
  // the host gave it one, and then the box stands alone.
  return CurrentOperator().MessageBox(TheApp().m_pMainWnd, text, caption, WithDefaultIcon(flags),
                                      GenGetHelpId());
}

}  // namespace qmk::frame
