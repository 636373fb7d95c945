// probe_settings.cpp: the settings orders.
#include "discovery/probe_settings.h"

#include <initializer_list>

namespace qmk::discovery {

using platform::serial::Parity;

namespace {

void AddBaud(uint32_t baud, std::initializer_list<int> data_bits, std::initializer_list<Parity> parities,
             std::vector<LineSettings>* out) {
  for (int data : data_bits)
    for (int stop : {2, 1})
      for (Parity parity : parities) {
        const LineSettings s{baud, data, stop, parity};
        if (!IsSkippedSetting(s)) out->push_back(s);
      }
}

}  // namespace

bool IsSkippedSetting(const LineSettings& s) {
  if (s.data_bits == 7) return s.stop_bits == 1;
  if (s.stop_bits == 2) return s.parity != Parity::kNone;
  return s.parity == Parity::kNone;
}

std::vector<LineSettings> QuickCheckOrder() {
  std::vector<LineSettings> order;
  for (uint32_t baud : {38400u, 19200u})
    AddBaud(baud, {8, 7}, {Parity::kEven, Parity::kOdd, Parity::kNone}, &order);
  return order;
}

std::vector<LineSettings> SearchOrder(const std::vector<uint32_t>& baud_list) {
  std::vector<LineSettings> order;
  for (auto it = baud_list.rbegin(); it != baud_list.rend(); ++it)
    AddBaud(*it, {7, 8}, {Parity::kOdd, Parity::kEven, Parity::kNone}, &order);
  return order;
}

}  // namespace qmk::discovery
