// message_display.h: the one road of the library's message boxes, from a text or a string id
// to the pressed button.
#pragma once

#include <string>

namespace qmk::frame {

// Message-box flags: buttons in the low nibble, icon in the next.
constexpr unsigned kMbOk = 0x00, kMbOkCancel = 0x01, kMbAbortRetryIgnore = 0x02,
                   kMbYesNoCancel = 0x03, kMbYesNo = 0x04, kMbRetryCancel = 0x05;
constexpr unsigned kMbIconStop = 0x10, kMbIconQuestion = 0x20, kMbIconExclamation = 0x30,
                   kMbIconInformation = 0x40;
// Pressed buttons.
constexpr int kIdOk = 1, kIdCancel = 2, kIdAbort = 3, kIdRetry = 4, kIdIgnore = 5, kIdYes = 6,
              kIdNo = 7;

// Shows string `id` of the library's table. A missing string still shows a box that says so.
int ShowMessage(int id, unsigned flags);
// Shows string `id` formatted with the arguments, as printf would.
int ShowMessageFormatted(int id, unsigned flags, ...);
// Shows `text` with a default icon when the flags name none.
int DisplayMessage(const std::string& text, unsigned flags);

// The flags with the default icon added for the button type when no icon bit is set.
unsigned WithDefaultIcon(unsigned flags);
// The caption of the library's boxes: the host's main module name, else the program's name.
std::string MessageCaption();

}  // namespace qmk::frame
