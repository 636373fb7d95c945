// exports.cpp: the session exports of libQmkScan.
#include "frame/module_state_guard.h"
#include "scanner/image_read.h"
#include "scanner/omr_read.h"
#include "scanner/scan_errors.h"
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

QMK_API int ScnScanForOMR(QMK_HWND parent, qlkdata_rec* rec, int stop_on_empty, int buffer_size,
                          char* front, char* back, int* max_cell_front, int* max_cell_back,
                          int* omr_length_front, int* omr_length_back) {
  qmk::frame::ModuleStateGuard guard;
  if (!rec) return QMK_SCAN_STOPPED;
  return qmk::scanner::ScanForOMR(parent, rec, stop_on_empty, buffer_size, front, back,
                                  max_cell_front, max_cell_back, omr_length_front, omr_length_back);
}

QMK_API int ScnReadBarcodeBuffer(qlkdata_rec* rec, int size, char* text) {
  qmk::frame::ModuleStateGuard guard;
  if (!rec) return -1;
  return qmk::scanner::ReadBarcodeBuffer(rec, size, text);
}

QMK_API int ScnScanForImage(QMK_HWND parent, qlkdata_rec* rec, sht_desc* desc, int read_level,
                            char* front, char* back, int buffer_size, int require_marks) {
  qmk::frame::ModuleStateGuard guard;
  if (!rec || !desc) return QMK_SCAN_STOPPED;
  return qmk::scanner::ScanForImage(parent, rec, desc, read_level, front, back, buffer_size,
                                    require_marks);
}

QMK_API int ScnScanToDefineFormIds(QMK_HWND parent, qlkdata_rec* rec, sht_desc* desc,
                                   int read_level, char* front, char* back, int buffer_size,
                                   int front_only, int first_line, int last_line,
                                   int stop_on_empty) {
  qmk::frame::ModuleStateGuard guard;
  if (!rec || !desc) return QMK_SCAN_STOPPED;
  return qmk::scanner::ScanToDefineFormIds(parent, rec, desc, read_level, front, back, buffer_size,
                                           front_only, first_line, last_line, stop_on_empty);
}

QMK_API int ScnGetScannerErrorLog(scan_error_log_registry* log, char* first, char* second) {
  qmk::frame::ModuleStateGuard guard;
  return qmk::scanner::GetScannerErrorLog(log, first, second);
}

QMK_API int ScnResetScannerErrorLog(char* first, char* second) {
  qmk::frame::ModuleStateGuard guard;
  return qmk::scanner::ResetScannerErrorLog(first, second);
}

}
