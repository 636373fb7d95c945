// cmd_scan.cpp: qmkscan scan and qmkscan define-form.
#include "commands.h"
#include "scan_job.h"

namespace qmkscan {

int RunScan(Args& args) {
  JobOptions options;
  if (!ReadJobOptions(args, "scan", options)) return 2;
  return ScanBatch(options);
}

int RunDefineForm(Args& args) {
  JobOptions options;
  if (!ReadJobOptions(args, "define-form", options)) return 2;
  return DefineForm(options);
}

}  // namespace qmkscan
