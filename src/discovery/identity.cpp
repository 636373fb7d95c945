// identity.cpp: names, defaults and the self-score threshold.
#include "discovery/identity.h"

#include <cstdio>
#include <cstring>

#include "discovery/status_query.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkLink.h"

namespace qmk::discovery {

using platform::serial::LineSettings;
using platform::serial::Parity;

namespace {

int Family2TextId(const frame::Features& f) {
  switch (f.model_code()) {
    case 5: return f.image_read() ? 503 : 509;
    case 6: return 510;
    case 7:
      if (f.submodel() == 1) return f.image_read() ? 502 : 518;
      return f.image_read() ? 504 : 511;
    default: return 0;
  }
}

std::string LoadText(int id, int size) {
  std::string buffer(static_cast<size_t>(size), '\0');
  GenLoadText(nullptr, id, buffer.data(), size);
  buffer.resize(std::strlen(buffer.c_str()));
  return buffer;
}

Parity ParityOf(int16_t letter) {
  if (letter == 'E' || letter == 'e') return Parity::kEven;
  if (letter == 'O' || letter == 'o') return Parity::kOdd;
  return Parity::kNone;
}

}  // namespace

int ScannerNameTextId(const frame::Features& f) {
  const int sub = static_cast<int>(f.submodel());
  if (f.model_code() == 9) return sub == 0 ? 501 : sub == 1 ? 507 : sub == 2 ? 508 : 0;
  if (f.family() == 2) return Family2TextId(f);
  switch (f.model_code()) {
    case 3: return 512;
    case 4: return 513;
    // 275 lies outside the block of model names; it is the text this model has always shown.
    case 2: return sub == 1 ? 275 : 515;
    case 1: return sub == 1 ? 516 : 514;
  }
  if (f.padlot()) return 517;
  if (f.family() == 12) return kTwainName;
  return 0;
}

std::string ScnGetScannerName(const feat_mask& feat, const char* firmware) {
  const frame::Features f = frame::FeaturesOf(feat);
  std::string name = "UNKNOWN";
  const int id = ScannerNameTextId(f);
  if (id == kTwainName) {
    char twain[kTwainNameBytes] = "UNKNOWN";
    ScnTwainGetModel(static_cast<int>(f.model_code()), twain);
    name = twain;
  } else if (id != 0) {
    name = LoadText(id, kNameBytes);
  }
  if (id == 517 && firmware) {
    std::string label = LoadText(kFirmwareLabelText, kNameBytes);
    if (label.empty()) label = kFirmwareLabel;
    QlkControl(nullptr, QLK_CONTROL_PADLOT_FIRMWARE);
    name += "  " + label + firmware;
  }
  if (name.size() > kNameBytes - 1) name.resize(kNameBytes - 1);
  return name;
}

int ScnGetDefaultLeadEdgeTol(int family) { return family == 12 ? 12 : 8; }

int ScnTwainGetModel(int model_code, char* name) {
  if (model_code != 12 && model_code != 13) return -1;
  return GenLoadText(nullptr, model_code == 12 ? 505 : 506, name, kTwainNameBytes);
}

int ScnGetSelfScoreScannerThreshold(const sct_config& cfg, const sct_config_ex& comm,
                                    int held_count) {
  const frame::Features f = frame::FeaturesOf(cfg.feat_mask);
  if (f.family() != 2 || f.series() != 1) return kNoThreshold;
  if (f.image_read() || comm.port == QMK_PORT_USB) return kNoThreshold;

  char name[32];
  std::snprintf(name, sizeof name, "\\\\.\\COM%d", comm.port);
  int error = 0;
  auto port = platform::serial::CurrentPortOpener().Open(name, &error);
  if (!port) return kThresholdUnread;
  const LineSettings settings{comm.baud, comm.data_bits, comm.stop_bits == 2 ? 2 : 1,
                              ParityOf(comm.parity)};
  StatusReply reply;
  reply.count = held_count;
  // A baud of 0 can't be applied; the waits are only computed for a usable one.
  if (comm.baud == 0 || !RunStatusQuery(*port, settings, BareWaits(comm.baud), &reply))
    return kThresholdUnread;
  // The reader's result is taken the other way round here, and stays so: a whole line means
  // no threshold, and a missing line goes on to test a count the reader did not write. The
  // exports start that count at 0, so a host always sees -1 or -2 from a serial scanner.
  if (reply.result == kReplyLine) return kThresholdUnread;
  if (reply.count != kStatusLineBytes || reply.bytes[0] != 's') return kThresholdUnread;
  return ThresholdFromReply(reply.bytes.data());
}

int ThresholdFromReply(const uint8_t* reply) {
  if (reply[3] != '3') return kNoThreshold;
  const uint8_t digit = reply[47];
  return digit >= '0' && digit <= '9' ? digit - '0' : 0;
}

}  // namespace qmk::discovery
