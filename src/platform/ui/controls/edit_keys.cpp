// edit_keys.cpp: the table of editing keys over the edit model.
#include "platform/ui/controls/edit_keys.h"

#include "platform/ui/messages.h"

namespace qmk::platform::ui::controls {

EditKeyOutcome ApplyEditKey(EditModel& model, unsigned vk, bool shift, bool ctrl) {
  bool multi = model.options().multi_line;
  auto move = [&](CaretMove m) {
    model.MoveCaret(m, shift);
    return EditKeyOutcome{true, true, {}};
  };
  switch (vk) {
    case VK_LEFT: return move(ctrl ? CaretMove::kWordLeft : CaretMove::kLeft);
    case VK_RIGHT: return move(ctrl ? CaretMove::kWordRight : CaretMove::kRight);
    case VK_HOME: return move(ctrl || !multi ? CaretMove::kTextStart : CaretMove::kLineStart);
    case VK_END: return move(ctrl || !multi ? CaretMove::kTextEnd : CaretMove::kLineEnd);
    case VK_UP: return multi ? move(CaretMove::kUp) : EditKeyOutcome{};
    case VK_DOWN: return multi ? move(CaretMove::kDown) : EditKeyOutcome{};
    case VK_PRIOR: return multi ? move(CaretMove::kPageUp) : EditKeyOutcome{};
    case VK_NEXT: return multi ? move(CaretMove::kPageDown) : EditKeyOutcome{};
    case VK_BACK: return {true, false, model.DeleteBack()};
    case VK_DELETE:
      if (shift) return {};  // cut: the caller's clipboard
      return {true, false, model.DeleteForward()};
    default: break;
  }
  if (ctrl && vk == 'A') {
    model.SelectAll();
    return {true, true, {}};
  }
  if (ctrl && vk == 'Z') return {true, false, model.Undo()};
  return {};
}

}  // namespace qmk::platform::ui::controls
