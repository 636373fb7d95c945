// cmd_icon.cpp: a command icon's state pictures and the transforms that make them.
#include "toolkit/bitmap/cmd_icon.h"

namespace qmk::toolkit::bitmap {

CExtBitmap* CExtCmdIcon::Slot(int state) {
  switch (state) {
    case kDisabled: return &m_bmpDisabled;
    case kHover: return &m_bmpHover;
    case kPressed: return &m_bmpPressed;
    default: return &m_bmpNormal;
  }
}

void CExtCmdIcon::Empty() {
  for (int s = kNormal; s <= kPressed; ++s) Slot(s)->Empty();
  m_dwFlags = 0;
}

bool CExtCmdIcon::SetBitmap(int state, const CExtBitmap& bmp) {
  if (state < kNormal || state > kPressed) return false;
  CExtBitmap* slot = Slot(state);
  const bool ok = slot->AssignFrom(bmp);
  if (state != kNormal) {
    if (ok)
      m_dwFlags |= 1u << (state - 1);
    else
      m_dwFlags &= ~(1u << (state - 1));
  }
  return ok;
}

CExtBitmap& CExtCmdIcon::GetBitmap(int state, int64_t tint) {
  if (state < kDisabled || state > kPressed || IsStored(state)) return *Slot(state);
  if (m_bmpNormal.IsEmpty()) return m_bmpNormal;
  if (state != kDisabled) return m_bmpNormal;
  if (m_bmpDisabled.IsEmpty() && m_bmpDisabled.AssignFrom(m_bmpNormal) && m_bmpDisabled.Make32()) {
    m_bmpDisabled.MakeMono(tint);
    m_bmpDisabled.AdjustAlpha(-0.5);
  }
  return m_bmpDisabled.IsEmpty() ? m_bmpNormal : m_bmpDisabled;
}

bool CExtCmdIcon::AssignFrom(const CExtCmdIcon& other) {
  if (&other == this) return true;
  Empty();
  for (int s = kNormal; s <= kPressed; ++s)
    if (!other.Slot(s)->IsEmpty() || s == kNormal) Slot(s)->AssignFrom(*other.Slot(s));
  m_dwFlags = other.m_dwFlags;
  return !IsEmpty();
}

bool CExtCmdIcon::Scale(int width, int height, int filter_kind) {
  if (IsEmpty()) return false;
  bool ok = m_bmpNormal.Scale(width, height, filter_kind);
  for (int s = kDisabled; s <= kPressed; ++s)
    if (IsStored(s)) ok = Slot(s)->Scale(width, height, filter_kind) && ok;
  // Made forms follow the normal picture's new size when next asked for.
  if (!IsStored(kDisabled)) m_bmpDisabled.Empty();
  return ok;
}

bool CExtCmdIcon::Serialize(Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteU32(m_dwFlags);
    bool ok = m_bmpNormal.Serialize(ar);
    for (int s = kDisabled; s <= kPressed; ++s)
      if (IsStored(s)) ok = Slot(s)->Serialize(ar) && ok;
    return ok && ar.ok();
  }
  Empty();
  const uint32_t flags = ar.ReadU32() & 7;
  if (!ar.ok() || !m_bmpNormal.Serialize(ar)) return false;
  m_dwFlags = flags;
  for (int s = kDisabled; s <= kPressed; ++s)
    if (IsStored(s) && !Slot(s)->Serialize(ar)) {
      Empty();
      return false;
    }
  return true;
}

bool CExtCmdIcon::Blend(DrawTarget& dc, CExtBitmap& bmp, int x, int y) {
  return bmp.AlphaBlend(dc, Rect{x, y, x + bmp.Width(), y + bmp.Height()});
}

bool CExtCmdIcon::Paint(DrawTarget& dc, int state, int x, int y, uint8_t constant_alpha) {
  CExtBitmap& bmp = GetBitmap(state);
  if (bmp.IsEmpty()) return false;
  return bmp.AlphaBlend(dc, Rect{x, y, x + bmp.Width(), y + bmp.Height()}, {}, constant_alpha);
}

bool CExtCmdIcon::PaintDisabledClassic(DrawTarget& dc, int x, int y, uint32_t colour) {
  CExtBitmap dark(m_bmpNormal), light(m_bmpNormal);
  if (!dark.Make32() || !light.Make32()) return false;
  dark.AdjustHLS(-1, -1, 0, -0.75, 0);
  light.AdjustHLS(-1, -1, 0, 0.75, 0);
  dark.MakeMono(colour);
  light.MakeMono(colour);
  const bool drawn = Blend(dc, light, x + 1, y + 1);
  return Blend(dc, dark, x, y) && drawn;
}

bool CExtCmdIcon::PaintDisabledLighter(DrawTarget& dc, int x, int y, uint32_t colour) {
  CExtBitmap bmp(m_bmpNormal);
  if (!bmp.Make32()) return false;
  bmp.MakeMono(colour);
  bmp.AdjustHLS(-1, -1, 0, 0.5, 0);
  return Blend(dc, bmp, x, y);
}

bool CExtCmdIcon::PaintMonochrome(DrawTarget& dc, int x, int y, uint32_t colour) {
  CExtBitmap bmp(m_bmpNormal);
  if (!bmp.Make32() || !bmp.MakeMono(colour)) return false;
  return Blend(dc, bmp, x, y);
}

}  // namespace qmk::toolkit::bitmap
