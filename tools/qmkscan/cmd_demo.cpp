// cmd_demo.cpp: qmkscan demo: a session told call by call, then a form taught from a sample
// sheet and a batch of answer sheets scanned against it, faults answered.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "commands.h"
#include "dialog_samples.h"
#include "qmk/QmkLinkSim.h"
#include "qmk/QmkScan.h"
#include "scan_job.h"
#include "sim_session.h"

#ifndef QMK_EXAMPLES_DIR
#define QMK_EXAMPLES_DIR "examples"
#endif

namespace qmkscan {
namespace {

// Opens a session, sets a reading mode and closes, printing the transport calls of each step.
int ShowSession(const qmk::scanner::ModelRow& model, long spectrum, long read_mode, int bar_code_port) {
  HostConfig host = ConfigForModel(model, bar_code_port);
  QlkSimReset();
  std::printf("Opening a simulated scanner, model %d (family %u, model code %u, series %u%s)\n",
              model.text_id, model.family, model.model_code, model.series,
              model.image_read ? ", image reading" : "");
  int error = 0;
  qlkdata_rec* rec = ScnInitializeScanner(nullptr, &host.cfg, &host.comm, &error);
  int seen = PrintJournal(0);
  if (!rec) {
    std::printf("The session did not open: code %d.\n", error);
    return 1;
  }
  std::printf("Session open%s.\n", error ? (" with warning " + std::to_string(error)).c_str() : "");
  std::printf("Setting the reading mode (spectrum %ld, read mode %ld)\n", spectrum, read_mode);
  const int mode_result =
      ScnSetScannerMode(rec, static_cast<int>(spectrum), 0, static_cast<int>(read_mode), 0, 0);
  seen = PrintJournal(seen);
  std::printf("Reading mode set: result %d.\n", mode_result);
  std::printf("Closing the session\n");
  ScnScanTerm(rec);
  PrintJournal(seen);
  std::printf("Session closed.\n\n");
  return 0;
}

std::string TempFolder() {
  const char* dir = std::getenv("TMPDIR");
  return dir && *dir ? dir : "/tmp";
}

std::string TempPath(const char* name) { return TempFolder() + "/" + name; }

// The data file's name from a template and form 1's naming context, as a host names its files:
// the number is taken and kept, so the next run goes on from it.
std::string NameDataFile() {
  constexpr char kTemplate[] = "Scan*S.dat";
  build_data naming{};
  naming.formNumber = 1;
  naming.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  naming.autoNameFlags = QMK_AUTONAME_NEVER_RESET;
  naming.contextFileInUse = 1;
  std::memcpy(naming.autoNameTemplate, kTemplate, sizeof kTemplate);
  char name[QMK_NAME_BYTES];
  ScnMakeAutoName(nullptr, TempFolder().c_str(), name, &naming, 1);
  std::printf("Naming the data file from the template \"%s\": %s (number %d of form 1)\n",
              kTemplate, name, naming.autoNameSequence);
  return TempPath(name);
}

// Draws the scanner configuration dialog with its sample records to a PNG beside the data
// file, on the headless window system: a picture needs no display.
}  // namespace

int RunDemo(Args& args) {
  const auto model_id = IntOption(args, "model", 503);
  const auto spectrum = IntOption(args, "spectrum", 0);
  const auto read_mode = IntOption(args, "read-mode", 0);
  const auto bar_code_port = IntOption(args, "bar-code-port", 0);
  const std::string examples = args.Option("examples").value_or(QMK_EXAMPLES_DIR);
  if (!model_id || !spectrum || !read_mode || !bar_code_port || !args.NoUnknownOptions("demo"))
    return 2;
  const qmk::scanner::ModelRow* model = qmk::scanner::FindModel(static_cast<int>(*model_id));
  if (!model) {
    std::fprintf(stderr, "qmkscan demo: no model %ld; the models are 500 to 518\n", *model_id);
    return 2;
  }
  if (int failed = ShowSession(*model, *spectrum, *read_mode, static_cast<int>(*bar_code_port)))
    return failed;
  if (model->family == 0) return 0;  // no scanner to read sheets with

  JobOptions teach;
  teach.model = model->text_id;
  teach.batch = examples + "/sample.batch";
  teach.out = TempPath("qmkscan-demo.form");
  teach.first_line = true;
  std::printf("Teaching a form from the sample sheet %s\n", teach.batch.c_str());
  if (int failed = DefineForm(teach)) return failed;

  JobOptions scan;
  scan.model = model->text_id;
  scan.batch = examples + "/demo.batch";
  scan.out = NameDataFile();
  scan.form = teach.out;
  scan.answer_ok = true;
  std::printf("\nScanning %s against the form; each fault is answered OK (reject the sheet, go on)\n",
              scan.batch.c_str());
  std::fflush(stdout);
  ScanSummary summary;
  if (int failed = ScanBatch(scan, &summary)) return failed;
  std::printf("Summary: %d sheets read, %d rejected, %d taken out after a jam, %d faults answered, "
              "in %.2f s.\n",
              summary.read, summary.rejected, summary.jammed, summary.faults, summary.seconds);
  // The dialog a person at a display would have answered the faults in, drawn beside the data.
  const std::string picture =
      std::filesystem::path(scan.out).replace_extension().string() + "-scan-error.png";
  std::printf("The scan error dialog that asks about each fault at a display: ");
  std::fflush(stdout);
  if (RenderNamedDialog("scan-error", picture) != 0) return 1;
  // And the dialog that sets up a scanner, over a serial scanner's records.
  const std::string configure =
      std::filesystem::path(scan.out).replace_extension().string() + "-configure.png";
  std::printf("The scanner configuration dialog: ");
  std::fflush(stdout);
  return RenderNamedDialog("configure", configure);
}

}  // namespace qmkscan
