// reference_corpus_test.cpp: every form the BMP reader takes, generated here, decoded by the
// engine and by ImageMagick, compared pixel for pixel.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "bitmap/bmp_bytes.h"
#include "toolkit/bitmap/bitmap.h"

namespace bitmap_test {
namespace {

using qmk::toolkit::bitmap::CExtBitmap;
using qmk::toolkit::bitmap::RGBQUAD;

struct CorpusFile {
  std::string name;
  std::vector<uint8_t> bytes;
  bool compare_alpha = false;
  // 16-bit files hold five bits a channel. The engine widens them by truncating v * 255 / 31 and
  // ImageMagick by repeating bits, so they are compared at the file's own precision.
  int channel_bits = 8;
};

// A palette picture, uncompressed; `top_down` stores the first row first.
CorpusFile PaletteFile(const std::string& name, int w, int h, int depth, unsigned colours, bool top_down) {
  const unsigned used = colours ? colours : 1u << depth;
  BmpBytes b;
  b.FileHeader(14 + 40 + used * 4);
  b.InfoHeader(w, top_down ? -h : h, depth, 0, colours);
  b.Bytes(TestPalette(used));
  const int per_byte = 8 / depth;
  for (int i = 0; i < h; ++i) {
    std::vector<uint8_t> row(RowStride(w, depth));
    const int y = top_down ? i : h - 1 - i;  // the picture row this stored row holds
    for (int x = 0; x < w; ++x) {
      const unsigned index = static_cast<unsigned>(x * 7 + y * 3) % used;
      row[x / per_byte] |= static_cast<uint8_t>(index << (8 - depth * (x % per_byte + 1)));
    }
    b.Bytes(row);
  }
  b.FinishSize();
  return {name, b.data};
}

// A direct-colour picture: `pixel` gives the stored bytes of (x, y).
CorpusFile DirectFile(const std::string& name, int w, int h, int depth, bool top_down,
                      unsigned compression, const std::vector<uint8_t>& between,
                      const std::function<std::vector<uint8_t>(int, int)>& pixel) {
  BmpBytes b;
  b.FileHeader(static_cast<uint32_t>(14 + 40 + between.size()));
  b.InfoHeader(w, top_down ? -h : h, depth, compression);
  b.Bytes(between);
  for (int i = 0; i < h; ++i) {
    std::vector<uint8_t> row;
    const int y = top_down ? i : h - 1 - i;
    for (int x = 0; x < w; ++x) {
      const std::vector<uint8_t> p = pixel(x, y);
      row.insert(row.end(), p.begin(), p.end());
    }
    row.resize(RowStride(w, depth));
    b.Bytes(row);
  }
  b.FinishSize();
  return {name, b.data, depth == 32 && compression == 0, depth == 16 ? 5 : 8};
}

std::vector<uint8_t> Word16(unsigned v) { return {static_cast<uint8_t>(v), static_cast<uint8_t>(v >> 8)}; }
std::vector<uint8_t> Words(std::initializer_list<uint32_t> words) {
  std::vector<uint8_t> out;
  for (uint32_t w : words)
    for (int i = 0; i < 4; ++i) out.push_back(static_cast<uint8_t>(w >> (8 * i)));
  return out;
}

CorpusFile RleFile(const std::string& name, int w, int h, int depth, const std::vector<uint8_t>& stream) {
  const unsigned colours = 1u << depth;
  BmpBytes b;
  b.FileHeader(14 + 40 + colours * 4);
  b.InfoHeader(w, h, depth, depth == 8 ? 1 : 2, colours, static_cast<uint32_t>(stream.size()));
  b.Bytes(TestPalette(colours));
  b.Bytes(stream);
  b.FinishSize();
  return {name, b.data};
}

std::vector<CorpusFile> Corpus() {
  auto rgb555 = [](int x, int y) { return Word16(((x * 3) & 31) << 10 | ((y * 5) & 31) << 5 | ((x + y) & 31)); };
  auto rgb24 = [](int x, int y) {
    return std::vector<uint8_t>{uint8_t(x * 40), uint8_t(y * 50 + 3), uint8_t(x * y + 7)};
  };
  auto rgba32 = [](int x, int y) {
    return std::vector<uint8_t>{uint8_t(x * 40), uint8_t(y * 50 + 3), uint8_t(x * y + 7), uint8_t(60 + x * 30 + y)};
  };
  return {
      PaletteFile("depth1.bmp", 13, 5, 1, 0, false),
      PaletteFile("depth1_topdown.bmp", 13, 5, 1, 2, true),
      PaletteFile("depth4.bmp", 7, 4, 4, 0, false),
      PaletteFile("depth4_short_palette.bmp", 9, 3, 4, 5, false),
      PaletteFile("depth8.bmp", 5, 6, 8, 0, false),
      PaletteFile("depth8_topdown.bmp", 6, 3, 8, 200, true),
      RleFile("rle8.bmp", 10, 4, 8,
              {3, 9,                   // three of 9
               0, 5, 1, 2, 3, 4, 5, 0, // a literal of five, padded
               2, 200,                 // two of 200
               0, 0,                   // end of line
               0, 2, 4, 1,             // delta: four columns right, one row up
               6, 17, 0, 0,            // six of 17 from column 4
               0, 4, 50, 51, 52, 53,   // even literal
               0, 0, 0, 1}),
      RleFile("rle4.bmp", 10, 4, 4,
              {5, 0x3A,                // five pixels 3, A, 3, A, 3
               0, 3, 0x12, 0x30,       // literal 1, 2, 3: two bytes, no pad
               0, 0,
               0, 5, 0x45, 0x67, 0x80, 0,  // literal of five: three bytes and a pad
               0, 2, 2, 1,             // delta: two columns, one row
               4, 0xEF,
               0, 0,
               10, 0x9C,
               0, 1}),
      DirectFile("depth16.bmp", 6, 4, 16, false, 0, {}, rgb555),
      DirectFile("depth16_topdown.bmp", 5, 3, 16, true, 0, {}, rgb555),
      // Bit fields: the masks sit where other readers look, and this reader's four dropped bytes
      // are accounted for before the pixels.
      DirectFile("depth16_bitfields.bmp", 6, 3, 16, false, 3, Words({0x7C00, 0x3E0, 0x1F, 0x1F}), rgb555),
      DirectFile("depth24.bmp", 5, 4, 24, false, 0, {}, rgb24),
      DirectFile("depth24_topdown.bmp", 7, 3, 24, true, 0, {}, rgb24),
      DirectFile("depth32.bmp", 5, 4, 32, false, 0, {}, rgba32),
      DirectFile("depth32_topdown.bmp", 4, 3, 32, true, 0, {}, rgba32),
      DirectFile("depth32_bitfields.bmp", 4, 3, 32, false, 3,
                 [] { auto v = Words({0xFF0000, 0xFF00, 0xFF}); v.resize(17, 0); return v; }(), rgba32),
  };
}

class ReferenceCorpus : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = std::filesystem::temp_directory_path() / ("qmk_bmp_corpus_" + std::to_string(getpid()));
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override { std::filesystem::remove_all(dir_); }

  // ImageMagick's pixels, 8 bits each, red, green, blue, alpha, top row first.
  std::vector<uint8_t> Reference(const std::filesystem::path& file) {
    const std::filesystem::path raw = file.string() + ".rgba";
    const std::string cmd = "convert '" + file.string() + "' -depth 8 'rgba:" + raw.string() + "' 2>/dev/null";
    if (std::system(cmd.c_str()) != 0) return {};
    std::ifstream in(raw, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  std::filesystem::path dir_;
};

TEST_F(ReferenceCorpus, EveryFormDecodesAsImageMagickDecodesIt) {
  for (const CorpusFile& f : Corpus()) {
    SCOPED_TRACE(f.name);
    const std::filesystem::path path = dir_ / f.name;
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(f.bytes.data()),
                                                static_cast<std::streamsize>(f.bytes.size()));
    CExtBitmap bmp;
    ASSERT_TRUE(bmp.FromFile(path.string()));
    const std::vector<uint8_t> ref = Reference(path);
    ASSERT_EQ(ref.size(), static_cast<size_t>(bmp.Width()) * bmp.Height() * 4) << "ImageMagick failed";
    int differences = 0;
    for (int y = 0; y < bmp.Height(); ++y)
      for (int x = 0; x < bmp.Width(); ++x) {
        RGBQUAD c;
        ASSERT_TRUE(bmp.GetPixel(x, y, c));
        const uint8_t* r = &ref[(static_cast<size_t>(y) * bmp.Width() + x) * 4];
        const int drop = 8 - f.channel_bits;
        const bool same = c.rgbRed >> drop == r[0] >> drop && c.rgbGreen >> drop == r[1] >> drop &&
                          c.rgbBlue >> drop == r[2] >> drop &&
                          (!f.compare_alpha || c.rgbReserved == r[3]);
        if (!same && ++differences <= 3)
          ADD_FAILURE() << "(" << x << "," << y << ") engine " << int(c.rgbRed) << "," << int(c.rgbGreen)
                        << "," << int(c.rgbBlue) << "," << int(c.rgbReserved) << " ImageMagick " << int(r[0])
                        << "," << int(r[1]) << "," << int(r[2]) << "," << int(r[3]);
      }
    EXPECT_EQ(differences, 0);
  }
}

}  // namespace
}  // namespace bitmap_test
