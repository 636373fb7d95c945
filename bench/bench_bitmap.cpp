// bench_bitmap.cpp: resampling a 4000 by 3000 32-bit picture with Box, Bicubic and Lanczos,
// down to 1000 by 750 and up to 8000 by 6000, beside ImageMagick on one thread with the same
// filter; and BMP decoding and encoding throughput.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include "platform/archive.h"
#include "toolkit/bitmap/bitmap.h"
#include "toolkit/bitmap/filter.h"

namespace {

using qmk::platform::Archive;
using qmk::toolkit::bitmap::CExtBitmap;
using qmk::toolkit::bitmap::PixelBlock;
namespace bm = qmk::toolkit::bitmap;

constexpr int kSrcW = 4000, kSrcH = 3000;

// Smooth gradients with a little noise: neither flat nor random.
const CExtBitmap& Source() {
  static const CExtBitmap picture = [] {
    CExtBitmap b;
    b.Create(kSrcW, kSrcH, 32);
    uint32_t seed = 1;
    for (int y = 0; y < kSrcH; ++y) {
      uint8_t* p = PixelBlock::Row(b.Block(), y);
      for (int x = 0; x < kSrcW; ++x, p += 4) {
        seed = seed * 1664525 + 1013904223;
        p[0] = static_cast<uint8_t>(x * 255 / kSrcW + (seed >> 28));
        p[1] = static_cast<uint8_t>(y * 255 / kSrcH);
        p[2] = static_cast<uint8_t>((x ^ y) & 0xFF);
        p[3] = 255;
      }
    }
    return b;
  }();
  return picture;
}

struct Job {
  const char* filter;          // our kernel name
  const char* magick_filter;   // the same kernel in ImageMagick: Mitchell is B = C = 1/3
  int width, height;
};
constexpr Job kJobs[] = {
    {"Box", "Box", 1000, 750},     {"Bicubic", "Mitchell", 1000, 750},   {"Lanczos", "Lanczos", 1000, 750},
    {"Box", "Box", 8000, 6000},    {"Bicubic", "Mitchell", 8000, 6000},  {"Lanczos", "Lanczos", 8000, 6000},
};

std::map<std::string, double> g_ours, g_magick;  // best seconds by job label

std::string Label(const Job& j) { return std::string(j.filter) + " to " + std::to_string(j.width) + "x" + std::to_string(j.height); }

void BM_Scale(benchmark::State& state, Job job) {
  const int kind = CExtBitmap::Filter::KindFromName(job.filter);
  double best = 1e9;
  for (auto _ : state) {
    state.PauseTiming();
    CExtBitmap bmp(Source());
    state.ResumeTiming();
    const auto t0 = std::chrono::steady_clock::now();
    if (!bmp.Scale(job.width, job.height, kind)) state.SkipWithError("Scale failed");
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
    benchmark::DoNotOptimize(bmp.Block());
  }
  g_ours[Label(job)] = best;
}

// ImageMagick reads its own pixel cache file, so that decoding costs next to nothing; the time of
// the same command without the resize is taken off.
std::filesystem::path MagickSource() {
  static const std::filesystem::path path = [] {
    const auto dir = std::filesystem::temp_directory_path() / ("qmk_bench_" + std::to_string(getpid()));
    std::filesystem::create_directories(dir);
    const auto bmp = dir / "source.bmp";
    Source().ToFile(bmp.string());
    const std::string cmd = "convert '" + bmp.string() + "' '" + (dir / "source.mpc").string() + "'";
    if (std::system(cmd.c_str()) != 0) return std::filesystem::path();
    return dir / "source.mpc";
  }();
  return path;
}

double RunSeconds(const std::string& cmd) {
  const auto t0 = std::chrono::steady_clock::now();
  if (std::system(cmd.c_str()) != 0) return -1;
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

void BM_Magick(benchmark::State& state, Job job) {
  const std::filesystem::path src = MagickSource();
  if (src.empty()) {
    state.SkipWithError("ImageMagick is not available");
    for (auto _ : state) {}
    return;
  }
  const std::string base = "MAGICK_THREAD_LIMIT=1 convert '" + src.string() + "'";
  double best = 1e9;
  for (auto _ : state) {
    const double load = RunSeconds(base + " null: 2>/dev/null");
    const double total = RunSeconds(base + " -filter " + job.magick_filter + " -resize " + std::to_string(job.width) +
                                    "x" + std::to_string(job.height) + "! null: 2>/dev/null");
    if (load < 0 || total < 0) state.SkipWithError("convert failed");
    state.SetIterationTime(std::max(total - load, 1e-6));
    best = std::min(best, std::max(total - load, 1e-6));
  }
  g_magick[Label(job)] = best;
}

std::vector<uint8_t> Encoded(const CExtBitmap& bmp, bool rle) {
  Archive ar = Archive::ToMemory();
  bmp.SaveBMP(ar, true, rle);
  return ar.TakeStored();
}

const CExtBitmap& Source8() {
  static const CExtBitmap picture = [] {
    CExtBitmap b;
    b.Create(kSrcW, kSrcH, 8);
    for (int y = 0; y < kSrcH; ++y) {
      uint8_t* p = PixelBlock::Row(b.Block(), y);
      for (int x = 0; x < kSrcW; ++x) p[x] = static_cast<uint8_t>((x / 37 + y / 29) % 7 == 0 ? x : y / 12);
    }
    return b;
  }();
  return picture;
}

void BM_Decode(benchmark::State& state, int depth, bool rle) {
  const std::vector<uint8_t> file = Encoded(depth == 8 ? Source8() : Source(), rle);
  for (auto _ : state) {
    CExtBitmap bmp;
    if (!bmp.FromMemory(file.data(), file.size())) state.SkipWithError("decode failed");
    benchmark::DoNotOptimize(bmp.Block());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kSrcW * kSrcH * depth / 8);
}

void BM_Encode(benchmark::State& state, int depth, bool rle) {
  const CExtBitmap& bmp = depth == 8 ? Source8() : Source();
  for (auto _ : state) benchmark::DoNotOptimize(Encoded(bmp, rle).size());
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kSrcW * kSrcH * depth / 8);
}

}  // namespace

int main(int argc, char** argv) {
  for (const Job& j : kJobs) {
    const bool up = j.width > kSrcW;
    benchmark::RegisterBenchmark(("Scale/" + Label(j)).c_str(), BM_Scale, j)
        ->Iterations(up ? 1 : 3)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("Magick1Thread/" + Label(j)).c_str(), BM_Magick, j)
        ->Iterations(up ? 1 : 2)->UseManualTime()->Unit(benchmark::kMillisecond);
  }
  benchmark::RegisterBenchmark("DecodeBmp/32bit", BM_Decode, 32, false)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("EncodeBmp/32bit", BM_Encode, 32, false)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("DecodeBmp/8bit_rle", BM_Decode, 8, true)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("EncodeBmp/8bit_rle", BM_Encode, 8, true)->Unit(benchmark::kMillisecond);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  if (!MagickSource().empty()) std::filesystem::remove_all(MagickSource().parent_path());

  std::printf("\n%-24s %10s %14s %8s\n", "scale 4000x3000", "ours ms", "ImageMagick ms", "ratio");
  for (const Job& j : kJobs) {
    const std::string l = Label(j);
    if (!g_ours.count(l) || !g_magick.count(l)) continue;
    std::printf("%-24s %10.1f %14.1f %8.2f%s\n", l.c_str(), g_ours[l] * 1e3, g_magick[l] * 1e3,
                g_ours[l] / g_magick[l], g_ours[l] <= g_magick[l] ? "" : "  (slower)");
  }
  return 0;
}
