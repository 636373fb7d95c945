// exports.cpp: the naming export of libQmkScan.
#include "frame/module_state_guard.h"
#include "options/auto_name.h"

extern "C" {

QMK_API int ScnMakeAutoName(QMK_HWND owner, const char* data_path, char* out_name,
                            build_data* record, int commit) {
  qmk::frame::ModuleStateGuard guard;
  if (!out_name || !record) return 0;
  return qmk::options::MakeAutoName(owner, data_path, out_name, record, commit).result;
}

}
