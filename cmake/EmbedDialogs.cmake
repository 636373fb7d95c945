# Writes the table of built-in dialog templates: one row per resources/dialogs/<id>.<tag>.dlg.
# Run as: cmake -DSOURCE_DIR=... -DOUTPUT=... -P EmbedDialogs.cmake
file(GLOB dialogs ${SOURCE_DIR}/*.dlg)
list(SORT dialogs)
set(rows "")
foreach(path IN LISTS dialogs)
  get_filename_component(name ${path} NAME)
  if(NOT name MATCHES "^([0-9]+)\\.([A-Za-z-]+)\\.dlg$")
    message(FATAL_ERROR "dialog template file ${name} is not named <id>.<language>.dlg")
  endif()
  set(id ${CMAKE_MATCH_1})
  set(tag ${CMAKE_MATCH_2})
  file(READ ${path} text)
  string(FIND "${text}" ")qmkdlg\"" clash)
  if(NOT clash EQUAL -1)
    message(FATAL_ERROR "${name} contains the string delimiter )qmkdlg\"")
  endif()
  string(APPEND rows "    {${id}, \"${tag}\", R\"qmkdlg(${text})qmkdlg\"},\n")
endforeach()
set(content "// Generated from resources/dialogs by cmake/EmbedDialogs.cmake; do not edit.
#include <cstddef>

namespace qmk::platform::ui {
struct RawTemplate {
  int id;
  const char* tag;
  const char* text;
};
extern const RawTemplate kRawTemplates[];
extern const size_t kRawTemplateCount;
const RawTemplate kRawTemplates[] = {
${rows}    {0, \"\", \"\"},
};
const size_t kRawTemplateCount = sizeof(kRawTemplates) / sizeof(kRawTemplates[0]) - 1;
}  // namespace qmk::platform::ui
")
# Only a changed table is written, so that the library is not rebuilt for nothing.
if(EXISTS ${OUTPUT})
  file(READ ${OUTPUT} old)
  if(old STREQUAL content)
    return()
  endif()
endif()
file(WRITE ${OUTPUT} "${content}")
