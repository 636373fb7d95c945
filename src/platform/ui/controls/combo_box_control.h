// combo_box_control.h: the "ComboBox" class (simple, drop-down, drop-down list) and the pop-up
// "ComboLBox" window that shows its list when dropped.
#pragma once

#include "platform/ui/controls/combo_box_model.h"
#include "platform/ui/controls/edit_view.h"
#include "platform/ui/controls/list_pane.h"
#include "platform/ui/controls/plain_control.h"

namespace qmk::platform::ui::controls {

class ComboBoxControl : public PlainControl {
 public:
  explicit ComboBoxControl(HWND hwnd)
      : PlainControl(hwnd), model_(ComboKind::kDropDownList, false), pane_(model_.list()) {}
  ~ComboBoxControl() override;
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;
  const ComboBoxModel& model() const { return model_; }
  HWND popup() const { return popup_; }

  // Called by the pop-up list.
  ListPane& pane() { return pane_; }
  void PickFromPopup(int index);
  void PaintPopup(Dc& dc, const Rect& client);

 protected:
  void Paint(Dc& dc) override;
  void OnCreate(const CREATESTRUCT& cs) override;

 private:
  int FieldHeight() const;
  int ItemHeight() const;
  Rect FieldRect() const;
  Rect ButtonRect() const;
  EditView View() const;
  void LayoutSimpleList();
  // Tells the parent the notices in order, keeps the window text in step and repaints.
  void Tell(const ComboNotices& notices);
  void SetDropped(bool show);
  void PlacePopup();
  int PopupRows() const;
  LRESULT DialogCode(LPARAM lparam) const;
  LRESULT KeyDown(unsigned vk, bool alt);
  LRESULT HandleMouse(unsigned msg, WPARAM wparam, LPARAM lparam);
  LRESULT HandleComboMessage(unsigned msg, WPARAM wparam, LPARAM lparam, bool* handled);
  void EditClipboard(unsigned vk);

  ComboBoxModel model_;
  ListPane pane_;
  HWND popup_ = nullptr;
  int dropped_height_ = 100;  // the height the template gave, field and list together
  int item_height_ = 0;       // 0: the font's line height
  bool button_down_ = false;
  bool selecting_text_ = false;
  bool scrolling_list_ = false;
};

// The pop-up list of a dropped combo box: paints the combo's list and reports clicks.
class ComboListPopup : public PlainControl {
 public:
  using PlainControl::PlainControl;
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;

 protected:
  void Paint(Dc& dc) override;
  void OnCreate(const CREATESTRUCT& cs) override;

 private:
  ComboBoxControl* Combo() const;
  HWND combo_ = nullptr;
};

}  // namespace qmk::platform::ui::controls
