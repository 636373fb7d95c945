// dialog_sample_wait_lamp.cpp: the lamp warm-up notice of `qmkscan dialog wait-lamp`, a minute
// and a half before the lamps are ready.
#include <string>

#include "dialog_samples.h"
#include "frame/wait_notices.h"
#include "toolkit/dialogs/string_table.h"

namespace qmkscan {

std::unique_ptr<DialogSample> MakeWaitLampSample() {
  constexpr int kLampText = 6;
  constexpr int kSampleSeconds = 90;
  std::string format;
  qmk::toolkit::LoadString(kLampText, format);
  return MakeNoticeSample(qmk::frame::FormatLampTime(format, kSampleSeconds), true);
}

}  // namespace qmkscan
