// sample_dialog.h: CSampleDialog, the sample dialog with one of every plain control, each drawn
// by the theme and holding a few values, as the theme gallery and the picture tests show it.
#pragma once

#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/dialogs/themed_list_box.h"
#include "toolkit/dialogs/themed_tab_strip.h"

namespace qmk::toolkit {

constexpr int kSampleDialogTemplate = 9000;
// Controls of the sample dialog that the subclassing walk leaves plain, bound to members.
constexpr int kSampleListId = 1010, kSampleTabsId = 1014;

class CSampleDialog : public CExtResizableDialog {
 public:
  CSampleDialog() : CExtResizableDialog(kSampleDialogTemplate) {}

  // How many children the subclassing walk made toolkit controls of (the members not counted).
  int ThemedByWalk() const { return m_nThemedByWalk; }

 protected:
  bool OnInitDialog() override;

 private:
  ThemedListBox m_wndList;
  ThemedTabStrip m_wndTabs;
  int m_nThemedByWalk = 0;
};

// Puts the sample values into a dialog of the sample template: a name, colours, a count, the
// radio and check marks, list rows, tabs, progress and a scroll position.
void FillSampleDialog(platform::ui::HWND dlg);

}  // namespace qmk::toolkit
