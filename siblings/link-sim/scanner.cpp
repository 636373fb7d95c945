// scanner.cpp: the simulated scanner's behaviour.
#include "scanner.h"

#include "qmk/QmkLink.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>

namespace qmk::sim {
namespace {

// A sheet takes this long to pass the read heads.
constexpr int64_t kSheetFeedMs = 120;

bool ReadsImages(uint32_t feat) {
  return QMK_FEAT_FAMILY(feat) == 3 || QMK_FEAT_FAMILY(feat) == 12 || QMK_FEAT_IMAGE_READ(feat);
}

}  // namespace

int64_t Scanner::NowMs() const {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count() + clock_offset_ms_;
}

uint32_t Scanner::Feat() const { return rec_ ? rec_->feat : 0; }

int Scanner::Open(feat_mask* feat, qlkdata_rec** rec) {
  if (!feat || !rec) return -2;
  if (rec_) return 1;  // one session at a time: the scanner is in use
  rec_ = std::make_unique<qlkdata_rec>();
  std::memset(rec_.get(), 0, sizeof(qlkdata_rec));
  std::memcpy(&rec_->feat, feat, sizeof(uint32_t));
  std::strncpy(rec_->bar_code_text, open_bar_code_text_.c_str(), QMK_BAR_CODE_BYTES - 1);
  open_ms_ = NowMs();
  ready_ = false;
  *rec = rec_.get();
  return 0;
}

// Session 0 stands for the open session, so a close after a failed presence test still
// releases the record that the open made; after a failed open it closes nothing, so that a
// refused second open leaves the first session standing.
int Scanner::Close(qlkdata_rec* rec) {
  if (rec && rec != rec_.get()) return -3;
  if (!rec && last_open_failed_) return 0;
  rec_.reset();
  modes_.reset();
  ready_ = false;
  in_transport_.reset();
  return 0;
}

int Scanner::CommSet(int port, int data_bits, int stop_bits, char parity, uint32_t baud,
                     int timeout) {
  if (baud == 0) return -7;
  if ((data_bits != 7 && data_bits != 8) || (stop_bits != 1 && stop_bits != 2)) return -8;
  if (timeout < 2 || timeout > 60) return -10;
  comm_set_ = true;
  comm_[0] = port;
  comm_[1] = data_bits;
  comm_[2] = stop_bits;
  comm_[3] = static_cast<unsigned char>(parity);
  comm_[4] = timeout;
  baud_ = baud;
  return 0;
}

int Scanner::ModeSet(int m1, int m2, int m3, int m4) {
  modes_ = std::array<int, 4>{m1, m2, m3, m4};
  return 0;
}

int Scanner::Control(int code) {
  switch (code) {
    case QLK_CONTROL_READY: ready_ = true; break;
    case QLK_CONTROL_STOP: ready_ = false; break;
    case QLK_CONTROL_ACCEPT: SendOut(true); break;
    case QLK_CONTROL_REJECT: SendOut(false); break;
    default: break;  // 31 and 34 prepare the PadLot model; nothing to model
  }
  return 0;
}

int Scanner::SetSpectra(int spectrum) {
  spectrum_ = spectrum;
  return 0;
}

int Scanner::SetTune(int param, int value) {
  tune_[param] = value;
  return 0;
}

int Scanner::GetTune(int param, int32_t* value) const {
  if (!value) return -1;
  auto it = tune_.find(param);
  *value = it == tune_.end() ? 0 : it->second;
  return 0;
}

// No session: the transport is closed (-3). Family 0 means no scanner is configured, so
// nothing answers (-9).
int Scanner::IsScanner() const {
  if (!rec_) return -3;
  if (QMK_FEAT_FAMILY(rec_->feat) == 0) return -9;
  return 0;
}

int Scanner::SetBarCodeDelay(const bar_code_delay_t* delay) {
  if (delay) bar_code_delay_ = *delay;
  return 0;
}

// -3: no reader fitted; -4: the reader's port is no port.
int Scanner::BarSet(int, int port) {
  if (!QMK_FEAT_BAR_CODE_READER(Feat())) return -3;
  if (port <= 0) return -4;
  bar_code_port_ = port;
  return 0;
}

int Scanner::RemainingLampSeconds() const {
  if (!rec_ || QMK_FEAT_FAMILY(rec_->feat) != 12) return 0;
  const int64_t left_ms = lamp_warm_up_s_ * 1000LL - (NowMs() - open_ms_);
  return left_ms <= 0 ? 0 : static_cast<int>((left_ms + 999) / 1000);
}

int Scanner::Pick() {
  if (!rec_) return -3;
  if (RemainingLampSeconds() > 0) return -13;
  // A sheet still in the transport was neither accepted nor rejected: it jammed, and whoever
  // answered the fault took it out.
  if (in_transport_) ++log_.cleared;
  in_transport_.reset();
  picked_empty_ = hopper_.empty();
  if (!picked_empty_) {
    in_transport_ = std::move(hopper_.front());
    hopper_.pop_front();
  }
  return 0;
}

int Scanner::WaitEndOp() {
  if (in_transport_) clock_offset_ms_ += kSheetFeedMs;
  return 0;
}

int Scanner::Status() {
  if (!rec_) return -3;
  qlkdata_rec& r = *rec_;
  const uint32_t feat = r.feat;
  std::memset(&r, 0, sizeof(r));
  r.feat = feat;
  if (!in_transport_) {
    if (picked_empty_) r.status3 = 1;
    return 0;
  }
  const qlk_sim_sheet& s = in_transport_->facts;
  r.status1 = s.status1;
  r.status2 = s.status2;
  r.status3 = s.status3;
  r.jam_detail = s.jam_detail;
  r.image_flags = s.image_flags;
  r.skew_hold = s.skew_hold;
  r.not_ready = s.not_ready;
  r.sheet_read = 1;
  r.lines_front = s.lines_front;
  r.lines_back = s.lines_back;
  r.thickness = s.thickness;
  std::memcpy(r.sensor_bytes, s.sensor_bytes, sizeof(r.sensor_bytes));
  // Image-reading models deliver cells only through QlkBuildBubbles.
  if (!ReadsImages(feat)) {
    DeliverLines(false, 0, s.lines_front, OmrLength(0), r.omr_front);
    DeliverLines(true, 0, s.lines_back, OmrLength(1), r.omr_back);
  }
  return 0;
}

int Scanner::MaxCell(int) const { return ReadsImages(Feat()) ? 64 : 48; }
int Scanner::OmrLength(int side) const { return MaxCell(side); }

// Plain mark scanners send '0' plus the darkness (0 to 15) in the low nibble; image-reading
// models send a grey level whose high nibble is the darkness.
int Scanner::ImgVal(unsigned char cell, uint32_t feat) {
  return ReadsImages(feat) ? cell >> 4 : cell & 0x0F;
}

// Rows are 1-based; bit 7 of the first row picks the back side.
int Scanner::BuildBubbles(int first_row, int columns, int last_row, int) {
  if (!rec_ || !in_transport_) return -1;
  const bool back = (first_row & 0x80) != 0;
  const int width = std::clamp(columns, 0, OmrLength(back ? 1 : 0));
  DeliverLines(back, (first_row & 0x7F) - 1, last_row & 0x7F, width,
               back ? rec_->omr_back : rec_->omr_front);
  return 0;
}

int Scanner::Flush(int code) {
  if (code == QLK_FLUSH_ACCEPT) SendOut(true);
  if (code == QLK_FLUSH_REJECT) SendOut(false);
  return 0;
}

int Scanner::ReadBar() {
  if (!rec_ || !in_transport_ || in_transport_->facts.bar_code_text[0] == '\0') return -1;
  std::memcpy(rec_->bar_code_text, in_transport_->facts.bar_code_text, QMK_BAR_CODE_BYTES);
  rec_->bar_code_text[QMK_BAR_CODE_BYTES - 1] = '\0';
  return 0;
}

int Scanner::ResetLog() {
  log_ = Log{};
  return 0;
}

int Scanner::WriteLog(const char* first, const char* second) {
  log_.entries.emplace_back(first ? first : "", second ? second : "");
  return 0;
}

int Scanner::ReadLog(scan_error_log_registry* log, char* first, char* second) const {
  if (log) *log = scan_error_log_registry{static_cast<int32_t>(log_.entries.size()), log_.accepted,
                                          log_.rejected, log_.faults};
  const auto copy = [](char* out, const std::string& text) {
    if (!out) return;
    const size_t n = std::min(text.size(), size_t{QLK_SIM_LOG_TEXT_BYTES - 1});
    std::memcpy(out, text.data(), n);
    out[n] = '\0';
  };
  const bool any = !log_.entries.empty();
  copy(first, any ? log_.entries.front().first : "");
  copy(second, any ? log_.entries.front().second : "");
  return static_cast<int>(log_.entries.size());
}

// A sheet that leaves with a fault in its status words goes into the log.
void Scanner::SendOut(bool accepted) {
  if (!in_transport_) return;
  (accepted ? log_.accepted : log_.rejected)++;
  const qlk_sim_sheet& s = in_transport_->facts;
  if (s.status1 || s.status2 || s.status3) {
    ++log_.faults;
    char words[64];
    std::snprintf(words, sizeof words, "status 0x%X 0x%X 0x%X", s.status1, s.status2, s.status3);
    log_.entries.emplace_back(accepted ? "sheet accepted" : "sheet rejected", words);
  }
  in_transport_.reset();
}

void Scanner::DeliverLines(bool back, int first, int last, int width, unsigned char* out) const {
  const std::vector<unsigned char>& sheet = back ? in_transport_->back : in_transport_->front;
  const bool darkness = in_transport_->facts.cells_are_darkness != 0;
  const bool image = ReadsImages(Feat());
  for (int line = std::max(first, 0); line < last; ++line) {
    const size_t from = static_cast<size_t>(line) * QLK_SIM_LINE_BYTES;
    const size_t to = static_cast<size_t>(line) * static_cast<size_t>(width);
    if (from + static_cast<size_t>(width) > sheet.size() || to + width > QMK_OMR_BYTES) return;
    for (int i = 0; i < width; ++i) {
      const unsigned char cell = sheet[from + i];
      const unsigned char d = cell & 0x0F;
      out[to + i] = !darkness ? cell : image ? static_cast<unsigned char>(d * 16 + 8) : '0' + d;
    }
  }
}

bool Scanner::Modes(int out[4]) const {
  if (!modes_) return false;
  std::copy(modes_->begin(), modes_->end(), out);
  return true;
}

bool Scanner::TuneParam(int param, int32_t* value) const {
  auto it = tune_.find(param);
  if (it == tune_.end()) return false;
  if (value) *value = it->second;
  return true;
}

bool Scanner::CommSettings(int* port, int* data_bits, int* stop_bits, int* parity, uint32_t* baud,
                           int* timeout) const {
  if (!comm_set_) return false;
  if (port) *port = comm_[0];
  if (data_bits) *data_bits = comm_[1];
  if (stop_bits) *stop_bits = comm_[2];
  if (parity) *parity = comm_[3];
  if (baud) *baud = baud_;
  if (timeout) *timeout = comm_[4];
  return true;
}

int Scanner::AddSheet(const qlk_sim_sheet& sheet) {
  if (sheet.lines_front < 0 || sheet.lines_back < 0 || sheet.lines_front > QLK_SIM_MAX_LINES ||
      sheet.lines_back > QLK_SIM_MAX_LINES)
    return -1;
  Sheet s;
  s.facts = sheet;
  s.facts.bar_code_text[QMK_BAR_CODE_BYTES - 1] = '\0';
  s.facts.cells_front = s.facts.cells_back = nullptr;
  if (sheet.cells_front)
    s.front.assign(sheet.cells_front, sheet.cells_front + sheet.lines_front * QLK_SIM_LINE_BYTES);
  if (sheet.cells_back)
    s.back.assign(sheet.cells_back, sheet.cells_back + sheet.lines_back * QLK_SIM_LINE_BYTES);
  hopper_.push_back(std::move(s));
  return 0;
}

int Scanner::StackerCount(int stacker) const {
  switch (stacker) {
    case 0: return log_.accepted;
    case 1: return log_.rejected;
    case 2: return log_.cleared;
    default: return 0;
  }
}

}  // namespace qmk::sim
