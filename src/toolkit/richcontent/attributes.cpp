// attributes.cpp: AttributeTable, the handlers of an element's presentational attributes
// ("class", "color", "align", "width", ...), which write into the element's rule.
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <unordered_map>

#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/readers.h"
#include "toolkit/richcontent/resolve.h"

namespace qmk::toolkit::richcontent {
namespace {

struct Attribute {
  CExtRichContentItem& item;
  const std::string& value;
  CExtRichStyleRule& rule;
  const CExtRichStyleDescription& parent;
};
using Handler = std::function<void(Attribute&)>;

long ClampedNumber(const std::string& text) {
  return std::clamp(std::atol(text.c_str()), -1000000L, 1000000L);
}

// Each word and its "tag.word" form are sheet keys, merged in the order written.
void ReadClass(Attribute& a) {
  CExtRichContentItem& item = a.item;
  if (!item.m_pClassList) item.m_pClassList = std::make_unique<std::vector<std::string>>();
  const std::string tag = item.TagNameLower();
  size_t start = 0;
  const std::string& v = a.value;
  while (start < v.size()) {
    const size_t blank = v.find_first_of(" \t\r\n", start);
    const std::string word = v.substr(start, blank == std::string::npos ? std::string::npos : blank - start);
    start = blank == std::string::npos ? v.size() : blank + 1;
    if (word.empty()) continue;
    const std::string qualified = tag + "." + word;
    item.m_pClassList->push_back(word);
    item.m_pClassList->push_back(qualified);
    item.m_pLayout->BroadcastClassName(item, word);
    for (const std::string* key : {&word, &qualified}) {
      for (CExtRichContentLayout* sheet : item.m_pLayout->LinkedLayouts())
        sheet->MergeRulesOf(item, key->c_str(), a.rule, a.parent);
      item.m_pLayout->MergeRulesOf(item, key->c_str(), a.rule, a.parent);
    }
  }
}

void ReadSize(Attribute& a) {
  const std::string& v = a.value;
  const long n = ClampedNumber(v);
  if (v[0] == '+' || v[0] == '-') {
    a.rule.m_nFontSizeRelative += static_cast<int>(n);
    return;
  }
  // abs(n) points at the display's vertical resolution, then by 7/3: two multiply-divides.
  long px = std::labs(n) * DisplayDpi(false) / 72;
  px = px * 7 / 3;
  if (px != 0) a.rule.m_nFontSizePx = static_cast<int>(px);
}

void ReadBackgroundColor(Attribute& a) {
  const int32_t c = ResolveColor(a.value, -1);
  if (c == -1) return;
  if (c == -2) {
    a.rule.m_colors[kColorBackground] = -1;
    a.rule.m_nBackgroundSet = -1;
    return;
  }
  a.rule.m_colors[kColorBackground] = c;
  a.rule.m_nBackgroundSet = 1;
}

void ReadAlign(Attribute& a) {
  const std::string& v = a.value;
  if (a.item.TagNameLower() == "img" && (v == "left" || v == "right")) {
    a.rule.m_enums[kFloat] = v == "left" ? 0 : 1;
    return;
  }
  static const std::pair<const char*, int> kAligns[] = {{"left", 0}, {"char", 1}, {"center", 1}, {"right", 2},
                                                        {"justify", 3}, {"justifywithlastline", 4}};
  for (const auto& [word, value] : kAligns)
    if (EqualsNoCase(v, word)) a.rule.m_enums[kTextAlign] = value;
}

void ReadVAlign(Attribute& a) {
  static const std::pair<const char*, int> kVAligns[] = {{"top", 0}, {"middle", 2}, {"center", 2}, {"bottom", 3}, {"baseline", 5}};
  for (const auto& [word, value] : kVAligns)
    if (EqualsNoCase(a.value, word)) a.rule.m_enums[kVerticalAlign] = value;
}

// A length on all four sides of the given box.
Handler FourSidesOf(LengthField top) {
  return [top](Attribute& a) {
    const int px = ResolveLength(a.value.c_str(), true, &a.parent.m_font, kNoValue);
    if (px == kNoValue) return;
    for (int s = 0; s < 4; ++s) a.rule.m_lengths[top + s] = px;
  };
}

const std::unordered_map<std::string, Handler>& AttributeTable() {
  static const std::unordered_map<std::string, Handler> table = [] {
    std::unordered_map<std::string, Handler> t;
    t["class"] = ReadClass;
    t["id"] = [](Attribute& a) { a.item.m_strId = a.value; };
    t["uiidsrc"] = [](Attribute& a) { a.item.m_strSourceLink = a.value; };
    t["uiiddst"] = [](Attribute& a) { a.item.m_strDestinationLink = a.value; };
    t["name"] = [](Attribute& a) { a.item.m_strNameAttr = a.value; };
    t["size"] = ReadSize;
    t["noshade"] = [](Attribute& a) { a.rule.m_enums[kNoShade] = 1; };
    t["face"] = [](Attribute& a) { a.rule.m_strFace = a.value; };
    t["color"] = [](Attribute& a) {
      const int32_t c = ResolveColor(a.value, -1);
      if (c != -1) a.rule.m_colors[kColorText] = c;
    };
    t["bgcolor"] = ReadBackgroundColor;
    t["align"] = ReadAlign;
    t["valign"] = ReadVAlign;
    t["border"] = [](Attribute& a) {
      FourSidesOf(kBorderWidthTop)(a);
      for (int s = 0; s < 4; ++s) a.rule.m_enums[kBorderStyleTop + s] = 3;
    };
    t["cellpadding"] = FourSidesOf(kPaddingTop);
    t["cellspacing"] = [](Attribute& a) {
      const int px = ResolveLength(a.value.c_str(), true, &a.parent.m_font, kNoValue);
      if (px == kNoValue) return;
      a.rule.m_lengths[kBorderSpacingX] = a.rule.m_lengths[kBorderSpacingY] = px;
    };
    t["width"] = [](Attribute& a) { ReadSizeWithPercent(a.rule, kWidth, a.value, a.parent); };
    t["height"] = [](Attribute& a) { ReadSizeWithPercent(a.rule, kHeight, a.value, a.parent); };
    t["colspan"] = [](Attribute& a) { a.rule.m_lengths[kColSpan] = static_cast<int>(ClampedNumber(a.value)); };
    t["rowspan"] = [](Attribute& a) { a.rule.m_lengths[kRowSpan] = static_cast<int>(ClampedNumber(a.value)); };
    for (const auto& [name, f] : {std::pair{"min-height", kMinHeight}, std::pair{"max-height", kMaxHeight},
                                  std::pair{"min-width", kMinWidth}, std::pair{"max-width", kMaxWidth}})
      t[name] = [f = f](Attribute& a) { ReadMinMax(a.rule, f, a.value, a.parent); };
    return t;
  }();
  return table;
}

}  // namespace

bool ApplyAttribute(CExtRichContentItem& item, CExtRichContentItem& attribute,
                    CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle) {
  if (attribute.m_strRaw.empty()) return false;  // an empty value is ignored by all
  const auto& table = AttributeTable();
  const auto found = table.find(attribute.m_strName);
  if (found == table.end()) return false;
  Attribute a{item, attribute.m_strRaw, rule, parentStyle};
  found->second(a);
  return true;
}

size_t AttributeTableSize() { return AttributeTable().size(); }

}  // namespace qmk::toolkit::richcontent
