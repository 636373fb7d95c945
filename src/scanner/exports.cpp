// exports.cpp: the session exports of libQmkScan.
#include "frame/module_state_guard.h"
#include "scanner/session.h"

extern "C" {

QMK_API qlkdata_rec* ScnInitializeScanner(QMK_HWND parent, sct_config* cfg, sct_config_ex* comm,
                                          int* error) {
  qmk::frame::ModuleStateGuard guard;
  return qmk::scanner::OpenSession(parent, cfg, comm, error);
}

QMK_API int ScnSetScannerMode(qlkdata_rec* rec, int spectrum, int mode_flag, int read_mode,
                              unsigned char level, unsigned char detect) {
  qmk::frame::ModuleStateGuard guard;
  return qmk::scanner::SetScannerMode(rec, spectrum, mode_flag, read_mode, level, detect);
}

QMK_API void ScnScanTerm(qlkdata_rec* rec) {
  qmk::frame::ModuleStateGuard guard;
  qmk::scanner::CloseSession(rec);
}

}
