// gen_message_sink.cpp: the common services' messages (a refused file name template, say) shown
// as this library's message boxes, so the user sees them where he sees ours.
#include "frame/gen_message_sink.h"

#include "frame/message_display.h"
#include "qmk/QmkGen.h"

namespace qmk::frame {
namespace {

int ShowGenMessage(QMK_HWND, const char* text, unsigned flags) {
  return DisplayMessage(text ? text : "", flags);
}

}  // namespace

void ConnectGenMessageSink() { GenSetMessageSink(&ShowGenMessage); }

}  // namespace qmk::frame
