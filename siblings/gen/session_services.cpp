// session_services.cpp: trace, help id and the host's module name of the common services.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "qmk/QmkGen.h"

namespace {
int g_help_id = 0;
std::string g_module_name;
bool g_module_name_set = false;
}  // namespace

extern "C" {

QMK_API void GenTraceDebugFormatted(const char* title, const char* format, ...) {
  if (!std::getenv("QMK_TRACE") || !format) return;
  std::fprintf(stderr, "%s: ", title ? title : "");
  va_list args;
  va_start(args, format);
  std::vfprintf(stderr, format, args);
  va_end(args);
  std::fputc('\n', stderr);
}

QMK_API int GenGetHelpId(void) { return g_help_id; }
QMK_API int GenSetHelpId(int id) {
  const int previous = g_help_id;
  g_help_id = id;
  return previous;
}

QMK_API const char* GenGetMainAppModuleName(void) {
  return g_module_name_set ? g_module_name.c_str() : nullptr;
}

QMK_API void GenSetMainAppModuleName(const char* name) {
  g_module_name_set = name != nullptr;
  g_module_name = name ? name : "";
}

}
