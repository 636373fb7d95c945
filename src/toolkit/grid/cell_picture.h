// cell_picture.h: cells that show a picture: the shared layout logic, a cell that owns its
// picture, and one that refers to a picture owned elsewhere.
#pragma once

#include <memory>

#include "toolkit/grid/cell_ex.h"
#include "toolkit/grid/cell_rect.h"

namespace qmk::toolkit::bitmap {
class CExtBitmap;
}

namespace qmk::toolkit::grid {

// A picture placed in the cell's box by a layout. Picture cells have no text; they compare by
// whether they hold a picture, then by its area in pixels, then by style.
class CExtGridCellPictureBase : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellPictureBase)
 public:
  enum Layout : int32_t { kCenter, kStretch, kStretchKeepRatio, kTile };

  Layout LayoutGet() const { return m_eLayout; }
  void LayoutSet(Layout layout) { m_eLayout = layout; }
  // The picture shown; null for none. The base holds none.
  virtual const bitmap::CExtBitmap* PictureGet() const { return nullptr; }
  // Where the picture goes in `box`: centred at its own size (and cut by the box when larger),
  // the whole box, the largest box of the picture's proportions centred inside, or for tiles the
  // first tile at the top left. An empty rectangle without a picture.
  PixelRect PlaceIn(const PixelRect& box) const;

  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  int Compare(const CExtGridCell& other, uint32_t styleMask = 0, uint32_t styleExMask = 0) const override;

 private:
  Layout m_eLayout = kCenter;
};

// Owns a copy of its picture; the archive holds the picture in the bitmap engine's form.
class CExtGridCellPicture : public CExtGridCellPictureBase {
  QMK_GRID_CELL_CLASS(CExtGridCellPicture)
 public:
  CExtGridCellPicture();
  ~CExtGridCellPicture() override;
  const bitmap::CExtBitmap* PictureGet() const override;
  // Copies `picture`; an empty one or null empties the cell. False when the copy failed.
  bool PictureSet(const bitmap::CExtBitmap* picture);

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;

 private:
  std::unique_ptr<bitmap::CExtBitmap> m_pPicture;
};

// Refers to a picture that the application owns and keeps alive while the cell shows it. The
// reference is no part of the archive: a loaded cell refers to nothing.
class CExtGridCellPictureRef : public CExtGridCellPictureBase {
  QMK_GRID_CELL_CLASS(CExtGridCellPictureRef)
 public:
  const bitmap::CExtBitmap* PictureGet() const override { return m_pRef; }
  void PictureRefSet(const bitmap::CExtBitmap* picture);

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;

 private:
  const bitmap::CExtBitmap* m_pRef = nullptr;
};

}  // namespace qmk::toolkit::grid
