// exports.cpp: the naming and option dialog exports of libQmkScan.
#include "frame/module_state_guard.h"
#include "options/auto_name.h"
#include "options/option_dialogs.h"

extern "C" {

QMK_API int ScnMakeAutoName(QMK_HWND owner, const char* data_path, char* out_name,
                            build_data* record, int commit) {
  qmk::frame::ModuleStateGuard guard;
  if (!out_name || !record) return 0;
  return qmk::options::MakeAutoName(owner, data_path, out_name, record, commit).result;
}

QMK_API int ScnSetScanOptions(build_data* record, QMK_SCT_CONFIG_REF config, int read_level,
                              unsigned, QMK_HWND, unsigned) {
  qmk::frame::ModuleStateGuard guard;
  const sct_config* cfg = QMK_SCT_CONFIG_ADDRESS(config);
  if (!record || !cfg) return 0;
  return qmk::options::ShowScanOptions(record, *cfg, read_level) ? 1 : 0;
}

QMK_API int ScnSetConversionOptions(build_data* record, unsigned help_id, QMK_HWND parent) {
  qmk::frame::ModuleStateGuard guard;
  if (!record) return 0;
  return qmk::options::ShowConversionOptions(record, static_cast<int>(help_id), parent) ? 1 : 0;
}

QMK_API int ScnSetEditOptions(build_data* record, unsigned help_id, QMK_HWND parent) {
  qmk::frame::ModuleStateGuard guard;
  if (!record) return 0;
  return qmk::options::ShowEditOptions(record, static_cast<int>(help_id), parent) ? 1 : 0;
}

}
