// colors.cpp: colour texts ("#rrggbb", "rgb(...)", "hsl(...)" and names) to colour words.
#include <algorithm>
#include <cstdlib>
#include <string>
#include <unordered_map>
#include <vector>

#include "toolkit/bitmap/colour.h"
#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/resolve.h"

namespace qmk::toolkit::richcontent {
namespace {

struct NamedColor {
  const char* name;
  uint32_t rgb;  // 0xRRGGBB as written in style sheets
};

// The extended colour keywords with their usual values, and "navyblue".
constexpr NamedColor kNamedColors[] = {
    {"aliceblue", 0xf0f8ff}, {"antiquewhite", 0xfaebd7}, {"aqua", 0x00ffff},
    {"aquamarine", 0x7fffd4}, {"azure", 0xf0ffff}, {"beige", 0xf5f5dc}, {"bisque", 0xffe4c4},
    {"black", 0x000000}, {"blanchedalmond", 0xffebcd}, {"blue", 0x0000ff},
    {"blueviolet", 0x8a2be2}, {"brown", 0xa52a2a}, {"burlywood", 0xdeb887},
    {"cadetblue", 0x5f9ea0}, {"chartreuse", 0x7fff00}, {"chocolate", 0xd2691e},
    {"coral", 0xff7f50}, {"cornflowerblue", 0x6495ed}, {"cornsilk", 0xfff8dc},
    {"crimson", 0xdc143c}, {"cyan", 0x00ffff}, {"darkblue", 0x00008b}, {"darkcyan", 0x008b8b},
    {"darkgoldenrod", 0xb8860b}, {"darkgray", 0xa9a9a9}, {"darkgreen", 0x006400},
    {"darkgrey", 0xa9a9a9}, {"darkkhaki", 0xbdb76b}, {"darkmagenta", 0x8b008b},
    {"darkolivegreen", 0x556b2f}, {"darkorange", 0xff8c00}, {"darkorchid", 0x9932cc},
    {"darkred", 0x8b0000}, {"darksalmon", 0xe9967a}, {"darkseagreen", 0x8fbc8f},
    {"darkslateblue", 0x483d8b}, {"darkslategray", 0x2f4f4f}, {"darkslategrey", 0x2f4f4f},
    {"darkturquoise", 0x00ced1}, {"darkviolet", 0x9400d3}, {"deeppink", 0xff1493},
    {"deepskyblue", 0x00bfff}, {"dimgray", 0x696969}, {"dimgrey", 0x696969},
    {"dodgerblue", 0x1e90ff}, {"firebrick", 0xb22222}, {"floralwhite", 0xfffaf0},
    {"forestgreen", 0x228b22}, {"fuchsia", 0xff00ff}, {"gainsboro", 0xdcdcdc},
    {"ghostwhite", 0xf8f8ff}, {"gold", 0xffd700}, {"goldenrod", 0xdaa520}, {"gray", 0x808080},
    {"green", 0x008000}, {"greenyellow", 0xadff2f}, {"grey", 0x808080}, {"honeydew", 0xf0fff0},
    {"hotpink", 0xff69b4}, {"indianred", 0xcd5c5c}, {"indigo", 0x4b0082}, {"ivory", 0xfffff0},
    {"khaki", 0xf0e68c}, {"lavender", 0xe6e6fa}, {"lavenderblush", 0xfff0f5},
    {"lawngreen", 0x7cfc00}, {"lemonchiffon", 0xfffacd}, {"lightblue", 0xadd8e6},
    {"lightcoral", 0xf08080}, {"lightcyan", 0xe0ffff}, {"lightgoldenrodyellow", 0xfafad2},
    {"lightgray", 0xd3d3d3}, {"lightgreen", 0x90ee90}, {"lightgrey", 0xd3d3d3},
    {"lightpink", 0xffb6c1}, {"lightsalmon", 0xffa07a}, {"lightseagreen", 0x20b2aa},
    {"lightskyblue", 0x87cefa}, {"lightslategray", 0x778899}, {"lightslategrey", 0x778899},
    {"lightsteelblue", 0xb0c4de}, {"lightyellow", 0xffffe0}, {"lime", 0x00ff00},
    {"limegreen", 0x32cd32}, {"linen", 0xfaf0e6}, {"magenta", 0xff00ff}, {"maroon", 0x800000},
    {"mediumaquamarine", 0x66cdaa}, {"mediumblue", 0x0000cd}, {"mediumorchid", 0xba55d3},
    {"mediumpurple", 0x9370db}, {"mediumseagreen", 0x3cb371}, {"mediumslateblue", 0x7b68ee},
    {"mediumspringgreen", 0x00fa9a}, {"mediumturquoise", 0x48d1cc},
    {"mediumvioletred", 0xc71585}, {"midnightblue", 0x191970}, {"mintcream", 0xf5fffa},
    {"mistyrose", 0xffe4e1}, {"moccasin", 0xffe4b5}, {"navajowhite", 0xffdead},
    {"navy", 0x000080}, {"navyblue", 0x000080}, {"oldlace", 0xfdf5e6}, {"olive", 0x808000},
    {"olivedrab", 0x6b8e23}, {"orange", 0xffa500}, {"orangered", 0xff4500},
    {"orchid", 0xda70d6}, {"palegoldenrod", 0xeee8aa}, {"palegreen", 0x98fb98},
    {"paleturquoise", 0xafeeee}, {"palevioletred", 0xdb7093}, {"papayawhip", 0xffefd5},
    {"peachpuff", 0xffdab9}, {"peru", 0xcd853f}, {"pink", 0xffc0cb}, {"plum", 0xdda0dd},
    {"powderblue", 0xb0e0e6}, {"purple", 0x800080}, {"red", 0xff0000},
    {"rosybrown", 0xbc8f8f}, {"royalblue", 0x4169e1}, {"saddlebrown", 0x8b4513},
    {"salmon", 0xfa8072}, {"sandybrown", 0xf4a460}, {"seagreen", 0x2e8b57},
    {"seashell", 0xfff5ee}, {"sienna", 0xa0522d}, {"silver", 0xc0c0c0}, {"skyblue", 0x87ceeb},
    {"slateblue", 0x6a5acd}, {"slategray", 0x708090}, {"slategrey", 0x708090},
    {"snow", 0xfffafa}, {"springgreen", 0x00ff7f}, {"steelblue", 0x4682b4}, {"tan", 0xd2b48c},
    {"teal", 0x008080}, {"thistle", 0xd8bfd8}, {"tomato", 0xff6347}, {"turquoise", 0x40e0d0},
    {"violet", 0xee82ee}, {"wheat", 0xf5deb3}, {"white", 0xffffff}, {"whitesmoke", 0xf5f5f5},
    {"yellow", 0xffff00}, {"yellowgreen", 0x9acd32}};
static_assert(std::size(kNamedColors) == 148);

int32_t Rgb(int r, int g, int b) { return r | (g << 8) | (b << 16); }

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return 0;  // upper case cannot occur after lower-casing; anything else counts as 0
}

// Digits at fixed places: a pair is read once its first digit is there, and a place past the
// end counts as 0, so "#abc" is red 0xab, green 0xc0, blue 0. Longer text is cut.
int32_t FromHex(const std::string& s) {
  auto digit = [&](size_t at) { return at < s.size() ? HexDigit(s[at]) : 0; };
  auto pair = [&](size_t at) { return digit(at) * 16 + digit(at + 1); };
  const int r = s.size() >= 3 ? pair(1) : 0;
  const int g = s.size() >= 4 ? pair(3) : 0;
  const int b = s.size() >= 6 ? pair(5) : 0;
  return Rgb(r, g, b);
}

// The parts between "(" and ")", split at "," or, without a comma, at ";".
bool FunctionParts(const std::string& s, std::vector<std::string>& parts) {
  const size_t open = s.find('(');
  const size_t close = s.find(')', open);
  const std::string inner = s.substr(open + 1, close == std::string::npos ? std::string::npos : close - open - 1);
  const char separator = inner.find(',') != std::string::npos ? ',' : inner.find(';') != std::string::npos ? ';' : 0;
  if (!separator) return false;
  size_t start = 0;
  for (;;) {
    const size_t at = inner.find(separator, start);
    parts.push_back(inner.substr(start, at == std::string::npos ? std::string::npos : at - start));
    if (at == std::string::npos) break;
    start = at + 1;
  }
  return parts.size() >= 3;
}

int RgbPart(const std::string& part) {
  long v = std::atol(part.c_str());
  if (!part.empty() && part.back() == '%') {
    v = std::clamp(v, -1000000L, 1000000L);
    v = (v * 255 + 50) / 100;  // half up
  }
  return static_cast<int>(std::clamp(v, 0L, 255L));
}

const std::unordered_map<std::string, int32_t>& NameTable() {
  static const std::unordered_map<std::string, int32_t> table = [] {
    std::unordered_map<std::string, int32_t> t;
    for (const NamedColor& c : kNamedColors)
      t[c.name] = Rgb(c.rgb >> 16 & 0xff, c.rgb >> 8 & 0xff, c.rgb & 0xff);
    return t;
  }();
  return table;
}

}  // namespace

int32_t ResolveColor(std::string_view text, int32_t defaultColor) {
  std::string s;
  for (char c : Trim(text))
    if (c != ' ' && c != '\t' && c != '\r' && c != '\n') s += c;
  s = ToLower(s);
  if (s.empty()) return defaultColor;
  if (s[0] == '#') return FromHex(s);
  std::vector<std::string> parts;
  if (s.rfind("rgb(", 0) == 0 && s.size() >= 10) {
    if (!FunctionParts(s, parts)) return defaultColor;
    return Rgb(RgbPart(parts[0]), RgbPart(parts[1]), RgbPart(parts[2]));
  }
  if (s.rfind("hsl(", 0) == 0 && s.size() >= 12 && std::count(s.begin(), s.end(), '%') == 2) {
    if (!FunctionParts(s, parts)) return defaultColor;
    const long h = std::clamp(std::atol(parts[0].c_str()), 0L, 360L);
    const long sat = std::clamp(std::atol(parts[1].c_str()), 0L, 100L);
    const long light = std::clamp(std::atol(parts[2].c_str()), 0L, 100L);
    return static_cast<int32_t>(bitmap::HLStoRGB(h / 360.0, light / 100.0, sat / 100.0));
  }
  // The system colour names of this engine are compared case-sensitively with the lower-cased
  // text, so they never match ("ButtonFace" gives the default); they are not listed here.
  const auto& table = NameTable();
  const auto found = table.find(s);
  return found == table.end() ? defaultColor : found->second;
}

}  // namespace qmk::toolkit::richcontent
