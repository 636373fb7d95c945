// cell_archive_test.cpp: the archive forms of the cells: hand-built bytes for the base, the
// data cell and the variant cell, and a round trip of every class.
#include <gtest/gtest.h>

#include <memory>

#include "grid/archive_bytes.h"
#include "toolkit/bitmap/bitmap.h"
#include "toolkit/grid/cell_input.h"

using namespace qmk::toolkit::grid;
using namespace qmk::platform;
using namespace grid_test;

namespace {

TEST(CellArchive, BaseCellIsFiveWords) {
  CExtGridCell cell;
  EXPECT_EQ(Store(cell), BaseWords());
  CExtGridCell back;
  ASSERT_TRUE(Load(back, BaseWords(1, 2, 3, 4, 5)));
  EXPECT_EQ(back.GetStyle(), 1u);
  EXPECT_EQ(back.GetStyleEx(), 2u);
  EXPECT_EQ(back.IconIndexGet(), 3);
  EXPECT_EQ(back.FontIndexGet(), 4);
  EXPECT_EQ(back.GetItemData(), 5u);
}

TEST(CellArchive, VariantCellByteForByte) {
  CExtGridCellVariant cell;
  cell.VariantSet(Variant::I4(0x01020304));
  cell.JoinSet(CSize{2, 3});
  Bytes want = BaseWords(0x40000000, 0);
  Append(want, ExWords(2, 3));
  Put16(want, VT_I4);
  Put32(want, 0x01020304);
  EXPECT_EQ(Store(cell), want);

  CExtGridCellVariant back;
  ASSERT_TRUE(Load(back, want));
  EXPECT_EQ(*back.GetVariantPtr(), Variant::I4(0x01020304));
  EXPECT_EQ(back.JoinGet(), (CSize{2, 3}));
  EXPECT_FALSE(back.IsEmpty());
}

TEST(CellArchive, StringCellByteForByte) {
  CExtGridCellString cell;
  cell.TextSet("hi");
  Bytes want = DataCellWords();
  PutString(want, "hi");
  EXPECT_EQ(Store(cell), want);
}

TEST(CellArchive, VariantValuesOfEveryTypeRoundTrip) {
  Decimal d;
  d.scale = 3;
  d.negative = true;
  d.SetMantissa(123456789);
  for (const Variant& v : {Variant(), Variant::Null(), Variant::I1(-5), Variant::UI1(200), Variant::I2(-300),
                           Variant::UI2(60000), Variant::I4(-70000), Variant::UI4(4000000000u), Variant::Int(-1),
                           Variant::UInt(7), Variant::I8(-(int64_t{1} << 40)), Variant::UI8(~uint64_t{0}),
                           Variant::R4(1.25f), Variant::R8(-2.5), Variant::Date(45000.75), Variant::Cy(123456),
                           Variant::Bool(true), Variant::Error(0x80020005), Variant::Hresult(5), Variant::Dec(d),
                           Variant::Str(std::string(300, 'x'))}) {
    CExtGridCellVariant cell;
    cell.VariantSet(v);
    CExtGridCellVariant back;
    ASSERT_TRUE(Load(back, Store(cell))) << v.Type();
    EXPECT_EQ(*back.GetVariantPtr(), v) << v.Type();
  }
}

TEST(CellArchive, FontWithPicturesRoundTrips) {
  CExtGridCellString cell;
  CellFontDesc font;
  font.m_bBold = true;
  font.m_strFaceName = "DejaVu Sans";
  font.m_nHeight = -12;
  font.m_pPicture[1] = std::make_shared<qmk::toolkit::bitmap::CExtBitmap>();
  ASSERT_TRUE(font.m_pPicture[1]->Create(3, 2, 32));
  cell.FontSet(&font);
  cell.CursorAndTipSet(0x55);
  CExtGridCellString back;
  ASSERT_TRUE(Load(back, Store(cell)));
  ASSERT_NE(back.FontGet(), nullptr);
  EXPECT_TRUE(back.FontGet()->m_bBold);
  EXPECT_EQ(back.FontGet()->m_strFaceName, "DejaVu Sans");
  EXPECT_EQ(back.FontGet()->m_nHeight, -12);
  EXPECT_EQ(back.FontGet()->m_pPicture[0], nullptr);
  ASSERT_NE(back.FontGet()->m_pPicture[1], nullptr);
  EXPECT_EQ(back.FontGet()->m_pPicture[1]->Width(), 3);
  EXPECT_EQ(back.CursorAndTipGet(), 0x55u);
}

// Every class: a cell with a value, stored, loaded into a fresh cell of its class, stored again:
// the two archives are equal, and so are the texts.
TEST(CellArchive, EveryClassRoundTrips) {
  for (const char* name : {"CExtGridCell", "CExtGridCellStringDM", "CExtGridCellHeader", "CExtGridCellEx",
                           "CExtGridCellString", "CExtGridCellStringMasked", "CExtGridCellPassword",
                           "CExtGridCellButton", "CExtGridCellCheckBox", "CExtGridCellRadioButton",
                           "CExtGridCellProgress", "CExtGridCellVariant", "CExtGridCellNumberBase",
                           "CExtGridCellNumber", "CExtGridCellCurrency", "CExtGridCellSystemNumberCurrencyBase",
                           "CExtGridCellSystemNumber", "CExtGridCellSystemCurrency"}) {
    const CellClass* c = FindCellClass(name);
    ASSERT_NE(c, nullptr) << name;
    std::unique_ptr<CExtGridCell> cell(c->CreateObject(nullptr));
    cell->TextSet("12");
    cell->ModifyStyle(0x100);
    cell->SetItemData(77);
    if (auto* check = dynamic_cast<CExtGridCellCheckBox*>(cell.get())) check->SetCheck(1);
    if (auto* bar = dynamic_cast<CExtGridCellProgress*>(cell.get())) bar->SetPos(40);
    if (auto* masked = dynamic_cast<CExtGridCellStringMasked*>(cell.get())) masked->MaskSet("##");
    const Bytes first = Store(*cell);
    std::unique_ptr<CExtGridCell> back(c->CreateObject(nullptr));
    ASSERT_TRUE(Load(*back, first)) << name;
    EXPECT_EQ(Store(*back), first) << name;
    std::string a, b;
    cell->TextGet(a);
    back->TextGet(b);
    EXPECT_EQ(a, b) << name;
    EXPECT_EQ(back->GetItemData(), 77u) << name;
    // A clone is of the same class and compares equal.
    std::unique_ptr<CExtGridCell> copy(cell->Clone());
    EXPECT_EQ(copy->GetRuntimeClass(), c) << name;
    EXPECT_EQ(copy->Compare(*cell, ~0u, ~0u), 0) << name;
  }
  EXPECT_EQ(FindCellClass("CExtGridCellNoSuch"), nullptr);
}

TEST(CellArchive, ShortArchivesFail) {
  CExtGridCellVariant cell;
  cell.VariantSet(Variant::Str("a longer text"));
  Bytes bytes = Store(cell);
  for (size_t cut : {size_t{3}, size_t{20}, bytes.size() - 1}) {
    Bytes part(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(cut));
    CExtGridCellVariant back;
    EXPECT_FALSE(Load(back, part)) << cut;
  }
  // A string length beyond the data, and an unknown type code.
  Bytes hostile(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() - 13 - 4));
  Put32(hostile, 0xFFFFFFF0u);
  CExtGridCellVariant back;
  EXPECT_FALSE(Load(back, hostile));
  Bytes unknown(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() - 13 - 4 - 2));
  Put16(unknown, 0x4000);
  EXPECT_FALSE(Load(back, unknown));
}

TEST(StringDMCell, TextLivesInTheOwnersAllocatorAndMovesWithTheOwner) {
  CExtGridCellStringDM cell;
  cell.TextSet("header");
  EXPECT_STREQ(cell.TextBufferGet(), "header");
  EXPECT_FALSE(cell.IsEmpty());
  cell.SetEmpty();
  EXPECT_EQ(cell.TextBufferGet(), nullptr);
}

}  // namespace
