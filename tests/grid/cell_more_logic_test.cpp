// cell_more_logic_test.cpp: what the new cells do beyond text: spin limits, comparison and
// sorting, copies between classes, the check list, the font face list, header filters and
// picture layouts.
#include <gtest/gtest.h>

#include <memory>

#include "grid/archive_bytes.h"
#include "toolkit/bitmap/bitmap.h"
#include "toolkit/grid/cell_combo_lists.h"
#include "toolkit/grid/cell_duration.h"
#include "toolkit/grid/cell_header_filter.h"
#include "toolkit/grid/cell_ip_address.h"
#include "toolkit/grid/cell_ll.h"
#include "toolkit/grid/cell_number_forms.h"
#include "toolkit/grid/cell_object_size.h"
#include "toolkit/grid/cell_picture.h"
#include "toolkit/grid/cell_updown.h"

using namespace qmk::toolkit::grid;
using namespace qmk::platform;
using namespace grid_test;

namespace {

TEST(UpDownCell, StepsStopAtTheRangeAndInputOutsideIsRefused) {
  CExtGridCellUpDown cell;
  ASSERT_TRUE(cell.RangeSet(-2, 10));
  ASSERT_TRUE(cell.StepSet(4));
  EXPECT_FALSE(cell.CanIncrement());  // empty
  cell.TextSet("7");
  EXPECT_TRUE(cell.Increment());
  EXPECT_EQ(Text(cell), "10");  // 11 is held at the top
  EXPECT_TRUE(cell.IsMaximum());
  EXPECT_FALSE(cell.CanIncrement());
  EXPECT_TRUE(cell.Decrement(3));
  EXPECT_EQ(Text(cell), "-2");
  EXPECT_TRUE(cell.IsMinimum());
  EXPECT_FALSE(cell.Decrement());
  EXPECT_EQ(cell.OnParseText("11"), DISP_E_OVERFLOW);
  cell.TextSet("11");
  EXPECT_EQ(Text(cell), "-2");
  EXPECT_EQ(cell.OnParseText("+"), S_OK);
  // A narrower range moves the value in; a range upside down or a bad step changes nothing.
  EXPECT_TRUE(cell.RangeSet(0, 5));
  EXPECT_EQ(Text(cell), "0");
  EXPECT_FALSE(cell.RangeSet(3, 1));
  EXPECT_FALSE(cell.StepSet(0));
  EXPECT_FALSE(cell.RangeSet(0, std::numeric_limits<double>::infinity()));
  GridEditState readOnly{true};
  EXPECT_FALSE(cell.CanIncrement(&readOnly));
  cell.ModifyStyle(kStyleNoIncrement);
  EXPECT_FALSE(cell.Increment());
}

TEST(UpDownCell, FontWeightStepsToTheNextHundred) {
  struct Case { int from; int steps; int to; };
  for (const Case& c : {Case{450, 1, 500}, Case{450, -1, 400}, Case{400, 1, 500}, Case{400, -2, 200},
                        Case{950, 1, 1000}, Case{50, -3, 0}}) {
    CExtGridCellUpDownFontWeight cell;
    cell.NumberSet(c.from);
    ASSERT_TRUE(c.steps > 0 ? cell.Increment(c.steps) : cell.Decrement(-c.steps)) << c.from;
    double value = 0;
    ASSERT_TRUE(cell.NumberGet(value));
    EXPECT_EQ(value, c.to) << c.from << " by " << c.steps;
  }
}

TEST(UpDownCell, RectangleSidesAndColourChannels) {
  PixelRect rect{1, 2, 30, 40};
  CExtGridCellUpDownRectPart side;
  side.PartSet(CExtGridCellUpDownRectPart::kBottom);
  side.WriteTo(rect);  // empty: writes nothing
  EXPECT_EQ(rect.bottom, 40);
  side.ReadFrom(rect);
  side.Increment(5);
  side.WriteTo(rect);
  EXPECT_EQ(rect, (PixelRect{1, 2, 30, 45}));

  CExtGridCellUpDownColorPart green;
  green.PartSet(CExtGridCellUpDownColorPart::kGreen);
  green.ReadFrom(0x00336699);
  EXPECT_EQ(Text(green), "102");
  EXPECT_TRUE(green.Increment(500));
  uint32_t colour = 0x00336699;
  green.WriteTo(colour);
  EXPECT_EQ(colour, 0x0033FF99u);
  EXPECT_NE(green.OnParseText("256"), S_OK);
  // A value from outside the range (as an archive may bring) is held to a channel's bounds.
  green.VariantSet(Variant::I4(300));
  colour = 0x00336699;
  green.WriteTo(colour);
  EXPECT_EQ(colour, 0x0033FF99u);
  side.VariantSet(Variant::R8(1e20));
  side.WriteTo(rect);
  EXPECT_EQ(rect.bottom, 2147483647);
}

TEST(ObjectSizeCell, NeverGoesBelowZero) {
  CExtGridCellObjectSize cell;
  ASSERT_TRUE(cell.SizeSet(3));
  EXPECT_TRUE(cell.Decrement(10));
  EXPECT_EQ(cell.SizeGet(), 0);
  EXPECT_TRUE(cell.IsMinimum());
  EXPECT_FALSE(cell.CanDecrement());
  EXPECT_FALSE(cell.SizeSet(-1));
  ASSERT_TRUE(cell.SizeSet(INT64_MAX - 1));
  EXPECT_TRUE(cell.Increment(1000));
  EXPECT_EQ(cell.SizeGet(), INT64_MAX);
  EXPECT_FALSE(cell.CanIncrement());
  ASSERT_TRUE(cell.SizeSet(5));
  EXPECT_TRUE(cell.Decrement(INT32_MIN));  // a negative count steps the other way, all of it
  EXPECT_EQ(cell.SizeGet(), 5 + 2147483648LL);
}

TEST(DurationCell, StepsAndLimits) {
  CExtGridCellDuration cell;
  EXPECT_FALSE(cell.Increment());  // empty
  ASSERT_TRUE(cell.SecondsSet(0));
  ASSERT_TRUE(cell.StepSet(3600));
  EXPECT_TRUE(cell.Decrement(2));
  EXPECT_EQ(Text(cell), "-02:00:00");
  ASSERT_TRUE(cell.SecondsSet(CExtGridCellDuration::kMaxSeconds - 10));
  EXPECT_TRUE(cell.Increment(INT32_MAX));
  EXPECT_EQ(cell.SecondsGet(), CExtGridCellDuration::kMaxSeconds);
  EXPECT_FALSE(cell.CanIncrement());
  EXPECT_FALSE(cell.SecondsSet(CExtGridCellDuration::kMaxSeconds + 1));
  EXPECT_FALSE(cell.StepSet(0));
  Variant v;
  cell.VariantGet(v);
  EXPECT_EQ(v, Variant::I8(CExtGridCellDuration::kMaxSeconds));
  HorzAlign horz;
  VertAlign vert;
  cell.GetAlignment(true, horz, vert);
  EXPECT_EQ(horz, HorzAlign::kRight);
  EXPECT_EQ(vert, VertAlign::kCenter);
  cell.ModifyStyle(0x1 | 0x10);
  cell.GetAlignment(true, horz, vert);
  EXPECT_EQ(horz, HorzAlign::kDefault);
  EXPECT_EQ(vert, VertAlign::kDefault);
}

TEST(NewCells, CompareAsTheirValuesNotTheirTexts) {
  CExtGridCellIPAddress a, b, none;
  a.TextSet("10.0.0.9");
  b.TextSet("10.0.0.10");
  EXPECT_LT(a.Compare(b), 0);  // as texts "10.0.0.9" would come after
  EXPECT_GT(b.Compare(a), 0);
  EXPECT_LT(none.Compare(a), 0);

  CExtGridCellDuration shortSpan, longSpan;
  shortSpan.TextSet("0:59:00");
  longSpan.TextSet("1 day 00:00:00");
  EXPECT_LT(shortSpan.Compare(longSpan), 0);

  CExtGridCellLL south, north, northEast;
  south.LatLongSet(-1, 50);
  north.LatLongSet(1, 0);
  northEast.LatLongSet(1, 2);
  EXPECT_LT(south.Compare(north), 0);
  EXPECT_LT(north.Compare(northEast), 0);

  CExtGridCellFraction half, third;
  half.TextSet("1/2");
  third.TextSet("1/3");
  EXPECT_GT(half.Compare(third), 0);

  // Equal values go on to the masked styles.
  CExtGridCellIPAddress c;
  c.TextSet("10.0.0.9");
  c.ModifyStyle(0x4);
  EXPECT_LT(a.Compare(c, 0x4), 0);
  EXPECT_EQ(a.Compare(c, 0), 0);
}

TEST(NewCells, AssignAcrossClassesGoesThroughText) {
  CExtGridCellString text;
  text.TextSet("192.168.0.7");
  CExtGridCellIPAddress address;
  address.Assign(text);
  EXPECT_EQ(address.AddressGet(), 0xC0A80007u);
  text.TextSet("not an address");
  address.Assign(text);
  EXPECT_TRUE(address.IsEmpty());

  CExtGridCellDuration span;
  span.TextSet("01:30:00");
  CExtGridCellVariant variant;
  variant.Assign(span);
  EXPECT_EQ(Text(variant), "01:30:00");
  CExtGridCellDuration again;
  again.Assign(variant);
  EXPECT_EQ(again.SecondsGet(), 5400);

  // A fraction copied into a scientific cell keeps the number, not the text.
  CExtGridCellFraction fraction;
  fraction.TextSet("2 1/4");
  CExtGridCellScientific scientific;
  scientific.Assign(fraction);
  EXPECT_EQ(Text(scientific), "2.25E+00");
}

TEST(CheckListCell, ChecksAndText) {
  CExtGridCellCheckListComboBox cell;
  cell.ItemsReplace({"Red", "Green", "Blue"});
  EXPECT_TRUE(cell.IsEmpty());
  cell.TextSet(" blue ; red,,");
  EXPECT_EQ(Text(cell), "Red, Blue");  // list order, list spelling
  EXPECT_EQ(cell.CheckedCount(), 2);
  EXPECT_NE(cell.OnParseText("Red, Purple"), S_OK);
  cell.TextSet("Red, Purple");
  EXPECT_EQ(Text(cell), "Red, Blue");
  EXPECT_TRUE(cell.CheckSet(1, true));
  EXPECT_EQ(Text(cell), "Red, Green, Blue");
  EXPECT_FALSE(cell.CheckSet(3, true));
  EXPECT_FALSE(cell.IsChecked(-1));
  cell.TextSet("");
  EXPECT_TRUE(cell.IsEmpty());
  EXPECT_EQ(cell.CheckedCount(), 0);
  cell.CheckSet(2, true);
  cell.ItemsReplace({"One"});
  EXPECT_EQ(cell.CheckedCount(), 0);
  EXPECT_EQ(Text(cell), "");
}

struct TwoFaces : FontFaceSource {
  std::vector<std::string> FaceNames() const override { return {"DejaVu Sans", "DejaVu Serif"}; }
};

TEST(FontFaceNameCell, TheMachinesListDecides) {
  CExtGridCellFontFaceName free;
  free.TextSet("  Any Face ");
  EXPECT_EQ(Text(free), "Any Face");
  EXPECT_NE(free.OnParseText("  "), S_OK);
  TwoFaces faces;
  FontFaceSourceSet(&faces);
  CExtGridCellFontFaceName listed;
  FontFaceSourceSet(nullptr);
  EXPECT_EQ(listed.ItemsGet().size(), 2u);
  listed.TextSet("dejavu serif");
  EXPECT_EQ(Text(listed), "DejaVu Serif");
  listed.TextSet("Comic");
  EXPECT_EQ(Text(listed), "DejaVu Serif");
}

TEST(HeaderFilterCell, ValueListAndConditions) {
  CExtGridCellHeaderFilter filter;
  CExtGridCellString oslo, rome, empty;
  oslo.TextSet("Oslo");
  rome.TextSet("Rome");
  CExtGridCellVariant nine, ten;
  nine.VariantSet(Variant::I4(9));
  ten.VariantSet(Variant::I4(10));
  EXPECT_FALSE(filter.IsFilterActive());
  EXPECT_TRUE(filter.Matches(nullptr));

  filter.ValuesSet({"oslo"});
  filter.ValueListOnSet(true);
  EXPECT_TRUE(filter.Matches(&oslo));
  EXPECT_FALSE(filter.Matches(&rome));
  filter.ValueListOnSet(false);

  using F = CExtGridCellHeaderFilter;
  struct Case { F::Condition condition; const char* operand; const CExtGridCell* cell; bool match; };
  const Case cases[] = {
      {F::kEquals, "ROME", &rome, true},        {F::kNotEquals, "rome", &rome, false},
      {F::kContains, "SL", &oslo, true},        {F::kNotContains, "sl", &oslo, false},
      {F::kBeginsWith, "ro", &rome, true},      {F::kEndsWith, "LO", &oslo, true},
      {F::kEndsWith, "Oslo2", &oslo, false},    {F::kGreater, "9", &ten, true},  // as numbers, not "10" < "9"
      {F::kLess, "9", &ten, false},             {F::kGreaterOrEqual, "9", &nine, true},
      {F::kLessOrEqual, "p", &oslo, true},      {F::kGreater, "p", &rome, true},
      {F::kIsEmpty, "", nullptr, true},         {F::kIsEmpty, "", &empty, true},
      {F::kIsNotEmpty, "", &oslo, true},        {F::kNone, "", &oslo, true},
  };
  for (const Case& c : cases) {
    filter.ConditionSet(c.condition, c.operand);
    EXPECT_EQ(filter.Matches(c.cell), c.match) << c.condition << " " << c.operand;
  }
  filter.FilterClear();
  EXPECT_FALSE(filter.IsFilterActive());
  // A copy carries the filter; the header's text goes with it.
  filter.TextSet("City");
  filter.ConditionSet(F::kContains, "o");
  std::unique_ptr<CExtGridCell> copy(filter.Clone());
  auto* header = dynamic_cast<CExtGridCellHeaderFilter*>(copy.get());
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(header->ConditionGet(), F::kContains);
  EXPECT_EQ(Text(*header), "City");
  EXPECT_TRUE(header->IsKindOf(&CExtGridCellHeader::kClass));
}

TEST(PictureCell, LayoutsPlaceThePictureInTheBox) {
  qmk::toolkit::bitmap::CExtBitmap picture;
  ASSERT_TRUE(picture.Create(40, 20, 32));
  CExtGridCellPictureRef cell;
  const PixelRect box{10, 10, 110, 110};
  EXPECT_TRUE(cell.PlaceIn(box).IsEmpty());
  cell.PictureRefSet(&picture);
  using P = CExtGridCellPictureBase;
  struct Case { P::Layout layout; PixelRect box; PixelRect placed; };
  for (const Case& c : {Case{P::kCenter, box, {40, 50, 80, 70}}, Case{P::kStretch, box, box},
                        Case{P::kStretchKeepRatio, box, {10, 35, 110, 85}}, Case{P::kTile, box, {10, 10, 50, 30}},
                        Case{P::kCenter, {0, 0, 20, 10}, {0, 0, 20, 10}},
                        Case{P::kStretchKeepRatio, {0, 0, 10, 100}, {0, 47, 10, 52}},
                        Case{P::kTile, {0, 0, 30, 5}, {0, 0, 30, 5}}}) {
    cell.LayoutSet(c.layout);
    EXPECT_EQ(cell.PlaceIn(c.box), c.placed) << c.layout;
  }
}

TEST(PictureCell, OwnedCopiesAndSortsByArea) {
  qmk::toolkit::bitmap::CExtBitmap small, large;
  ASSERT_TRUE(small.Create(2, 2, 32));
  ASSERT_TRUE(large.Create(8, 8, 32));
  CExtGridCellPicture a, b, none;
  ASSERT_TRUE(a.PictureSet(&small));
  ASSERT_TRUE(b.PictureSet(&large));
  EXPECT_NE(a.PictureGet(), &small);  // a copy, not the caller's picture
  EXPECT_LT(a.Compare(b), 0);
  EXPECT_LT(none.Compare(a), 0);
  CExtGridCellPictureRef ref;
  ref.PictureRefSet(&large);
  EXPECT_EQ(ref.Compare(b), 0);
  CExtGridCellPicture fromRef;
  fromRef.Assign(ref);
  ASSERT_NE(fromRef.PictureGet(), nullptr);
  EXPECT_EQ(fromRef.PictureGet()->Width(), 8);
  EXPECT_FALSE(fromRef.IsEmpty());
  fromRef.SetEmpty();
  EXPECT_EQ(fromRef.PictureGet(), nullptr);
  CExtGridCellString text;
  text.TextSet("x");
  fromRef.Assign(text);
  EXPECT_TRUE(fromRef.IsEmpty());
}

}  // namespace
