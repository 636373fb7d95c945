// style_pool.h: the rules and computed styles a document shares: each distinct record is kept
// once, so the many elements of a long document that end up alike cost one record between them.
#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "toolkit/richcontent/style.h"

namespace qmk::toolkit::richcontent {

size_t HashOf(const CExtRichStyleRule& rule);
size_t HashOf(const CExtRichStyleDescription& style);

// Records by content. A shared record is never changed: an item that needs another one asks
// for it again. Pointers stay valid until Clear.
template <class Record>
class SharedRecordPool {
 public:
  const Record* Share(const Record& record) {
    const size_t hash = HashOf(record);
    const auto [first, last] = m_records.equal_range(hash);
    for (auto at = first; at != last; ++at)
      if (*at->second == record) return at->second.get();
    const Record* kept = m_records.emplace(hash, std::make_unique<Record>(record))->second.get();
    m_kept.insert(kept);
    return kept;
  }
  // Is `record` one of the records kept here (and so unchanged while the pool lives)?
  bool Keeps(const Record* record) const { return m_kept.count(record) != 0; }
  void Clear() {
    m_records.clear();
    m_kept.clear();
  }
  size_t Size() const { return m_records.size(); }

 private:
  std::unordered_multimap<size_t, std::unique_ptr<Record>> m_records;
  std::unordered_set<const Record*> m_kept;
};

}  // namespace qmk::toolkit::richcontent
