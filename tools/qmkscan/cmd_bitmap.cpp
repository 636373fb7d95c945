// cmd_bitmap.cpp: qmkscan bitmap: facts about a BMP file, conversion to BMP or PNG, scaling and
// colour filters through the toolkit's bitmap engine.
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "commands.h"
#include "toolkit/bitmap/bitmap.h"
#include "toolkit/bitmap/filter.h"
#include "platform/text.h"

namespace qmkscan {
namespace {

using qmk::toolkit::bitmap::CExtBitmap;
using qmk::toolkit::bitmap::PixelBlock;

constexpr const char* kUsage =
    "usage: qmkscan bitmap info FILE\n"
    "       qmkscan bitmap convert IN OUT [--rle]\n"
    "       qmkscan bitmap scale IN OUT WIDTH HEIGHT [--filter NAME]\n"
    "       qmkscan bitmap filter IN OUT --mono | --hls DH,DL,DS | --alpha D\n";

bool Load(const std::string& path, CExtBitmap& bmp) {
  if (bmp.FromFile(path)) return true;
  std::ifstream probe(path);
  std::fprintf(stderr, "qmkscan bitmap: %s: %s\n", path.c_str(),
               probe ? "not a BMP picture, or a damaged one" : "cannot open the file");
  return false;
}

bool HasAlpha(const CExtBitmap& bmp) {
  if (bmp.Depth() != 32) return false;
  for (int y = 0; y < bmp.Height(); ++y) {
    const uint8_t* row = PixelBlock::Row(bmp.Block(), y);
    for (int x = 0; x < bmp.Width(); ++x)
      if (row[x * 4 + 3]) return true;
  }
  return false;
}

// BMP, or PNG when the name ends in .png. A 32-bit picture whose alpha is all zero carries no
// alpha at all, so it is written opaque.
bool Save(const CExtBitmap& src, const std::string& path, bool rle) {
  bool ok;
  if (qmk::platform::EndsWithNoCase(path, ".png")) {
    CExtBitmap bmp(src);
    qmk::platform::DrawTarget dc(bmp.Width(), bmp.Height());
    const qmk::toolkit::bitmap::Rect all{0, 0, bmp.Width(), bmp.Height()};
    ok = dc.ok() && (HasAlpha(bmp) ? bmp.AlphaBlend(dc, all) : bmp.Draw(dc, all)) && dc.WritePng(path);
  } else {
    if (rle && src.Depth() != 8)
      std::fprintf(stderr, "qmkscan bitmap: --rle applies to 8-bit pictures; %s is written uncompressed\n",
                   path.c_str());
    ok = src.ToFile(path, rle);
  }
  if (!ok) std::fprintf(stderr, "qmkscan bitmap: cannot write %s\n", path.c_str());
  return ok;
}

bool ParseDeltas(const std::string& text, std::vector<double>& out) {
  out.clear();
  size_t start = 0;
  while (true) {
    const size_t comma = text.find(',', start);
    const std::string part = text.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
    char* end = nullptr;
    const double v = std::strtod(part.c_str(), &end);
    if (part.empty() || *end != '\0' || v < -1 || v > 1) return false;
    out.push_back(v);
    if (comma == std::string::npos) return true;
    start = comma + 1;
  }
}

int Info(Args& args) {
  if (args.rest().size() != 2) return std::fprintf(stderr, "%s", kUsage), 2;
  const std::string& path = args.rest()[1];
  CExtBitmap bmp;
  if (!Load(path, bmp)) return 1;
  // The compression of the file itself: the picture in memory is always uncompressed.
  unsigned compression = 0;
  if (std::ifstream in{path, std::ios::binary}) {
    unsigned char h[34] = {};
    in.read(reinterpret_cast<char*>(h), sizeof h);
    compression = h[30] | h[31] << 8 | h[32] << 16 | unsigned(h[33]) << 24;
  }
  static const char* const kCompression[] = {"none", "RLE8", "RLE4", "bit fields"};
  const auto* h = PixelBlock::Header(bmp.Block());
  const auto* m = PixelBlock::Masks(bmp.Block());
  std::printf("file:        %s\n", path.c_str());
  std::printf("size:        %d x %d\n", bmp.Width(), bmp.Height());
  std::printf("depth:       %d bits\n", bmp.Depth());
  std::printf("compression: %s\n", compression < 4 ? kCompression[compression] : "other");
  if (bmp.Depth() <= 8) std::printf("palette:     %u colours\n", PixelBlock::PaletteCount(bmp.Block()));
  if (bmp.Depth() >= 16)
    std::printf("masks:       red %08X green %08X blue %08X alpha %08X\n", m->red, m->green, m->blue, m->alpha);
  std::printf("resolution:  %d x %d pixels a metre\n", h->biXPelsPerMeter, h->biYPelsPerMeter);
  return 0;
}

int Convert(Args& args) {
  const bool rle = args.Flag("rle");
  if (!args.NoUnknownOptions("bitmap convert")) return 2;
  if (args.rest().size() != 3) return std::fprintf(stderr, "%s", kUsage), 2;
  CExtBitmap bmp;
  if (!Load(args.rest()[1], bmp)) return 1;
  return Save(bmp, args.rest()[2], rle) ? 0 : 1;
}

int Scale(Args& args) {
  const std::string name = args.Option("filter").value_or("Bicubic");
  if (!args.NoUnknownOptions("bitmap scale")) return 2;
  if (args.rest().size() != 5) return std::fprintf(stderr, "%s", kUsage), 2;
  const int kind = CExtBitmap::Filter::KindFromName(name.c_str());
  if (kind < 0) {
    std::fprintf(stderr, "qmkscan bitmap scale: no filter \"%s\"; the filters are", name.c_str());
    for (int k = 0; k < qmk::toolkit::bitmap::kFilterKindCount; ++k)
      std::fprintf(stderr, " %s", CExtBitmap::Filter(k).GetName());
    std::fprintf(stderr, "\n");
    return 2;
  }
  long width = 0, height = 0;
  if (!qmk::platform::ParseBoundedInt(args.rest()[3], 1, 32767, &width) || !qmk::platform::ParseBoundedInt(args.rest()[4], 1, 32767, &height)) {
    std::fprintf(stderr, "qmkscan bitmap scale: WIDTH and HEIGHT are whole numbers from 1 to 32767\n");
    return 2;
  }
  CExtBitmap bmp;
  if (!Load(args.rest()[1], bmp)) return 1;
  // Palette pictures are resampled in 32 bits.
  if (bmp.Depth() < 16 && !bmp.Make32()) return std::fprintf(stderr, "qmkscan bitmap: out of memory\n"), 1;
  if (!bmp.Scale(static_cast<int>(width), static_cast<int>(height), kind)) {
    std::fprintf(stderr, "qmkscan bitmap scale: the picture could not be resampled (out of memory?)\n");
    return 1;
  }
  return Save(bmp, args.rest()[2], false) ? 0 : 1;
}

int Filter(Args& args) {
  const bool mono = args.Flag("mono");
  const std::optional<std::string> hls = args.Option("hls");
  const std::optional<std::string> alpha = args.Option("alpha");
  if (!args.NoUnknownOptions("bitmap filter")) return 2;
  if (args.rest().size() != 3 || int(mono) + int(hls.has_value()) + int(alpha.has_value()) != 1)
    return std::fprintf(stderr, "%s(exactly one of --mono, --hls, --alpha)\n", kUsage), 2;
  std::vector<double> d;
  if (hls && (!ParseDeltas(*hls, d) || d.size() != 3))
    return std::fprintf(stderr, "qmkscan bitmap filter: --hls wants three numbers from -1 to 1: DH,DL,DS\n"), 2;
  if (alpha && (!ParseDeltas(*alpha, d) || d.size() != 1))
    return std::fprintf(stderr, "qmkscan bitmap filter: --alpha wants one number from -1 to 1\n"), 2;
  CExtBitmap bmp;
  if (!Load(args.rest()[1], bmp)) return 1;
  // Filters work on direct colours; alpha needs a channel to work on.
  if ((bmp.Depth() < 15 || alpha) && !bmp.Make32()) return std::fprintf(stderr, "qmkscan bitmap: out of memory\n"), 1;
  const bool done = mono ? bmp.MakeMono() : hls ? bmp.AdjustHLS(-1, -1, d[0], d[1], d[2]) : bmp.AdjustAlpha(d[0]);
  if (!done) return std::fprintf(stderr, "qmkscan bitmap filter: the filter could not run\n"), 1;
  return Save(bmp, args.rest()[2], false) ? 0 : 1;
}

}  // namespace

int RunBitmap(Args& args) {
  const std::string sub = args.rest().empty() ? "" : args.rest()[0];
  if (sub == "info") return Info(args);
  if (sub == "convert") return Convert(args);
  if (sub == "scale") return Scale(args);
  if (sub == "filter") return Filter(args);
  std::fprintf(stderr, "%s", kUsage);
  return 2;
}

}  // namespace qmkscan
