// cmd_options.cpp: qmkscan options scan|conversion|edit: opens an option dialog on a job record
// kept in a text file, writes the record back on OK, or renders the dialog to a PNG file.
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "commands.h"
#include "dialog_samples.h"
#include "options/build_data_text.h"
#include "options/option_dialogs.h"
#include "platform/ui/backend.h"
#include "platform/ui/headless.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmkscan {
namespace {

using namespace qmk::platform::ui;

enum class Which { Scan, Conversion, Edit };

bool ParseWhich(const std::string& word, Which& which) {
  if (word == "scan") which = Which::Scan;
  else if (word == "conversion") which = Which::Conversion;
  else if (word == "edit") which = Which::Edit;
  else return false;
  return true;
}

// The record of the file, or the sample record when no file is named or it doesn't exist yet.
bool LoadRecord(const std::optional<std::string>& path, build_data& record) {
  record = SampleJobRecord();
  if (!path) return true;
  std::ifstream in(*path, std::ios::binary);
  if (!in) return true;
  std::stringstream text;
  text << in.rdbuf();
  std::string error;
  if (qmk::options::BuildDataFromText(text.str(), record, error)) return true;
  std::fprintf(stderr, "options: %s: %s\n", path->c_str(), error.c_str());
  return false;
}

bool SaveRecord(const std::optional<std::string>& path, const build_data& record) {
  const std::string text = qmk::options::BuildDataToText(record);
  if (!path) {
    std::fputs(text.c_str(), stdout);
    return true;
  }
  // Written beside the file, then renamed over it: a failed write leaves the old record.
  const std::string temporary = *path + ".tmp";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out << text;
    if (!out.flush()) {
      std::fprintf(stderr, "options: cannot write %s\n", temporary.c_str());
      return false;
    }
  }
  if (std::rename(temporary.c_str(), path->c_str()) != 0) {
    std::fprintf(stderr, "options: cannot replace %s\n", path->c_str());
    std::remove(temporary.c_str());
    return false;
  }
  return true;
}

std::unique_ptr<DialogSample> SampleFor(Which which, const build_data& record, int level) {
  switch (which) {
    case Which::Scan: return MakeScanOptionsDialogOn(record, level);
    case Which::Conversion: return MakeConversionDialogOn(record);
    default: return MakeEditDialogOn(record);
  }
}

bool RunLive(Which which, build_data& record, int level) {
  switch (which) {
    case Which::Scan: {
      const sct_config config = SampleScannerConfig();
      return qmk::options::ShowScanOptions(&record, config, level);
    }
    case Which::Conversion: return qmk::options::ShowConversionOptions(&record, 0, nullptr);
    default: return qmk::options::ShowEditOptions(&record, 0, nullptr);
  }
}

}  // namespace

int RunOptions(Args& args) {
  const auto record_path = args.Option("record");
  const auto png = args.Option("png");
  const auto level = IntOption(args, "level", 3, 0, 1000);
  if (!level || !SelectThemeOption(args, "options") || !args.NoUnknownOptions("options")) return 2;
  Which which{};
  if (args.rest().size() != 1 || !ParseWhich(args.rest()[0], which)) {
    std::fprintf(stderr, "options: name one dialog: scan, conversion or edit\n");
    return 2;
  }
  build_data record{};
  if (!LoadRecord(record_path, record)) return 1;
  if (png) InstallBackend(MakeHeadlessBackend().release());
  qmk::toolkit::InstallToolkitSeams();
  if (png) return RenderDialogSample(*SampleFor(which, record, static_cast<int>(*level)), *png, "options");
  std::fprintf(stderr, "back end: %s\n", CurrentBackend().Name());
  if (!RunLive(which, record, static_cast<int>(*level))) {
    std::printf("cancelled\n");
    return 0;
  }
  std::printf("ok\n");
  return SaveRecord(record_path, record) ? 0 : 1;
}

}  // namespace qmkscan
