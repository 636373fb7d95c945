// list_box_control.h: the "ListBox" class over the list model.
#pragma once

#include "platform/ui/controls/list_box_model.h"
#include "platform/ui/controls/list_pane.h"
#include "platform/ui/controls/plain_control.h"

namespace qmk::platform::ui::controls {

class ListBoxControl : public PlainControl {
 public:
  explicit ListBoxControl(HWND hwnd) : PlainControl(hwnd), pane_(model_) {}
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;
  const ListBoxModel& model() const { return model_; }

 protected:
  void Paint(Dc& dc) override;
  void OnCreate(const CREATESTRUCT& cs) override;

 private:
  void Relayout();
  // A change made by the person: repaint, and LBN_SELCHANGE when the list notifies.
  void UserChanged(bool selection_changed);
  LRESULT HandleListMessage(unsigned msg, WPARAM wparam, LPARAM lparam, bool* handled);
  LRESULT HandleMouse(unsigned msg, WPARAM wparam, LPARAM lparam);
  LRESULT KeyDown(unsigned vk);

  ListBoxModel model_;
  ListPane pane_;
  int item_height_ = 0;  // 0: the font's line height
  bool dragging_ = false;
};

}  // namespace qmk::platform::ui::controls
