// filter.cpp: the thirteen resampling kernels.
#include "toolkit/bitmap/filter.h"
#include "platform/text.h"

#include <cmath>
#include <numbers>
#include <strings.h>

namespace qmk::toolkit::bitmap {
namespace {

struct KernelRow {
  const char* name;
  double support;
  bool windowed;
};

constexpr KernelRow kKernels[kFilterKindCount] = {
    {"Box", 0.5, true},       {"Linear", 1, false},     {"Bilinear", 1, true},
    {"Hermite", 1, false},    {"Sinc", 1, false},       {"Catmull-Rom", 2, false},
    {"B-Spline", 2, false},   {"Blackman", 0.5, true},  {"Lanczos", 3, true},
    {"Quadratic", 1, false},  {"Gaussian", 3, true},    {"Hamming", 0.5, true},
    {"Bicubic", 2, false},
};

constexpr double kPi = std::numbers::pi;

double Sinc(double x) { return x == 0 ? 1.0 : std::sin(kPi * x) / (kPi * x); }

}  // namespace

CExtBitmap::Filter::Filter(int kind, const double* params, int param_count) : m_nKind(kind) {
  const int n = params ? std::min(std::max(param_count, 0), kParamCount) : 0;
  for (int i = 0; i < n; ++i) m_arrParams[i] = params[i];
  ResetSupport();
  if (kind == kFilterBicubic) {
    if (n < 2) m_arrParams[0] = m_arrParams[1] = 1.0 / 3.0;
    const double b = m_arrParams[0], c = m_arrParams[1];
    m_p0 = (6 - 2 * b) / 6;
    m_p1 = (12 * b - 18 + 6 * c) / 6;
    m_p2 = (12 - 9 * b - 6 * c) / 6;
    m_q0 = (8 * b + 24 * c) / 6;
    m_q1 = (-12 * b - 48 * c) / 6;
    m_q2 = (6 * b + 30 * c) / 6;
    m_q3 = (-b - 6 * c) / 6;
  }
}

void CExtBitmap::Filter::ResetSupport() { m_dSupport = IsValid() ? kKernels[m_nKind].support : 0.5; }

bool CExtBitmap::Filter::IsWindowed() const { return IsValid() ? kKernels[m_nKind].windowed : true; }

double CExtBitmap::Filter::GetParam(int index) const {
  return index >= 0 && index < kParamCount ? m_arrParams[index] : 0.0;
}

const char* CExtBitmap::Filter::GetName() const { return IsValid() ? kKernels[m_nKind].name : "Box"; }

int CExtBitmap::Filter::KindFromName(const char* name) {
  for (int k = 0; k < kFilterKindCount; ++k)
    if (name && platform::EqualsNoCase(name, kKernels[k].name)) return k;
  return -1;
}

double CExtBitmap::Filter::Bicubic(double a) const {
  if (a <= 1) return a * a * (m_p2 * a + m_p1) + m_p0;
  if (a <= 2) return a * (a * (m_q3 * a + m_q2) + m_q1) + m_q0;
  return 0;
}

double CExtBitmap::Filter::Evaluate(double x) const {
  const double a = std::fabs(x), s = m_dSupport;
  switch (m_nKind) {
    case kFilterLinear:
      return x >= -1 && x < 0 ? x + 1 : x >= 0 && x <= 1 ? 1 - x : 0;
    case kFilterBilinear:
      return a < s ? s - a : 0;
    case kFilterHermite:
      if (x >= -1 && x < 0) return x * x * (-2 * x - 3) + 1;
      return x >= 0 && x <= 1 ? x * x * (2 * x - 3) + 1 : 0;
    case kFilterSinc:
      // No cut at the support: the kernel runs on as far as it is asked.
      return Sinc(x);
    case kFilterCatmullRom:
      if (x < -2 || x > 2) return 0;
      if (x < -1) return (x * (x * (5 + x) + 8) + 4) * 0.5;
      if (x < 0) return (x * x * (-5 - 3 * x) + 2) * 0.5;
      if (x < 1) return (x * x * (3 * x - 5) + 2) * 0.5;
      return (x * (x * (5 - x) - 8) + 4) * 0.5;
    case kFilterBSpline:
      if (a <= 1) return (a * a * (3 * a - 6) + 4) / 6;
      return a <= 2 ? (2 - a) * (2 - a) * (2 - a) / 6 : 0;
    case kFilterBlackman: {
      const double width = s + s + 1 - 1;
      return a <= s ? 0.42 + 0.5 * std::cos(2 * kPi * x / width) + 0.08 * std::cos(4 * kPi * x / width)
                    : 0;
    }
    case kFilterLanczos:
      return a < s ? Sinc(a / s) * Sinc(a) : 0;
    case kFilterQuadratic:
      if (x < -1.5) return 0;
      if (x < -0.5) return 0.5 * (x + 1.5) * (x + 1.5);
      if (x < 0.5) return 0.75 - x * x;
      return x < 1.5 ? 0.5 * (x - 1.5) * (x - 1.5) : 0;
    case kFilterGaussian:
      return a <= s ? std::exp(-0.5 * x * x) / std::sqrt(2 * kPi) : 0;
    case kFilterHamming:
      return a <= s ? (0.54 + 0.46 * std::cos(2 * kPi * x)) * Sinc(x) : 0;
    case kFilterBicubic:
      return Bicubic(a);
    default:  // Box, and kinds this engine doesn't know
      return a <= s ? 1 : 0;
  }
}

}  // namespace qmk::toolkit::bitmap
