// dialog_sample_edit.cpp: the edit options dialog of `qmkscan dialog edit` and
// `qmkscan options edit --png`.
#include <cstdio>

#include "dialog_samples.h"
#include "options/conversion_options_view.h"
#include "platform/ui/messages.h"

namespace qmkscan {
namespace {

class EditSample : public DialogSample {
 public:
  explicit EditSample(const build_data& record) : mode_(record.editMode) {}
  qmk::toolkit::CExtResDlg& Dialog() override { return view_; }
  int TemplateId() const override { return qmk::options::CEditOptionsDialog::kIdd; }
  void PrintResult(intptr_t result) override {
    if (result == qmk::platform::ui::IDOK) std::printf("ok\neditMode: %u\n", mode_);
    else std::printf("cancelled\n");
  }

 private:
  uint16_t mode_;
  qmk::options::CEditOptionsDialog model_{mode_};
  qmk::options::view::CEditOptionsDialog view_{model_};
};

}  // namespace

std::unique_ptr<DialogSample> MakeEditDialogOn(const build_data& record) {
  return std::make_unique<EditSample>(record);
}

std::unique_ptr<DialogSample> MakeEditDialog() { return MakeEditDialogOn(SampleJobRecord()); }

}  // namespace qmkscan
