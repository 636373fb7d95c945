// scan_job.h: the jobs of qmkscan on the simulated scanner: teach a form, scan a batch.
#pragma once

#include <optional>
#include <string>

#include "args.h"
#include "qmk/QmkScan.h"

namespace qmkscan {

struct JobOptions {
  int model = 503;
  std::string batch;
  std::string out;
  std::optional<std::string> form;  // scan: check sheets against this description
  std::optional<bool> answer_ok;    // nullopt: ask on the terminal
  bool stop_on_empty = false;
  int read_level = 0;
  bool first_line = false, last_line = false, front_only = false;  // define-form
};

struct ScanSummary {
  int read = 0;      // sheets whose data went to the data file
  int rejected = 0;  // sheets sent out as rejected
  int jammed = 0;    // sheets taken out of the transport after a jam
  int faults = 0;    // fault lists the operator answered
  double seconds = 0;
  bool stopped_by_operator = false;
};

// A session on the simulated scanner with the batch in its hopper.
class SimSession {
 public:
  // Opens model `model` with the sheets of `batch`; on failure rec() is null and error() says why.
  SimSession(int model, const std::string& batch, std::optional<bool> answer_ok);
  ~SimSession();
  qlkdata_rec* rec() const { return rec_; }
  // Fault lists that the operator answered.
  int faults_answered() const;
  const std::string& error() const { return error_; }

 private:
  qlkdata_rec* rec_ = nullptr;
  std::string error_;
  struct Host;
  Host* host_;
};

// Teaches a description from the first sheet of the batch and saves it to options.out.
int DefineForm(const JobOptions& options);
// Reads sheets until the hopper is empty or the operator stops, writing options.out.
int ScanBatch(const JobOptions& options, ScanSummary* summary = nullptr);

// Reads the options that scan and define-form share; prints the fault and returns false.
using Args = qmk::tools::Args;
bool ReadJobOptions(Args& args, const char* command, JobOptions& options);

}  // namespace qmkscan
