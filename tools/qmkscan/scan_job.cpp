// scan_job.cpp: define-form and scan on the simulated scanner.
#include "scan_job.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <vector>

#include "commands.h"
#include "data_file.h"
#include "form_file.h"
#include "frame/operator.h"
#include "host_operator.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkLink.h"
#include "qmk/QmkLinkSim.h"
#include "sim_session.h"

namespace qmkscan {

struct SimSession::Host {
  HostConfig config;
  HostOperator op;
  qmk::frame::Operator* previous = nullptr;
};

SimSession::SimSession(int model, const std::string& batch, std::optional<bool> answer_ok)
    : host_(nullptr) {
  const qmk::scanner::ModelRow* row = qmk::scanner::FindModel(model);
  if (!row) {
    error_ = "no model " + std::to_string(model) + "; the models are 500 to 518";
    return;
  }
  QlkSimReset();
  char message[256] = "";
  if (QlkSimLoadBatch(batch.c_str(), message, sizeof message) < 0) {
    error_ = std::string(message).rfind("cannot", 0) == 0 ? message : batch + ": " + message;
    return;
  }
  host_ = new Host{ConfigForModel(*row, 0), HostOperator(answer_ok)};
  host_->previous = qmk::frame::SetOperator(&host_->op);
  int code = 0;
  rec_ = ScnInitializeScanner(nullptr, &host_->config.cfg, &host_->config.comm, &code);
  if (!rec_) {
    char text[200] = "";
    GenLoadText(nullptr, code, text, sizeof text);
    error_ = std::string("the scanner did not open: ") + (text[0] ? text : "no answer") +
             " (code " + std::to_string(code) + ")";
  }
}

SimSession::~SimSession() {
  if (rec_) ScnScanTerm(rec_);
  if (host_) qmk::frame::SetOperator(host_->previous);
  delete host_;
}

int SimSession::faults_answered() const { return host_ ? host_->op.faults_shown() : 0; }

namespace {

void Progress(const ScanSummary& s, std::chrono::steady_clock::time_point start) {
  if (!isatty(fileno(stderr))) return;
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::fprintf(stderr, "\rread %d, rejected %d, %.0f sheets/min   ", s.read,
               QlkSimStackerCount(1), seconds > 0 ? s.read * 60 / seconds : 0.0);
}

std::string BarCode(qlkdata_rec* rec) {
  if (!QMK_FEAT_BAR_CODE_READER(rec->feat)) return "";
  char text[QMK_BAR_CODE_BYTES + 1];
  return ScnReadBarcodeBuffer(rec, sizeof text, text) == 0 ? text : "";
}

}  // namespace

int ScanBatch(const JobOptions& o, ScanSummary* summary_out) {
  SimSession session(o.model, o.batch, o.answer_ok);
  if (!session.rec()) {
    std::fprintf(stderr, "qmkscan scan: %s\n", session.error().c_str());
    return 1;
  }
  qlkdata_rec* rec = session.rec();
  sht_desc desc{};
  std::string error;
  if (o.form && !LoadForm(*o.form, desc, error)) {
    std::fprintf(stderr, "qmkscan scan: %s\n", error.c_str());
    return 2;
  }
  DataFile data;
  if (!data.Open(o.out, error)) {
    std::fprintf(stderr, "qmkscan scan: %s\n", error.c_str());
    return 1;
  }
  ScnSetScannerMode(rec, 0, 0, 0, 0, 0);
  std::vector<char> front(QMK_OMR_BYTES), back(QMK_OMR_BYTES);
  ScanSummary s;
  const auto start = std::chrono::steady_clock::now();
  for (;;) {
    int lengths[4] = {0, 0, QlkGetOMRLength(0), QlkGetOMRLength(1)};
    const int result =
        o.form ? ScnScanForImage(nullptr, rec, &desc, o.read_level, front.data(), back.data(),
                                 QMK_OMR_BYTES, 0)
               : ScnScanForOMR(nullptr, rec, o.stop_on_empty, QMK_OMR_BYTES, front.data(),
                               back.data(), &lengths[0], &lengths[1], &lengths[2], &lengths[3]);
    if (result == QMK_SCAN_STOPPED) break;
    if (result != QMK_SCAN_DONE) continue;  // refused sheet: it went out as rejected
    ++s.read;
    if (!data.Write(s.read, front.data(), rec->lines_front, lengths[2], back.data(),
                    rec->lines_back, lengths[3], BarCode(rec))) {
      std::fprintf(stderr, "\nqmkscan scan: cannot write %s; sheet %d went to the stacker but "
                   "is not in the data file\n", o.out.c_str(), s.read);
      return 1;
    }
    Progress(s, start);
  }
  s.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  s.rejected = QlkSimStackerCount(1);
  s.jammed = QlkSimStackerCount(2);
  s.faults = session.faults_answered();
  s.stopped_by_operator = QlkSimHopperCount() > 0;
  if (isatty(fileno(stderr))) std::fputc('\n', stderr);
  std::printf("Read %d sheets into %s; %d rejected, %d taken out after a jam%s.\n", s.read,
              o.out.c_str(), s.rejected, s.jammed,
              s.stopped_by_operator ? "; stopped by the operator with sheets left in the hopper" : "");
  if (summary_out) *summary_out = s;
  return 0;
}

int DefineForm(const JobOptions& o) {
  SimSession session(o.model, o.batch, o.answer_ok);
  if (!session.rec()) {
    std::fprintf(stderr, "qmkscan define-form: %s\n", session.error().c_str());
    return 1;
  }
  sht_desc desc{};
  std::vector<char> front(QMK_OMR_BYTES), back(QMK_OMR_BYTES);
  const int result = ScnScanToDefineFormIds(nullptr, session.rec(), &desc, o.read_level,
                                            front.data(), back.data(), QMK_OMR_BYTES, o.front_only,
                                            o.first_line, o.last_line, 1);
  if (result == QMK_SCAN_STOPPED) {
    std::fprintf(stderr, "qmkscan define-form: no sample sheet was read\n");
    return 1;
  }
  if (result == QMK_SCAN_NO_TIMING_MARKS) {
    std::fprintf(stderr, "qmkscan define-form: the sample sheet has no timing marks\n");
    return 1;
  }
  std::string error;
  if (!SaveForm(o.out, desc, error)) {
    std::fprintf(stderr, "qmkscan define-form: %s\n", error.c_str());
    return 1;
  }
  int marks = 0;
  while (marks < QMK_MAX_FORM_ID_MARKS && desc.id_mark_col[marks]) ++marks;
  std::printf("Learned a form with %d front and %d back lines, thickness %d to %d, %d form-ID "
              "marks; saved to %s.\n",
              desc.id_lines_front, desc.id_lines_back, desc.thick_min, desc.thick_max, marks,
              o.out.c_str());
  return 0;
}

bool ReadJobOptions(Args& args, const char* command, JobOptions& o) {
  const auto model = IntOption(args, "model", o.model);
  const auto level = IntOption(args, "read-level", 0);
  if (!model || !level) return false;
  o.model = static_cast<int>(*model);
  o.read_level = static_cast<int>(*level);
  o.batch = args.Option("batch").value_or("");
  o.out = args.Option("out").value_or("");
  o.form = args.Option("form");
  if (const auto answer = args.Option("answer")) {
    if (*answer != "ok" && *answer != "cancel") {
      std::fprintf(stderr, "qmkscan %s: --answer is ok or cancel, not \"%s\"\n", command, answer->c_str());
      return false;
    }
    o.answer_ok = *answer == "ok";
  }
  o.stop_on_empty = args.Flag("stop-on-empty");
  o.first_line = args.Flag("first-line");
  o.last_line = args.Flag("last-line");
  o.front_only = args.Flag("front-only");
  if (!args.NoUnknownOptions(command)) return false;
  if (o.batch.empty() || o.out.empty()) {
    std::fprintf(stderr, "qmkscan %s: --batch FILE and --out FILE are needed\n", command);
    return false;
  }
  return true;
}

}  // namespace qmkscan
