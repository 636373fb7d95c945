// edit_control.h: the "Edit" class: single- and multi-line text entry over the edit model.
#pragma once

#include <string>

#include "platform/ui/controls/edit_model.h"
#include "platform/ui/controls/edit_view.h"
#include "platform/ui/controls/plain_control.h"

namespace qmk::platform::ui::controls {

class EditControl : public PlainControl {
 public:
  explicit EditControl(HWND hwnd) : PlainControl(hwnd) {}
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;
  const EditModel& model() const { return model_; }

 protected:
  void Paint(Dc& dc) override;
  void OnCreate(const CREATESTRUCT& cs) override;

 private:
  EditView View() const;
  LRESULT DialogCode(LPARAM lparam) const;
  LRESULT KeyDown(unsigned vk);
  void TypeText(const std::string& utf8);
  // After a change by the person or EM_REPLACESEL: store, scroll, repaint, tell the parent.
  void Changed(const EditResult& result);
  void Refused() const;
  // Whether `text` in place of the selection still fits a single line without auto-scroll.
  bool FitsWithoutScroll(const std::string& text) const;
  void ScrollCaretIntoView();
  void UpdateWrap();
  LRESULT HandleEditMessage(unsigned msg, WPARAM wparam, LPARAM lparam, bool* handled);
  LRESULT HandleMouse(unsigned msg, WPARAM wparam, LPARAM lparam);

  EditModel model_;
  char password_char_ = '*';
  bool dragging_ = false;
  int wrap_px_ = -1;  // the width the model wraps at, -1 before the first look
  HFONT wrap_font_ = nullptr;
};

}  // namespace qmk::platform::ui::controls
