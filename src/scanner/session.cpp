// session.cpp: the open sequence of each scanner family, the reading mode and the close.
#include "scanner/session.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "frame/wait_notices.h"
#include "qmk/QmkLink.h"
#include "scanner/open_codes.h"
#include "scanner/records.h"

namespace qmk::scanner {
namespace {

// Writes the host's error code, when the host gave somewhere to write it.
class ErrorOut {
 public:
  explicit ErrorOut(int* error) : error_(error) { Set(0); }
  void Set(int code) {
    if (error_) *error_ = code;
  }

 private:
  int* error_;
};

// Tune parameter 2 on family 2 and 5 with image reading: value x 200 / 120, truncated. Stored
// values are small; a wild one is held at the integer's limits rather than wrapped.
int ScaledTuneP2(int32_t value) {
  const int64_t scaled = static_cast<int64_t>(value) * 200 / 120;
  return static_cast<int>(std::clamp<int64_t>(scaled, INT32_MIN, INT32_MAX));
}

// The tune parameters of open, in the transport's order; all go with session 0.
void SendOpenTuneParams(const sct_config& cfg, bool scale_p2) {
  QlkSetTuneParams(nullptr, QLK_TUNE_READ_MODE, 0);
  QlkSetTuneParams(nullptr, QLK_TUNE_P8, cfg.tune_p8);
  QlkSetTuneParams(nullptr, QLK_TUNE_P7, cfg.tune_p7);
  QlkSetTuneParams(nullptr, QLK_TUNE_P5, cfg.tune_p5);
  QlkSetTuneParams(nullptr, QLK_TUNE_LEAD_EDGE, cfg.lead_edge_tol);
  QlkSetTuneParams(nullptr, QLK_TUNE_P2, scale_p2 ? ScaledTuneP2(cfg.tune_p2) : cfg.tune_p2);
  QlkSetTuneParams(nullptr, QLK_TUNE_P3, cfg.tune_p3);
}

// The comm set-up; returns 0 or the host's code for the failure.
int SetUpComm(const sct_config_ex& comm) {
  const int result = QlkCommSet(nullptr, comm.port, comm.data_bits, comm.stop_bits,
                                static_cast<char>(comm.parity & 0xFF), comm.baud, comm.timeout);
  return result == 0 ? 0 : MapCommSetResult(result);
}

void SetReadyToFeed() {
  QlkControl(nullptr, QLK_CONTROL_READY);
  QlkSetRead(nullptr, 5, 3, 10, 8, 0);
}

// Step 3 of open: the family's own set-up. Returns 0, or the code of a failed comm set-up.
int SetUpFamily(Features feat, const sct_config& cfg, const sct_config_ex& comm) {
  const bool image_read = FeaturesOf(cfg.feat_mask).image_read();
  switch (feat.family()) {
    case 2:
    case 5:
      if (int code = SetUpComm(comm)) return code;
      QlkModeSet(nullptr, QLK_MODE_SERIAL_FIRST, QLK_MODE_SERIAL_SECOND, 0, QLK_MODE_FOURTH);
      SetReadyToFeed();
      if (image_read) {
        QlkSetSpectra(nullptr, 16);
        SendOpenTuneParams(cfg, true);
      } else {
        QlkSetTuneParams(nullptr, QLK_TUNE_SPECTRUM, 16);
      }
      return 0;
    case 3:
      QlkModeSet(nullptr, QLK_MODE_FAMILY3_FIRST, QLK_MODE_PLAIN, 0, 0);
      QlkThickSet(nullptr, 0, 15);
      QlkSetSpectra(nullptr, 16);
      SendOpenTuneParams(cfg, false);
      return 0;
    case 4:
      if (feat.model_code() == 3 || feat.model_code() == 4) {
        if (int code = SetUpComm(comm)) return code;
        QlkModeSet(nullptr, QLK_MODE_SERIAL_FIRST, QLK_MODE_SERIAL_SECOND, 0, QLK_MODE_FOURTH);
      } else {
        QlkModeSet(nullptr, QLK_MODE_PLAIN, 0, 0, 0);
        QlkThickSet(nullptr, 0, 15);
      }
      SetReadyToFeed();
      return 0;
    case 12:
      QlkSetSpectra(nullptr, 16);
      SendOpenTuneParams(cfg, false);
      QlkSetTuneParams(nullptr, QLK_TUNE_TWAIN_OPEN, 1);
      QlkControl(nullptr, QLK_CONTROL_READY);
      return 0;
    default:
      return 0;  // families 0 and 6 to 11: only the presence test
  }
}

// TWAIN scanners take seconds to connect, so a notice covers their open.
int OpenTransport(QMK_HWND parent, sct_config& cfg, qlkdata_rec** rec) {
  if (FeaturesOf(cfg.feat_mask).family() == 12) {
    frame::CScnWaitInfoMessage connecting(parent);
    return QlkOpen(&cfg.feat_mask, rec);
  }
  return QlkOpen(&cfg.feat_mask, rec);
}

}  // namespace

int SpectrumValue(int spectrum) { return spectrum == 0 ? 16 : spectrum == 1 ? 32 : -1; }

qlkdata_rec* OpenSession(QMK_HWND parent, sct_config* cfg, sct_config_ex* comm, int* error) {
  ErrorOut out(error);
  if (!cfg || !comm) {
    out.Set(QMK_ERROR_NULL_ARGUMENT);
    return nullptr;
  }
  qlkdata_rec* rec = nullptr;
  int result = OpenTransport(parent, *cfg, &rec);
  if (result == 0 && !rec) result = -1;  // a transport that claims success without a record
  if (result != 0) {
    QlkClose(nullptr);
    out.Set(MapOpenResult(result, FeaturesOf(cfg->feat_mask).series()));
    return nullptr;
  }
  if (int code = SetUpFamily(FeaturesOf(*rec), *cfg, *comm)) {
    QlkClose(nullptr);
    out.Set(code);
    return nullptr;
  }
  // A failed presence test may leave the code at 0: hosts test the record.
  if (int presence = QlkIsScanner(nullptr)) {
    QlkClose(nullptr);
    out.Set(MapPresenceResult(presence));
    return nullptr;
  }
  if (FeaturesOf(cfg->feat_mask).bar_code_reader()) {
    QlkSetBarCodeDelay(nullptr, &cfg->bar_code_delay);
    if (int warning = MapBarSetResult(QlkBarSet(nullptr, 31, cfg->bar_code_port)))
      out.Set(warning);
  }
  std::memset(rec->bar_code_text, 0, sizeof rec->bar_code_text);
  QlkControl(nullptr, QLK_CONTROL_READY);
  return rec;
}

int SetScannerMode(qlkdata_rec* rec, int spectrum, int mode_flag, int read_mode,
                   unsigned char level, unsigned char detect) {
  if (!rec) return -1;
  const Features feat = FeaturesOf(*rec);
  const int spectrum_value = SpectrumValue(spectrum);
  // Plain mark scanners: the host's other arguments have no effect.
  if (feat.family() != 3 && !feat.image_read()) {
    QlkSetTuneParams(nullptr, QLK_TUNE_READ_MODE, 0);
    QlkSetTuneParams(nullptr, QLK_TUNE_SPECTRUM, spectrum_value);
    return 1;
  }
  int first = 0, second = 0;
  const int detected = AdaptiveDetect(detect, &first, &second, 0, 0);
  if (feat.family() == 3) QlkModeSet(nullptr, mode_flag == 0 ? QLK_MODE_FAMILY3_FIRST : QLK_MODE_SERIAL_FIRST,
                                    QLK_MODE_PLAIN, 0, QLK_MODE_FOURTH);
  QlkSetSpectra(nullptr, spectrum_value);
  QlkSetTuneParams(nullptr, QLK_TUNE_READ_MODE, read_mode);
  if (feat.image_read() && feat.series() != 5) QlkSetTuneParams(rec, QLK_TUNE_IMAGE_BYTE, level);
  QlkSetTuneParams(rec, QLK_TUNE_IMAGE_PATH, level);
  return detected;
}

void CloseSession(qlkdata_rec* rec) {
  if (!rec) return;
  QlkControl(nullptr, QLK_CONTROL_STOP);
  if (FeaturesOf(*rec).series() == 5) QlkFlush(nullptr, QLK_FLUSH_ACCEPT);
  QlkClose(rec);
}

}  // namespace qmk::scanner
