// dialog_sample_dialog.cpp: the sample dialog of `qmkscan dialog sample`: one of every control
// on the library's dialog base, so that it wears the theme and its controls are themed.
#include <cstdio>

#include "dialog_samples.h"
#include "frame/corvid_dialog.h"
#include "platform/ui/messages.h"

namespace qmkscan {
namespace {

constexpr int kSampleTemplate = 9000;

class SampleSample : public DialogSample {
 public:
  qmk::toolkit::CExtResDlg& Dialog() override { return dialog_; }
  int TemplateId() const override { return kSampleTemplate; }
  void PrintResult(intptr_t result) override {
    std::printf("%s\n", result == qmk::platform::ui::IDOK ? "ok" : "cancelled");
  }

 private:
  qmk::frame::CCorvidDialog dialog_{kSampleTemplate};
};

}  // namespace

std::unique_ptr<DialogSample> MakeSampleDialog() { return std::make_unique<SampleSample>(); }

}  // namespace qmkscan
