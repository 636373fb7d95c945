// ui_font.h: where the toolkit's normal font comes from, and the font rules of SyncSysColors.
#pragma once

#include <functional>
#include <string>

#include "toolkit/theme/paint_manager.h"

namespace qmk::toolkit::theme {

// The desktop's UI font: the GTK setting "gtk-font-name" when the user's settings file has one,
// else DejaVu Sans 9; its height is for the given vertical dpi.
LogFont DefaultUiFont(int dpi_y);
// Reads "Family [Style words] Size" as GTK writes it; false when there is no size.
bool ParseGtkFontName(const std::string& text, int dpi_y, LogFont& out);

// Seams for tests and for the window system: the normal font and the face enumeration. An empty
// function restores the default.
void SetUiFontSource(std::function<LogFont(int dpi_y)> source);
void SetFaceQuery(std::function<bool(const std::string& face)> installed);
LogFont QueryUiFont(int dpi_y);
bool QueryFaceInstalled(const std::string& face);

// The font that SyncSysColors makes from `normal` under the given flags and scaling.
LogFont ApplyFontRules(LogFont normal, unsigned flags, bool y_scaled, int dpi_y);
// The drawing target's form of a system font record.
platform::FontSpec ToFontSpec(const LogFont& lf);

}  // namespace qmk::toolkit::theme
