// bitmap.h: CExtBitmap, the toolkit's picture: a pixel block with its file form, pixel access,
// filters, scaling and drawing onto the drawing target.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/archive.h"
#include "platform/draw/draw_target.h"
#include "toolkit/bitmap/pixel_block.h"

namespace qmk::toolkit::bitmap {

using platform::Archive;
using platform::DrawTarget;
using Rect = platform::DrawRect;

// Draw methods of the nine-part form that takes one.
enum NinePartMethod : int {
  kNinePartHollow = 0,       // draws nothing
  kNinePartCenter = 1,       // the middle only
  kNinePartStretch = 2,      // every part, edges stretched
  kNinePartTileTopBottom = 3,
  kNinePartTileLeftRight = 4,
  kNinePartTileAll = 5,
};

class CExtBitmap {
 public:
  class Filter;

  CExtBitmap() = default;
  CExtBitmap(const CExtBitmap& other) { AssignFrom(other); }
  CExtBitmap& operator=(const CExtBitmap& other) {
    if (this != &other) AssignFrom(other);
    return *this;
  }
  virtual ~CExtBitmap();

  // Deep copy; an empty source or a failed allocation leaves this picture empty (false).
  virtual bool AssignFrom(const CExtBitmap& other);
  virtual void Empty();
  virtual bool IsEmpty() const { return m_pImageBuffer == nullptr; }
  // A word, non-zero for an empty picture, then the file form with RLE. False on archive failure
  // or a damaged stored picture, which then stays empty.
  virtual bool Serialize(Archive& ar);
  // Mirrors inside `rect` (whole picture when null), clamped to the picture.
  virtual bool Flip(bool horizontal, bool vertical, const Rect* rect = nullptr);
  // Resamples to the size with the kernel of the given kind (see Filter).
  virtual bool Scale(int width, int height, int filter_kind = 12);
  virtual bool Scale(int width, int height, const Filter& filter);
  virtual bool PreMultiply(bool on);
  virtual bool IsPreMultiplied() const { return m_bPreMultiplied; }
  virtual void SetPreMultiplied(bool on) { m_bPreMultiplied = on; }

  // Simple blit at (x, y), and the stretched form from `src` (whole picture when empty) to `dst`.
  virtual bool Draw(DrawTarget& dc, int x, int y, uint32_t rop = platform::kRopSourceCopy);
  virtual bool Draw(DrawTarget& dc, const Rect& dst, const Rect& src = {},
                    uint32_t rop = platform::kRopSourceCopy);
  // Nine parts cut by `margins` (left, top, right, bottom widths); see nine_part.cpp.
  virtual bool DrawNinePart(DrawTarget& dc, const Rect& dst, const Rect& src, const Rect& margins,
                            int top_inset = 0, bool draw_middle = true, bool smooth = false,
                            uint32_t rop = platform::kRopSourceCopy);
  virtual bool DrawNinePart(DrawTarget& dc, const Rect& dst, const Rect& src, const Rect& margins,
                            NinePartMethod method, int top_inset = 0, bool smooth = false,
                            uint32_t rop = platform::kRopSourceCopy);
  // Lays the picture over the target by its alpha, scaled by `constant_alpha`.
  virtual bool AlphaBlend(DrawTarget& dc, const Rect& dst, const Rect& src = {},
                          uint8_t constant_alpha = 255);

  // (x, y) count from the top left. False outside the picture or for an empty one.
  virtual bool GetPixel(int x, int y, RGBQUAD& out) const;
  virtual bool SetPixel(int x, int y, const RGBQUAD& value, bool set_red = true,
                        bool set_green = true, bool set_blue = true, bool set_alpha = true);
  // Every change of the pixels ends here; the cache drops its device form.
  virtual void OnContentChanged() {}

  // A new zero-filled picture; the default masks of the depth when none are given.
  bool Create(int width, int height, int depth = 32);
  bool Create(int width, int height, int depth, const ChannelMasks& masks);
  // Any depth to 32 bits with alpha 255.
  bool Make32();

  // The file form. A damaged file leaves the picture empty and returns false.
  bool LoadBMP(Archive& ar, bool file_header_absent = false);
  bool SaveBMP(Archive& ar, bool with_file_header = true, bool use_rle = false) const;
  bool FromFile(const std::string& path);
  bool FromMemory(const void* data, size_t size, bool file_header_absent = false);
  // A picture compiled into the toolkit, by name.
  bool FromResource(const std::string& name);
  bool ToFile(const std::string& path, bool use_rle = false) const;

  // A new picture of `frames` copies of `src_rect`, each turned by `angle` degrees (0, 90, 180,
  // 270 or 360), laid in a row (or a column when `vertical`); the source rectangle moves by
  // `src_step` for each frame. Refused for depths under 15.
  bool TileCopy(const CExtBitmap& source, const Rect& src_rect, int src_step_x, int src_step_y,
                int frames, int angle, bool vertical);

  // Filters of pixel colours, in filters.cpp. A null rectangle means the whole picture; a colour
  // of -1 means none.
  bool MakeMono(int64_t tint = -1, const Rect* rect = nullptr);
  bool AdjustHLS(int64_t mask_from, int64_t mask_to, double dh, double dl, double ds,
                 const Rect* rect = nullptr);
  bool AdjustAlpha(double delta, const Rect* rect = nullptr);
  bool ChangeColor(int64_t from_color, uint32_t new_hue, const Rect* rect = nullptr);
  bool PaintGradient(const Rect& rect, RGBQUAD c1, RGBQUAD c2, bool horizontal, int bands);

  int Width() const { return m_pImageBuffer ? PixelBlock::Width(m_pImageBuffer) : 0; }
  int Height() const { return m_pImageBuffer ? PixelBlock::Height(m_pImageBuffer) : 0; }
  int Depth() const { return m_pImageBuffer ? PixelBlock::Depth(m_pImageBuffer) : 0; }
  const uint8_t* Block() const { return m_pImageBuffer; }
  uint8_t* Block() { return m_pImageBuffer; }
  // Takes ownership of `block` (which may be null), freeing the old one.
  void Attach(uint8_t* block);

 protected:
  // The picture in the drawing target's own form; null when empty.
  std::unique_ptr<platform::DeviceImage> MakeDeviceImage() const;

 private:
  bool DrawNineParts(DrawTarget& dc, const Rect& dst, const Rect& src, const Rect& margins,
                     int method, int top_inset, bool draw_middle, bool smooth, uint32_t rop);

  uint8_t* m_pImageBuffer = nullptr;
  bool m_bPreMultiplied = false;
};

}  // namespace qmk::toolkit::bitmap
