// template_reader.cpp: reads the text form of dialog templates (docs/ui.md): a header of
// keyword lines, one line per control, and "end".
#include <cctype>
#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/ui/control_messages.h"
#include "platform/ui/dialog_template.h"

namespace qmk::platform::ui {
namespace {

constexpr size_t kMaxItems = 1024;
constexpr size_t kMaxText = 4096;

// The kinds of control line: the class and the style (and extended style) a kind starts with.
struct ControlKind {
  const char* keyword;
  const char* class_name;  // null: "control" names its class
  uint32_t style;
  uint32_t ex_style;
};

constexpr ControlKind kKinds[] = {
    {"label", kStaticClass, SS_LEFT | WS_GROUP, 0},
    {"icon", kStaticClass, SS_ICON, 0},
    {"frame", kStaticClass, SS_ETCHEDFRAME, 0},
    {"button", kButtonClass, BS_PUSHBUTTON | WS_TABSTOP, 0},
    {"default-button", kButtonClass, BS_DEFPUSHBUTTON | WS_TABSTOP, 0},
    {"check", kButtonClass, BS_AUTOCHECKBOX | WS_TABSTOP, 0},
    {"three-state", kButtonClass, BS_AUTO3STATE | WS_TABSTOP, 0},
    {"radio", kButtonClass, BS_AUTORADIOBUTTON, 0},
    {"group-box", kButtonClass, BS_GROUPBOX, 0},
    {"edit", kEditClass, ES_LEFT | ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE},
    {"list", kListBoxClass, LBS_NOTIFY | WS_VSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE},
    {"combo", kComboBoxClass, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, 0},
    {"up-down", kUpDownClass, UDS_ALIGNRIGHT | UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ARROWKEYS, 0},
    {"tabs", kTabClass, WS_TABSTOP, 0},
    {"progress", kProgressClass, 0, 0},
    {"scroll-bar", kScrollBarClass, SBS_HORZ, 0},
    {"control", nullptr, 0, 0},
};

struct SymbolicId {
  const char* name;
  int value;
};

constexpr SymbolicId kIds[] = {
    {"IDOK", IDOK},       {"IDCANCEL", IDCANCEL}, {"IDABORT", IDABORT}, {"IDRETRY", IDRETRY},
    {"IDIGNORE", IDIGNORE}, {"IDYES", IDYES},     {"IDNO", IDNO},       {"IDCLOSE", IDCLOSE},
    {"IDHELP", IDHELP},   {"IDC_STATIC", IDC_STATIC},
};

struct Token {
  std::string text;
  bool quoted = false;
};

class Reader {
 public:
  Reader(std::string_view text, DialogTemplate* out, TemplateError* error)
      : text_(text), out_(out), error_(error) {}

  bool Run() {
    *out_ = DialogTemplate{};
    bool have_dialog = false, ended = false;
    size_t pos = 0;
    while (pos <= text_.size()) {
      const size_t nl = text_.find('\n', pos);
      std::string_view line = text_.substr(pos, nl == std::string_view::npos ? nl : nl - pos);
      pos = nl == std::string_view::npos ? text_.size() + 1 : nl + 1;
      ++line_;
      if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
      std::vector<Token> tokens;
      if (!Tokenize(line, &tokens)) return false;
      if (tokens.empty()) continue;
      if (ended) return Fail("text after \"end\"");
      const std::string& key = tokens[0].text;
      if (tokens[0].quoted) return Fail("a line must start with a keyword");
      if (!have_dialog) {
        if (key != "dialog") return Fail("the template must start with \"dialog ID\"");
        if (tokens.size() != 2 || !Int(tokens[1], 0, 65535, &out_->id, "the dialog id"))
          return FailIfClear("expected \"dialog ID\"");
        have_dialog = true;
        continue;
      }
      if (key == "end") {
        if (tokens.size() != 1) return Fail("\"end\" stands alone");
        ended = true;
        continue;
      }
      if (!Header(tokens) && !Control(tokens)) return false;
    }
    if (!have_dialog) {
      line_ = 0;
      return Fail("the template is empty");
    }
    if (!ended) {
      line_ = 0;
      return Fail("missing \"end\"");
    }
    return true;
  }

 private:
  bool Fail(const std::string& message) {
    if (error_ && !failed_) *error_ = {line_, message};
    failed_ = true;
    return false;
  }
  bool FailIfClear(const std::string& message) { return failed_ ? false : Fail(message); }

  bool Tokenize(std::string_view line, std::vector<Token>* tokens) {
    size_t i = 0;
    while (i < line.size()) {
      const char c = line[i];
      if (c == '#') break;
      if (std::isspace(static_cast<unsigned char>(c))) {
        ++i;
        continue;
      }
      Token t;
      if (c == '"') {
        t.quoted = true;
        ++i;
        bool closed = false;
        while (i < line.size()) {
          char ch = line[i++];
          if (ch == '"') {
            closed = true;
            break;
          }
          if (ch == '\\') {
            if (i >= line.size()) break;
            const char e = line[i++];
            ch = e == 'n' ? '\n' : e == 't' ? '\t' : e;
            if (e != 'n' && e != 't' && e != '"' && e != '\\')
              return Fail(std::string("unknown escape \\") + e + " in a string");
          }
          t.text.push_back(ch);
          if (t.text.size() > kMaxText) return Fail("a string is longer than 4096 bytes");
        }
        if (!closed) return Fail("the string is not closed");
      } else {
        while (i < line.size() && !std::isspace(static_cast<unsigned char>(line[i])) &&
               line[i] != '"')
          t.text.push_back(line[i++]);
      }
      tokens->push_back(std::move(t));
    }
    return true;
  }

  bool Int(const Token& t, int lo, int hi, int* out, const char* what) {
    if (!t.quoted) {
      for (const SymbolicId& id : kIds)
        if (t.text == id.name) {
          *out = id.value;
          return true;
        }
      const std::string& s = t.text;
      size_t start = (s[0] == '-' || s[0] == '+') ? 1 : 0;
      bool digits = start < s.size() && s.size() <= 12;
      for (size_t k = start; digits && k < s.size(); ++k)
        digits = std::isdigit(static_cast<unsigned char>(s[k])) != 0;
      if (digits) {
        const long long v = std::strtoll(s.c_str(), nullptr, 10);
        if (v >= lo && v <= hi) {
          *out = static_cast<int>(v);
          return true;
        }
        return Fail(std::string(what) + " is out of range (" + std::to_string(lo) + " to " +
                    std::to_string(hi) + ")");
      }
    }
    return Fail(std::string("expected a number for ") + what + ", found \"" + t.text + "\"");
  }

  // The tokens from `from` up to the next keyword joined into one style word.
  bool Style(const std::vector<Token>& tokens, size_t* from, uint32_t* out) {
    std::string word;
    size_t k = *from;
    while (k < tokens.size() && !IsStyleKeyword(tokens[k])) {
      if (tokens[k].quoted) return Fail("a style cannot be a string");
      word += tokens[k++].text;
      word += ' ';
    }
    *from = k;
    if (word.empty()) return Fail("a style keyword needs a value");
    if (!ParseStyleWord(word, out)) return Fail("unknown style in \"" + word.substr(0, word.size() - 1) + "\"");
    return true;
  }

  static bool IsStyleKeyword(const Token& t) {
    return !t.quoted && (t.text == "style" || t.text == "exstyle" || t.text == "not");
  }

  bool Header(const std::vector<Token>& tokens) {
    const std::string& key = tokens[0].text;
    if (key == "caption") {
      if (tokens.size() != 2 || !tokens[1].quoted) return Fail("expected caption \"TEXT\"");
      out_->caption = tokens[1].text;
      return true;
    }
    if (key == "position") {
      if (tokens.size() != 5) return Fail("expected position X Y WIDTH HEIGHT");
      return Int(tokens[1], -32768, 32767, &out_->x, "x") &&
             Int(tokens[2], -32768, 32767, &out_->y, "y") &&
             Int(tokens[3], 0, 32767, &out_->cx, "the width") &&
             Int(tokens[4], 0, 32767, &out_->cy, "the height");
    }
    if (key == "font") {
      if (tokens.size() != 3 || !tokens[1].quoted || tokens[1].text.empty())
        return Fail("expected font \"FACE\" POINTS");
      out_->font_face = tokens[1].text;
      return Int(tokens[2], 1, 72, &out_->font_points, "the point size");
    }
    if (key == "style" || key == "exstyle") {
      size_t from = 1;
      uint32_t bits = 0;
      if (!Style(tokens, &from, &bits)) return false;
      if (from != tokens.size()) return Fail("unexpected \"" + tokens[from].text + "\"");
      (key == "style" ? out_->style : out_->ex_style) = bits;
      return true;
    }
    return false;
  }

  bool Control(const std::vector<Token>& tokens) {
    const ControlKind* kind = nullptr;
    for (const ControlKind& k : kKinds)
      if (tokens[0].text == k.keyword) kind = &k;
    if (!kind) return FailIfClear("unknown keyword \"" + tokens[0].text + "\"");
    if (out_->items.size() >= kMaxItems) return Fail("more than 1024 controls");
    DialogItemTemplate item;
    size_t k = 1;
    if (!kind->class_name) {
      if (k >= tokens.size() || !tokens[k].quoted || tokens[k].text.empty())
        return Fail("expected control \"CLASS\" ID \"TEXT\" X Y WIDTH HEIGHT");
      item.class_name = tokens[k++].text;
    } else {
      item.class_name = kind->class_name;
    }
    item.style = kind->style;
    item.ex_style = kind->ex_style;
    if (tokens.size() < k + 6)
      return Fail(std::string("expected ") + kind->keyword + " ID \"TEXT\" X Y WIDTH HEIGHT");
    if (!Int(tokens[k], -1, 65535, &item.id, "the control id")) return false;
    if (!tokens[k + 1].quoted) return Fail("expected the control's text in quotes");
    item.text = tokens[k + 1].text;
    if (!Int(tokens[k + 2], -32768, 32767, &item.x, "x") ||
        !Int(tokens[k + 3], -32768, 32767, &item.y, "y") ||
        !Int(tokens[k + 4], 0, 32767, &item.cx, "the width") ||
        !Int(tokens[k + 5], 0, 32767, &item.cy, "the height"))
      return false;
    k += 6;
    while (k < tokens.size()) {
      const std::string key = tokens[k].text;
      if (!IsStyleKeyword(tokens[k])) return Fail("unexpected \"" + key + "\"");
      ++k;
      uint32_t bits = 0;
      if (!Style(tokens, &k, &bits)) return false;
      if (key == "style") item.style |= bits;
      if (key == "exstyle") item.ex_style |= bits;
      if (key == "not") item.style &= ~bits;
    }
    out_->items.push_back(std::move(item));
    return true;
  }

  std::string_view text_;
  DialogTemplate* out_;
  TemplateError* error_;
  int line_ = 0;
  bool failed_ = false;
};

}  // namespace

bool ParseDialogTemplate(std::string_view text, DialogTemplate* out, TemplateError* error) {
  DialogTemplate scratch;
  Reader reader(text, out ? out : &scratch, error);
  return reader.Run();
}

}  // namespace qmk::platform::ui
