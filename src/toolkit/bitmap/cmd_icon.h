// cmd_icon.h: CExtCmdIcon, a command's picture with its disabled, hover and pressed forms.
#pragma once

#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::bitmap {

class CExtCmdIcon {
 public:
  enum State : int { kNormal = 0, kDisabled = 1, kHover = 2, kPressed = 3 };

  virtual ~CExtCmdIcon() = default;
  virtual void Empty();
  virtual bool IsEmpty() const { return m_bmpNormal.IsEmpty(); }
  virtual Rect GetSize() const { return {0, 0, m_bmpNormal.Width(), m_bmpNormal.Height()}; }
  // The flags word, the normal picture, then each stored state picture.
  virtual bool Serialize(Archive& ar);
  virtual bool AssignFrom(const CExtCmdIcon& other);
  // Scales the normal picture and every stored one.
  virtual bool Scale(int width, int height, int filter_kind = 12);

  // Sets the normal picture, or a stored picture of state 1, 2 or 3.
  bool SetBitmap(int state, const CExtBitmap& bmp);
  // The picture of `state`. A missing disabled picture is made from the normal one (grey with
  // `tint`, half alpha); a missing hover or pressed picture is the normal one. Other states give
  // the normal picture.
  CExtBitmap& GetBitmap(int state, int64_t tint = -1);
  bool IsStored(int state) const { return state >= 1 && state <= 3 && (m_dwFlags >> (state - 1)) & 1; }
  uint32_t Flags() const { return m_dwFlags; }

  // Draws the state's picture with its alpha.
  bool Paint(DrawTarget& dc, int state, int x, int y, uint8_t constant_alpha = 255);
  // The engraved disabled look: a light copy one pixel down and right, a dark copy over it.
  bool PaintDisabledClassic(DrawTarget& dc, int x, int y, uint32_t colour);
  // A grey, lightened copy of the given colour.
  bool PaintDisabledLighter(DrawTarget& dc, int x, int y, uint32_t colour);
  // One colour, the picture's own lightness.
  bool PaintMonochrome(DrawTarget& dc, int x, int y, uint32_t colour);

 private:
  CExtBitmap* Slot(int state);
  const CExtBitmap* Slot(int state) const { return const_cast<CExtCmdIcon*>(this)->Slot(state); }
  bool Blend(DrawTarget& dc, CExtBitmap& bmp, int x, int y);

  CExtBitmap m_bmpNormal;
  CExtBitmap m_bmpDisabled;
  CExtBitmap m_bmpHover;
  CExtBitmap m_bmpPressed;
  uint32_t m_dwFlags = 0;
};

}  // namespace qmk::toolkit::bitmap
