// theme_sheet.h: one picture of every widget in every state, drawn by a theme: how a theme is
// looked at and compared.
#pragma once

#include <string>

#include "toolkit/theme/paint_manager.h"

namespace qmk::toolkit::theme {

constexpr int kSheetWidth = 780;
constexpr int kSheetHeight = 560;

// Draws the sheet onto `dc` (at least kSheetWidth by kSheetHeight) with `title` at the top.
void PaintThemeSheet(CExtPaintManager& pm, DrawTarget& dc, const std::string& title);

// Installs the theme of `id` in the process holder and writes its sheet to a PNG file.
// False when the file can't be written.
bool WriteThemeSheetPng(int id, const std::string& path);

}  // namespace qmk::toolkit::theme
