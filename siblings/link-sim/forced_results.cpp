// forced_results.cpp: counting down forced results.
#include "forced_results.h"

namespace qmk::sim {

void ForcedResults::Force(const std::string& operation, int result, int times) {
  forced_[operation] = Forced{result, times > 0 ? times : 0};
}

std::optional<int> ForcedResults::Take(const std::string& operation) {
  auto it = forced_.find(operation);
  if (it == forced_.end()) return std::nullopt;
  const int result = it->second.result;
  if (it->second.remaining > 0 && --it->second.remaining == 0) forced_.erase(it);
  return result;
}

}  // namespace qmk::sim
