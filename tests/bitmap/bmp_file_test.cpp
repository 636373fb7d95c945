// bmp_file_test.cpp: the BMP writer and reader: round trips, the run-length encoder's output,
// the reader's settled traits, and damaged files.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "bitmap/bmp_bytes.h"
#include "bitmap/test_pictures.h"

namespace bitmap_test {
namespace {

using qmk::toolkit::bitmap::kMasks555;

TEST(BmpRoundTrip, EveryDepthAndCompressionTheWriterMakes) {
  struct Case { int depth; bool rle; int width; };
  for (const Case c : {Case{1, false, 13}, {4, false, 7}, {8, false, 5}, {8, true, 37}, {24, false, 5},
                       {32, false, 3}}) {
    SCOPED_TRACE("depth " + std::to_string(c.depth) + (c.rle ? " rle" : ""));
    const CExtBitmap original = Patterned(c.width, 4, c.depth);
    const std::vector<uint8_t> file = Saved(original, c.rle);
    CExtBitmap back;
    ASSERT_TRUE(back.FromMemory(file.data(), file.size()));
    EXPECT_EQ(back.Depth(), c.depth);
    EXPECT_TRUE(SamePixels(original, back));
    EXPECT_EQ(std::memcmp(PixelBlock::Pixels(back.Block()), PixelBlock::Pixels(original.Block()),
                          PixelBlock::PixelBytes(original.Block())), 0);
  }
}

TEST(BmpRoundTrip, RleRowsWithRunsLiteralsAndPadsReadBack) {
  CExtBitmap bmp;
  bmp.Create(40, 3, 8);
  const std::vector<std::vector<uint8_t>> rows = {
      {1, 1, 1, 1, 1, 2, 3, 4, 4, 4, 4, 5},  // run, literal, run, single
      {7, 8, 9, 9, 9, 6},                    // a short run stays in the literal
      {}};
  for (int y = 0; y < 3; ++y)
    for (size_t x = 0; x < rows[y].size(); ++x) PixelBlock::Row(bmp.Block(), y)[x] = rows[y][x];
  const std::vector<uint8_t> file = Saved(bmp, true);
  CExtBitmap back;
  ASSERT_TRUE(back.FromMemory(file.data(), file.size()));
  EXPECT_EQ(std::memcmp(PixelBlock::Pixels(back.Block()), PixelBlock::Pixels(bmp.Block()),
                        PixelBlock::PixelBytes(bmp.Block())), 0);
}

TEST(BmpWriter, FileHeaderAndCompressionFields) {
  struct Case { int depth; bool rle; uint32_t compression; uint32_t extra; };
  for (const Case c : {Case{8, false, 0, 1024}, {8, true, 1, 1024}, {4, true, 0, 64}, {16, false, 3, 12},
                       {24, true, 0, 0}}) {
    const std::vector<uint8_t> f = Saved(Patterned(3, 2, c.depth), c.rle);
    auto u32 = [&](size_t at) { return f[at] | f[at + 1] << 8 | f[at + 2] << 16 | uint32_t(f[at + 3]) << 24; };
    EXPECT_EQ(f[0] | f[1] << 8, 19778);
    EXPECT_EQ(u32(2), f.size()) << c.depth;
    EXPECT_EQ(u32(10), 54 + c.extra) << c.depth;
    EXPECT_EQ(u32(14 + 16), c.compression) << c.depth;
  }
}

// The encoded bytes of one 8-bit row, without the end of line and end of picture.
std::vector<uint8_t> EncodedRow(const std::vector<uint8_t>& row) {
  CExtBitmap bmp;
  bmp.Create(static_cast<int>(row.size()), 1, 8);
  std::memcpy(PixelBlock::Row(bmp.Block(), 0), row.data(), row.size());
  std::vector<uint8_t> f = Saved(bmp, true);
  f.erase(f.begin(), f.begin() + 14 + 40 + 1024);
  EXPECT_GE(f.size(), 4u);
  EXPECT_EQ(std::vector<uint8_t>(f.end() - 4, f.end()), (std::vector<uint8_t>{0, 0, 0, 1}));
  f.resize(f.size() - 4);
  return f;
}

TEST(Rle8Encoder, LiteralFlushFormsAndRunThreshold) {
  struct Case { std::vector<uint8_t> row, want; const char* what; };
  const std::vector<Case> cases = {
      {{5}, {1, 5}, "one byte: a run of one"},
      {{5, 6}, {1, 5, 1, 6}, "two bytes: two runs of one"},
      {{5, 6, 7}, {0, 3, 5, 6, 7, 0}, "odd literal gets a pad"},
      {{5, 6, 7, 8}, {0, 4, 5, 6, 7, 8}, "even literal, no pad"},
      {{9, 9, 9}, {0, 3, 9, 9, 9, 0}, "a run of three joins the literal"},
      {{9, 9, 9, 9}, {4, 9}, "a run of four is a run"},
      {{1, 9, 9, 9, 9, 2}, {1, 1, 4, 9, 1, 2}, "the literal is flushed before a run"},
  };
  for (const Case& c : cases) EXPECT_EQ(EncodedRow(c.row), c.want) << c.what;
}

TEST(Rle8Encoder, LiteralBufferFlushesAt254) {
  std::vector<uint8_t> row(300);
  for (size_t i = 0; i < row.size(); ++i) row[i] = static_cast<uint8_t>(i % 2 ? 3 : i / 2);
  const std::vector<uint8_t> out = EncodedRow(row);
  ASSERT_GT(out.size(), 256u);
  EXPECT_EQ(out[0], 0);
  EXPECT_EQ(out[1], 254);
  EXPECT_EQ(out[2 + 254], 0);   // the rest: a literal of 46
  EXPECT_EQ(out[2 + 255], 46);
}

// Runs are not split: the count keeps the low eight bits, and the file reads back short.
TEST(Rle8Encoder, LongRunKeepsLowEightBitsAndReadsBackShort) {
  const std::vector<uint8_t> row(300, 7);
  EXPECT_EQ(EncodedRow(row), (std::vector<uint8_t>{300 % 256, 7}));
  CExtBitmap bmp;
  bmp.Create(300, 1, 8);
  std::memset(PixelBlock::Row(bmp.Block(), 0), 7, 300);
  const std::vector<uint8_t> f = Saved(bmp, true);
  CExtBitmap back;
  ASSERT_TRUE(back.FromMemory(f.data(), f.size()));
  const uint8_t* r = PixelBlock::Row(back.Block(), 0);
  EXPECT_EQ(r[43], 7);
  EXPECT_EQ(r[44], 0);
  EXPECT_EQ(r[299], 0);
}

TEST(BmpRoundTrip, OneByOneRle8ReadsBackIdentical) {
  CExtBitmap bmp = Patterned(1, 1, 8);
  const std::vector<uint8_t> f = Saved(bmp, true);
  CExtBitmap back;
  ASSERT_TRUE(back.FromMemory(f.data(), f.size()));
  EXPECT_EQ(PixelBlock::Row(back.Block(), 0)[0], PixelBlock::Row(bmp.Block(), 0)[0]);
  EXPECT_TRUE(SamePixels(bmp, back));
}

// The reader drops four bytes before the masks of a 16-bit bit-field file; the writer puts the
// masks right behind the header, so its 16-bit files don't read back the same.
TEST(BmpReader, SixteenBitFileOfTheWriterDoesNotReadBackTheSame) {
  const CExtBitmap original = Patterned(4, 3, 16);
  std::vector<uint8_t> f = Saved(original, false);
  CExtBitmap back;
  EXPECT_FALSE(back.FromMemory(f.data(), f.size())) << "four bytes short at the end";
  EXPECT_TRUE(back.IsEmpty());
  f.insert(f.end(), 4, 0);
  ASSERT_TRUE(back.FromMemory(f.data(), f.size()));
  EXPECT_FALSE(SamePixels(original, back));
  // Its masks are the green and blue masks and the first pixels.
  EXPECT_EQ(PixelBlock::Masks(back.Block())->red, kMasks555.green);
  EXPECT_EQ(PixelBlock::Masks(back.Block())->green, kMasks555.blue);
}

TEST(BmpReader, ThirtyTwoBitBitFieldsDropFiveBytesBeforeTheMasks) {
  BmpBytes b;
  b.FileHeader(14 + 40 + 17);
  b.InfoHeader(1, 1, 32, 3);
  for (int i = 0; i < 5; ++i) b.U8(0xEE);
  b.U32(0xFF);
  b.U32(0xFF00);
  b.U32(0xFF0000);
  b.Bytes({1, 2, 3, 4});
  CExtBitmap bmp;
  ASSERT_TRUE(bmp.FromMemory(b.data.data(), b.data.size()));
  EXPECT_EQ(PixelBlock::Masks(bmp.Block())->red, 0xFFu);
  EXPECT_EQ(PixelBlock::Masks(bmp.Block())->blue, 0xFF0000u);
  RGBQUAD c;
  ASSERT_TRUE(bmp.GetPixel(0, 0, c));
  EXPECT_EQ(c, (RGBQUAD{1, 2, 3, 4}));
}

TEST(BmpReader, SixteenBitWithoutBitFieldsIsFiveFiveFive) {
  BmpBytes b;
  b.FileHeader(54);
  b.InfoHeader(2, 1, 16, 0);
  b.U16(0x7C00);  // red at full in 5-5-5, a mix in 5-6-5
  b.U16(0x03E0);
  CExtBitmap bmp;
  ASSERT_TRUE(bmp.FromMemory(b.data.data(), b.data.size()));
  EXPECT_EQ(*PixelBlock::Masks(bmp.Block()), kMasks555);
  RGBQUAD c;
  bmp.GetPixel(0, 0, c);
  EXPECT_EQ(c, Quad(255, 0, 0, 255));
  bmp.GetPixel(1, 0, c);
  EXPECT_EQ(c, Quad(0, 255, 0, 255));
}

TEST(BmpReader, TopDownRowsAreTurned) {
  BmpBytes b;
  b.FileHeader(54);
  b.InfoHeader(1, -3, 24, 0);
  for (uint8_t v : {10, 20, 30}) b.Bytes({v, v, v, 0});
  CExtBitmap bmp;
  ASSERT_TRUE(bmp.FromMemory(b.data.data(), b.data.size()));
  EXPECT_EQ(bmp.Height(), 3);
  RGBQUAD c;
  bmp.GetPixel(0, 0, c);
  EXPECT_EQ(c.rgbRed, 10);
  bmp.GetPixel(0, 2, c);
  EXPECT_EQ(c.rgbRed, 30);
  EXPECT_GT(PixelBlock::Header(bmp.Block())->biHeight, 0);
}

TEST(BmpReader, KeepsResolutionAndMendsColourCount) {
  struct Case { unsigned colours; uint32_t want; };
  for (const Case c : {Case{0, 16}, {17, 16}, {3, 3}, {16, 16}}) {
    BmpBytes b;
    b.FileHeader(0);
    b.InfoHeader(2, 1, 4, 0, c.colours);
    b.Bytes(TestPalette(c.want));
    b.Bytes({0x12, 0, 0, 0});
    CExtBitmap bmp;
    ASSERT_TRUE(bmp.FromMemory(b.data.data(), b.data.size())) << c.colours;
    EXPECT_EQ(PixelBlock::PaletteCount(bmp.Block()), c.want);
    EXPECT_EQ(PixelBlock::Header(bmp.Block())->biXPelsPerMeter, 2835);
  }
}

TEST(BmpReader, LargerHeaderIsSkippedToThePalette) {
  BmpBytes b;
  b.FileHeader(14 + 108 + 8);
  b.InfoHeader(1, 1, 1, 0, 2);
  b.data[14] = 108;
  b.data.resize(b.data.size() + 68, 0);
  b.Bytes({0, 0, 0, 0, 10, 20, 30, 0});
  b.Bytes({0x80, 0, 0, 0});
  CExtBitmap bmp;
  ASSERT_TRUE(bmp.FromMemory(b.data.data(), b.data.size()));
  RGBQUAD c;
  bmp.GetPixel(0, 0, c);
  EXPECT_EQ(c, Quad(30, 20, 10, 255));
}

CExtBitmap DecodeRle(int w, int h, int depth, const std::vector<uint8_t>& stream) {
  BmpBytes b;
  b.FileHeader(0);
  b.InfoHeader(w, h, depth, depth == 8 ? 1 : 2, 2);
  b.Bytes(TestPalette(2));
  b.Bytes(stream);
  CExtBitmap bmp;
  bmp.FromMemory(b.data.data(), b.data.size());
  return bmp;
}

TEST(RleDecoder, RunsAndLiteralsAreCutAtTheRowEnd) {
  const CExtBitmap bmp = DecodeRle(4, 2, 8, {9, 1, 0, 0, 0, 6, 1, 1, 1, 1, 1, 1, 0, 1});
  ASSERT_FALSE(bmp.IsEmpty());
  EXPECT_EQ(std::vector<uint8_t>(PixelBlock::Row(bmp.Block(), 0), PixelBlock::Row(bmp.Block(), 0) + 4),
            (std::vector<uint8_t>{1, 1, 1, 1}));
  EXPECT_EQ(std::vector<uint8_t>(PixelBlock::Row(bmp.Block(), 1), PixelBlock::Row(bmp.Block(), 1) + 4),
            (std::vector<uint8_t>{1, 1, 1, 1}));
}

TEST(RleDecoder, StopsSilentlyAtTheLastRow) {
  // No end-of-picture mark; the rows run out first, and what follows is not read.
  const CExtBitmap bmp = DecodeRle(2, 1, 8, {2, 1, 0, 0});
  ASSERT_FALSE(bmp.IsEmpty());
  EXPECT_EQ(PixelBlock::Row(bmp.Block(), 0)[1], 1);
}

// The four-bit decoder moves by whole bytes, so an odd column count in a delta loses a column.
TEST(RleDecoder, FourBitDeltaMovesByEvenColumns) {
  const CExtBitmap bmp = DecodeRle(8, 1, 4, {0, 2, 3, 0, 1, 0x10, 0, 1});
  ASSERT_FALSE(bmp.IsEmpty());
  EXPECT_EQ(PixelBlock::Row(bmp.Block(), 0)[1], 0x10) << "the pixel lands at column 2, not 3";
}

TEST(RleDecoder, LargeBlankPictureWithLittleDataIsRead) {
  // A million pixels need no data at all; beyond that 2048 a byte.
  EXPECT_FALSE(DecodeRle(1024, 1024, 8, {0, 1}).IsEmpty());
  std::vector<uint8_t> stream(1000, 0);
  stream.back() = 1;
  EXPECT_FALSE(DecodeRle(2000, 1000, 8, stream).IsEmpty());
  EXPECT_TRUE(DecodeRle(2000, 1100, 8, stream).IsEmpty());
}

TEST(RleDecoder, DeltaOutsideThePictureWritesNothing) {
  const CExtBitmap bmp = DecodeRle(4, 2, 8, {0, 2, 250, 250, 5, 1, 0, 1});
  ASSERT_FALSE(bmp.IsEmpty());
  for (int y = 0; y < 2; ++y) EXPECT_EQ(PixelBlock::Row(bmp.Block(), y)[3], 0);
}

TEST(BmpReader, DamagedFilesGiveAnEmptyPicture) {
  auto file = [](int w, int h, unsigned depth, unsigned compression, size_t tail) {
    BmpBytes b;
    b.FileHeader(0);
    b.InfoHeader(w, h, depth, compression, 0);
    b.data.resize(b.data.size() + tail, 0);
    return b.data;
  };
  struct Case { std::vector<uint8_t> bytes; const char* what; };
  std::vector<Case> cases = {
      {{}, "nothing"},
      {{'B', 'M', 0, 0}, "cut in the file header"},
      {file(2, 2, 8, 0, 0), "no palette"},
      {file(2, 2, 8, 0, 1024 + 7), "pixels cut short"},
      {file(2, 2, 0, 0, 64), "depth 0"},
      {file(2, 2, 33, 0, 64), "depth 33"},
      {file(2, 2, 2, 0, 64), "depth 2"},
      {file(0, 2, 24, 0, 64), "no width"},
      {file(2, 0, 24, 0, 64), "no height"},
      {file(-2, 2, 24, 0, 64), "negative width"},
      {file(2, INT32_MIN, 24, 0, 64), "the lowest height"},
      {file(2, 2, 24, 1, 64), "RLE on 24 bits"},
      {file(2, 2, 1, 1, 64), "RLE8 on one bit"},
      {file(2, 2, 8, 2, 2048), "RLE4 on eight bits"},
      {file(2, -2, 8, 1, 2048), "RLE stored top-down"},
      {file(2, 2, 8, 4, 2048), "compression 4"},
      {file(2, 2, 8, 1, 1024), "RLE data missing"},
      {file(1 << 30, 1 << 30, 32, 0, 64), "size over the limit"},
      {file(1 << 20, 1 << 20, 8, 1, 1024 + 4), "RLE size over the limit"},
      {file(2000, 2000, 8, 1, 1024 + 64), "RLE picture far larger than its data"},
      {file(20000, 20000, 24, 0, 64), "pixels far beyond the data"},
  };
  std::vector<uint8_t> bad_magic = file(1, 1, 24, 0, 4);
  bad_magic[0] = 'X';
  cases.push_back({bad_magic, "bad magic"});
  std::vector<uint8_t> big_header = file(1, 1, 24, 0, 400);
  big_header[14] = 200;
  cases.push_back({big_header, "header size 200"});
  for (const Case& c : cases) {
    CExtBitmap bmp = Patterned(2, 2, 24);
    EXPECT_FALSE(bmp.FromMemory(c.bytes.data(), c.bytes.size())) << c.what;
    EXPECT_TRUE(bmp.IsEmpty()) << c.what;
  }
}

TEST(BmpReader, WithoutFileHeaderWhenTheCallerSaysSo) {
  const CExtBitmap original = Patterned(3, 3, 24);
  const std::vector<uint8_t> f = Saved(original, false, false);
  CExtBitmap back;
  ASSERT_TRUE(back.FromMemory(f.data(), f.size(), true));
  EXPECT_TRUE(SamePixels(original, back));
  EXPECT_FALSE(back.FromMemory(f.data(), f.size(), false));
}

TEST(BmpFiles, FileRoundTripAndMissingFile) {
  const auto path = std::filesystem::temp_directory_path() / ("qmk_bmp_" + std::to_string(getpid()) + ".bmp");
  const CExtBitmap original = Patterned(9, 4, 8);
  ASSERT_TRUE(original.ToFile(path.string(), true));
  CExtBitmap back;
  ASSERT_TRUE(back.FromFile(path.string()));
  EXPECT_TRUE(SamePixels(original, back));
  std::filesystem::remove(path);
  EXPECT_FALSE(back.FromFile(path.string()));
  EXPECT_TRUE(back.IsEmpty());
  EXPECT_FALSE(original.ToFile("/nonexistent-dir/x.bmp"));
}

TEST(BmpResources, CompiledInPicturesByName) {
  CExtBitmap bmp;
  ASSERT_TRUE(bmp.FromResource("check"));
  EXPECT_EQ(bmp.Width(), 8);
  RGBQUAD c;
  bmp.GetPixel(0, 3, c);
  EXPECT_EQ(c, Quad(0, 0, 0, 255));
  bmp.GetPixel(0, 0, c);
  EXPECT_EQ(c, Quad(255, 255, 255, 255));
  EXPECT_TRUE(bmp.FromResource("arrow-down"));
  EXPECT_FALSE(bmp.FromResource("no-such-picture"));
  EXPECT_TRUE(bmp.IsEmpty());
}

}  // namespace
}  // namespace bitmap_test
