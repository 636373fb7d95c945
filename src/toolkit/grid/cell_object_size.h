// cell_object_size.h: a count of bytes shown in the unit that suits it ("1.50 KB").
#pragma once

#include "toolkit/grid/cell_input.h"

namespace qmk::toolkit::grid {

// A size in bytes, a whole number from 0 up, held as an 8-byte integer. Shown below 1024 as
// "N bytes" ("1 byte"), above in KB, MB, GB, TB, PB or EB (powers of 1024) with three
// significant digits, cut rather than rounded so that a size never shows as the next unit's
// 1024 ("1.50 KB", "15.9 MB", "1023 KB"). With kShowBytes every size shows in bytes with
// grouped digits ("1,536 bytes"). Text input takes a number with an optional unit.
class CExtGridCellObjectSize : public CExtGridCellNumber {
  QMK_GRID_CELL_CLASS(CExtGridCellObjectSize)
 public:
  static constexpr uint32_t kShowBytes = 0x1;

  CExtGridCellObjectSize() { m_var = Variant::I8(0); }
  int64_t SizeGet() const;
  // False for a negative size.
  bool SizeSet(int64_t bytes);
  uint32_t SizeFlagsGet() const { return m_dwSizeFlags; }
  void SizeFlagsSet(uint32_t flags) { m_dwSizeFlags = flags; }

  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;
  // Steps are bytes; the size stays within 0 and the largest 8-byte integer.
  bool CanDecrement(const GridEditState* grid = nullptr) const override;
  bool Increment(int steps = 1, const GridEditState* grid = nullptr) override;
  bool Decrement(int steps = 1, const GridEditState* grid = nullptr) override;
  bool IsMinimum() const override { return SizeGet() <= 0; }

  static std::string Format(int64_t bytes, uint32_t flags);
  // 0 on success; DISP_E_TYPEMISMATCH for text that is no size, DISP_E_OVERFLOW for one below
  // 0 or beyond 8 bytes.
  static platform::HRESULT Parse(const char* text, int64_t& bytes);

 private:
  bool StepBy(int64_t delta, const GridEditState* grid);
  uint32_t m_dwSizeFlags = 0;
};

}  // namespace qmk::toolkit::grid
