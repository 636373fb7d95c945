// cmd_autoname.cpp: qmkscan autoname: expands a file name template as a host would, optionally
// taking the number and keeping it in the form's naming context.
#include <cstdio>
#include <cstring>
#include <string>

#include "commands.h"
#include "frame/module_state_guard.h"
#include "options/auto_name.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkScan.h"
#include "toolkit/dialogs/string_table.h"

namespace qmkscan {
namespace {

// The reset rule's bit for a word of --reset; 0 for an unknown word.
uint8_t ResetFlag(const std::string& word) {
  if (word == "never") return QMK_AUTONAME_NEVER_RESET;
  if (word == "daily") return QMK_AUTONAME_RESET_DAILY;
  if (word == "weekly") return QMK_AUTONAME_RESET_WEEKLY;
  if (word == "monthly") return QMK_AUTONAME_RESET_MONTHLY;
  return 0;
}

int PrintRefusal(QMK_HWND, const char* text, unsigned) {
  std::fprintf(stderr, "qmkscan autoname: %s\n", text);
  return 1;
}

}  // namespace

int RunAutoName(Args& args) {
  const auto form = IntOption(args, "form", 1);
  const auto sequence = IntOption(args, "sequence", 0);
  const std::string reset = args.Option("reset").value_or("never");
  const std::string data_dir = args.Option("data-dir").value_or(".");
  const bool context = args.Flag("context");
  const bool commit = args.Flag("commit");
  const bool batch = args.Flag("batch");
  if (!form || !sequence || !args.NoUnknownOptions("autoname")) return 2;
  if (args.rest().size() != 1) {
    std::fprintf(stderr, "qmkscan autoname: give one TEMPLATE, such as \"Scan*S.dat\"\n");
    return 2;
  }
  const uint8_t reset_flag = ResetFlag(reset);
  if (!reset_flag) {
    std::fprintf(stderr, "qmkscan autoname: --reset is never, daily, weekly or monthly\n");
    return 2;
  }
  if (*form < INT16_MIN || *form > INT16_MAX || *sequence < INT16_MIN || *sequence > INT16_MAX) {
    std::fprintf(stderr, "qmkscan autoname: --form and --sequence are 16-bit numbers\n");
    return 2;
  }

  qmk::frame::ModuleStateGuard guard;
  const std::string& name_template = args.rest()[0];
  // A refused template is an error of this command line: said on stderr, with no prompt.
  const GenMessageSink previous = GenSetMessageSink(&PrintRefusal);
  const bool usable = GenCheckAutoNameCString(name_template.c_str(), nullptr);
  GenSetMessageSink(previous);
  if (!usable) return 1;

  build_data record{};
  record.formNumber = static_cast<int16_t>(*form);
  record.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  record.autoNameFlags = static_cast<uint8_t>(reset_flag | (batch ? QMK_AUTONAME_USE_AS_BATCH : 0));
  record.autoNameSequence = static_cast<int16_t>(*sequence);
  record.contextFileInUse = context ? 1 : 0;
  std::memcpy(record.autoNameTemplate, name_template.data(), name_template.size());

  char name[QMK_NAME_BYTES];
  // No owner window: the wrap is reported in the lines below, not in a box to acknowledge.
  const qmk::options::AutoNameOutcome outcome =
      qmk::options::MakeAutoName(nullptr, data_dir.c_str(), name, &record, commit ? 1 : 0);
  std::printf("name: %s\n", name);
  if (context)
    std::printf("context: %s\n", qmk::options::ContextName(record.formNumber).c_str());
  std::printf("sequence: %d before, %d after%s\n", outcome.sequence_before,
              commit ? record.autoNameSequence : outcome.sequence_before,
              commit ? "" : " (preview: nothing taken)");
  std::printf("reset: %s\n", outcome.reset ? "yes" : "no");
  std::printf("wrapped: %s\n", outcome.wrapped ? "yes" : "no");
  std::string notice;
  if (outcome.result == 1 && qmk::toolkit::LoadString(2034, notice)) std::printf("%s\n", notice.c_str());
  if (batch && commit) std::printf("batch number: %s\n", record.batchNumberText);
  return 0;
}

}  // namespace qmkscan
