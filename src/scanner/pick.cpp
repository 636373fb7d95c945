// pick.cpp: the pick loop with its per-family rules, lamp warm-up and the "feed sheet" prompt.
#include "scanner/pick.h"

#include <optional>

#include "frame/message_display.h"
#include "frame/message_pump.h"
#include "frame/wait_notices.h"
#include "platform/clock.h"
#include "qmk/QmkLink.h"
#include "scanner/records.h"
#include "scanner/sheet_steps.h"
#include "scanner/status_bits.h"

namespace qmk::scanner {
namespace {

constexpr int kFeedSheetText = 4908;
constexpr int64_t kPadLotSettleMs = 500;
// While the lamps warm, the loop hands the thread to the message pump between picks for at most
// this long, so the countdown ticks and Cancel works without a busy loop.
constexpr int64_t kLampPollMs = 100;

enum class Next { kDone, kAsk, kRepick, kStop };

// What a pick's result means for this scanner.
Next Decide(const qlkdata_rec& rec, Features feat, int result,
            const frame::CScnWaitLampWarmup* warmup) {
  if (feat.family() == 2 && feat.model_code() == 5) {
    if (result == 0 || !(rec.status1 & kFailedToCapture)) return Next::kDone;
    return Next::kAsk;
  }
  if (feat.padlot()) return result == 0 ? Next::kDone : Next::kAsk;
  if (feat.family() == 12 && result == QLK_PICK_LAMPS_WARMING)
    return warmup && warmup->Cancelled() ? Next::kStop : Next::kRepick;
  return Next::kDone;
}

bool RunPickLoop(qlkdata_rec* rec, Features feat, const frame::CScnWaitLampWarmup* warmup) {
  for (;;) {
    QlkSetTuneParams(rec, QLK_TUNE_PICK_PREPARE, 1);
    const int result = QlkPick(nullptr, 0);
    switch (Decide(*rec, feat, result, warmup)) {
      case Next::kDone: return false;
      case Next::kStop: return true;
      case Next::kRepick: frame::PumpWhileWaiting(kLampPollMs); break;
      case Next::kAsk:
        if (frame::ShowMessage(kFeedSheetText, frame::kMbOkCancel | frame::kMbIconStop) ==
            frame::kIdCancel)
          return true;
        break;
    }
  }
}

}  // namespace

int ScnPickSheet(qlkdata_rec* rec, QMK_HWND parent) {
  const Features feat = FeaturesOf(*rec);
  std::optional<frame::CScnWaitLampWarmup> warmup;
  if (feat.padlot()) {
    QlkControl(nullptr, QLK_CONTROL_PADLOT_PREPARE);
    platform::CurrentClock().SleepMs(kPadLotSettleMs);
  } else {
    QlkControl(nullptr, QLK_CONTROL_READY);
    if (feat.family() == 12)
      warmup.emplace(parent, [] { return QlkRemainingLampWarmUpTime(nullptr); });
  }
  const bool stopped = RunPickLoop(rec, feat, warmup ? &*warmup : nullptr);
  warmup.reset();
  if (stopped) {
    if (feat.padlot()) QlkFlush(nullptr, QLK_FLUSH_REJECT);
    if (feat.family() == 12) QlkFlush(nullptr, QLK_FLUSH_ACCEPT);
    QlkControl(nullptr, QLK_CONTROL_STOP);
    return kPickStopped;
  }
  QlkWaitEndOp(nullptr);
  QlkStatus(nullptr);
  if (rec->status1 || rec->status2) return kPickFailed;
  // An empty hopper shows as a sheet that never came; status3 alone fails nothing.
  if (!rec->sheet_read && feat.family() != 3) return kPickFailed;
  return kPickRead;
}

}  // namespace qmk::scanner
