// dialog_sample_wait_connect.cpp: the wait notice of `qmkscan dialog wait-connect` (and the
// notice sample the lamp wait shares): the notice while a scanner connects.
#include <cstdio>
#include <string>

#include "dialog_samples.h"
#include "frame/modeless_info_dlg.h"
#include "toolkit/dialogs/string_table.h"

namespace qmkscan {
namespace {

constexpr int kConnectingText = 5;

// In a wait, Cancel only raises a flag for the waiting code; shown alone, nothing waits, so Cancel
// (or closing the window) ends the run.
class LiveNotice : public qmk::frame::CModelessInfoDlg {
 public:
  using CModelessInfoDlg::CModelessInfoDlg;

 protected:
  void OnCancel() override {
    CModelessInfoDlg::OnCancel();
    EndDialog(qmk::platform::ui::IDCANCEL);
  }
};

class NoticeSample : public DialogSample {
 public:
  NoticeSample(std::string text, bool show_cancel)
      : dialog_(std::move(text), show_cancel, nullptr) {}
  qmk::toolkit::CExtResDlg& Dialog() override { return dialog_; }
  int TemplateId() const override { return qmk::frame::kInfoDialogTemplate; }
  void PrintResult(intptr_t) override {
    std::printf("%s\n", dialog_.m_bCancelled ? "cancelled" : "closed");
  }

 private:
  LiveNotice dialog_;
};

}  // namespace

std::unique_ptr<DialogSample> MakeNoticeSample(std::string text, bool show_cancel) {
  return std::make_unique<NoticeSample>(std::move(text), show_cancel);
}

std::unique_ptr<DialogSample> MakeWaitConnectSample() {
  std::string text;
  qmk::toolkit::LoadString(kConnectingText, text);
  return MakeNoticeSample(text, false);
}

}  // namespace qmkscan
