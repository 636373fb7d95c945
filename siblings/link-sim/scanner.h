// scanner.h: the simulated scanner: one session, its settings, a hopper of sheets and two
// stackers, lamp warm-up on a clock, a bar-code reader and a log.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "qmk/QmkLinkSim.h"

namespace qmk::sim {

struct Sheet {
  qlk_sim_sheet facts{};  // the pointers in here are cleared; the cells live below
  std::vector<unsigned char> front, back;
};

// The log's entries and tallies.
struct Log {
  std::vector<std::pair<std::string, std::string>> entries;
  int accepted = 0, rejected = 0, faults = 0;
  int cleared = 0;  // sheets left in the transport (a jam) that the operator took out
};

class Scanner {
 public:
  // Transport operations; each returns what the transport answers.
  int Open(feat_mask* feat, qlkdata_rec** rec);
  int Close(qlkdata_rec* rec);
  // A failed open leaves nothing for the close of session 0 to release.
  void NoteOpenResult(int result) { last_open_failed_ = result != 0; }
  int CommSet(int port, int data_bits, int stop_bits, char parity, uint32_t baud, int timeout);
  int ModeSet(int m1, int m2, int m3, int m4);
  int Control(int code);
  int SetSpectra(int spectrum);
  int SetTune(int param, int value);
  int GetTune(int param, int32_t* value) const;
  int IsScanner() const;
  int SetBarCodeDelay(const bar_code_delay_t* delay);
  int BarSet(int code, int port);
  int RemainingLampSeconds() const;
  int Pick();
  int WaitEndOp();
  int Status();
  int MaxCell(int side) const;
  int OmrLength(int side) const;
  static int ImgVal(unsigned char cell, uint32_t feat);
  int BuildBubbles(int first_row, int columns, int last_row, int kind);
  int Flush(int code);
  int ReadBar();
  int ReadLog(scan_error_log_registry* log, char* first, char* second) const;
  int ResetLog();
  int WriteLog(const char* first, const char* second);

  // Scripting.
  bool SessionOpen() const { return rec_ != nullptr; }
  bool Modes(int out[4]) const;
  int Spectrum() const { return spectrum_; }
  bool TuneParam(int param, int32_t* value) const;
  bool CommSettings(int* port, int* data_bits, int* stop_bits, int* parity, uint32_t* baud,
                    int* timeout) const;
  int BarCodePort() const { return bar_code_port_; }
  void SetOpenBarCodeText(std::string text) { open_bar_code_text_ = std::move(text); }
  int AddSheet(const qlk_sim_sheet& sheet);
  void AddSheet(Sheet sheet) { hopper_.push_back(std::move(sheet)); }
  int HopperCount() const { return static_cast<int>(hopper_.size()); }
  int StackerCount(int stacker) const;
  void SetLampWarmUp(int seconds) { lamp_warm_up_s_ = seconds; }
  void AdvanceClock(int ms) { clock_offset_ms_ += ms; }

 private:
  int64_t NowMs() const;
  uint32_t Feat() const;
  void SendOut(bool accepted);
  // Copies lines [first, last) of a side of the sheet in transport, `width` bytes each, encoded
  // as the open model sends them.
  void DeliverLines(bool back, int first, int last, int width, unsigned char* out) const;

  std::unique_ptr<qlkdata_rec> rec_;
  std::optional<std::array<int, 4>> modes_;
  int spectrum_ = 0;
  std::map<int, int32_t> tune_;
  bool comm_set_ = false;
  int comm_[5] = {};
  uint32_t baud_ = 0;
  int bar_code_port_ = -1;
  bar_code_delay_t bar_code_delay_{};
  bool ready_ = false;
  bool last_open_failed_ = false;
  std::string open_bar_code_text_;

  std::deque<Sheet> hopper_;
  std::optional<Sheet> in_transport_;
  bool picked_empty_ = false;

  int lamp_warm_up_s_ = 0;
  int64_t open_ms_ = 0;
  int64_t clock_offset_ms_ = 0;
  Log log_;
};

}  // namespace qmk::sim
