// cell_hotkey.cpp: the hot key cell and its table of key names.
#include "toolkit/grid/cell_hotkey.h"

#include <cctype>
#include <cstdio>

#include "platform/text.h"
#include "toolkit/grid/cell_archive_io.h"
#include "toolkit/grid/cell_text.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellHotKey, CExtGridCellEx)

namespace {

struct KeyName {
  uint8_t code;
  const char* name;
  bool shown;  // the name the cell shows; the others are only read
};
// Keys by virtual key code. Letters, digits and function keys are made in NameOfKey.
constexpr KeyName kKeys[] = {
    {0x08, "Backspace", true},  {0x09, "Tab", true},          {0x0D, "Enter", true},       {0x0D, "Return", false},
    {0x13, "Pause", true},      {0x14, "Caps Lock", true},    {0x1B, "Esc", true},         {0x1B, "Escape", false},
    {0x20, "Space", true},      {0x20, "Spacebar", false},    {0x21, "Page Up", true},     {0x21, "PgUp", false},
    {0x22, "Page Down", true},  {0x22, "PgDn", false},        {0x23, "End", true},         {0x24, "Home", true},
    {0x25, "Left", true},       {0x26, "Up", true},           {0x27, "Right", true},       {0x28, "Down", true},
    {0x2C, "Print Screen", true}, {0x2D, "Insert", true},     {0x2D, "Ins", false},        {0x2E, "Delete", true},
    {0x2E, "Del", false},       {0x6A, "Num *", true},        {0x6B, "Num +", true},       {0x6D, "Num -", true},
    {0x6E, "Num .", true},      {0x6F, "Num /", true},        {0x90, "Num Lock", true},    {0x91, "Scroll Lock", true},
    {0xBA, ";", true},          {0xBB, "=", true},            {0xBC, ",", true},           {0xBD, "-", true},
    {0xBE, ".", true},          {0xBF, "/", true},            {0xC0, "`", true},           {0xDB, "[", true},
    {0xDC, "\\", true},         {0xDD, "]", true},            {0xDE, "'", true},
};

struct ModifierName {
  uint8_t bit;
  const char* name;
  bool shown;
};
// In the order the text shows them.
constexpr ModifierName kModifiers[] = {{CExtGridCellHotKey::kControl, "Ctrl", true},
                                       {CExtGridCellHotKey::kControl, "Control", false},
                                       {CExtGridCellHotKey::kControl, "Ctl", false},
                                       {CExtGridCellHotKey::kShift, "Shift", true},
                                       {CExtGridCellHotKey::kAlt, "Alt", true}};

std::string NameOfKey(uint8_t code) {
  if ((code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z')) return std::string(1, static_cast<char>(code));
  if (code >= 0x60 && code <= 0x69) return "Num " + std::to_string(code - 0x60);
  if (code >= 0x70 && code <= 0x87) return "F" + std::to_string(code - 0x70 + 1);
  for (const KeyName& k : kKeys)
    if (k.shown && k.code == code) return k.name;
  char buffer[8];
  std::snprintf(buffer, sizeof buffer, "0x%02X", code);
  return buffer;
}

// Letters compare without case; blanks inside a name count as one ("Page  Up").
std::string Squeezed(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (c == ' ' || c == '\t') {
      if (!out.empty() && out.back() != ' ') out += ' ';
    } else {
      out += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
  }
  while (!out.empty() && out.back() == ' ') out.pop_back();
  return out;
}

bool CodeOfKey(const std::string& raw, uint8_t& code) {
  const std::string name = Squeezed(raw);
  if (name.size() == 1 && std::isalnum(static_cast<unsigned char>(name[0]))) {
    code = static_cast<uint8_t>(name[0]);
    return true;
  }
  long n = 0;
  if (name.size() >= 2 && name[0] == 'F' && ParseBoundedInt(name.substr(1), 1, 24, &n)) {
    code = static_cast<uint8_t>(0x70 + n - 1);
    return true;
  }
  if (name.size() == 5 && name.compare(0, 4, "NUM ") == 0 && std::isdigit(static_cast<unsigned char>(name[4]))) {
    code = static_cast<uint8_t>(0x60 + (name[4] - '0'));
    return true;
  }
  if (name.size() == 4 && name.compare(0, 2, "0X") == 0 && HexDigitValue(name[2]) >= 0 && HexDigitValue(name[3]) >= 0) {
    code = static_cast<uint8_t>(HexDigitValue(name[2]) * 16 + HexDigitValue(name[3]));
    return code != 0;
  }
  for (const KeyName& k : kKeys)
    if (name == Squeezed(k.name)) {
      code = k.code;
      return true;
    }
  return false;
}

}  // namespace

std::string CExtGridCellHotKey::Format(uint8_t key, uint8_t modifiers) {
  if (!key) return {};
  std::string text;
  for (const ModifierName& m : kModifiers)
    if (m.shown && (modifiers & m.bit)) text += std::string(m.name) + "+";
  return text + NameOfKey(key);
}

bool CExtGridCellHotKey::Parse(const char* text, uint8_t& key, uint8_t& modifiers) {
  const std::string all = TrimmedText(text ? text : "");
  if (all.empty()) return false;
  // The key is the last part: a lone '+' there is the "Num +" key written short, which is
  // refused, since '+' only separates.
  uint8_t mods = 0;
  size_t from = 0;
  for (;;) {
    const size_t plus = all.find('+', from);
    const std::string part = TrimmedText(all.substr(from, plus == std::string::npos ? std::string::npos : plus - from));
    if (plus == std::string::npos) {
      if (!CodeOfKey(part, key)) return false;
      modifiers = mods;
      return true;
    }
    const ModifierName* found = nullptr;
    for (const ModifierName& m : kModifiers)
      if (EqualsNoCase(part, m.name)) found = &m;
    if (!found) {
      // "Num +" holds the separator: it may only come last.
      if (Squeezed(part) == "NUM" && TrimmedText(all.substr(plus + 1)).empty()) {
        key = 0x6B;
        modifiers = mods;
        return true;
      }
      return false;
    }
    mods |= found->bit;
    from = plus + 1;
  }
}

bool CExtGridCellHotKey::HotKeySet(uint8_t key, uint8_t modifiers) {
  if (modifiers & ~(kShift | kControl | kAlt | kExtended)) return false;
  if (!key) {
    SetEmpty(true);
    return true;
  }
  m_wHotKey = static_cast<uint16_t>(key | (modifiers << 8));
  SetEmpty(false);
  return true;
}

void CExtGridCellHotKey::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_wHotKey = 0;
}

void CExtGridCellHotKey::TextGet(std::string& text) const {
  text = IsEmpty() ? std::string() : Format(KeyGet(), ModifiersGet());
}

void CExtGridCellHotKey::TextSet(const char* text, bool) {
  if (TrimmedText(text ? text : "").empty()) {
    SetEmpty(true);
    return;
  }
  uint8_t key = 0, modifiers = 0;
  // The extended bit is no part of the text: a key typed again keeps it.
  if (Parse(text, key, modifiers)) HotKeySet(key, static_cast<uint8_t>(modifiers | (key == KeyGet() ? ModifiersGet() & kExtended : 0)));
}

HRESULT CExtGridCellHotKey::OnParseText(const char* text) const {
  uint8_t key = 0, modifiers = 0;
  return TrimmedText(text ? text : "").empty() || Parse(text, key, modifiers) ? S_OK : DISP_E_TYPEMISMATCH;
}

void CExtGridCellHotKey::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellHotKey*>(&other)) {
    m_wHotKey = o->m_wHotKey;
    CExtGridCellEx::SetEmpty(o->IsEmpty());
    return;
  }
  std::string text;
  other.TextGet(text);
  uint8_t key = 0, modifiers = 0;
  if (other.IsEmpty() || !Parse(text.c_str(), key, modifiers))
    SetEmpty(true);
  else
    HotKeySet(key, modifiers);
}

// After the data cell's form: the hot key word in 32 bits. Bits above the modifiers fail the
// load.
bool CExtGridCellHotKey::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  uint32_t word = m_wHotKey;
  io::Word(ar, word);
  if (!ar.ok()) return false;
  if (ar.IsStoring()) return true;
  if (word & ~0x0FFFu) return false;
  m_wHotKey = static_cast<uint16_t>(word);
  return true;
}

}  // namespace qmk::toolkit::grid
