// style_pool.cpp: content hashes of the style records, for sharing equal ones.
#include "toolkit/richcontent/style_pool.h"

#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

namespace qmk::toolkit::richcontent {
namespace {

class Hasher {
 public:
  void AddWord(uint64_t v) { m_hash = (m_hash ^ v) * 0x100000001b3ull; }
  // Arrays of plain numbers are hashed as bytes, several at a step.
  template <class T, size_t N>
  void AddWords(const T (&values)[N]) {
    static_assert(std::is_arithmetic_v<T>);
    AddWord(std::hash<std::string_view>()(std::string_view(reinterpret_cast<const char*>(values), sizeof values)));
  }
  void AddText(const std::string& text) { AddWord(std::hash<std::string>()(text)); }
  void AddReal(double v) {
    uint64_t word;
    std::memcpy(&word, &v, 8);
    AddWord(word);
  }
  void AddPointer(const void* pointer) { AddWord(reinterpret_cast<uintptr_t>(pointer)); }
  size_t Value() const { return static_cast<size_t>(m_hash); }

 private:
  uint64_t m_hash = 0xcbf29ce484222325ull;
};

void AddFields(Hasher& h, const StyleFields& f) {
  h.AddWords(f.m_enums);
  h.AddWords(f.m_lengths);
  h.AddWords(f.m_percents);
  h.AddWords(f.m_colors);
  for (const std::string& s : f.m_strings) h.AddText(s);
  for (const CQuoutes& q : f.m_quotes) {
    h.AddText(q.m_strOpen);
    h.AddText(q.m_strClose);
  }
}

}  // namespace

size_t HashOf(const CExtRichStyleRule& r) {
  Hasher h;
  AddFields(h, r);
  for (int v : {r.m_nWeightAbsolute, r.m_nWeightRelative, r.m_nItalic, r.m_nUnderline, r.m_nStrike,
                r.m_nFontSizePx, r.m_nFontSizeRelative, r.m_nLineHeight, r.m_nBackgroundSet})
    h.AddWord(static_cast<uint64_t>(static_cast<uint32_t>(v)));
  h.AddText(r.m_strFace);
  h.AddReal(r.m_lfSizeFactor);
  h.AddReal(r.m_lfLineHeightFactor);
  h.AddWord(static_cast<uint64_t>(r.m_bQuotesSet));
  h.AddWord(r.m_nDeclaredEnums);
  h.AddPointer(r.m_pBeforeRule);
  h.AddPointer(r.m_pAfterRule);
  return h.Value();
}

size_t HashOf(const CExtRichStyleDescription& s) {
  Hasher h;
  AddFields(h, s);
  const CExtRichFontDescription& f = s.m_font;
  for (int32_t v : {f.lfHeight, f.lfWidth, f.lfEscapement, f.lfOrientation, f.lfWeight})
    h.AddWord(static_cast<uint64_t>(static_cast<uint32_t>(v)));
  for (uint8_t v : {f.lfItalic, f.lfUnderline, f.lfStrikeOut, f.lfCharSet, f.lfOutPrecision,
                    f.lfClipPrecision, f.lfQuality, f.lfPitchAndFamily})
    h.AddWord(static_cast<uint64_t>(v));
  h.AddText(std::string(f.lfFaceName, strnlen(f.lfFaceName, sizeof f.lfFaceName)));
  h.AddReal(s.m_lfLineHeightFactor);
  h.AddWord(static_cast<uint64_t>(static_cast<uint32_t>(s.m_nLineHeight)));
  h.AddWord(static_cast<uint64_t>(s.m_bBackground));
  h.AddPointer(s.m_pBeforeRule);
  h.AddPointer(s.m_pAfterRule);
  return h.Value();
}

}  // namespace qmk::toolkit::richcontent
