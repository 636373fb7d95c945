// server_shot.cpp: reading the screen back from the X server with Xlib (kept apart: Xlib's
// macros clash with the window system's names).
#include "ui_gtk/server_shot.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <cairo.h>

namespace qmk::testing {

void ServerShot::Take(int x, int y, int w, int h) {
  Display* display = XOpenDisplay(nullptr);
  if (!display) {
    error = "no second connection to the X server";
    return;
  }
  XImage* image = XGetImage(display, DefaultRootWindow(display), x, y, static_cast<unsigned>(w),
                            static_cast<unsigned>(h), AllPlanes, ZPixmap);
  if (image) {
    width = w;
    height = h;
    rgb.clear();
    for (int row = 0; row < h; ++row)
      for (int col = 0; col < w; ++col)
        rgb.push_back(static_cast<uint32_t>(XGetPixel(image, col, row)) & 0xFFFFFF);
    XDestroyImage(image);
  } else {
    error = "the X server gave no image";
  }
  XCloseDisplay(display);
}

bool ServerShot::WritePng(const std::string& path) const {
  if (width <= 0 || height <= 0) return false;
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
  cairo_surface_flush(s);
  unsigned char* data = cairo_image_surface_get_data(s);
  const int stride = cairo_image_surface_get_stride(s);
  for (int row = 0; row < height; ++row)
    for (int col = 0; col < width; ++col)
      reinterpret_cast<uint32_t*>(data + row * stride)[col] = At(col, row);
  cairo_surface_mark_dirty(s);
  const bool ok = cairo_surface_write_to_png(s, path.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(s);
  return ok;
}

}  // namespace qmk::testing
