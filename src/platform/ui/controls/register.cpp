// register.cpp: registers the window classes of the plain controls.
#include "platform/ui/controls/register.h"

#include "platform/ui/controls/button_control.h"
#include "platform/ui/controls/combo_box_control.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/edit_control.h"
#include "platform/ui/controls/list_box_control.h"
#include "platform/ui/controls/progress_control.h"
#include "platform/ui/controls/scroll_bar_control.h"
#include "platform/ui/controls/static_control.h"
#include "platform/ui/controls/tab_control.h"
#include "platform/ui/controls/up_down_control.h"

namespace qmk::platform::ui {

bool RegisterPlainControls() {
  using namespace controls;
  struct ClassRow {
    const char* name;
    WNDPROC proc;
    uint32_t style;
  };
  const ClassRow rows[] = {
      {kStaticClass, &ControlProc<StaticControl>, 0},
      {kButtonClass, &ControlProc<ButtonControl>, CS_DBLCLKS},
      {kEditClass, &ControlProc<EditControl>, CS_DBLCLKS},
      {kListBoxClass, &ControlProc<ListBoxControl>, CS_DBLCLKS},
      {kComboBoxClass, &ControlProc<ComboBoxControl>, CS_DBLCLKS},
      {kComboListClass, &ControlProc<ComboListPopup>, 0},
      {kUpDownClass, &ControlProc<UpDownControl>, 0},
      {kTabClass, &ControlProc<TabControl>, CS_DBLCLKS},
      {kProgressClass, &ControlProc<ProgressControl>, 0},
      {kScrollBarClass, &ControlProc<ScrollBarControl>, CS_DBLCLKS},
  };
  bool all = true;
  for (const ClassRow& row : rows) {
    WNDCLASS existing;
    // Registering twice is harmless: a class already there (ours or a replacement) stays.
    if (GetClassInfo(row.name, &existing)) continue;
    WNDCLASS wc;
    wc.lpszClassName = row.name;
    wc.lpfnWndProc = row.proc;
    wc.style = row.style;
    wc.background = kNoBackground;
    all = RegisterClass(wc) && all;
  }
  return all;
}

}  // namespace qmk::platform::ui
