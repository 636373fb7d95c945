// dialog_sample_conversion.cpp: the conversion options dialog of `qmkscan dialog conversion` and
// `qmkscan options conversion --png`.
#include <cstdio>
#include <cstring>

#include "dialog_samples.h"
#include "options/conversion_options_view.h"
#include "platform/ui/messages.h"

namespace qmkscan {
namespace {

class ConversionSample : public DialogSample {
 public:
  explicit ConversionSample(const build_data& record)
      : choice_((record.conversionFlags & QMK_FILEOPT_DEFAULT_CONVERSION) ? 0 : 1),
        replace_(record.conversionReplaceExisting != 0) {
    if (choice_ == 1)
      name_.assign(record.postScanConversionFileName,
                   strnlen(record.postScanConversionFileName, sizeof record.postScanConversionFileName));
  }
  qmk::toolkit::CExtResDlg& Dialog() override { return view_; }
  int TemplateId() const override { return qmk::options::CConvertOptionsDialog::kIdd; }
  void PrintResult(intptr_t result) override {
    if (result != qmk::platform::ui::IDOK) {
      std::printf("cancelled\n");
      return;
    }
    std::printf("ok\nchoice: %d\nname: %s\nreplace: %d\n", choice_, name_.c_str(), replace_ ? 1 : 0);
  }

 private:
  int choice_;
  std::string name_;
  bool replace_;
  qmk::options::CConvertOptionsDialog model_{choice_, name_, replace_,
                                             qmk::options::DefaultOptionServices()};
  qmk::options::view::CConvertOptionsDialog view_{model_};
};

}  // namespace

std::unique_ptr<DialogSample> MakeConversionDialogOn(const build_data& record) {
  return std::make_unique<ConversionSample>(record);
}

std::unique_ptr<DialogSample> MakeConversionDialog() { return MakeConversionDialogOn(SampleJobRecord()); }

}  // namespace qmkscan
