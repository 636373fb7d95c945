// forced_results.h: results that a test has forced on named transport operations.
#pragma once

#include <map>
#include <optional>
#include <string>

namespace qmk::sim {

class ForcedResults {
 public:
  // times 0: for every call until cleared.
  void Force(const std::string& operation, int result, int times);
  // The forced result of this call of `operation`, if any; counts the call.
  std::optional<int> Take(const std::string& operation);
  void Clear() { forced_.clear(); }

 private:
  struct Forced {
    int result;
    int remaining;  // 0: unlimited
  };
  std::map<std::string, Forced> forced_;
};

}  // namespace qmk::sim
