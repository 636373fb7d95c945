// conversion_options_view.h: the conversion options and edit options dialogs on screen, thin
// views over their models.
#pragma once

#include "frame/corvid_dialog.h"
#include "options/conversion_options_model.h"

namespace qmk::options::view {

class CConvertOptionsDialog : public frame::CCorvidDialog {
 public:
  explicit CConvertOptionsDialog(options::CConvertOptionsDialog& model, HWND parent = nullptr);

 protected:
  bool OnInitDialog() override;
  void OnOK() override;
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override;

 private:
  void ShowValues();
  void ReadValues();

  options::CConvertOptionsDialog& model_;
};

class CEditOptionsDialog : public frame::CCorvidDialog {
 public:
  explicit CEditOptionsDialog(options::CEditOptionsDialog& model, HWND parent = nullptr);

 protected:
  bool OnInitDialog() override;
  void OnOK() override;

 private:
  options::CEditOptionsDialog& model_;
};

}  // namespace qmk::options::view
