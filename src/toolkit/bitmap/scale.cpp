// scale.cpp: the two-pass resampler: a table of weights per destination pixel, one pass along
// each axis, the cheaper order first.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "toolkit/bitmap/filter.h"

namespace qmk::toolkit::bitmap {
namespace {

// For each destination index, the source span it reads and the weights of that span.
struct Contributions {
  std::vector<int> first, count, offset;
  std::vector<float> weights;
};

Contributions BuildContributions(int src, int dst, const CExtBitmap::Filter& filter) {
  Contributions c;
  const double scale = static_cast<double>(dst) / src;
  // Shrinking widens the kernel over the source so that every source pixel counts.
  const double width = scale < 1 ? filter.GetSupport() / scale : filter.GetSupport();
  const double fscale = scale < 1 ? scale : 1.0;
  c.first.resize(dst);
  c.count.resize(dst);
  c.offset.resize(dst);
  std::vector<double> w;
  for (int i = 0; i < dst; ++i) {
    const double center = (i + 0.5) / scale;
    int left = std::max(0, static_cast<int>(std::floor(center - width)));
    int right = std::min(src - 1, static_cast<int>(std::ceil(center + width)));
    w.clear();
    double total = 0;
    for (int j = left; j <= right; ++j) {
      w.push_back(filter.Evaluate((center - j - 0.5) * fscale));
      total += w.back();
    }
    // Zero weights at either end cost time and add nothing.
    int lo = 0, hi = static_cast<int>(w.size());
    while (lo < hi && w[lo] == 0) ++lo;
    while (hi > lo && w[hi - 1] == 0) --hi;
    if (lo == hi) {  // nothing reaches this pixel: take the nearest one
      lo = 0;
      hi = 1;
      left = std::clamp(static_cast<int>(center), 0, src - 1);
      w.assign(1, 1.0);
      total = 1;
    }
    c.first[i] = left + lo;
    c.count[i] = hi - lo;
    c.offset[i] = static_cast<int>(c.weights.size());
    for (int k = lo; k < hi; ++k) c.weights.push_back(static_cast<float>(total != 0 ? w[k] / total : w[k]));
  }
  return c;
}

// Plain images of `channels` bytes a pixel; the rows of a picture in block order.
struct Plane {
  uint8_t* data;
  int width, height;
  size_t stride;
  uint8_t* Row(int y) const { return data + stride * static_cast<size_t>(y); }
};

inline uint8_t Clamp(float v, float top) {
  return static_cast<uint8_t>(v <= 0 ? 0 : v >= top ? top : v);
}

// True when every channel's top is 255, so that the packing instructions can clamp.
bool FullBytes(const float* top, int channels) {
  for (int ch = 0; ch < channels; ++ch)
    if (top[ch] != 255) return false;
  return true;
}

#if defined(__SSE2__)
inline __m128 LoadFourBytes(const uint8_t* p) {
  int32_t v;
  std::memcpy(&v, p, 4);
  const __m128i zero = _mm_setzero_si128();
  return _mm_cvtepi32_ps(_mm_unpacklo_epi16(_mm_unpacklo_epi8(_mm_cvtsi32_si128(v), zero), zero));
}

// Truncates four sums (each already holding its 0.5) to bytes, saturating at 0 and 255.
inline int32_t PackFour(__m128 v) {
  const __m128i i = _mm_cvttps_epi32(v);
  const __m128i b = _mm_packus_epi16(_mm_packs_epi32(i, i), _mm_setzero_si128());
  return _mm_cvtsi128_si32(b);
}
#endif

template <int C>
void HorizontalPass(const Plane& in, const Plane& out, const Contributions& c, const float* top) {
#if defined(__SSE2__)
  if (C == 4 && FullBytes(top, C)) {
    const __m128 half = _mm_set1_ps(0.5f);
    for (int y = 0; y < in.height; ++y) {
      const uint8_t* s = in.Row(y);
      uint8_t* d = out.Row(y);
      for (int i = 0; i < out.width; ++i) {
        __m128 acc = half;
        const float* w = c.weights.data() + c.offset[i];
        const uint8_t* p = s + static_cast<size_t>(c.first[i]) * 4;
        for (int k = 0, n = c.count[i]; k < n; ++k, p += 4)
          acc = _mm_add_ps(acc, _mm_mul_ps(_mm_set1_ps(w[k]), LoadFourBytes(p)));
        const int32_t packed = PackFour(acc);
        std::memcpy(d + i * 4, &packed, 4);
      }
    }
    return;
  }
#endif
  for (int y = 0; y < in.height; ++y) {
    const uint8_t* s = in.Row(y);
    uint8_t* d = out.Row(y);
    for (int i = 0; i < out.width; ++i) {
      float acc[C];
      for (int ch = 0; ch < C; ++ch) acc[ch] = 0.5f;
      const float* w = c.weights.data() + c.offset[i];
      const uint8_t* p = s + static_cast<size_t>(c.first[i]) * C;
      for (int k = 0, n = c.count[i]; k < n; ++k, p += C)
        for (int ch = 0; ch < C; ++ch) acc[ch] += w[k] * p[ch];
      for (int ch = 0; ch < C; ++ch) d[i * C + ch] = Clamp(acc[ch], top[ch]);
    }
  }
}

// Adds `w` times a row of bytes into the sums.
inline void AccumulateRow(float* a, const uint8_t* s, size_t n, float w) {
  size_t x = 0;
#if defined(__SSE2__)
  const __m128 wv = _mm_set1_ps(w);
  const __m128i zero = _mm_setzero_si128();
  for (; x + 16 <= n; x += 16) {
    const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + x));
    const __m128i lo = _mm_unpacklo_epi8(b, zero), hi = _mm_unpackhi_epi8(b, zero);
    const __m128 f[4] = {_mm_cvtepi32_ps(_mm_unpacklo_epi16(lo, zero)), _mm_cvtepi32_ps(_mm_unpackhi_epi16(lo, zero)),
                         _mm_cvtepi32_ps(_mm_unpacklo_epi16(hi, zero)), _mm_cvtepi32_ps(_mm_unpackhi_epi16(hi, zero))};
    for (int k = 0; k < 4; ++k)
      _mm_storeu_ps(a + x + 4 * k, _mm_add_ps(_mm_loadu_ps(a + x + 4 * k), _mm_mul_ps(wv, f[k])));
  }
#endif
  for (; x < n; ++x) a[x] += w * s[x];
}

template <int C>
void VerticalPass(const Plane& in, const Plane& out, const Contributions& c, const float* top) {
  const size_t n = static_cast<size_t>(in.width) * C;
  const bool full = FullBytes(top, C);
  std::vector<float> acc(n);
  for (int i = 0; i < out.height; ++i) {
    std::fill(acc.begin(), acc.end(), 0.5f);
    const float* w = c.weights.data() + c.offset[i];
    for (int k = 0; k < c.count[i]; ++k) AccumulateRow(acc.data(), in.Row(c.first[i] + k), n, w[k]);
    uint8_t* d = out.Row(i);
    size_t x = 0;
#if defined(__SSE2__)
    if (full)
      for (; x + 4 <= n; x += 4) {
        const int32_t packed = PackFour(_mm_loadu_ps(acc.data() + x));
        std::memcpy(d + x, &packed, 4);
      }
#endif
    for (; x < n; ++x) d[x] = Clamp(acc[x], full ? 255.0f : top[x % C]);
  }
}

template <int C>
void Resample(const Plane& src, const Plane& dst, const CExtBitmap::Filter& filter, const float* top) {
  const bool vertical_first =
      static_cast<int64_t>(src.height) * dst.width > static_cast<int64_t>(dst.height) * src.width;
  const Contributions cx = BuildContributions(src.width, dst.width, filter);
  const Contributions cy = BuildContributions(src.height, dst.height, filter);
  auto horizontal = [&](const Plane& in, const Plane& out) {
    if (in.width == out.width)
      for (int y = 0; y < in.height; ++y) std::memcpy(out.Row(y), in.Row(y), static_cast<size_t>(in.width) * C);
    else
      HorizontalPass<C>(in, out, cx, top);
  };
  auto vertical = [&](const Plane& in, const Plane& out) {
    if (in.height == out.height)
      for (int y = 0; y < in.height; ++y) std::memcpy(out.Row(y), in.Row(y), static_cast<size_t>(in.width) * C);
    else
      VerticalPass<C>(in, out, cy, top);
  };
  const int mid_w = vertical_first ? src.width : dst.width;
  const int mid_h = vertical_first ? dst.height : src.height;
  // Every byte of the in-between picture is written by the first pass: no need to clear it.
  const std::unique_ptr<uint8_t[]> mid_data(new uint8_t[static_cast<size_t>(mid_w) * mid_h * C]);
  const Plane mid{mid_data.get(), mid_w, mid_h, static_cast<size_t>(mid_w) * C};
  if (vertical_first) {
    vertical(src, mid);
    horizontal(mid, dst);
  } else {
    horizontal(src, mid);
    vertical(mid, dst);
  }
}

// 16-bit pictures are unpacked to one byte per channel, scaled, and packed again.
struct Packing {
  int shift[3];
  unsigned mask[3];
};

Packing PackingOf(const ChannelMasks& m) {
  Packing p{};
  const uint32_t masks[3] = {m.blue, m.green, m.red};
  for (int i = 0; i < 3; ++i) {
    uint32_t v = masks[i] & 0xFFFF;
    int s = 0;
    while (v && !(v & 1)) {
      v >>= 1;
      ++s;
    }
    p.shift[i] = s;
    p.mask[i] = std::min<uint32_t>(v, 255);
  }
  return p;
}

}  // namespace

bool CExtBitmap::Scale(int width, int height, int filter_kind) {
  const Filter filter(filter_kind);
  return filter.IsValid() && Scale(width, height, filter);
}

bool CExtBitmap::Scale(int width, int height, const Filter& filter) {
  if (IsEmpty() || Depth() < 16 || width <= 0 || height <= 0) return false;
  if (width == Width() && height == Height()) return true;
  if (m_bPreMultiplied) PreMultiply(false);
  const int depth = Depth();
  uint8_t* block = PixelBlock::Create(width, height, depth, *PixelBlock::Masks(m_pImageBuffer));
  if (!block) return false;
  *PixelBlock::Header(block) = *PixelBlock::Header(m_pImageBuffer);
  BITMAPINFOHEADER* h = PixelBlock::Header(block);
  h->biWidth = width;
  h->biHeight = height;
  h->biSizeImage = static_cast<uint32_t>(PixelBlock::PixelBytes(block));
  const Plane src{PixelBlock::Pixels(m_pImageBuffer), Width(), Height(), PixelBlock::RowBytes(m_pImageBuffer)};
  const Plane dst{PixelBlock::Pixels(block), width, height, PixelBlock::RowBytes(block)};
  try {
    if (depth == 32) {
      const float top[4] = {255, 255, 255, 255};
      Resample<4>(src, dst, filter, top);
    } else if (depth == 24) {
      const float top[3] = {255, 255, 255};
      Resample<3>(src, dst, filter, top);
    } else if (depth == 16) {
      const Packing pk = PackingOf(*PixelBlock::Masks(m_pImageBuffer));
      const float top[3] = {float(pk.mask[0]), float(pk.mask[1]), float(pk.mask[2])};
      std::vector<uint8_t> in(static_cast<size_t>(Width()) * Height() * 3), out(static_cast<size_t>(width) * height * 3);
      const Plane pin{in.data(), Width(), Height(), static_cast<size_t>(Width()) * 3};
      const Plane pout{out.data(), width, height, static_cast<size_t>(width) * 3};
      for (int y = 0; y < Height(); ++y)
        for (int x = 0; x < Width(); ++x) {
          const uint8_t* s = src.Row(y) + x * 2;
          const unsigned v = s[0] | (s[1] << 8);
          for (int ch = 0; ch < 3; ++ch) pin.Row(y)[x * 3 + ch] = static_cast<uint8_t>((v >> pk.shift[ch]) & pk.mask[ch]);
        }
      Resample<3>(pin, pout, filter, top);
      for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
          unsigned v = 0;
          for (int ch = 0; ch < 3; ++ch) v |= unsigned{pout.Row(y)[x * 3 + ch]} << pk.shift[ch];
          dst.Row(y)[x * 2] = static_cast<uint8_t>(v);
          dst.Row(y)[x * 2 + 1] = static_cast<uint8_t>(v >> 8);
        }
    } else {
      PixelBlock::Free(block);
      return false;
    }
  } catch (const std::bad_alloc&) {
    PixelBlock::Free(block);
    return false;
  }
  Attach(block);
  return true;
}

}  // namespace qmk::toolkit::bitmap
