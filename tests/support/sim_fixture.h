// sim_fixture.h: what the session tests share: host records, the journal, a scripted operator.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "frame/scripted_operator.h"
#include "platform/clock.h"
#include "qmk/QmkLinkSim.h"
#include "qmk/QmkScan.h"

namespace qmk::testing {

// The transport journal from entry `first` on.
inline std::vector<std::string> Journal(int first = 0) {
  std::vector<std::string> out;
  char text[256];
  for (int i = first; i < QlkSimJournalSize(); ++i) {
    QlkSimJournalEntry(i, text, sizeof text);
    out.emplace_back(text);
  }
  return out;
}

// The line settings of a record in one line: "9600 E 7 1 port 3 timeout 10 aux 0".
inline std::string CommText(const sct_config_ex& c) {
  return std::to_string(c.baud) + " " + static_cast<char>(c.parity) + " " + std::to_string(c.data_bits) + " " +
         std::to_string(c.stop_bits) + " port " + std::to_string(c.port) + " timeout " + std::to_string(c.timeout) +
         " aux " + std::to_string(c.aux_port);
}

struct FeatureBits {
  unsigned family = 0, model_code = 0, series = 1;
  bool image_read = false, bar_code_reader = false;
};

inline uint32_t Word(FeatureBits f) {
  return f.family | f.model_code << 4 | (f.bar_code_reader ? 1u << 11 : 0) | f.series << 16 |
         (f.image_read ? 1u << 22 : 0);
}

// Host records with distinct tune values, so that a value sent in the wrong place shows.
struct HostRecords {
  sct_config cfg{};
  sct_config_ex comm{9600, 'E', 7, 1, 1, 10, 0};

  explicit HostRecords(uint32_t word) {
    std::memcpy(&cfg.feat_mask, &word, sizeof word);
    cfg.lead_edge_tol = 11;
    cfg.tune_p2 = 120;  // scaled: 200
    cfg.tune_p3 = 33;
    cfg.tune_p5 = 55;
    cfg.tune_p7 = 77;
    cfg.tune_p8 = 81;
    cfg.bar_code_port = 4;
  }
  qlkdata_rec* Open(int* error, QMK_HWND parent = nullptr) {
    return ScnInitializeScanner(parent, &cfg, &comm, error);
  }
};

// A clock that moves only when the library sleeps or a test says so, and moves the simulated
// scanner's clock with it.
class LinkedClock : public platform::Clock {
 public:
  int64_t NowMs() override { return now_ms_; }
  void SleepMs(int64_t ms) override { Advance(ms); }
  void Advance(int64_t ms) {
    now_ms_ += ms;
    QlkSimAdvanceClock(static_cast<int>(ms));
  }

 private:
  int64_t now_ms_ = 0;
};

// A fresh simulated scanner, a scripted operator and a linked clock for each test.
class SessionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    QlkSimReset();
    previous_ = frame::SetOperator(&op_);
    previous_clock_ = platform::SetClock(&clock_);
  }
  void TearDown() override {
    platform::SetClock(previous_clock_);
    frame::SetOperator(previous_);
    QlkSimReset();
  }

  frame::ScriptedOperator op_;
  frame::Operator* previous_ = nullptr;
  LinkedClock clock_;
  platform::Clock* previous_clock_ = nullptr;
};

}  // namespace qmk::testing

namespace qmk::testing {

// Loads sheets from batch text into the simulator's hopper; fails the test on a parse error.
inline void LoadBatch(const std::string& text) {
  char error[200] = "";
  ASSERT_GE(QlkSimLoadBatchText(text.data(), static_cast<int>(text.size()), error, sizeof error), 0)
      << error;
}

// Opens a session of the given features, ready for reading.
inline qlkdata_rec* OpenReader(FeatureBits feat) {
  static HostRecords* host = nullptr;
  delete host;
  host = new HostRecords(Word(feat));
  return host->Open(nullptr);
}

}  // namespace qmk::testing
