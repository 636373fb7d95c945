// ui_font.cpp: the normal UI font from the GTK setting or DejaVu Sans 9, the face enumeration,
// and SyncSysColors, which turns them into the theme's three fonts.
#include "toolkit/theme/ui_font.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <utility>
#include <vector>

#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit::theme {
namespace {

std::function<LogFont(int)>& FontSource() {
  static std::function<LogFont(int)> source;
  return source;
}

std::function<bool(const std::string&)>& FaceQuery() {
  static std::function<bool(const std::string&)> query;
  return query;
}

std::string Trim(const std::string& s) {
  const size_t a = s.find_first_not_of(" \t\r\"'");
  if (a == std::string::npos) return {};
  const size_t b = s.find_last_not_of(" \t\r\"'");
  return s.substr(a, b - a + 1);
}

std::string GtkSettingsPath() {
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg)
    return std::string(xdg) + "/gtk-3.0/settings.ini";
  if (const char* home = std::getenv("HOME"); home && *home)
    return std::string(home) + "/.config/gtk-3.0/settings.ini";
  return {};
}

// The value of gtk-font-name in the settings file, or empty.
std::string ReadGtkFontSetting() {
  const std::string path = GtkSettingsPath();
  if (path.empty()) return {};
  std::ifstream in(path);
  std::string line;
  while (std::getline(in, line)) {
    const size_t eq = line.find('=');
    if (eq != std::string::npos && Trim(line.substr(0, eq)) == "gtk-font-name")
      return Trim(line.substr(eq + 1));
  }
  return {};
}

// Style words GTK may put between the family and the size, and the weight each asks for
// (0 keeps the weight).
struct StyleWord {
  const char* word;
  int weight;
};
constexpr StyleWord kStyleWords[] = {
    {"Regular", 0}, {"Book", 0},   {"Normal", 0},    {"Italic", 0},   {"Oblique", 0},
    {"Light", 0},   {"Thin", 0},   {"Medium", 0},    {"Bold", 700},   {"Semi-Bold", 700},
    {"SemiBold", 700},
};

// The weight a style word asks for, 0 for none, or -1 when the word is part of the family.
int StyleWeight(const std::string& w) {
  for (const StyleWord& s : kStyleWords)
    if (w == s.word) return s.weight;
  return -1;
}

}  // namespace

bool ParseGtkFontName(const std::string& text, int dpi_y, LogFont& out) {
  std::istringstream words(text);
  std::vector<std::string> parts;
  for (std::string w; words >> w;) parts.push_back(w);
  if (parts.size() < 2) return false;
  char* end = nullptr;
  const double points = std::strtod(parts.back().c_str(), &end);
  // Sizes under a point would round to a height of 0, which means "any size" to a font record.
  if (*end != '\0' || !(points >= 1) || points > 200) return false;
  parts.pop_back();
  LogFont lf;
  lf.lfFaceName.clear();
  for (const std::string& w : parts) {
    const int weight = StyleWeight(w);
    if (weight > 0) lf.lfWeight = weight;
    if (weight < 0) lf.lfFaceName += (lf.lfFaceName.empty() ? "" : " ") + w;
  }
  if (lf.lfFaceName.empty()) return false;
  lf.lfHeight = -MulDiv(static_cast<int>(points * 10 + 0.5), dpi_y, 720);
  out = lf;
  return true;
}

LogFont DefaultUiFont(int dpi_y) {
  LogFont lf;
  if (ParseGtkFontName(ReadGtkFontSetting(), dpi_y, lf)) return lf;
  lf.lfFaceName = "DejaVu Sans";
  lf.lfHeight = -MulDiv(9, dpi_y, 72);
  return lf;
}

void SetUiFontSource(std::function<LogFont(int)> source) { FontSource() = std::move(source); }
void SetFaceQuery(std::function<bool(const std::string&)> installed) { FaceQuery() = std::move(installed); }

LogFont QueryUiFont(int dpi_y) { return FontSource() ? FontSource()(dpi_y) : DefaultUiFont(dpi_y); }

bool QueryFaceInstalled(const std::string& face) {
  return FaceQuery() ? FaceQuery()(face) : platform::FontFamilyInstalled(face);
}

LogFont ApplyFontRules(LogFont lf, unsigned flags, bool y_scaled, int dpi_y) {
  if (flags & kFontFlagClearType) lf.lfQuality = 5;
  if ((flags & kFontFlagSegoeUI) && QueryFaceInstalled("Segoe UI")) {
    lf.lfFaceName = "Segoe UI";
    // At 96 dpi the face gets a smaller height than the normal font, on purpose: that is the
    // size other applications show it at, and dialogs are laid out for it.
    lf.lfHeight = (y_scaled && dpi_y >= 97) ? -13 : -11;
  }
  return lf;
}

platform::FontSpec ToFontSpec(const LogFont& lf) {
  platform::FontSpec spec;
  spec.face = lf.lfFaceName;
  // A positive height is the cell height; the character height is about four fifths of it.
  spec.pixels = lf.lfHeight < 0 ? -lf.lfHeight : lf.lfHeight * 0.8;
  if (spec.pixels < 1) spec.pixels = 12;
  spec.bold = lf.lfWeight >= 600;
  return spec;
}

void CExtPaintManager::SyncSysColors() {
  CExtPaintManagerAutoPtr& holder = g_PaintManager();
  const int dpi_y = holder.Dpi(1);
  m_lfNormal = ApplyFontRules(QueryUiFont(dpi_y), m_dwSyncFontFlags, holder.IsScaled(1), dpi_y);
  for (platform::FontSpec& font : m_fonts) font = ToFontSpec(m_lfNormal);
}

}  // namespace qmk::toolkit::theme
