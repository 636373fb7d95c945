// widget_state.h: the states a widget is drawn in, the scroll bar's paint record, the message
// box icon kinds, and the set of logical colours a themed look is drawn with.
#pragma once

#include <cstdint>

#include "platform/draw/draw_target.h"

namespace qmk::toolkit::theme {

using platform::DrawRect;
using platform::DrawTarget;

// State bits; a widget may combine several (a hot, focused, checked box).
enum WidgetState : unsigned {
  kStateNormal = 0,
  kStateHot = 1,
  kStatePressed = 2,
  kStateDefault = 4,
  kStateDisabled = 8,
  kStateFocused = 16,
  kStateChecked = 32,
  kStateIndeterminate = 64,
};

// Icons of the message box, by the icon bits of its style.
enum MsgBoxIcon : int {
  kIconNone = 0,
  kIconStop = 0x10,
  kIconQuestion = 0x20,
  kIconExclamation = 0x30,
  kIconInformation = 0x40,
};

// All inputs and outputs of a scroll bar draw. The caller fills the bar's rectangle, whether it
// stands upright, the range, page and position, and the state of each part; the draw computes
// the part rectangles.
struct PAINTSCROLLBARDATA {
  DrawRect m_rcBar;
  bool m_bHorzBar = false;
  int m_nMin = 0, m_nMax = 100, m_nPage = 10, m_nPos = 0;
  unsigned m_nStateArrowUp = kStateNormal;    // left arrow when horizontal
  unsigned m_nStateArrowDown = kStateNormal;  // right arrow when horizontal
  unsigned m_nStateThumb = kStateNormal;
  bool m_bEnabled = true;
  // Computed by the draw.
  DrawRect m_rcButtonUp, m_rcButtonDown, m_rcThumb, m_rcPageUp, m_rcPageDown;
};

// The logical colour indices and shape of a look that the flat and gradient themes share.
// Colours are read through GetColor at draw time, so a colour change needs no new look.
struct WidgetLook {
  int dialog_top, dialog_bottom;
  int face_top, face_bottom, border;
  int hot_top, hot_bottom, hot_border;
  int pressed_top, pressed_bottom, pressed_border;
  int text, disabled_text, label_text, disabled_label;
  int field, field_border, field_disabled;
  int mark;
  int tab_strip, tab_selected_top, tab_selected_bottom, tab_border;
  int progress_track, progress_top, progress_bottom;
  int scroll_track;
  int selection, selection_text;
  int gripper, group_line, icon_area, focus;
  int radius;            // corner radius of buttons and tabs, in pixels before scaling
  bool glossy;           // faces split in a light upper and a deeper lower half
  bool gradient;         // faces shade from top to bottom
  bool block_progress;   // progress drawn as separate blocks
};

}  // namespace qmk::toolkit::theme
