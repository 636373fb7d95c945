// cell_duration.h: a span of time in whole seconds.
#pragma once

#include "toolkit/grid/cell_variant.h"

namespace qmk::toolkit::grid {

// A signed time span in whole seconds, at most kMaxSeconds either way (100000 days less one
// second). Shown as "HH:MM:SS" with the days in front when there are any ("1 day 02:03:04",
// "-3 days 00:00:00"). Text input takes that form, "H:MM" or "H:MM:SS" with any count of hours,
// units ("1d 2h 30m", "90 min", "45 seconds"), or a bare count of seconds; all with an optional
// sign. The spin buttons move it by the step (seconds).
class CExtGridCellDuration : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellDuration)
 public:
  static constexpr int64_t kMaxSeconds = 100000LL * 86400 - 1;

  int64_t SecondsGet() const { return m_nSeconds; }
  // False, and no change, beyond kMaxSeconds either way.
  bool SecondsSet(int64_t seconds);
  int32_t StepGet() const { return m_nStep; }
  // False for a step below 1.
  bool StepSet(int32_t seconds);

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  // The span as an 8-byte integer of seconds.
  void VariantGet(Variant& value) const override;
  platform::HRESULT OnParseText(const char* text) const override;
  // A span is a number: right-aligned, and centred up and down unless bits 0x30 are set.
  void GetAlignment(bool autoAlign, HorzAlign& horz, VertAlign& vert) const override;
  bool CanIncrement(const GridEditState* grid = nullptr) const;
  bool CanDecrement(const GridEditState* grid = nullptr) const;
  bool Increment(int steps = 1, const GridEditState* grid = nullptr);
  bool Decrement(int steps = 1, const GridEditState* grid = nullptr);

  static std::string Format(int64_t seconds);
  // 0, DISP_E_TYPEMISMATCH for text that is no span, DISP_E_OVERFLOW for one beyond the limit.
  static platform::HRESULT Parse(const char* text, int64_t& seconds);

 private:
  bool CanStep(const GridEditState* grid) const;
  bool StepBy(int64_t steps, const GridEditState* grid);
  int64_t m_nSeconds = 0;
  int32_t m_nStep = 1;
};

}  // namespace qmk::toolkit::grid
