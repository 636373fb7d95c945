// style_names.cpp: the names of style bits that dialog templates may use, and the reading of a
// style word made of names and numbers joined by '|'.
#include <cctype>
#include <cstdlib>
#include <string>

#include "platform/ui/control_messages.h"
#include "platform/ui/dialog_template.h"

namespace qmk::platform::ui {
namespace {

struct StyleName {
  const char* name;
  uint32_t value;
};

constexpr StyleName kStyleNames[] = {
    {"WS_OVERLAPPED", WS_OVERLAPPED}, {"WS_POPUP", WS_POPUP}, {"WS_CHILD", WS_CHILD},
    {"WS_VISIBLE", WS_VISIBLE}, {"WS_DISABLED", WS_DISABLED},
    {"WS_CLIPSIBLINGS", WS_CLIPSIBLINGS}, {"WS_CLIPCHILDREN", WS_CLIPCHILDREN},
    {"WS_CAPTION", WS_CAPTION}, {"WS_BORDER", WS_BORDER}, {"WS_DLGFRAME", WS_DLGFRAME},
    {"WS_VSCROLL", WS_VSCROLL}, {"WS_HSCROLL", WS_HSCROLL}, {"WS_SYSMENU", WS_SYSMENU},
    {"WS_THICKFRAME", WS_THICKFRAME}, {"WS_GROUP", WS_GROUP}, {"WS_TABSTOP", WS_TABSTOP},
    {"WS_MINIMIZEBOX", WS_MINIMIZEBOX}, {"WS_MAXIMIZEBOX", WS_MAXIMIZEBOX},
    {"WS_EX_DLGMODALFRAME", WS_EX_DLGMODALFRAME}, {"WS_EX_NOPARENTNOTIFY", WS_EX_NOPARENTNOTIFY},
    {"WS_EX_TOPMOST", WS_EX_TOPMOST}, {"WS_EX_TRANSPARENT", WS_EX_TRANSPARENT},
    {"WS_EX_TOOLWINDOW", WS_EX_TOOLWINDOW}, {"WS_EX_WINDOWEDGE", WS_EX_WINDOWEDGE},
    {"WS_EX_CLIENTEDGE", WS_EX_CLIENTEDGE}, {"WS_EX_CONTROLPARENT", WS_EX_CONTROLPARENT},
    {"WS_EX_STATICEDGE", WS_EX_STATICEDGE}, {"WS_EX_LAYOUTRTL", WS_EX_LAYOUTRTL},
    {"DS_SETFONT", DS_SETFONT}, {"DS_MODALFRAME", DS_MODALFRAME}, {"DS_CONTROL", DS_CONTROL},
    {"DS_CENTER", DS_CENTER},
    {"BS_PUSHBUTTON", BS_PUSHBUTTON}, {"BS_DEFPUSHBUTTON", BS_DEFPUSHBUTTON},
    {"BS_CHECKBOX", BS_CHECKBOX}, {"BS_AUTOCHECKBOX", BS_AUTOCHECKBOX},
    {"BS_RADIOBUTTON", BS_RADIOBUTTON}, {"BS_3STATE", BS_3STATE}, {"BS_AUTO3STATE", BS_AUTO3STATE},
    {"BS_GROUPBOX", BS_GROUPBOX}, {"BS_AUTORADIOBUTTON", BS_AUTORADIOBUTTON},
    {"BS_LEFTTEXT", BS_LEFTTEXT},
    {"SS_LEFT", SS_LEFT}, {"SS_CENTER", SS_CENTER}, {"SS_RIGHT", SS_RIGHT}, {"SS_ICON", SS_ICON},
    {"SS_BLACKFRAME", SS_BLACKFRAME}, {"SS_GRAYFRAME", SS_GRAYFRAME},
    {"SS_WHITEFRAME", SS_WHITEFRAME}, {"SS_ETCHEDFRAME", SS_ETCHEDFRAME},
    {"SS_NOPREFIX", SS_NOPREFIX}, {"SS_NOTIFY", SS_NOTIFY},
    {"ES_LEFT", ES_LEFT}, {"ES_CENTER", ES_CENTER}, {"ES_RIGHT", ES_RIGHT},
    {"ES_MULTILINE", ES_MULTILINE}, {"ES_UPPERCASE", ES_UPPERCASE},
    {"ES_LOWERCASE", ES_LOWERCASE}, {"ES_PASSWORD", ES_PASSWORD},
    {"ES_AUTOVSCROLL", ES_AUTOVSCROLL}, {"ES_AUTOHSCROLL", ES_AUTOHSCROLL},
    {"ES_NOHIDESEL", ES_NOHIDESEL}, {"ES_READONLY", ES_READONLY},
    {"ES_WANTRETURN", ES_WANTRETURN}, {"ES_NUMBER", ES_NUMBER},
    {"LBS_NOTIFY", LBS_NOTIFY}, {"LBS_SORT", LBS_SORT}, {"LBS_MULTIPLESEL", LBS_MULTIPLESEL},
    {"LBS_NOINTEGRALHEIGHT", LBS_NOINTEGRALHEIGHT}, {"LBS_EXTENDEDSEL", LBS_EXTENDEDSEL},
    {"CBS_SIMPLE", CBS_SIMPLE}, {"CBS_DROPDOWN", CBS_DROPDOWN},
    {"CBS_DROPDOWNLIST", CBS_DROPDOWNLIST}, {"CBS_AUTOHSCROLL", CBS_AUTOHSCROLL},
    {"CBS_SORT", CBS_SORT},
    {"SBS_HORZ", SBS_HORZ}, {"SBS_VERT", SBS_VERT},
    {"UDS_WRAP", UDS_WRAP}, {"UDS_SETBUDDYINT", UDS_SETBUDDYINT},
    {"UDS_ALIGNRIGHT", UDS_ALIGNRIGHT}, {"UDS_ALIGNLEFT", UDS_ALIGNLEFT},
    {"UDS_AUTOBUDDY", UDS_AUTOBUDDY}, {"UDS_ARROWKEYS", UDS_ARROWKEYS}, {"UDS_HORZ", UDS_HORZ},
    {"UDS_NOTHOUSANDS", UDS_NOTHOUSANDS},
    {"PBS_SMOOTH", PBS_SMOOTH}, {"PBS_VERTICAL", PBS_VERTICAL},
};

std::string_view Trim(std::string_view s) {
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front()))) s.remove_prefix(1);
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.back()))) s.remove_suffix(1);
  return s;
}

bool ParseNumber(std::string_view s, uint32_t* out) {
  if (s.empty() || s.size() > 12) return false;
  const std::string text(s);
  char* end = nullptr;
  const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  if (!std::isdigit(static_cast<unsigned char>(text[0]))) return false;
  const unsigned long long v = std::strtoull(text.c_str(), &end, hex ? 16 : 10);
  if (*end || v > 0xFFFFFFFFull) return false;
  *out = static_cast<uint32_t>(v);
  return true;
}

}  // namespace

bool ParseStyleWord(std::string_view text, uint32_t* out) {
  uint32_t value = 0;
  bool any = false;
  while (true) {
    const size_t bar = text.find('|');
    const std::string_view part = Trim(text.substr(0, bar));
    if (part.empty()) return false;
    uint32_t bits = 0;
    bool found = ParseNumber(part, &bits);
    for (const StyleName& n : kStyleNames)
      if (!found && part == n.name) {
        bits = n.value;
        found = true;
      }
    if (!found) return false;
    value |= bits;
    any = true;
    if (bar == std::string_view::npos) break;
    text.remove_prefix(bar + 1);
  }
  if (out && any) *out = value;
  return any;
}

}  // namespace qmk::platform::ui
