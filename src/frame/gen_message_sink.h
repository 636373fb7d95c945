// gen_message_sink.h: lets the common services tell the user things through our message road.
#pragma once

namespace qmk::frame {

// Installs the sink once; the module state does it when it is first entered.
void ConnectGenMessageSink();

}  // namespace qmk::frame
