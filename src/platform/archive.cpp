// archive.cpp: the binary archive over files and memory areas.
#include "platform/archive.h"

#include <cstring>
#include <sys/stat.h>

namespace qmk::platform {

Archive Archive::FromMemory(const void* data, size_t size) {
  Archive a(Mode::kLoad);
  a.mem_ = static_cast<const uint8_t*>(data);
  a.mem_size_ = data ? size : 0;
  return a;
}

Archive Archive::ToMemory() { return Archive(Mode::kStore); }

Archive Archive::OpenFile(const std::string& path, Mode mode) {
  Archive a(mode);
  a.file_ = std::fopen(path.c_str(), mode == Mode::kLoad ? "rb" : "wb");
  if (!a.file_) {
    a.ok_ = false;
    return a;
  }
  struct stat st {};
  if (mode == Mode::kLoad && fstat(fileno(a.file_), &st) == 0 && S_ISREG(st.st_mode))
    a.file_size_ = static_cast<uint64_t>(st.st_size);
  a.buffer_.resize(kBufferSize);
  return a;
}

Archive::Archive(Archive&& o) noexcept
    : mode_(o.mode_), ok_(o.ok_), file_(o.file_), file_size_(o.file_size_),
      file_consumed_(o.file_consumed_), mem_(o.mem_), mem_size_(o.mem_size_), mem_pos_(o.mem_pos_),
      stored_(std::move(o.stored_)), buffer_(std::move(o.buffer_)), buf_pos_(o.buf_pos_),
      buf_len_(o.buf_len_) {
  o.file_ = nullptr;
}

Archive::~Archive() {
  if (!file_) return;
  Flush();
  std::fclose(file_);
}

bool Archive::Refill() {
  buf_pos_ = 0;
  buf_len_ = std::fread(buffer_.data(), 1, buffer_.size(), file_);
  return buf_len_ > 0;
}

size_t Archive::Read(void* out, size_t size) {
  auto* dst = static_cast<uint8_t*>(out);
  size_t done = 0;
  if (!IsLoading() || !ok_) {
    ok_ = false;
    std::memset(dst, 0, size);
    return 0;
  }
  if (file_) {
    while (done < size) {
      if (buf_pos_ == buf_len_ && !Refill()) break;
      const size_t n = std::min(size - done, buf_len_ - buf_pos_);
      std::memcpy(dst + done, buffer_.data() + buf_pos_, n);
      buf_pos_ += n;
      done += n;
    }
    file_consumed_ += done;
  } else {
    done = std::min(size, mem_size_ - mem_pos_);
    if (done) std::memcpy(dst, mem_ + mem_pos_, done);
    mem_pos_ += done;
  }
  if (done < size) {
    ok_ = false;
    std::memset(dst + done, 0, size - done);
  }
  return done;
}

void Archive::Write(const void* data, size_t size) {
  if (!IsStoring() || !ok_) {
    ok_ = false;
    return;
  }
  const auto* src = static_cast<const uint8_t*>(data);
  if (!file_) {
    stored_.insert(stored_.end(), src, src + size);
    return;
  }
  while (size > 0) {
    if (buf_len_ == buffer_.size()) Flush();
    if (!ok_) return;
    const size_t n = std::min(size, buffer_.size() - buf_len_);
    std::memcpy(buffer_.data() + buf_len_, src, n);
    buf_len_ += n;
    src += n;
    size -= n;
  }
}

std::optional<uint64_t> Archive::Remaining() const {
  if (!IsLoading()) return std::nullopt;
  if (file_) {
    if (!file_size_) return std::nullopt;  // a pipe or a device: unknown
    return file_size_ > file_consumed_ ? file_size_ - file_consumed_ : 0;
  }
  return mem_size_ - mem_pos_;
}

uint8_t Archive::ReadU8() {
  uint8_t b = 0;
  Read(&b, 1);
  return b;
}

uint16_t Archive::ReadU16() {
  uint8_t b[2];
  Read(b, 2);
  return static_cast<uint16_t>(b[0] | (b[1] << 8));
}

uint32_t Archive::ReadU32() {
  uint8_t b[4];
  Read(b, 4);
  return uint32_t{b[0]} | (uint32_t{b[1]} << 8) | (uint32_t{b[2]} << 16) | (uint32_t{b[3]} << 24);
}

void Archive::WriteU16(uint16_t v) {
  const uint8_t b[2] = {static_cast<uint8_t>(v), static_cast<uint8_t>(v >> 8)};
  Write(b, 2);
}

void Archive::WriteU32(uint32_t v) {
  const uint8_t b[4] = {static_cast<uint8_t>(v), static_cast<uint8_t>(v >> 8),
                        static_cast<uint8_t>(v >> 16), static_cast<uint8_t>(v >> 24)};
  Write(b, 4);
}

std::string Archive::ReadString() {
  uint32_t len = ReadU8();
  if (len == 0xFF) {
    len = ReadU16();
    if (len == 0xFFFF) len = ReadU32();
  }
  std::string s;
  // Grow only as far as the data goes, so a damaged length can't ask for gigabytes.
  const std::optional<uint64_t> left = Remaining();
  if (!ok_ || (left && len > *left)) {
    ok_ = false;
    return s;
  }
  s.resize(len);
  Read(s.data(), len);
  return ok_ ? s : std::string();
}

void Archive::WriteString(const std::string& s) {
  if (s.size() < 0xFF) {
    WriteU8(static_cast<uint8_t>(s.size()));
  } else {
    WriteU8(0xFF);
    if (s.size() < 0xFFFF) {
      WriteU16(static_cast<uint16_t>(s.size()));
    } else {
      WriteU16(0xFFFF);
      WriteU32(static_cast<uint32_t>(s.size()));
    }
  }
  Write(s.data(), s.size());
}

void Archive::Flush() {
  if (!file_ || !IsStoring() || buf_len_ == 0) return;
  if (ok_ && std::fwrite(buffer_.data(), 1, buf_len_, file_) != buf_len_) ok_ = false;
  if (ok_ && std::fflush(file_) != 0) ok_ = false;
  buf_len_ = 0;
}

std::vector<uint8_t> Archive::TakeStored() { return std::move(stored_); }

}  // namespace qmk::platform
