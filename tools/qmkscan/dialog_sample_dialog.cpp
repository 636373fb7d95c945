// dialog_sample_dialog.cpp: the sample dialog of `qmkscan dialog sample`: one of every control
// on the library's dialog base, so that it wears the theme and its controls are themed.
#include <cstdio>

#include "dialog_samples.h"
#include "frame/corvid_dialog.h"
#include "platform/ui/messages.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/sample_dialog.h"

namespace qmkscan {
namespace {

constexpr int kSampleTemplate = qmk::toolkit::kSampleDialogTemplate;

// The library's dialog base themes what its walk knows; the list and the tab strip, which the
// walk leaves plain, are bound to themed members first, and the controls get the sample values.
class SampleCorvidDialog : public qmk::frame::CCorvidDialog {
 public:
  SampleCorvidDialog() : CCorvidDialog(kSampleTemplate) {}

 protected:
  bool OnInitDialog() override {
    namespace ui = qmk::platform::ui;
    list_.SubclassWindow(ui::GetDlgItem(m_hWnd, qmk::toolkit::kSampleListId));
    tabs_.SubclassWindow(ui::GetDlgItem(m_hWnd, qmk::toolkit::kSampleTabsId));
    const bool result = CCorvidDialog::OnInitDialog();
    qmk::toolkit::FillSampleDialog(m_hWnd);
    return result;
  }

 private:
  qmk::toolkit::ThemedListBox list_;
  qmk::toolkit::ThemedTabStrip tabs_;
};

class SampleSample : public DialogSample {
 public:
  qmk::toolkit::CExtResDlg& Dialog() override { return dialog_; }
  int TemplateId() const override { return kSampleTemplate; }
  void PrintResult(intptr_t result) override {
    std::printf("%s\n", result == qmk::platform::ui::IDOK ? "ok" : "cancelled");
  }

 private:
  SampleCorvidDialog dialog_;
};

}  // namespace

std::unique_ptr<DialogSample> MakeSampleDialog() { return std::make_unique<SampleSample>(); }

}  // namespace qmkscan
