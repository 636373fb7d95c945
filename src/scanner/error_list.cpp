// error_list.cpp: the edits of the status words and the building of the fault list.
#include "scanner/error_list.h"

#include "scanner/records.h"
#include "scanner/status_bits.h"
#include "toolkit/dialogs/string_table.h"

namespace qmk::scanner {
namespace {

// Each text is loaded into a buffer of this size, so a text is cut at 49 characters.
constexpr size_t kTextBuffer = 50;

constexpr int kJamTextsFamily3 = 300, kJamRowsFamily3 = 23;
constexpr int kJamTextsOthers = 350, kJamRowsOthers = 8;
constexpr int kNotReadyText = 506;
constexpr int kWordBases[3] = {400, 550, 500};

bool Has(uint32_t word, uint32_t bits) { return (word & bits) != 0; }

// Steps that edit the record before any text is chosen.
void EditStatusWords(qlkdata_rec& r, Features feat) {
  if (Has(r.status1, kThicknessError) && Has(r.status1, kTooThin | kTooThick))
    r.status1 &= ~kThicknessError;
  if (Has(r.status1, kFailedToCapture) && (feat.family() == 3 || feat.image_read())) {
    // A lone "failed to capture" stays and is reported; with any other fault it goes.
    const uint32_t without = r.status1 & ~kFailedToCapture;
    if (without || r.status2 || r.status3) r.status1 = without;
  }
  if (feat.family() != 3) {
    // A read check makes the timing and form-ID texts of its side redundant.
    if (Has(r.status1, kReadCheckTop | kDataLostFront)) r.status2 &= ~(kTimingTop | kUnknownFormId);
    if (Has(r.status1, kReadCheckBottom | kDataLostBack)) r.status2 &= ~(kTimingBottom | kUnknownFormId);
  }
  if (feat.family() == 12 || (feat.family() == 2 && feat.image_read())) {
    if (Has(r.status1, kJam)) r.status1 &= ~(Bit(8) | Bit(9) | Bit(12) | 0x00FE0000u);  // 17-23
    if (Has(r.status3, kHopperEmpty)) {
      if (Has(r.image_flags, Bit(2))) r.status1 &= ~kReadCheckTop;
      if (Has(r.image_flags, Bit(14))) r.status1 &= ~kReadCheckBottom;
    }
  }
}

// Family 3 reports a jam only in its sensor bytes when just "not ready" is up: turn the sensor
// nibbles into jam bits and make it a jam.
void JamFromSensors(qlkdata_rec& r) {
  struct SensorBit { int byte, bit, jam_bit; };
  constexpr SensorBit kSensorBits[] = {{0, 0, 21}, {0, 4, 22}, {1, 0, 16}, {1, 4, 17},
                                       {2, 0, 18}, {2, 4, 19}, {3, 0, 20}};
  for (const SensorBit& s : kSensorBits)
    if (Has(r.sensor_bytes[s.byte], Bit(s.bit))) r.jam_detail |= Bit(s.jam_bit);
  r.status1 = kJam;
}

void AppendText(int id, std::vector<std::string>& faults) {
  char buffer[kTextBuffer];
  if (toolkit::LoadString(id, buffer, sizeof buffer)) faults.emplace_back(buffer);
}

// The id of a set bit of one word, after the replacements; -1 when nothing is to be loaded.
int WordBitText(int word, int bit, Features feat, const qlkdata_rec& r) {
  int id = kWordBases[word] + bit;
  const bool plain = feat.family() != 3 && !feat.image_read();
  if (plain) {
    if (id == 412) return r.skew_hold == 0 ? 451 : -1;
    if (id == 415) return 452;
    if (id == 504) return 453;
    if (id == 505) return 454;
  }
  if (feat.family() == 12 && feat.image_read()) {
    if (id == 410) return 455;
    if (id == 411) return 456;
  }
  return id;
}

// The buffer is emptied per word, not per bit: a skew bit held back on a plain scanner loads
// nothing and so repeats the previous bit's text of the same word. Hosts see it that way.
void AppendWordTexts(int word, uint32_t bits, Features feat, const qlkdata_rec& r,
                     std::vector<std::string>& faults) {
  char buffer[kTextBuffer] = "";
  for (int bit = 0; bit <= 30; ++bit) {
    if (!Has(bits, Bit(bit))) continue;
    const int id = WordBitText(word, bit, feat, r);
    if (id >= 0) toolkit::LoadString(id, buffer, sizeof buffer);
    if (buffer[0]) faults.emplace_back(buffer);
  }
}

}  // namespace

void ScnBuildErrorList(qlkdata_rec* rec, std::vector<std::string>& faults) {
  if (!rec) return;
  qlkdata_rec& r = *rec;
  const Features feat = FeaturesOf(r);
  EditStatusWords(r, feat);
  if (feat.family() == 3 && r.status1 == 0 && r.status2 == 0 && (r.status3 & ~kNotReady) == 0 &&
      Has(r.status3, kNotReady))
    JamFromSensors(r);

  // The jam location stands in for "Jam Error" itself.
  const bool jam = Has(r.status1, kJam);
  if (jam) {
    r.status1 &= ~kJam;
    const bool family3 = feat.family() == 3;
    const int base = family3 ? kJamTextsFamily3 : kJamTextsOthers;
    const int rows = family3 ? kJamRowsFamily3 : kJamRowsOthers;
    for (int bit = 0; bit < rows; ++bit)
      if (Has(r.jam_detail, Bit(bit))) AppendText(base + bit, faults);
  }
  if (r.not_ready) AppendText(kNotReadyText, faults);
  const uint32_t words[3] = {r.status1, r.status2, r.status3};
  for (int w = 0; w < 3; ++w) AppendWordTexts(w, words[w], feat, r, faults);
  if (jam) r.status1 |= kJam;
}

}  // namespace qmk::scanner
