// exports.cpp: the discovery exports of libQmkScan.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "discovery/config_dialog_services.h"
#include "discovery/configure_scanner_dialog.h"
#include "discovery/identity.h"
#include "discovery/port_list.h"
#include "discovery/probes.h"
#include "frame/module_state_guard.h"
#include "qmk/QmkLink.h"
#include "qmk/QmkScan.hpp"
#include "platform/text.h"

namespace {

// Copies `text` into a caller's buffer, cut to fit and zero-ended.
void CopyOut(const std::string& text, char* buffer, int size) {
  if (size > 0) qmk::platform::CopyCut(text, buffer, static_cast<size_t>(size));
}

}  // namespace

extern "C" {

QMK_API int ScnCheckUSB(int* a, int* b, int* c, int* d) {
  qmk::frame::ModuleStateGuard guard;
  return CheckUSB(a, b, c, d);
}

QMK_API int ScnTwainGetModel(int model_code, char* name) {
  qmk::frame::ModuleStateGuard guard;
  if (!name) return -1;
  return qmk::discovery::ScnTwainGetModel(model_code, name);
}

QMK_API int ScnCheckForNonPadLot(const char* port) {
  qmk::frame::ModuleStateGuard guard;
  if (!port) return 0;
  return qmk::discovery::ScnCheckForNonPadLot(port).answered ? 1 : 0;
}

QMK_API int ScnIsPadLotScannerPresentOnPort(const char* port) {
  qmk::frame::ModuleStateGuard guard;
  if (!port) return 0;
  return qmk::discovery::ScnIsPadLotScannerPresentOnPort(port) ? 1 : 0;
}

QMK_API void ScnSetCfigWithPadLotInfo(int port, sct_config* cfg, sct_config_ex* comm) {
  qmk::discovery::ScnSetCfigWithPadLotInfo(port, cfg, comm);
}

QMK_API int ScnGetDefaultLeadEdgeTol(int family) {
  return qmk::discovery::ScnGetDefaultLeadEdgeTol(family);
}

QMK_API int ScnGetSelfScoreScannerThreshold(sct_config* cfg, sct_config_ex* comm) {
  qmk::frame::ModuleStateGuard guard;
  if (!cfg || !comm) return qmk::discovery::kThresholdUnread;
  return qmk::discovery::ScnGetSelfScoreScannerThreshold(*cfg, *comm);
}

QMK_API void ScnEnumSerialPorts(std::vector<SSerInfo>& ports, int check_open) {
  qmk::frame::ModuleStateGuard guard;
  qmk::discovery::ScnEnumSerialPorts(ports, check_open);
}

QMK_API void ScnGetScannerName(feat_mask& feat, std::string& name, const char* firmware) {
  qmk::frame::ModuleStateGuard guard;
  name = qmk::discovery::ScnGetScannerName(feat, firmware);
}

QMK_API int ScnScannerConfig(QMK_HWND, sct_config* cfg, sct_config_ex* comm, unsigned help_id,
                             int* tested, int* select_state, int* printer_state,
                             int* bar_code_state) {
  qmk::frame::ModuleStateGuard guard;
  if (!cfg || !comm) return -1;
  // The parent isn't used: the dialog has no owner, as the host's own dialogs expect.
  qmk::discovery::LibraryConfigServices services;
  qmk::discovery::ScannerConfigReport report;
  const intptr_t result = qmk::discovery::RunScannerConfig(*cfg, *comm, help_id, services, &report);
  if (result == 1) {
    if (tested) *tested = report.tested;
    if (select_state) *select_state = report.select_state;
    if (printer_state) *printer_state = report.printer_state;
    if (bar_code_state) *bar_code_state = report.bar_code_state;
  }
  return static_cast<int>(result);
}

QMK_API int ScnEnumSerialPortsC(SSerInfo* ports, int capacity, int check_open, int* count,
                                char* error, int error_size) {
  qmk::frame::ModuleStateGuard guard;
  if (!count || capacity < 0 || (capacity > 0 && !ports)) return QMK_ENUM_BAD_ARGUMENT;
  *count = 0;
  std::vector<SSerInfo> list;
  try {
    qmk::discovery::ScnEnumSerialPorts(list, check_open);
  } catch (const std::string& text) {
    CopyOut(text, error, error_size);
    return QMK_ENUM_FAILED;
  }
  *count = static_cast<int>(list.size());
  const size_t n = std::min(list.size(), static_cast<size_t>(capacity));
  std::copy_n(list.begin(), n, ports);
  return list.size() > n ? QMK_ENUM_TOO_SMALL : QMK_ENUM_OK;
}

QMK_API int ScnGetScannerNameC(const feat_mask* feat, char* name, int size, const char* firmware) {
  qmk::frame::ModuleStateGuard guard;
  if (!feat || !name || size <= 0) return -1;
  const std::string text = qmk::discovery::ScnGetScannerName(*feat, firmware);
  CopyOut(text, name, size);
  return static_cast<int>(text.size());
}

}
