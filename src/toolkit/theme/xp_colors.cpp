// xp_colors.cpp: the colour table of CExtPaintManagerXP: plain system colours on palette
// displays, blends of them above 8 bits.
#include <iterator>
#include <span>

#include "toolkit/bitmap/colour.h"
#include "toolkit/theme/system_colors.h"
#include "toolkit/theme/theme_classes.h"

namespace qmk::toolkit::theme {
namespace {

using bitmap::Mix100;
using bitmap::RGB;

// Where an entry's colour comes from: a system slot, or one of the derived colours below.
enum XpSource : int {
  kMixA = -1, kMixB = -2, kMixC = -3, kMixD = -4, kMixE = -5, kMixF = -6, kMixG = -7, kMixH = -8,
  kWhite = -9, kBlack = -10, kTextOnWindow = -11,
};
struct XpRow {
  int first, last;
  int source;  // a slot when >= 0
};

constexpr XpRow kXpPalette[] = {
    {1001, 1001, COLOR_HIGHLIGHT}, {2011, 2011, COLOR_BTNFACE}, {2012, 2012, COLOR_BTNSHADOW},
    {2007, 2007, COLOR_HIGHLIGHTTEXT}, {2000, 2001, COLOR_BTNFACE}, {2002, 2002, COLOR_BTNSHADOW},
    {2006, 2006, COLOR_BTNFACE}, {2003, 2003, COLOR_HIGHLIGHT}, {2004, 2004, kWhite},
    {2005, 2005, kBlack}, {2008, 2008, kWhite}, {2009, 2010, COLOR_BTNFACE},
    {2013, 2013, COLOR_BTNSHADOW},
};

constexpr XpRow kXpHighColor[] = {
    {1000, 1000, kMixC}, {1001, 1001, kMixD}, {1002, 1002, COLOR_BTNFACE}, {1003, 1014, kMixH},
    {1015, 1015, COLOR_WINDOWTEXT}, {1016, 1016, kBlack}, {1019, 1019, kBlack},
    {1017, 1017, COLOR_GRAYTEXT}, {1018, 1018, COLOR_WINDOWTEXT}, {1020, 1020, COLOR_GRAYTEXT},
    {1021, 1022, kMixA}, {1023, 1026, COLOR_WINDOWTEXT}, {2011, 2011, COLOR_BTNFACE},
    {2000, 2000, kMixC}, {2001, 2001, kMixA}, {2002, 2002, kMixF}, {2012, 2012, kMixF},
    {2003, 2003, kMixE}, {2004, 2005, COLOR_HIGHLIGHT}, {2006, 2006, kMixB},
    {2007, 2007, COLOR_HIGHLIGHTTEXT}, {2008, 2008, kTextOnWindow}, {2009, 2009, kMixA},
    {2010, 2010, kMixC}, {2013, 2013, kMixG},
};

// Shadow deepened towards the dark shadow; plain shadow on palette displays.
uint32_t DeepShadow(uint32_t shadow, uint32_t dark, int bits) {
  if (bits <= 8) return shadow;
  auto channel = [&](int shift) {
    const unsigned s = (shadow >> shift) & 0xFF, d = (dark >> shift) & 0xFF;
    return ((s * 3 + d) * 250 / 1000) << shift;
  };
  return channel(0) | channel(8) | channel(16);
}

}  // namespace

CExtPaintManagerXP::CExtPaintManagerXP() { m_nShadowAlpha = 128; }

void CExtPaintManagerXP::InitTranslatedColors() {
  InitBaseTranslation();
  m_nShadowAlpha = 128;
  const bool high = m_nColorDepth > 8;
  const uint32_t face = GetColor(COLOR_BTNFACE), window = GetColor(COLOR_WINDOW);
  const uint32_t shadow = GetColor(COLOR_BTNSHADOW), hilite = GetColor(COLOR_HIGHLIGHT);
  const uint32_t derived[] = {
      0,
      Mix100(face, window, 143),                                       // A
      Mix100(face, shadow, 90),                                        // B
      Mix100(window, face, 165),                                       // C
      Mix100(hilite, window, 30),                                      // D
      Mix100(hilite, window, 50),                                      // E
      Mix100(shadow, window, 70),                                      // F
      Mix100(shadow, window, 50),                                      // G
      DeepShadow(shadow, GetColor(COLOR_3DDKSHADOW), m_nColorDepth),   // H
      RGB(255, 255, 255),
      RGB(0, 0, 0),
      Mix100(GetColor(COLOR_BTNTEXT), window, 20),
  };
  for (const XpRow& row : high ? std::span<const XpRow>(kXpHighColor) : std::span<const XpRow>(kXpPalette)) {
    for (int i = row.first; i <= row.last; ++i) {
      if (row.source >= 0) SetTranslatedColor(i, row.source);
      else InstallTranslatedColor(i, derived[-row.source]);
    }
  }
}

}  // namespace qmk::toolkit::theme
