// key_map.cpp: the table from GDK key values to virtual-key codes.
#include "platform/ui/gtk3/key_map.h"

#include <gdk/gdkkeysyms.h>

#include "platform/ui/messages.h"

namespace qmk::platform::ui::gtk3 {
namespace {

struct KeyRow {
  uint32_t keyval;
  unsigned virtual_key;
};

// Keys outside the letter, digit, keypad-digit and function-key runs, which map by arithmetic.
constexpr KeyRow kKeys[] = {
    {GDK_KEY_BackSpace, 0x08},   {GDK_KEY_Tab, 0x09},          {GDK_KEY_ISO_Left_Tab, 0x09},
    {GDK_KEY_Clear, 0x0C},       {GDK_KEY_KP_Begin, 0x0C},     {GDK_KEY_Return, 0x0D},
    {GDK_KEY_KP_Enter, 0x0D},    {GDK_KEY_Shift_L, 0x10},      {GDK_KEY_Shift_R, 0x10},
    {GDK_KEY_Control_L, 0x11},   {GDK_KEY_Control_R, 0x11},    {GDK_KEY_Alt_L, 0x12},
    {GDK_KEY_Alt_R, 0x12},       {GDK_KEY_ISO_Level3_Shift, 0x12},
    {GDK_KEY_Pause, 0x13},       {GDK_KEY_Caps_Lock, 0x14},    {GDK_KEY_Escape, 0x1B},
    {GDK_KEY_space, 0x20},       {GDK_KEY_KP_Space, 0x20},     {GDK_KEY_Page_Up, 0x21},
    {GDK_KEY_KP_Page_Up, 0x21},  {GDK_KEY_Page_Down, 0x22},    {GDK_KEY_KP_Page_Down, 0x22},
    {GDK_KEY_End, 0x23},         {GDK_KEY_KP_End, 0x23},       {GDK_KEY_Home, 0x24},
    {GDK_KEY_KP_Home, 0x24},     {GDK_KEY_Left, 0x25},         {GDK_KEY_KP_Left, 0x25},
    {GDK_KEY_Up, 0x26},          {GDK_KEY_KP_Up, 0x26},        {GDK_KEY_Right, 0x27},
    {GDK_KEY_KP_Right, 0x27},    {GDK_KEY_Down, 0x28},         {GDK_KEY_KP_Down, 0x28},
    {GDK_KEY_Print, 0x2C},       {GDK_KEY_Insert, 0x2D},       {GDK_KEY_KP_Insert, 0x2D},
    {GDK_KEY_Delete, 0x2E},      {GDK_KEY_KP_Delete, 0x2E},    {GDK_KEY_Super_L, 0x5B},
    {GDK_KEY_Super_R, 0x5C},     {GDK_KEY_Menu, 0x5D},         {GDK_KEY_KP_Multiply, 0x6A},
    {GDK_KEY_KP_Add, 0x6B},      {GDK_KEY_KP_Separator, 0x6C}, {GDK_KEY_KP_Subtract, 0x6D},
    {GDK_KEY_KP_Decimal, 0x6E},  {GDK_KEY_KP_Divide, 0x6F},    {GDK_KEY_Num_Lock, 0x90},
    {GDK_KEY_Scroll_Lock, 0x91},
    // Punctuation keys of the US layout, by the key value they carry unshifted.
    {GDK_KEY_semicolon, 0xBA},   {GDK_KEY_equal, 0xBB},        {GDK_KEY_comma, 0xBC},
    {GDK_KEY_minus, 0xBD},       {GDK_KEY_period, 0xBE},       {GDK_KEY_slash, 0xBF},
    {GDK_KEY_grave, 0xC0},       {GDK_KEY_bracketleft, 0xDB},  {GDK_KEY_backslash, 0xDC},
    {GDK_KEY_bracketright, 0xDD}, {GDK_KEY_apostrophe, 0xDE},  {GDK_KEY_less, 0xE2},
};

}  // namespace

unsigned VirtualKeyFromKeyval(uint32_t keyval) {
  if (keyval >= GDK_KEY_a && keyval <= GDK_KEY_z) return 'A' + (keyval - GDK_KEY_a);
  if (keyval >= GDK_KEY_A && keyval <= GDK_KEY_Z) return 'A' + (keyval - GDK_KEY_A);
  if (keyval >= GDK_KEY_0 && keyval <= GDK_KEY_9) return '0' + (keyval - GDK_KEY_0);
  if (keyval >= GDK_KEY_KP_0 && keyval <= GDK_KEY_KP_9) return 0x60 + (keyval - GDK_KEY_KP_0);
  if (keyval >= GDK_KEY_F1 && keyval <= GDK_KEY_F24) return 0x70 + (keyval - GDK_KEY_F1);
  for (const KeyRow& row : kKeys)
    if (row.keyval == keyval) return row.virtual_key;
  return 0;
}

int ControlCharForKey(unsigned virtual_key, bool control_down, bool alt_down) {
  if (alt_down) return 0;  // Alt+key is a system key: mnemonics, not characters
  switch (virtual_key) {
    case VK_BACK:
      return control_down ? 0x7F : 0x08;
    case VK_TAB:
      return control_down ? 0 : 0x09;
    case VK_RETURN:
      return control_down ? 0x0A : 0x0D;
    case VK_ESCAPE:
      return 0x1B;
    default:
      break;
  }
  if (control_down && virtual_key >= 'A' && virtual_key <= 'Z') return static_cast<int>(virtual_key - 'A' + 1);
  return 0;
}

}  // namespace qmk::platform::ui::gtk3
