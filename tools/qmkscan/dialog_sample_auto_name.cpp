// dialog_sample_auto_name.cpp: the automatic file naming dialog of `qmkscan dialog auto-name`,
// over the sample record's naming fields.
#include <cstdio>
#include <cstring>

#include "dialog_samples.h"
#include "options/auto_name_dialog_view.h"
#include "platform/ui/messages.h"

namespace qmkscan {
namespace {

class AutoNameSample : public DialogSample {
 public:
  AutoNameSample() {
    const build_data record = SampleJobRecord();
    template_ = record.autoNameTemplate;
    sequence_ = record.autoNameSequence;
    flags_ = record.autoNameFlags;
  }
  qmk::toolkit::CExtResDlg& Dialog() override { return view_; }
  int TemplateId() const override { return qmk::options::CAutoNameDialog::kIdd; }
  void PrintResult(intptr_t result) override {
    if (result != qmk::platform::ui::IDOK) {
      std::printf("cancelled\n");
      return;
    }
    std::printf("ok\ntemplate: %s\nsequence: %d\nflags: %u\n", template_.c_str(), sequence_, flags_);
  }

 private:
  std::string template_;
  int16_t sequence_ = 0;
  uint8_t flags_ = 0;
  qmk::options::CAutoNameDialog model_{&template_, &sequence_, &flags_,
                                       qmk::options::DefaultOptionServices()};
  qmk::options::view::CAutoNameDialog view_{model_};
};

}  // namespace

std::unique_ptr<DialogSample> MakeAutoNameDialog() { return std::make_unique<AutoNameSample>(); }

}  // namespace qmkscan
