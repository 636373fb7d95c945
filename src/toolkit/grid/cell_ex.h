// cell_ex.h: the mix-ins of data cells (text colours, cell flags, font, join extent),
// CExtGridCellEx over them, and the string cells.
#pragma once

#include <memory>
#include <string>

#include "toolkit/grid/cell.h"
#include "toolkit/grid/types.h"

namespace qmk::toolkit::bitmap {
class CExtBitmap;
}

namespace qmk::toolkit::grid {

// Adds a text-colour pair: the colour in the normal and in the selected look; -1 for none.
template <class BASE>
class CExtGCCT : public BASE {
 public:
  uint32_t TextColorGet(bool selected) const { return m_clrText[selected ? 1 : 0]; }
  void TextColorSet(bool selected, uint32_t colour) { m_clrText[selected ? 1 : 0] = colour; }
  void Assign(const CExtGridCell& other) override {
    BASE::Assign(other);
    if (auto* o = dynamic_cast<const CExtGCCT*>(&other)) {
      m_clrText[0] = o->m_clrText[0];
      m_clrText[1] = o->m_clrText[1];
    }
  }
  bool OnSerializeEx(Archive& ar) override {
    if (!BASE::OnSerializeEx(ar)) return false;
    for (uint32_t& c : m_clrText) {
      if (ar.IsStoring())
        ar.WriteU32(c);
      else
        c = ar.ReadU32();
    }
    return ar.ok();
  }

 private:
  uint32_t m_clrText[2] = {0xFFFFFFFFu, 0xFFFFFFFFu};
};

// Adds a word of cell flags for the application.
template <class BASE>
class CExtGCC : public BASE {
 public:
  uint32_t CellFlagsGet() const { return m_dwCellFlags; }
  void CellFlagsSet(uint32_t flags) { m_dwCellFlags = flags; }
  void Assign(const CExtGridCell& other) override {
    BASE::Assign(other);
    if (auto* o = dynamic_cast<const CExtGCC*>(&other)) m_dwCellFlags = o->m_dwCellFlags;
  }
  bool OnSerializeEx(Archive& ar) override {
    if (!BASE::OnSerializeEx(ar)) return false;
    if (ar.IsStoring())
      ar.WriteU32(m_dwCellFlags);
    else
      m_dwCellFlags = ar.ReadU32();
    return ar.ok();
  }

 private:
  uint32_t m_dwCellFlags = 0;
};

// A cell's own font: a description, optionally with two pictures that go with it.
struct CellFontDesc {
  bool m_bBold = false;
  std::string m_strFaceName;
  int32_t m_nHeight = 0;
  std::shared_ptr<bitmap::CExtBitmap> m_pPicture[2];
};

// Adds an optional font; CExtGridCellEx writes it to the archive.
template <class BASE>
class CExtGCF : public BASE {
 public:
  const CellFontDesc* FontGet() const { return m_pFont.get(); }
  void FontSet(const CellFontDesc* font) {
    m_pFont = font ? std::make_unique<CellFontDesc>(*font) : nullptr;
  }
  void Assign(const CExtGridCell& other) override {
    BASE::Assign(other);
    if (auto* o = dynamic_cast<const CExtGCF*>(&other)) FontSet(o->FontGet());
  }

 protected:
  std::unique_ptr<CellFontDesc> m_pFont;
};

// Adds the join extent: (1, 1) for a plain cell; see CExtGDPJ for the values inside a join.
template <class BASE>
class CExtGCJ : public BASE {
 public:
  CSize JoinGet() const { return m_sizeJoin; }
  void JoinSet(CSize extent) { m_sizeJoin = extent; }
  void Assign(const CExtGridCell& other) override {
    BASE::Assign(other);
    if (auto* o = dynamic_cast<const CExtGCJ*>(&other)) m_sizeJoin = o->m_sizeJoin;
  }
  bool OnSerializeEx(Archive& ar) override {
    if (!BASE::OnSerializeEx(ar)) return false;
    if (ar.IsStoring()) {
      ar.WriteU32(static_cast<uint32_t>(m_sizeJoin.cx));
      ar.WriteU32(static_cast<uint32_t>(m_sizeJoin.cy));
    } else {
      m_sizeJoin.cx = static_cast<int32_t>(ar.ReadU32());
      m_sizeJoin.cy = static_cast<int32_t>(ar.ReadU32());
    }
    return ar.ok();
  }

 private:
  CSize m_sizeJoin{1, 1};
};

// The base of all data cells.
class CExtGridCellEx : public CExtGCJ<CExtGCF<CExtGCC<CExtGCCT<CExtGridCell>>>> {
  QMK_GRID_CELL_CLASS(CExtGridCellEx)
 public:
  using Mixins = CExtGCJ<CExtGCF<CExtGCC<CExtGCCT<CExtGridCell>>>>;
  // After the base: the mix-ins' data, the cursor-and-tip word, a has-font byte and the font.
  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  int Compare(const CExtGridCell& other, uint32_t styleMask = 0, uint32_t styleExMask = 0) const override;
  uint32_t CursorAndTipGet() const { return m_dwCursorAndTip; }
  void CursorAndTipSet(uint32_t value) { m_dwCursorAndTip = value; }

 private:
  bool SerializeFont(Archive& ar);
  uint32_t m_dwCursorAndTip = 0;
};

// A plain string.
class CExtGridCellString : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellString)
 public:
  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override { text = m_strText; }
  void TextSet(const char* text, bool asIs = false) override;
  const char* TextBufferGet() const override { return m_strText.c_str(); }

 protected:
  std::string m_strText;
};

// A string shown as stars; its value is the plain text.
class CExtGridCellPassword : public CExtGridCellString {
  QMK_GRID_CELL_CLASS(CExtGridCellPassword)
 public:
  // What the grid shows: one star per byte of text.
  std::string DisplayText() const { return std::string(m_strText.size(), '*'); }
};

// A push button with a caption.
class CExtGridCellButton : public CExtGridCellString {
  QMK_GRID_CELL_CLASS(CExtGridCellButton)
};

// A caption with a check state: 0 clear, 1 checked, 2 indeterminate.
class CExtGridCellCheckBox : public CExtGridCellString {
  QMK_GRID_CELL_CLASS(CExtGridCellCheckBox)
 public:
  int GetCheck() const { return m_nCheck; }
  void SetCheck(int check);
  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  void SetEmpty(bool empty = true) override;
  // Checked cells sort after clear ones before the caption decides.
  int Compare(const CExtGridCell& other, uint32_t styleMask = 0, uint32_t styleExMask = 0) const override;

 private:
  int32_t m_nCheck = 0;
};

class CExtGridCellRadioButton : public CExtGridCellCheckBox {
  QMK_GRID_CELL_CLASS(CExtGridCellRadioButton)
};

// A progress bar: the text is the caption, the value a position in a range.
class CExtGridCellProgress : public CExtGridCellString {
  QMK_GRID_CELL_CLASS(CExtGridCellProgress)
 public:
  // Clamps `pos` into [lower, upper]; false for an empty range.
  bool SetRange(int32_t lower, int32_t upper);
  void SetPos(int32_t pos);
  int32_t GetPos() const { return m_nPos; }
  int32_t GetLower() const { return m_nLower; }
  int32_t GetUpper() const { return m_nUpper; }
  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;

 private:
  int32_t m_nLower = 0, m_nUpper = 100, m_nPos = 0;
};

// The header mix-ins: a sort arrow state (CExtGCE) and a pressed look (CExtGCP) over the
// allocator-backed string.
template <class BASE>
class CExtGCE : public BASE {
 public:
  // 0 unsorted, 1 ascending, -1 descending.
  int SortArrowGet() const { return m_nSortArrow; }
  void SortArrowSet(int arrow) { m_nSortArrow = arrow; }
  void Assign(const CExtGridCell& other) override {
    BASE::Assign(other);
    if (auto* o = dynamic_cast<const CExtGCE*>(&other)) m_nSortArrow = o->m_nSortArrow;
  }

 private:
  int m_nSortArrow = 0;
};

template <class BASE>
class CExtGCP : public BASE {};

class CExtGridCellHeader : public CExtGCP<CExtGCE<CExtGridCellStringDM>> {
  QMK_GRID_CELL_CLASS(CExtGridCellHeader)
};

}  // namespace qmk::toolkit::grid
