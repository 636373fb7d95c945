// identity.h: a scanner's display name, its default lead-edge tolerance, TWAIN model names, and
// the self-score threshold that some serial scanners keep in their own memory.
#pragma once

#include <string>

#include "qmk/QmkScan.h"
#include "frame/features.h"

namespace qmk::discovery {

constexpr int kNameBytes = 100;   // the name, zero included
constexpr int kTwainNameBytes = 260;
constexpr int kFirmwareLabelText = 1002;
constexpr const char kFirmwareLabel[] = "Firmware Version: ";

// The text id that names the scanner; 0 when its name stays "UNKNOWN"; kTwainName when the
// TWAIN model name stands.
constexpr int kTwainName = -1;
int ScannerNameTextId(const frame::Features& f);

// "UNKNOWN", or the model's name, with "  Firmware Version: <firmware>" for the PadLot model
// when `firmware` isn't null; at most kNameBytes - 1 characters.
std::string ScnGetScannerName(const feat_mask& feat, const char* firmware);

// 12 for family 12, else 8.
int ScnGetDefaultLeadEdgeTol(int family);

// Loads the name of TWAIN model 12 or 13 into `name` (kTwainNameBytes) and returns what the
// text loader returns; -1, with `name` untouched, for other models.
int ScnTwainGetModel(int model_code, char* name);

// Results of the self-score threshold besides the threshold itself.
constexpr int kNoThreshold = -1;
constexpr int kThresholdUnread = -2;

// The threshold that a status reply carries: the digit at 47 (0 for another character) when
// the model group at 3 is '3', else kNoThreshold.
int ThresholdFromReply(const uint8_t* reply);

// The threshold a family-2 series-1 serial scanner holds. `held_count` is what the count
// variable holds before the reply is read; the reply is judged as the .cpp tells.
int ScnGetSelfScoreScannerThreshold(const sct_config& cfg, const sct_config_ex& comm,
                                    int held_count = 0);

}  // namespace qmk::discovery
