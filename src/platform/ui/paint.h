// paint.h: painting a window: BeginPaint/EndPaint, the device context over cairo, and fonts laid
// out with pango.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/draw/draw_target.h"
#include "platform/ui/types.h"

typedef struct _cairo cairo_t;

namespace qmk::platform::ui {

// ---- Fonts -----------------------------------------------------------------------------------
struct FontObject;
using HFONT = FontObject*;

struct LOGFONT {
  // Character height in pixels (the platform's negative lfHeight, as a positive number).
  int height = 11;
  int weight = 400;  // 400 normal, 700 bold
  bool italic = false;
  bool underline = false;
  std::string face = "DejaVu Sans";
};

// Font objects live until DeleteObject; the stock font lives for the process.
HFONT CreateFontIndirect(const LOGFONT& lf);
bool DeleteObject(HFONT font);
bool GetObject(HFONT font, LOGFONT* out);
// The dialog and control font: DejaVu Sans, 8 points at the primary monitor's dots per inch.
HFONT GetStockGuiFont();
// Pixel height of a point size at a resolution, rounded as the platform does (MulDiv).
int PointsToPixels(int points, int dpi);

struct TEXTMETRIC {
  int tmHeight = 0;
  int tmAscent = 0;
  int tmDescent = 0;
  int tmAveCharWidth = 0;
  int tmMaxCharWidth = 0;
};
bool GetTextMetrics(HFONT font, TEXTMETRIC* out);
// Width and height of a line of text in the font.
Size GetTextExtent(HFONT font, const std::string& text);
// The dialog base units of a font: the average width of the 52 Latin letters, rounded, and the
// character height. Dialog units are a quarter of the width and an eighth of the height.
Size GetFontBaseUnits(HFONT font);

// ---- Device context --------------------------------------------------------------------------
// DrawText format flags.
constexpr unsigned DT_LEFT = 0x0, DT_CENTER = 0x1, DT_RIGHT = 0x2, DT_VCENTER = 0x4,
                   DT_BOTTOM = 0x8, DT_WORDBREAK = 0x10, DT_SINGLELINE = 0x20,
                   DT_NOCLIP = 0x100, DT_CALCRECT = 0x400, DT_NOPREFIX = 0x800,
                   DT_END_ELLIPSIS = 0x8000, DT_HIDEPREFIX = 0x100000;

// Drawing in one window's client coordinates, clipped to what may be painted. Colour words have
// red in the low byte and alpha in the high one (0xFF opaque), as the drawing target's.
class Dc {
 public:
  // `cr` is translated to the window's client origin and clipped already; not owned.
  Dc(cairo_t* cr, HWND hwnd, const Rect& clip);
  Dc(const Dc&) = delete;
  Dc& operator=(const Dc&) = delete;

  HWND window() const { return hwnd_; }
  // For drawing that this class does not offer.
  cairo_t* cairo() const { return cr_; }
  const Rect& clip_box() const { return clip_; }

  HFONT SelectFont(HFONT font);
  HFONT font() const { return font_; }
  uint32_t SetTextColor(uint32_t rgba);
  uint32_t text_color() const { return text_color_; }

  void FillRect(const Rect& r, uint32_t rgba);
  // A one-pixel frame inside `r`.
  void FrameRect(const Rect& r, uint32_t rgba);
  // A one-pixel line from (x0, y0) to (x1, y1), the last pixel excluded.
  void Line(int x0, int y0, int x1, int y1, uint32_t rgba);
  // The dotted rectangle that marks keyboard focus.
  void DrawFocusRect(const Rect& r);
  // Draws text in the rectangle; '&' marks a mnemonic (underlined) unless DT_NOPREFIX. Returns
  // the text height; with DT_CALCRECT nothing is drawn and `r` gets the needed size.
  int DrawText(const std::string& text, Rect* r, unsigned format);
  // Draws a picture of the drawing target's form.
  bool DrawImage(DeviceImage& image, const Rect& dst, const Rect& src, uint8_t alpha = 255);
  // Lays a whole drawing target's picture, unscaled, with its corner at `at`.
  bool DrawPicture(const DrawTarget& picture, const Point& at);
  // Limits further drawing to `r` as well (intersected with the clip of painting).
  void IntersectClip(const Rect& r);

 private:
  cairo_t* cr_;
  HWND hwnd_;
  Rect clip_;
  HFONT font_;
  uint32_t text_color_ = 0xFF000000u;
};

// WM_PAINT handling: BeginPaint validates the invalid region and gives a context clipped to it;
// WM_ERASEBKGND is sent first when the region was invalidated with erase.
struct PAINTSTRUCT {
  Dc* dc = nullptr;
  bool fErase = false;
  Rect rcPaint;
};
Dc* BeginPaint(HWND hwnd, PAINTSTRUCT* ps);
bool EndPaint(HWND hwnd, const PAINTSTRUCT* ps);
// Drawing outside WM_PAINT: a context over the visible client area (GetDC) or the whole window
// (GetWindowDC, origin at the window's top-left corner), given back with ReleaseDC.
Dc* GetDC(HWND hwnd);
Dc* GetWindowDC(HWND hwnd);
bool ReleaseDC(HWND hwnd, Dc* dc);
// WM_ERASEBKGND and WM_PRINTCLIENT carry the context as wParam.
inline Dc* DcFromWParam(WPARAM wparam) { return reinterpret_cast<Dc*>(wparam); }
inline WPARAM DcToWParam(Dc* dc) { return reinterpret_cast<WPARAM>(dc); }

// Renders a window and its visible children into a fresh target the size of the window, by
// sending WM_PRINT: the same drawing a repaint would make, without the screen.
std::unique_ptr<DrawTarget> PrintWindow(HWND hwnd);

}  // namespace qmk::platform::ui
