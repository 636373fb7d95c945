// auto_name_dialog_view.h: the automatic file naming dialog on screen: a thin view that shows
// its model's values and hands the model every click, selection and edit.
#pragma once

#include "frame/corvid_dialog.h"
#include "options/auto_name_dialog_model.h"

namespace qmk::options::view {

class CAutoNameDialog : public frame::CCorvidDialog {
 public:
  explicit CAutoNameDialog(options::CAutoNameDialog& model, HWND parent = nullptr);

 protected:
  bool OnInitDialog() override;
  void OnOK() override;
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override;

 private:
  void ShowValues();
  void ReadValues();
  void OnSelChange();

  options::CAutoNameDialog& model_;
};

}  // namespace qmk::options::view
