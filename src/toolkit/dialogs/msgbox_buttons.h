// msgbox_buttons.h: the message box's button sets, which button is the default and which one
// Escape presses, and the key under which an answer is remembered.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qmk::toolkit {

// Style bits of the message box over the platform's message-box flags.
constexpr uint32_t kMbButtonSetMask = 0x0F, kMbIconMask = 0xF0, kMbDefaultMask = 0xF00,
                   kMbSystemModal = 0x1000, kMbHelp = 0x4000, kMbForeground = 0x10000,
                   kMbTopmost = 0x40000, kMbCheckDontDisplay = 0x1000000,
                   kMbCheckDontAsk = 0x2000000, kMbYesToAll = 0x4000000,
                   kMbNoToAll = 0x8000000, kMbNoBeep = 0x20000000;
// Extended style bits.
constexpr uint32_t kMbExCopyButton = 2, kMbExCopyFirst = 4, kMbExScrollText = 8,
                   kMbExScrollBar = 16, kMbExNoKeyboardCopy = 32, kMbExHelpByF1 = 0x4000;

constexpr int kMbCheckBoxId = 19;
constexpr int kMbHelpButtonId = 9;
constexpr int kMbCopyButtonId = 20;
constexpr const char* kMbProfileSection = "ExtMsgBox";

struct MsgBoxButton {
  int id;
  std::string text;
};

struct MsgBoxButtons {
  std::vector<MsgBoxButton> buttons;
  int default_id = -1;
  int escape_id = -1;  // -1: Escape does nothing
};

// The buttons of `style` (and `ex_style` for the Copy button), in order.
MsgBoxButtons MakeMsgBoxButtons(uint32_t style, uint32_t ex_style);

// The text of one button id ("&OK", "Yes to &all", ...), through the resource manager's
// string table when it has the string.
std::string MsgBoxButtonText(int id);

// The sum of each character's signed value times its index.
int MsgBoxTextChecksum(const std::string& text);
// "msgbox-%s-helpid-%d-chksum-%d" of the unique name ("not-unique" when empty), help id and text.
std::string MsgBoxUniqueId(const std::string& unique_name, int help_id, const std::string& text);

}  // namespace qmk::toolkit
