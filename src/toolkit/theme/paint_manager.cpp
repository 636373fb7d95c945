// paint_manager.cpp: the base theme's colour table, translation map, lookup and scaling.
#include "toolkit/theme/paint_manager.h"

#include <algorithm>
#include <cstdlib>

#include "platform/archive.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/system_colors.h"

namespace qmk::toolkit::theme {
namespace {

// Logical index ranges of the base map and the slot each range reads.
struct TranslationRow {
  int first, last, slot;
};
constexpr TranslationRow kBaseTranslation[] = {
    {1000, 1002, COLOR_BTNFACE},     {1003, 1005, COLOR_3DLIGHT},   {1006, 1008, COLOR_BTNHIGHLIGHT},
    {1009, 1011, COLOR_BTNSHADOW},   {1012, 1014, COLOR_3DDKSHADOW}, {1015, 1016, COLOR_WINDOWTEXT},
    {1017, 1017, COLOR_GRAYTEXT},    {1018, 1018, COLOR_WINDOWTEXT}, {1019, 1019, COLOR_HIGHLIGHTTEXT},
    {1020, 1020, COLOR_GRAYTEXT},    {1021, 1022, COLOR_WINDOW},     {1023, 1024, COLOR_WINDOWTEXT},
    {1025, 1026, COLOR_HIGHLIGHTTEXT}, {1027, 1027, COLOR_BTNFACE},  {1028, 1028, COLOR_HIGHLIGHT},
    {1029, 1029, COLOR_BTNFACE},     {1030, 1030, COLOR_HIGHLIGHT},  {1031, 1031, COLOR_WINDOW},
    {1032, 1033, COLOR_BTNSHADOW},
};

}  // namespace

QMK_IMPLEMENT_DYNCREATE(CExtPaintManager, CObject)

int MulDiv(int a, int b, int c) {
  if (c == 0) return -1;
  const int64_t product = static_cast<int64_t>(a) * b;
  const int64_t half = std::llabs(c) / 2;
  const bool negative = (product < 0) != (c < 0);
  const int64_t q = (std::llabs(product) + half) / std::llabs(c);
  return static_cast<int>(negative ? -q : q);
}

CExtPaintManager::CExtPaintManager() {
  const SystemColorTable sys = QuerySystemColors();
  m_colors.assign(sys.begin(), sys.end());
  InitBaseTranslation();
}

CExtPaintManager::~CExtPaintManager() = default;

void CExtPaintManager::Serialize(platform::Archive& ar) {
  // The class name is the theme's whole persistent state; the holder writes and reads it.
  (void)ar;
}

bool CExtPaintManager::UiScalingIsEnabled(int axis) const {
  return axis >= 0 && axis <= 2 && g_PaintManager().IsScaled(axis);
}

int CExtPaintManager::UiScale(int value, int axis) const {
  if (!UiScalingIsEnabled(axis)) return value;
  return MulDiv(value, g_PaintManager().Dpi(axis), 96);
}

uint32_t CExtPaintManager::GetColor(int index, const CObject* object, intptr_t lParam) {
  (void)object;
  (void)lParam;
  if (index >= 1000) {
    const auto found = m_mapColorTranslate.find(index);
    if (found == m_mapColorTranslate.end()) return m_colors[COLOR_BTNFACE];
    index = found->second;
  }
  if (index >= 0 && static_cast<size_t>(index) < m_colors.size()) return m_colors[index];
  return m_colors[COLOR_BTNFACE];
}

int CExtPaintManager::InstallColor(uint32_t rgb, int index) {
  rgb &= 0x00FFFFFF;
  if (index >= 0 && static_cast<size_t>(index) < m_colors.size()) {
    m_colors[index] = rgb;
    return index;
  }
  const auto found = std::find(m_colors.begin(), m_colors.end(), rgb);
  if (found != m_colors.end()) return static_cast<int>(found - m_colors.begin());
  m_colors.push_back(rgb);
  return static_cast<int>(m_colors.size() - 1);
}

void CExtPaintManager::RefreshColors(int bits) {
  m_nColorDepth = bits;
  const SystemColorTable sys = QuerySystemColors();
  m_colors.assign(sys.begin(), sys.end());
  InitTranslatedColors();
  InitHelperBrushes();
}

void CExtPaintManager::InitBaseTranslation() {
  m_mapColorTranslate.clear();
  for (const TranslationRow& row : kBaseTranslation)
    for (int i = row.first; i <= row.last; ++i) m_mapColorTranslate[i] = row.slot;
}

void CExtPaintManager::InitTranslatedColors() { InitBaseTranslation(); }

}  // namespace qmk::toolkit::theme
