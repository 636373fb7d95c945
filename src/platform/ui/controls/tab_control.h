// tab_control.h: the "SysTabControl32" class: a strip of tabs over a page area.
#pragma once

#include "platform/ui/controls/plain_control.h"
#include "platform/ui/controls/tab_strip_model.h"

namespace qmk::platform::ui::controls {

class TabControl : public PlainControl {
 public:
  using PlainControl::PlainControl;
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;
  const TabStripModel& model() const { return model_; }

 protected:
  void Paint(Dc& dc) override;

 private:
  int StripHeight() const;
  // The strip's tabs are laid out along the top; the arrows sit at its right end.
  void Relayout();
  Rect TabBounds(int index) const;
  Rect ArrowRect(bool forward) const;
  // A change of tab by the person: the parent may refuse it, then hears of it.
  void SelectByUser(int index);
  bool ReadItem(const void* tcitem, TabStripModel::Item* item) const;
  LRESULT HandleTabMessage(unsigned msg, WPARAM wparam, LPARAM lparam, bool* handled);
  void PaintTab(Dc& dc, int index);

  TabStripModel model_;
};

}  // namespace qmk::platform::ui::controls
