// host_operator.cpp: fixed answers, and no endless wait on an empty simulated hopper.
#include "host_operator.h"

#include <algorithm>
#include <cstdio>

#include "qmk/QmkLinkSim.h"

namespace qmkscan {

int HostOperator::MessageBox(QMK_HWND parent, const std::string& text, const std::string& caption,
                             unsigned flags, int help_id) {
  if (!answer_ok_) return TerminalOperator::MessageBox(parent, text, caption, flags, help_id);
  std::fprintf(stderr, "%s: %s\n", caption.c_str(), text.c_str());
  const unsigned buttons = flags & 0x0F;
  if (buttons == 0) return 1;                        // OK alone
  if (buttons == 3 || buttons == 4) return *answer_ok_ ? 6 : 7;  // Yes / No
  return *answer_ok_ ? 1 : 2;
}

int HostOperator::ShowScanErrorList(const std::vector<std::string>& faults) {
  ++faults_shown_;
  // Nobody can refill the simulated hopper while we wait: an empty one ends the scan.
  const bool hopper_empty =
      std::find(faults.begin(), faults.end(), "Input hopper empty") != faults.end() &&
      QlkSimHopperCount() == 0;
  if (hopper_empty) {
    std::fprintf(stderr, "\nScan error: Input hopper empty; no sheets are left, stopping.\n");
    return 2;
  }
  if (!answer_ok_) return TerminalOperator::ShowScanErrorList(faults);
  std::fprintf(stderr, "\nScan error:");
  for (const std::string& f : faults) std::fprintf(stderr, " %s.", f.c_str());
  std::fprintf(stderr, " Answered %s.\n", *answer_ok_ ? "OK: scanning goes on" : "Cancel: scanning stops");
  return *answer_ok_ ? 1 : 2;
}

}  // namespace qmkscan
