// filter.h: CExtBitmap::Filter, the resampling kernels by kind, with their default supports.
#pragma once

#include <memory>

#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::bitmap {

enum FilterKind : int {
  kFilterBox = 0,
  kFilterLinear = 1,
  kFilterBilinear = 2,
  kFilterHermite = 3,
  kFilterSinc = 4,
  kFilterCatmullRom = 5,
  kFilterBSpline = 6,
  kFilterBlackman = 7,
  kFilterLanczos = 8,
  kFilterQuadratic = 9,
  kFilterGaussian = 10,
  kFilterHamming = 11,
  kFilterBicubic = 12,
  kFilterKindCount = 13,
};

class CExtBitmap::Filter {
 public:
  static constexpr int kParamCount = 10;

  // `params` may be null; at most ten are copied. An unknown kind behaves as Box and reports
  // IsValid() false.
  explicit Filter(int kind = kFilterBicubic, const double* params = nullptr, int param_count = 0);
  virtual ~Filter() = default;
  Filter(const Filter&) = default;
  Filter& operator=(const Filter&) = default;

  virtual double Evaluate(double x) const;
  virtual double GetSupport() const { return m_dSupport; }
  // The kernel's full width: twice the support.
  virtual double GetWidth() const { return m_dSupport * 2; }
  virtual void SetSupport(double support) { m_dSupport = support; }
  virtual void ResetSupport();
  virtual bool IsWindowed() const;
  virtual int GetKind() const { return m_nKind; }
  virtual double GetParam(int index) const;
  virtual const char* GetName() const;
  virtual std::unique_ptr<Filter> Clone() const { return std::make_unique<Filter>(*this); }

  bool IsValid() const { return m_nKind >= 0 && m_nKind < kFilterKindCount; }
  // The kind whose name is `name` (as GetName gives it, case ignored), or -1.
  static int KindFromName(const char* name);

 private:
  double Bicubic(double a) const;

  int m_nKind;
  double m_dSupport = 0.5;
  double m_arrParams[kParamCount] = {};
  // Mitchell-Netravali coefficients, derived from B and C.
  double m_p0 = 0, m_p1 = 0, m_p2 = 0, m_q0 = 0, m_q1 = 0, m_q2 = 0, m_q3 = 0;
};

}  // namespace qmk::toolkit::bitmap
