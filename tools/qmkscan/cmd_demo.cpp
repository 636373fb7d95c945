// cmd_demo.cpp: qmkscan demo: one session on the simulated scanner, told call by call.
#include <cstdio>

#include "commands.h"
#include "qmk/QmkLinkSim.h"
#include "qmk/QmkScan.h"
#include "sim_session.h"

namespace qmkscan {

int RunDemo(Args& args) {
  const auto model_id = IntOption(args, "model", 503);
  const auto spectrum = IntOption(args, "spectrum", 0);
  const auto read_mode = IntOption(args, "read-mode", 0);
  const auto bar_code_port = IntOption(args, "bar-code-port", 0);
  if (!model_id || !spectrum || !read_mode || !bar_code_port || !args.NoUnknownOptions("demo"))
    return 2;
  const qmk::scanner::ModelRow* model = qmk::scanner::FindModel(static_cast<int>(*model_id));
  if (!model) {
    std::fprintf(stderr, "qmkscan demo: no model %ld; the models are 500 to 518\n", *model_id);
    return 2;
  }
  HostConfig host = ConfigForModel(*model, static_cast<int>(*bar_code_port));
  QlkSimReset();

  std::printf("Opening a simulated scanner, model %d (family %u, model code %u, series %u%s)\n",
              model->text_id, model->family, model->model_code, model->series,
              model->image_read ? ", image reading" : "");
  int error = 0;
  qlkdata_rec* rec = ScnInitializeScanner(nullptr, &host.cfg, &host.comm, &error);
  int seen = PrintJournal(0);
  if (!rec) {
    std::printf("The session did not open: code %d.\n", error);
    return 1;
  }
  std::printf("Session open%s.\n", error ? (" with warning " + std::to_string(error)).c_str() : "");

  std::printf("Setting the reading mode (spectrum %ld, read mode %ld)\n", *spectrum, *read_mode);
  const int mode_result =
      ScnSetScannerMode(rec, static_cast<int>(*spectrum), 0, static_cast<int>(*read_mode), 0, 0);
  seen = PrintJournal(seen);
  std::printf("Reading mode set: result %d.\n", mode_result);

  std::printf("Closing the session\n");
  ScnScanTerm(rec);
  PrintJournal(seen);
  std::printf("Session closed.\n");
  return 0;
}

}  // namespace qmkscan
