// cell_ll.h: a place on the globe as latitude and longitude.
#pragma once

#include "toolkit/grid/cell_ex.h"

namespace qmk::toolkit::grid {

// Latitude (-90 to 90, north positive) and longitude (-180 to 180, east positive) in degrees.
// Shown in degrees, minutes and whole seconds with the hemisphere letter, latitude first:
// 51°30'26"N, 0°07'39"W (the degree sign is the UTF-8 one). The flags choose which of the two
// the cell shows and reads. Text input takes, for each, degrees with optional minutes and
// seconds (marked by °, d, ', ", m or blanks), or decimal degrees, and a hemisphere letter or
// a sign; two parts are separated by a comma.
class CExtGridCellLL : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellLL)
 public:
  static constexpr uint32_t kLatitude = 0x1;
  static constexpr uint32_t kLongitude = 0x2;

  double LatitudeGet() const { return m_dLatitude; }
  double LongitudeGet() const { return m_dLongitude; }
  // False, and no change, for a value outside its range.
  bool LatLongSet(double latitude, double longitude);
  uint32_t PartsGet() const { return m_dwParts; }
  // False for flags that show neither part.
  bool PartsSet(uint32_t parts);

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  // Two places compare by latitude, then longitude; other cells by the base rule.
  int Compare(const CExtGridCell& other, uint32_t styleMask = 0, uint32_t styleExMask = 0) const override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;

  // One value written with its hemisphere; `latitude` picks N/S or E/W.
  static std::string FormatPart(double degrees, bool latitude);
  // One value read; false for text that is none or lies outside the range.
  static bool ParsePart(const std::string& text, bool latitude, double& degrees);

 private:
  bool Parse(const char* text, double& latitude, double& longitude) const;
  double m_dLatitude = 0;
  double m_dLongitude = 0;
  uint32_t m_dwParts = kLatitude | kLongitude;
};

}  // namespace qmk::toolkit::grid
