// entities.cpp: character entities by name or number, from a table built once on first use.
#include <cstdlib>
#include <string>
#include <unordered_map>

#include "toolkit/richcontent/resolve.h"

namespace qmk::toolkit::richcontent {
namespace {

// Codes 160 to 255 in order. The upper-case Latin-1 letters are spelled in lower case, so the
// row of the lower-case letter (32 places later) overwrites them: "agrave" gives 224 and
// "Agrave" is unknown. Kept as it is; documents rely on what it shows.
constexpr const char* kLatin1[96] = {
    "nbsp", "iexcl", "cent", "pound", "curren", "yen", "brvbar", "sect", "uml", "copy", "ordf",
    "laquo", "not", "shy", "reg", "macr", "deg", "plusmn", "sup2", "sup3", "acute", "micro",
    "para", "middot", "cedil", "sup1", "ordm", "raquo", "frac14", "frac12", "frac34", "iquest",
    "agrave", "aacute", "acirc", "atilde", "auml", "aring", "aelig", "ccedil", "egrave", "eacute",
    "ecirc", "euml", "igrave", "iacute", "icirc", "iuml", "eth", "ntilde", "ograve", "oacute",
    "ocirc", "otilde", "ouml", "times", "oslash", "ugrave", "uacute", "ucirc", "uuml", "yacute",
    "thorn", "szlig", "agrave", "aacute", "acirc", "atilde", "auml", "aring", "aelig", "ccedil",
    "egrave", "eacute", "ecirc", "euml", "igrave", "iacute", "icirc", "iuml", "eth", "ntilde",
    "ograve", "oacute", "ocirc", "otilde", "ouml", "divide", "oslash", "ugrave", "uacute",
    "ucirc", "uuml", "yacute", "thorn", "yuml"};

// The other 145 rows: markup characters, Latin extended, Greek, punctuation and symbols. The zero-width, direction and fixed-width
// space characters (U+2002 to U+200F) and the letter-like symbols (U+2111 to U+2135) have no row:
// cut to their low byte they would put control characters or a quote into the text.
struct EntityRow {
  const char* name;
  int code;
};

constexpr EntityRow kOthers[] = {
    {"quot", 34}, {"apos", 39}, {"amp", 38}, {"lt", 60}, {"gt", 62},
    {"OElig", 338}, {"oelig", 339}, {"Scaron", 352}, {"scaron", 353}, {"Yuml", 376},
    {"circ", 710}, {"tilde", 732}, {"ndash", 8211},
    {"mdash", 8212}, {"lsquo", 8216}, {"rsquo", 8217}, {"sbquo", 8218}, {"ldquo", 8220},
    {"rdquo", 8221}, {"bdquo", 8222}, {"dagger", 8224}, {"Dagger", 8225}, {"permil", 8240},
    {"lsaquo", 8249}, {"rsaquo", 8250}, {"euro", 8364},
    {"fnof", 402}, {"Alpha", 913}, {"Beta", 914}, {"Gamma", 915}, {"Delta", 916},
    {"Epsilon", 917}, {"Zeta", 918}, {"Eta", 919}, {"Theta", 920}, {"Iota", 921},
    {"Kappa", 922}, {"Lambda", 923}, {"Mu", 924}, {"Nu", 925}, {"Xi", 926}, {"Omicron", 927},
    {"Pi", 928}, {"Rho", 929}, {"Sigma", 931}, {"Tau", 932}, {"Upsilon", 933}, {"Phi", 934},
    {"Chi", 935}, {"Psi", 936}, {"Omega", 937}, {"alpha", 945}, {"beta", 946}, {"gamma", 947},
    {"delta", 948}, {"epsilon", 949}, {"zeta", 950}, {"eta", 951}, {"theta", 952},
    {"iota", 953}, {"kappa", 954}, {"lambda", 955}, {"mu", 956}, {"nu", 957}, {"xi", 958},
    {"omicron", 959}, {"pi", 960}, {"rho", 961}, {"sigmaf", 962}, {"sigma", 963}, {"tau", 964},
    {"upsilon", 965}, {"phi", 966}, {"chi", 967}, {"psi", 968}, {"omega", 969},
    {"thetasym", 977}, {"upsih", 978}, {"piv", 982}, {"bull", 8226}, {"hellip", 8230},
    {"prime", 8242}, {"Prime", 8243}, {"oline", 8254}, {"frasl", 8260}, {"larr", 8592},
    {"uarr", 8593}, {"rarr", 8594}, {"darr", 8595}, {"harr", 8596}, {"crarr", 8629},
    {"lArr", 8656}, {"uArr", 8657}, {"rArr", 8658}, {"dArr", 8659}, {"hArr", 8660},
    {"forall", 8704}, {"part", 8706}, {"exist", 8707}, {"empty", 8709}, {"nabla", 8711},
    {"isin", 8712}, {"notin", 8713}, {"ni", 8715}, {"prod", 8719}, {"sum", 8721},
    {"minus", 8722}, {"lowast", 8727}, {"radic", 8730}, {"prop", 8733}, {"infin", 8734},
    {"ang", 8736}, {"and", 8743}, {"or", 8744}, {"cap", 8745}, {"cup", 8746}, {"int", 8747},
    {"there4", 8756}, {"sim", 8764}, {"cong", 8773}, {"asymp", 8776}, {"ne", 8800},
    {"equiv", 8801}, {"le", 8804}, {"ge", 8805}, {"sub", 8834}, {"sup", 8835}, {"nsub", 8836},
    {"sube", 8838}, {"supe", 8839}, {"oplus", 8853}, {"otimes", 8855}, {"perp", 8869},
    {"sdot", 8901}, {"lceil", 8968}, {"rceil", 8969}, {"lfloor", 8970}, {"rfloor", 8971},
    {"lang", 9001}, {"rang", 9002}, {"loz", 9674}, {"spades", 9824}, {"clubs", 9827},
    {"hearts", 9829}, {"diams", 9830}};

// Names are case-sensitive; a later row overwrites an earlier one.
const std::unordered_map<std::string, int>& EntityTable() {
  static const std::unordered_map<std::string, int> table = [] {
    std::unordered_map<std::string, int> t;
    for (int i = 0; i < 96; ++i) t[kLatin1[i]] = 160 + i;
    for (const EntityRow& row : kOthers) t[row.name] = row.code;
    return t;
  }();
  return table;
}

int ParseNumber(const std::string& digits, int base) {
  const long v = std::strtol(digits.c_str(), nullptr, base);
  return static_cast<int>(v & 0x7FFFFFFF);
}

}  // namespace

size_t EntityRowCount() { return std::size(kLatin1) + std::size(kOthers); }

int ResolveEntity(std::string_view name) {
  if (name.empty()) return 0;
  const std::string text(name);
  int number = 0;
  if (text[0] == '#') {
    const bool hex = text.size() > 1 && (text[1] == 'x' || text[1] == 'X');
    number = ParseNumber(text.substr(hex ? 2 : 1), hex ? 16 : 10);
  } else if (text[0] == 'x' || text[0] == 'X') {
    // Read as a hexadecimal number first: "xi" reaches the table only because "i" parses to 0.
    number = ParseNumber(text.substr(1), 16);
  }
  if (number != 0) return number;
  const auto& table = EntityTable();
  const auto found = table.find(text);
  return found == table.end() ? 0 : found->second;
}

}  // namespace qmk::toolkit::richcontent
