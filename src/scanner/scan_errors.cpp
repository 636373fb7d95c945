// scan_errors.cpp: showing a failed sheet's faults, rejecting it, and the log pass-throughs.
#include "scanner/scan_errors.h"

#include <string>
#include <vector>

#include "frame/operator.h"
#include "qmk/QmkLink.h"
#include "scanner/error_list.h"
#include "scanner/records.h"
#include "scanner/status_bits.h"

namespace qmk::scanner {

void ScnRejectSheet(qlkdata_rec* rec) {
  const Features feat = FeaturesOf(*rec);
  if (feat.padlot()) {
    QlkControl(nullptr, QLK_CONTROL_REJECT);
  } else if (feat.family() == 12) {
    QlkFlush(nullptr, QLK_FLUSH_ACCEPT);
  } else {
    // A jammed sheet can't be sent anywhere: only stop the transport.
    if (!(rec->status1 & kJam)) {
      if (feat.family() == 3)
        QlkFlush(nullptr, QLK_FLUSH_REJECT);
      else
        QlkControl(nullptr, QLK_CONTROL_REJECT);
    }
    QlkControl(nullptr, QLK_CONTROL_STOP);
  }
}

int ScnShowScanError(qlkdata_rec* rec) {
  std::vector<std::string> faults;
  ScnBuildErrorList(rec, faults);
  ScnRejectSheet(rec);
  // The list may be empty when no text matched; the operator still decides.
  const int answer = frame::CurrentOperator().ShowScanErrorList(faults);
  if (answer == 1) QlkControl(nullptr, QLK_CONTROL_READY);
  return answer;
}

int GetScannerErrorLog(scan_error_log_registry* log, char* first, char* second) {
  return QlkReadLogData(log, first, second);
}

int ResetScannerErrorLog(char* first, char* second) {
  QlkResetLog(nullptr);
  return QlkWriteLog(nullptr, first, second);
}

}  // namespace qmk::scanner
