// archive.h: a binary archive: little-endian values and length-prefixed strings over a file or
// a memory area, buffered 4096 bytes at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace qmk::platform {

// One direction per archive: loading reads, storing writes. Failures never throw: a short read or
// a failed write sets a sticky failure flag, reads past the end give zeros, and the caller tests
// ok() once at the end of a record.
class Archive {
 public:
  enum class Mode { kLoad, kStore };
  static constexpr size_t kBufferSize = 4096;

  // Reads from a memory area the caller keeps alive.
  static Archive FromMemory(const void* data, size_t size);
  // Writes into a growing memory area, taken by TakeStored().
  static Archive ToMemory();
  // Opens a file; ok() is false when it can't be opened.
  static Archive OpenFile(const std::string& path, Mode mode);

  Archive(Archive&& other) noexcept;
  Archive& operator=(Archive&&) = delete;
  Archive(const Archive&) = delete;
  ~Archive();

  bool IsLoading() const { return mode_ == Mode::kLoad; }
  bool IsStoring() const { return mode_ == Mode::kStore; }
  bool ok() const { return ok_; }

  // Copies up to `size` bytes; returns how many were there. A short read marks the archive failed.
  size_t Read(void* out, size_t size);
  void Write(const void* data, size_t size);
  // Bytes still to be read, when the source knows its size.
  std::optional<uint64_t> Remaining() const;

  uint8_t ReadU8();
  uint16_t ReadU16();
  uint32_t ReadU32();
  void WriteU8(uint8_t v) { Write(&v, 1); }
  void WriteU16(uint16_t v);
  void WriteU32(uint32_t v);
  // Strings: a length of 0..254 in one byte, else 0xFF and a 16-bit length, else 0xFF, 0xFFFF
  // and a 32-bit length, then the bytes.
  std::string ReadString();
  void WriteString(const std::string& s);

  // Writes buffered bytes out; the destructor does it too.
  void Flush();
  // The bytes of a memory archive that stores.
  std::vector<uint8_t> TakeStored();

 private:
  Archive(Mode mode) : mode_(mode) {}
  bool Refill();

  Mode mode_;
  bool ok_ = true;
  std::FILE* file_ = nullptr;
  uint64_t file_size_ = 0;
  uint64_t file_consumed_ = 0;
  const uint8_t* mem_ = nullptr;  // loading from memory
  size_t mem_size_ = 0;
  size_t mem_pos_ = 0;
  std::vector<uint8_t> stored_;   // storing to memory
  std::vector<uint8_t> buffer_;   // file buffer, either direction
  size_t buf_pos_ = 0;
  size_t buf_len_ = 0;
};

}  // namespace qmk::platform
