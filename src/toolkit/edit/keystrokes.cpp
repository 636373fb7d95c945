// keystrokes.cpp: reading keystroke scripts and replaying them on a windowless edit.
#include "toolkit/edit/keystrokes.h"

namespace qmk::toolkit::edit {
namespace {

struct NamedKey {
  const char* name;
  unsigned key;
};
constexpr NamedKey kNamedKeys[] = {{"BS", kKeyBack},     {"DEL", kKeyDelete}, {"LEFT", kKeyLeft},
                                   {"RIGHT", kKeyRight}, {"HOME", kKeyHome},  {"END", kKeyEnd},
                                   {"INS", kKeyInsert},  {"C", kKeyC},        {"V", kKeyV},
                                   {"X", kKeyX}};

std::optional<Keystroke> ReadName(const std::string& name) {
  Keystroke k;
  if (name.rfind("PASTE:", 0) == 0) {
    k.kind = Keystroke::Kind::kPaste;
    k.text = name.substr(6);
    return k;
  }
  if (name == "CUT") {
    k.kind = Keystroke::Kind::kCut;
    return k;
  }
  if (name == "LT") {
    k.code = '<';
    return k;
  }
  std::string key = name;
  if (key.rfind("S-", 0) == 0) {
    k.shift = true;
    key = key.substr(2);
  } else if (key.rfind("C-", 0) == 0) {
    k.control = true;
    key = key.substr(2);
  }
  for (const NamedKey& n : kNamedKeys) {
    // Letters are keys only with Control; alone they would be typed.
    if (key != n.name || (n.key >= 'A' && n.key <= 'Z' && !k.control)) continue;
    k.kind = Keystroke::Kind::kKey;
    k.code = n.key;
    return k;
  }
  return std::nullopt;
}

}  // namespace

std::string Keystroke::Label() const {
  switch (kind) {
    case Kind::kChar:
      return code == '<' ? "<LT>" : std::string(1, static_cast<char>(code));
    case Kind::kPaste:
      return "<PASTE:" + text + ">";
    case Kind::kCut:
      return "<CUT>";
    case Kind::kKey:
      break;
  }
  for (const NamedKey& n : kNamedKeys)
    if (n.key == code) return std::string("<") + (shift ? "S-" : control ? "C-" : "") + n.name + ">";
  return "<?>";
}

std::optional<std::vector<Keystroke>> ParseKeystrokes(const std::string& script, std::string* error) {
  std::vector<Keystroke> steps;
  for (size_t i = 0; i < script.size(); ++i) {
    if (script[i] != '<') {
      Keystroke k;
      k.code = static_cast<unsigned char>(script[i]);
      steps.push_back(k);
      continue;
    }
    const size_t close = script.find('>', i + 1);
    const std::string name = script.substr(i + 1, close == std::string::npos ? std::string::npos : close - i - 1);
    const std::optional<Keystroke> k = close == std::string::npos ? std::nullopt : ReadName(name);
    if (!k) {
      if (error) *error = "unknown key \"<" + name + (close == std::string::npos ? "\" (no closing >)" : ">\"");
      return std::nullopt;
    }
    steps.push_back(*k);
    i = close;
  }
  return steps;
}

void Replay(MemoryEdit& edit, const Keystroke& step) {
  switch (step.kind) {
    case Keystroke::Kind::kChar:
      edit.Char(step.code);
      break;
    case Keystroke::Kind::kPaste:
      edit.SetClipboard(step.text);
      edit.Paste();
      break;
    case Keystroke::Kind::kCut:
      edit.Cut();
      break;
    case Keystroke::Kind::kKey:
      edit.SetShift(step.shift);
      edit.SetControl(step.control);
      edit.KeyDown(step.code);
      if (step.code == kKeyBack) edit.Char(kKeyBack);
      edit.SetShift(false);
      edit.SetControl(false);
      break;
  }
}

}  // namespace qmk::toolkit::edit
