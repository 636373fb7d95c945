// alloc.h: CExtAlloc, the reference-counted block allocator that grid providers take cell memory
// from: single heap pieces with a header, or pages of equal elements with an occupancy bitmap.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <unordered_set>

namespace qmk::toolkit::grid {

// Interface ids that QueryInterface answers.
enum class InterfaceId { kIUnknown, kIMalloc, kOther };

// The task-allocator shape: reference counting and the six memory operations.
class IMalloc {
 public:
  virtual bool QueryInterface(InterfaceId id, void** out) = 0;
  virtual unsigned long AddRef() = 0;
  virtual unsigned long Release() = 0;
  virtual void* Alloc(size_t size) = 0;
  virtual void* Realloc(void* pointer, size_t size) = 0;
  virtual void Free(void* pointer) = 0;
  // The usable size of a block, or (size_t)-1 for a pointer this allocator doesn't know.
  virtual size_t GetSize(void* pointer) = 0;
  // 1 when this allocator made the block, 0 when not, -1 for null.
  virtual int DidAlloc(void* pointer) = 0;
  virtual void HeapMinimize() = 0;

 protected:
  virtual ~IMalloc() = default;
};

class CExtAlloc : public IMalloc {
 public:
  // A larger block count is cut to this: a page of 100000 elements is the largest there is.
  static constexpr uint32_t kMaxBlockCount = 100000;
  // Pages never grow past this many bytes of slots; a page of very large elements holds fewer.
  static constexpr size_t kMaxPageBytes = size_t{64} << 20;

  // Starts with one reference. A block count below 2 gives each request its own heap piece.
  CExtAlloc(uint32_t blockCount = 0, IMalloc* outer = nullptr, bool releaseEmptyPages = false,
            bool zeroNewMemory = false, size_t alignment = 1);

  bool QueryInterface(InterfaceId id, void** out) override;
  unsigned long AddRef() override { return ++refs_; }
  unsigned long Release() override;
  void* Alloc(size_t size) override;
  void* Realloc(void* pointer, size_t size) override;
  void Free(void* pointer) override;
  size_t GetSize(void* pointer) override;
  int DidAlloc(void* pointer) override;
  void HeapMinimize() override;

  virtual size_t GetAlignment() const { return alignment_; }
  size_t AlignSize(size_t size) const;

  uint32_t BlockCount() const { return block_count_; }
  // Pages held now, and bytes taken from the heap for pages and pieces.
  size_t PageCount() const { return pages_.size(); }
  size_t BytesHeld() const { return bytes_held_; }

 protected:
  ~CExtAlloc() override;
  // The heap under the allocator; a subclass may supply another.
  virtual void* RawAlloc(size_t size);
  virtual void RawFree(void* pointer);
  virtual void* RawRealloc(void* pointer, size_t size);

 private:
  struct Page;
  void* PieceAlloc(size_t size);
  void* PageAlloc(size_t size);
  Page* NewPage(size_t elementSize);
  void PageFree(Page* page, void* pointer);
  void LinkFirst(Page* page);
  void Unlink(Page* page);
  void DropPage(Page* page);
  Page* PageOf(void* pointer) const;

  unsigned long refs_ = 1;
  uint32_t block_count_;
  IMalloc* outer_;
  bool release_empty_;
  bool zero_new_;
  size_t alignment_;
  size_t bytes_held_ = 0;
  // Element size to the first page with a free slot; full pages are out of the list.
  std::map<size_t, Page*> heads_;
  // Every page by its start address, to tell our pointers from others.
  std::map<uintptr_t, Page*> pages_;
  std::unordered_set<void*> pieces_;
};

}  // namespace qmk::toolkit::grid
