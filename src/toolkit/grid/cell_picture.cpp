// cell_picture.cpp: the picture cells.
#include "toolkit/grid/cell_picture.h"

#include <algorithm>

#include "toolkit/bitmap/bitmap.h"
#include "toolkit/grid/cell_archive_io.h"

namespace qmk::toolkit::grid {

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellPictureBase, CExtGridCellEx)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellPicture, CExtGridCellPictureBase)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellPictureRef, CExtGridCellPictureBase)

namespace {

int64_t Area(const bitmap::CExtBitmap* picture) {
  return picture && !picture->IsEmpty() ? int64_t{picture->Width()} * picture->Height() : -1;
}

}  // namespace

// ---- base ----

PixelRect CExtGridCellPictureBase::PlaceIn(const PixelRect& box) const {
  const bitmap::CExtBitmap* picture = PictureGet();
  if (!picture || picture->IsEmpty() || box.IsEmpty()) return {};
  const int64_t w = picture->Width(), h = picture->Height();
  const int64_t bw = box.right - box.left, bh = box.bottom - box.top;
  int64_t pw = w, ph = h;
  switch (m_eLayout) {
    case kStretch:
      return box;
    case kTile:
      return {box.left, box.top, static_cast<int>(box.left + std::min(w, bw)), static_cast<int>(box.top + std::min(h, bh))};
    case kStretchKeepRatio:
      // The side that limits first decides; the other follows the picture's proportions.
      if (bw * h <= bh * w) {
        pw = bw;
        ph = std::max<int64_t>(1, bw * h / w);
      } else {
        ph = bh;
        pw = std::max<int64_t>(1, bh * w / h);
      }
      break;
    case kCenter:
      break;
  }
  const int64_t left = box.left + (bw - pw) / 2, top = box.top + (bh - ph) / 2;
  PixelRect placed{static_cast<int>(std::max<int64_t>(left, box.left)), static_cast<int>(std::max<int64_t>(top, box.top)),
                   static_cast<int>(std::min<int64_t>(left + pw, box.right)),
                   static_cast<int>(std::min<int64_t>(top + ph, box.bottom))};
  return placed;
}

// After the data cell's form: the layout, 32 bits (0 centre, 1 stretch, 2 stretch keeping the
// proportions, 3 tiles). Another number fails the load.
bool CExtGridCellPictureBase::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  int32_t layout = m_eLayout;
  io::Int(ar, layout);
  if (!ar.ok() || layout < kCenter || layout > kTile) return false;
  m_eLayout = static_cast<Layout>(layout);
  return true;
}

void CExtGridCellPictureBase::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellPictureBase*>(&other)) m_eLayout = o->m_eLayout;
}

int CExtGridCellPictureBase::Compare(const CExtGridCell& other, uint32_t styleMask, uint32_t styleExMask) const {
  if (auto* o = dynamic_cast<const CExtGridCellPictureBase*>(&other)) {
    const int64_t a = Area(PictureGet()), b = Area(o->PictureGet());
    if (a != b) return a < b ? -1 : 1;
    return CompareStyleOnly(other, styleMask, styleExMask);
  }
  return CExtGridCellEx::Compare(other, styleMask, styleExMask);
}

// ---- owned picture ----

CExtGridCellPicture::CExtGridCellPicture() = default;
CExtGridCellPicture::~CExtGridCellPicture() = default;

const bitmap::CExtBitmap* CExtGridCellPicture::PictureGet() const { return m_pPicture.get(); }

bool CExtGridCellPicture::PictureSet(const bitmap::CExtBitmap* picture) {
  if (!picture || picture->IsEmpty()) {
    SetEmpty(true);
    return true;
  }
  auto copy = std::make_unique<bitmap::CExtBitmap>();
  if (!copy->AssignFrom(*picture)) return false;
  m_pPicture = std::move(copy);
  CExtGridCellEx::SetEmpty(false);
  return true;
}

void CExtGridCellPicture::SetEmpty(bool empty) {
  CExtGridCellPictureBase::SetEmpty(empty);
  if (empty) m_pPicture.reset();
}

// After the base picture form: the picture in the bitmap engine's archive form (which has its
// own mark for no picture).
bool CExtGridCellPicture::Serialize(Archive& ar) {
  if (!CExtGridCellPictureBase::Serialize(ar)) return false;
  if (ar.IsStoring()) {
    bitmap::CExtBitmap none;
    return (m_pPicture ? *m_pPicture : none).Serialize(ar);
  }
  auto picture = std::make_unique<bitmap::CExtBitmap>();
  if (!picture->Serialize(ar)) return false;
  if (picture->IsEmpty())
    m_pPicture.reset();
  else
    m_pPicture = std::move(picture);
  return true;
}

void CExtGridCellPicture::Assign(const CExtGridCell& other) {
  CExtGridCellPictureBase::Assign(other);
  auto* o = dynamic_cast<const CExtGridCellPictureBase*>(&other);
  if (!o || !PictureSet(o->PictureGet())) m_pPicture.reset();
  // A picture cell copied from another holds a value exactly when it holds a picture.
  CExtGridCellEx::SetEmpty(!m_pPicture);
}

// ---- referenced picture ----

void CExtGridCellPictureRef::PictureRefSet(const bitmap::CExtBitmap* picture) {
  m_pRef = picture;
  CExtGridCellEx::SetEmpty(picture == nullptr);
}

void CExtGridCellPictureRef::SetEmpty(bool empty) {
  CExtGridCellPictureBase::SetEmpty(empty);
  if (empty) m_pRef = nullptr;
}

bool CExtGridCellPictureRef::Serialize(Archive& ar) {
  if (!CExtGridCellPictureBase::Serialize(ar)) return false;
  if (ar.IsLoading()) m_pRef = nullptr;
  return true;
}

void CExtGridCellPictureRef::Assign(const CExtGridCell& other) {
  CExtGridCellPictureBase::Assign(other);
  auto* o = dynamic_cast<const CExtGridCellPictureRef*>(&other);
  m_pRef = o ? o->m_pRef : nullptr;
  CExtGridCellEx::SetEmpty(!m_pRef);
}

}  // namespace qmk::toolkit::grid
