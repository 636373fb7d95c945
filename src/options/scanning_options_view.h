// scanning_options_view.h: the scanning options dialog on screen: the main dialog with its tab
// page container and the two pages, each a thin view over its part of the model.
#pragma once

#include "frame/corvid_dialog.h"
#include "options/scanning_options_model.h"
#include "toolkit/dialogs/ext_tab_page_container.h"

namespace qmk::options::view {

class CScanningOptionsMainDlg;

class CScanningOptionsTabFileNames : public frame::CCorvidDialog {
 public:
  CScanningOptionsTabFileNames(options::CScanningOptionsTabFileNames& page,
                               CScanningOptionsMainDlg& main);
  void ShowValues();
  void ReadValues();

 protected:
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override;

 private:
  // The edit 1908's tooltip follows the model's.
  void ShowTooltip();

  options::CScanningOptionsTabFileNames& page_;
  CScanningOptionsMainDlg& main_;
};

class CScanningOptionsTabScannerControl : public frame::CCorvidDialog {
 public:
  CScanningOptionsTabScannerControl(options::CScanningOptionsTabScannerControl& page,
                                    CScanningOptionsMainDlg& main);
  // Fills the read combos and sets the limits; once, when the page is made.
  void Prepare();
  // `all` writes every value; otherwise only what the refresh rule writes (the batch number).
  void ShowValues(bool all);
  // Reads the controls; numbers that don't parse keep their last value.
  void ReadValues();
  // The framework's number checks of OK: false, with its message and the focus on the control,
  // when a number edit holds no number.
  bool ReadNumbersStrictly();

 protected:
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override;

 private:
  options::CScanningOptionsTabScannerControl& page_;
  CScanningOptionsMainDlg& main_;
};

class CScanningOptionsMainDlg : public frame::CCorvidDialog {
 public:
  explicit CScanningOptionsMainDlg(options::CScanningOptionsMainDlg& model, HWND parent = nullptr);

  // Reads both pages, lets `rule` run on the model, and shows both pages again.
  template <typename Rule>
  void RunRule(Rule rule) {
    ReadAll();
    rule();
    ShowAll(false);
  }
  void SelectPage(int page);
  // The page shown now, or -1 before the pages are made.
  int CurrentPage() const;
  toolkit::CExtTabPageContainerWnd& page_container() { return container_; }
  options::CScanningOptionsMainDlg& Model() { return model_; }
  OptionServices& Services() { return model_.services(); }

 protected:
  bool OnInitDialog() override;
  void OnOK() override;
  void OnDestroy() override;
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override;

 private:
  void CreatePageContainer();
  // The page keys where the container doesn't see them: focus on OK or Cancel.
  bool PageKeyOutsideContainer(const platform::ui::MSG& msg);
  void ReadAll();
  void ShowAll(bool all);

  options::CScanningOptionsMainDlg& model_;
  CScanningOptionsTabFileNames file_names_;
  CScanningOptionsTabScannerControl scanner_control_;
  int key_filter_ = 0;
  // Declared last: it destroys the page windows before the page objects go.
  toolkit::CExtTabPageContainerWnd container_;
};

}  // namespace qmk::options::view
