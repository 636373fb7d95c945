// alloc.cpp: CExtAlloc: heap pieces with a two-word header, and pages of equal elements found
// again through the 32-bit back offset in front of each element.
#include "toolkit/grid/alloc.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace qmk::toolkit::grid {
namespace {

constexpr size_t kSlotAlign = 8;  // elements hold pointers and doubles
size_t AlignUp(size_t v, size_t a) { return (v + a - 1) / a * a; }

// The header of a heap piece: its size and its allocator; 16 bytes keep the piece aligned.
struct PieceHeader {
  size_t size;
  CExtAlloc* owner;
};

}  // namespace

// The page header. Behind it: the occupancy bitmap of (count + 7) / 8 bytes, then `count` slots,
// each a 32-bit back offset to the page start directly in front of the element.
struct CExtAlloc::Page {
  CExtAlloc* owner;
  Page* next;
  Page* prev;
  size_t element_size;
  size_t stride;
  size_t first_slot;  // offset of slot 0 from the page start
  uint32_t count;
  uint32_t used;

  uint8_t* Bitmap() { return reinterpret_cast<uint8_t*>(this + 1); }
  uint8_t* Start() { return reinterpret_cast<uint8_t*>(this); }
  uint8_t* Element(uint32_t i) { return Start() + first_slot + size_t{i} * stride + kSlotAlign; }
  size_t TotalBytes() const { return first_slot + size_t{count} * stride; }
};

CExtAlloc::CExtAlloc(uint32_t blockCount, IMalloc* outer, bool releaseEmptyPages, bool zeroNewMemory,
                     size_t alignment)
    : block_count_(std::min(blockCount, kMaxBlockCount)),
      outer_(outer),
      release_empty_(releaseEmptyPages),
      zero_new_(zeroNewMemory),
      alignment_(alignment ? alignment : 1) {}

CExtAlloc::~CExtAlloc() {
  for (auto& [start, page] : pages_) RawFree(page);
  for (void* piece : pieces_) RawFree(static_cast<PieceHeader*>(piece) - 1);
}

bool CExtAlloc::QueryInterface(InterfaceId id, void** out) {
  if (!out) return false;
  *out = nullptr;
  if (id != InterfaceId::kIUnknown && id != InterfaceId::kIMalloc) return false;
  if (outer_) return outer_->QueryInterface(id, out);
  *out = static_cast<IMalloc*>(this);
  AddRef();
  return true;
}

unsigned long CExtAlloc::Release() {
  const unsigned long left = --refs_;
  if (left == 0) delete this;
  return left;
}

size_t CExtAlloc::AlignSize(size_t size) const {
  const size_t a = GetAlignment();
  return a <= 1 ? size : AlignUp(size, a);
}

void* CExtAlloc::RawAlloc(size_t size) { return std::malloc(size); }
void CExtAlloc::RawFree(void* pointer) { std::free(pointer); }
void* CExtAlloc::RawRealloc(void* pointer, size_t size) { return std::realloc(pointer, size); }

void* CExtAlloc::Alloc(size_t size) {
  size = AlignSize(size);
  if (size == 0) size = 1;
  return block_count_ < 2 ? PieceAlloc(size) : PageAlloc(size);
}

void* CExtAlloc::PieceAlloc(size_t size) {
  if (size > SIZE_MAX - sizeof(PieceHeader)) return nullptr;
  auto* header = static_cast<PieceHeader*>(RawAlloc(sizeof(PieceHeader) + size));
  if (!header) return nullptr;
  header->size = size;
  header->owner = this;
  void* p = header + 1;
  if (zero_new_) std::memset(p, 0, size);
  pieces_.insert(p);
  bytes_held_ += sizeof(PieceHeader) + size;
  return p;
}

CExtAlloc::Page* CExtAlloc::NewPage(size_t elementSize) {
  const size_t stride = AlignUp(elementSize + kSlotAlign, kSlotAlign);
  const size_t fits = std::max<size_t>(1, kMaxPageBytes / stride);
  const uint32_t count = static_cast<uint32_t>(std::min<size_t>(block_count_, fits));
  const size_t first = AlignUp(sizeof(Page) + (count + 7) / 8, kSlotAlign);
  const size_t total = first + size_t{count} * stride;
  auto* page = static_cast<Page*>(RawAlloc(total));
  if (!page) return nullptr;
  *page = Page{this, nullptr, nullptr, elementSize, stride, first, count, 0};
  std::memset(page->Bitmap(), 0, (count + 7) / 8);
  for (uint32_t i = 0; i < count; ++i) {
    uint8_t* element = page->Element(i);
    const uint32_t back = static_cast<uint32_t>(element - page->Start());
    std::memcpy(element - 4, &back, 4);
  }
  pages_[reinterpret_cast<uintptr_t>(page)] = page;
  bytes_held_ += total;
  return page;
}

void CExtAlloc::LinkFirst(Page* page) {
  auto& head = heads_[page->element_size];
  page->prev = nullptr;
  page->next = head;
  if (head) head->prev = page;
  head = page;
}

void CExtAlloc::Unlink(Page* page) {
  if (page->prev) {
    page->prev->next = page->next;
  } else {
    auto it = heads_.find(page->element_size);
    if (it != heads_.end() && it->second == page) {
      if (page->next)
        it->second = page->next;
      else
        heads_.erase(it);
    }
  }
  if (page->next) page->next->prev = page->prev;
  page->next = page->prev = nullptr;
}

void* CExtAlloc::PageAlloc(size_t size) {
  if (size > kMaxPageBytes) return nullptr;
  Page* page = nullptr;
  if (auto it = heads_.find(size); it != heads_.end()) page = it->second;
  if (!page) {
    page = NewPage(size);
    if (!page) return nullptr;
    LinkFirst(page);
  }
  // The first free bit, scanning the bitmap from bit 0.
  const uint8_t* bits = page->Bitmap();
  uint32_t i = 0;
  while (bits[i / 8] == 0xFF) i += 8;
  while (bits[i / 8] & (1u << (i % 8))) ++i;
  page->Bitmap()[i / 8] |= static_cast<uint8_t>(1u << (i % 8));
  // A full page leaves the list of pages with free slots.
  if (++page->used == page->count) Unlink(page);
  void* p = page->Element(i);
  if (zero_new_) std::memset(p, 0, size);
  return p;
}

CExtAlloc::Page* CExtAlloc::PageOf(void* pointer) const {
  if (!pointer || pages_.empty()) return nullptr;
  const auto address = reinterpret_cast<uintptr_t>(pointer);
  auto it = pages_.upper_bound(address);
  if (it == pages_.begin()) return nullptr;
  Page* page = std::prev(it)->second;
  const uintptr_t start = reinterpret_cast<uintptr_t>(page);
  if (address < start + page->first_slot + kSlotAlign || address >= start + page->TotalBytes())
    return nullptr;
  // The word in front of the element leads back to the page; anything else is no element.
  uint32_t back = 0;
  std::memcpy(&back, static_cast<uint8_t*>(pointer) - 4, 4);
  if (back != address - start || (back - page->first_slot - kSlotAlign) % page->stride != 0)
    return nullptr;
  return page;
}

void CExtAlloc::Free(void* pointer) {
  if (!pointer) return;
  if (block_count_ < 2) {
    if (pieces_.erase(pointer) == 0) return;
    auto* header = static_cast<PieceHeader*>(pointer) - 1;
    bytes_held_ -= sizeof(PieceHeader) + header->size;
    RawFree(header);
    return;
  }
  if (Page* page = PageOf(pointer)) PageFree(page, pointer);
}

void CExtAlloc::PageFree(Page* page, void* pointer) {
  uint32_t back = 0;
  std::memcpy(&back, static_cast<uint8_t*>(pointer) - 4, 4);
  const uint32_t i = static_cast<uint32_t>((back - page->first_slot - kSlotAlign) / page->stride);
  uint8_t& byte = page->Bitmap()[i / 8];
  const auto bit = static_cast<uint8_t>(1u << (i % 8));
  if (!(byte & bit)) return;  // freed twice: nothing to do
  byte &= static_cast<uint8_t>(~bit);
  // A page that was full comes back among those with free slots.
  if (page->used-- == page->count) LinkFirst(page);
  if (release_empty_ && page->used == 0 && !page->next && !page->prev) {
    Unlink(page);
    DropPage(page);
  }
}

void CExtAlloc::DropPage(Page* page) {
  pages_.erase(reinterpret_cast<uintptr_t>(page));
  bytes_held_ -= page->TotalBytes();
  RawFree(page);
}

void* CExtAlloc::Realloc(void* pointer, size_t size) {
  if (!pointer || size == 0) return nullptr;
  const size_t old = GetSize(pointer);
  if (old == static_cast<size_t>(-1)) return nullptr;
  if (AlignSize(size) == old) return pointer;
  void* fresh = Alloc(size);
  if (!fresh) return nullptr;
  std::memcpy(fresh, pointer, std::min(old, size));
  Free(pointer);
  return fresh;
}

size_t CExtAlloc::GetSize(void* pointer) {
  if (block_count_ < 2) {
    if (!pieces_.count(pointer)) return static_cast<size_t>(-1);
    return (static_cast<PieceHeader*>(pointer) - 1)->size;
  }
  Page* page = PageOf(pointer);
  return page ? page->element_size : static_cast<size_t>(-1);
}

int CExtAlloc::DidAlloc(void* pointer) {
  if (!pointer) return -1;
  if (block_count_ < 2) {
    if (!pieces_.count(pointer)) return 0;
    return (static_cast<PieceHeader*>(pointer) - 1)->owner == this ? 1 : 0;
  }
  Page* page = PageOf(pointer);
  return page && page->owner == this ? 1 : 0;
}

void CExtAlloc::HeapMinimize() {
  // Only a page alone in its list, with nothing in use, is given back.
  std::vector<Page*> empty;
  for (auto& [size, head] : heads_)
    if (head->used == 0 && !head->next && !head->prev) empty.push_back(head);
  for (Page* page : empty) {
    Unlink(page);
    DropPage(page);
  }
}

}  // namespace qmk::toolkit::grid
