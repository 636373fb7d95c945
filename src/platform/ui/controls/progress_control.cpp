// progress_control.cpp: the progress bar's messages and its blocks or smooth bar.
#include "platform/ui/controls/progress_control.h"

#include <algorithm>

#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {

LRESULT ProgressControl::Changed(LRESULT result) {
  Invalidate();
  return result;
}

LRESULT ProgressControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case PBM_SETRANGE: {
      LRESULT before = MAKELPARAM(static_cast<unsigned>(model_.low()), static_cast<unsigned>(model_.high()));
      // The 16-bit form carries unsigned words.
      if (!model_.SetRange(LOWORD(static_cast<uintptr_t>(lparam)), HIWORD(static_cast<uintptr_t>(lparam)))) return 0;
      return Changed(before);
    }
    case PBM_SETRANGE32: {
      LRESULT before = MAKELPARAM(static_cast<unsigned>(model_.low()), static_cast<unsigned>(model_.high()));
      if (!model_.SetRange(static_cast<int>(static_cast<intptr_t>(wparam)), static_cast<int>(lparam))) return 0;
      return Changed(before);
    }
    case PBM_GETRANGE:
      if (lparam) *reinterpret_cast<PBRANGE*>(lparam) = PBRANGE{model_.low(), model_.high()};
      return wparam ? model_.low() : model_.high();
    case PBM_SETPOS: return Changed(model_.SetPos(static_cast<int>(static_cast<intptr_t>(wparam))));
    case PBM_DELTAPOS: return Changed(model_.DeltaPos(static_cast<int>(static_cast<intptr_t>(wparam))));
    case PBM_SETSTEP: return model_.SetStep(static_cast<int>(static_cast<intptr_t>(wparam)));
    case PBM_GETSTEP: return model_.step();
    case PBM_STEPIT: return Changed(model_.StepIt());
    case PBM_GETPOS: return model_.pos();
    default: return PlainControl::Handle(msg, wparam, lparam);
  }
}

void ProgressControl::Paint(Dc& dc) {
  Rect r = ClientRect();
  dc.FillRect(r, colors::kFace);
  Rect inside = DrawEdge(dc, r, Edge::kThinSunken);
  inside = Deflate(inside, 1, 1);
  bool vertical = (style() & PBS_VERTICAL) != 0;
  int length = vertical ? inside.Height() : inside.Width();
  int filled = model_.FilledLength(length);
  if (filled <= 0) return;
  if (style() & PBS_SMOOTH) {
    Rect bar = vertical ? Rect{inside.left, inside.bottom - filled, inside.right, inside.bottom}
                        : Rect{inside.left, inside.top, inside.left + filled, inside.bottom};
    dc.FillRect(bar, colors::kSelection);
    return;
  }
  // Blocks two thirds as long as the bar is thick, two pixels apart; the last block shows
  // whole once the bar reaches into it.
  int thick = vertical ? inside.Width() : inside.Height();
  int block = std::max(2, thick * 2 / 3);
  for (int at = 0; at < filled; at += block + 2) {
    int end = std::min(at + block, length);
    Rect b = vertical ? Rect{inside.left, inside.bottom - end, inside.right, inside.bottom - at}
                      : Rect{inside.left + at, inside.top, inside.left + end, inside.bottom};
    dc.FillRect(b, colors::kSelection);
  }
}

}  // namespace qmk::platform::ui::controls
