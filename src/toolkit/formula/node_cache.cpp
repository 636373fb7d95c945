// node_cache.cpp: the per-thread cache of freed CExtFormulaItem blocks. Parsing a short formula
// makes and frees about ten nodes; taking them from this list instead of the general allocator
// is what keeps parsing above a million formulas a second.
#include <cstdlib>
#include <new>

#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kCacheNodes = false;  // the sanitizer must see every free to catch a stale node
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kCacheNodes = false;
#else
constexpr bool kCacheNodes = true;
#endif
#else
constexpr bool kCacheNodes = true;
#endif

constexpr int kMaxCachedNodes = 1024;

struct FreeBlock {
  FreeBlock* next;
};

// Frees what is left in the list when its thread ends.
struct NodeCache {
  FreeBlock* head = nullptr;
  int count = 0;
  ~NodeCache() {
    while (head != nullptr) {
      FreeBlock* next = head->next;
      ::operator delete(head);
      head = next;
    }
  }
};

thread_local NodeCache t_cache;

}  // namespace

void* CExtFormulaItem::operator new(size_t size) {
  if (kCacheNodes && size == sizeof(CExtFormulaItem) && t_cache.head != nullptr) {
    FreeBlock* block = t_cache.head;
    t_cache.head = block->next;
    --t_cache.count;
    return block;
  }
  return ::operator new(size);
}

void CExtFormulaItem::operator delete(void* block, size_t size) {
  if (block == nullptr) return;
  if (kCacheNodes && size == sizeof(CExtFormulaItem) && t_cache.count < kMaxCachedNodes) {
    auto* free_block = static_cast<FreeBlock*>(block);
    free_block->next = t_cache.head;
    t_cache.head = free_block;
    ++t_cache.count;
    return;
  }
  ::operator delete(block);
}

}  // namespace qmk::toolkit::formula
