// journal.h: the simulator's record of every transport call with its arguments, in order.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace qmk::sim {

// One argument as the journal shows it: a number, the session argument, or another address.
struct Arg {
  enum class Kind { kNumber, kSession, kAddress };
  Kind kind;
  long long value;

  static Arg Number(long long v) { return {Kind::kNumber, v}; }
  static Arg Session(const void* p) { return {Kind::kSession, p ? 1 : 0}; }
  static Arg Address(const void* p) { return {Kind::kAddress, p ? 1 : 0}; }
};

class Journal {
 public:
  void Add(const char* name, std::initializer_list<Arg> args);
  int Size() const { return static_cast<int>(entries_.size()); }
  // "QlkModeSet(0, 13, 11, 0, 20)": numbers in decimal, a session as 0 or rec, an address as &
  // (or 0 when null).
  const std::string& Text(int index) const { return entries_[static_cast<size_t>(index)]; }
  void Clear() { entries_.clear(); }

 private:
  std::vector<std::string> entries_;
};

}  // namespace qmk::sim
