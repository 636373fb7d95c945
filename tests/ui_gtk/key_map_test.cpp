// key_map_test.cpp: GDK key values to virtual keys, and the control characters of keys.
#include "platform/ui/gtk3/key_map.h"

#include <gdk/gdk.h>
#include <gtest/gtest.h>

namespace qmk::platform::ui::gtk3 {
namespace {

TEST(KeyMap, RunsAndTheirEnds) {
  struct Case { guint keyval; int vk; };
  for (const Case c : {Case{GDK_KEY_a, 'A'}, {GDK_KEY_z, 'Z'}, {GDK_KEY_A, 'A'}, {GDK_KEY_Z, 'Z'},
                       {GDK_KEY_0, '0'}, {GDK_KEY_9, '9'}, {GDK_KEY_KP_0, 0x60}, {GDK_KEY_KP_9, 0x69},
                       {GDK_KEY_F1, 0x70}, {GDK_KEY_F12, 0x7B}, {GDK_KEY_F24, 0x87}})
    EXPECT_EQ(VirtualKeyFromKeyval(c.keyval), c.vk) << gdk_keyval_name(c.keyval);
}

TEST(KeyMap, KeysADialogNeeds) {
  struct Case { guint keyval; int vk; };
  for (const Case c : {Case{GDK_KEY_Tab, 0x09}, {GDK_KEY_ISO_Left_Tab, 0x09}, {GDK_KEY_Return, 0x0D},
                       {GDK_KEY_KP_Enter, 0x0D}, {GDK_KEY_Escape, 0x1B}, {GDK_KEY_space, 0x20},
                       {GDK_KEY_Left, 0x25}, {GDK_KEY_Up, 0x26}, {GDK_KEY_Right, 0x27},
                       {GDK_KEY_Down, 0x28}, {GDK_KEY_KP_Down, 0x28}, {GDK_KEY_Home, 0x24},
                       {GDK_KEY_Page_Down, 0x22}, {GDK_KEY_Delete, 0x2E}, {GDK_KEY_BackSpace, 0x08},
                       {GDK_KEY_Shift_R, 0x10}, {GDK_KEY_Control_L, 0x11}, {GDK_KEY_Alt_L, 0x12},
                       {GDK_KEY_minus, 0xBD}, {GDK_KEY_apostrophe, 0xDE}, {GDK_KEY_KP_Subtract, 0x6D}})
    EXPECT_EQ(VirtualKeyFromKeyval(c.keyval), c.vk) << gdk_keyval_name(c.keyval);
}

TEST(KeyMap, KeysWithoutACodeAreZero) {
  // Just past each arithmetic run, and keys the window system does not know.
  for (guint keyval : {guint(GDK_KEY_A - 1), guint(GDK_KEY_z + 1), guint(GDK_KEY_9 + 1),
                       guint(GDK_KEY_F24 + 1), guint(GDK_KEY_exclam), guint(GDK_KEY_VoidSymbol),
                       guint(GDK_KEY_dead_acute), 0u})
    EXPECT_EQ(VirtualKeyFromKeyval(keyval), 0) << std::hex << keyval;
}

TEST(ControlChars, KeysThatSendThem) {
  struct Case { int vk; bool ctrl, alt; int want; };
  for (const Case c : {Case{0x08, false, false, 0x08}, {0x08, true, false, 0x7F},
                       {0x09, false, false, 0x09}, {0x09, true, false, 0},
                       {0x0D, false, false, 0x0D}, {0x0D, true, false, 0x0A},
                       {0x1B, false, false, 0x1B}, {0x1B, true, false, 0x1B},
                       {'A', true, false, 1}, {'Z', true, false, 26}, {'A', false, false, 0},
                       {'C', true, true, 0}, {0x0D, false, true, 0}, {'5', true, false, 0},
                       {0x25, false, false, 0}})
    EXPECT_EQ(ControlCharForKey(c.vk, c.ctrl, c.alt), c.want)
        << "vk " << c.vk << " ctrl " << c.ctrl << " alt " << c.alt;
}

}  // namespace
}  // namespace qmk::platform::ui::gtk3
