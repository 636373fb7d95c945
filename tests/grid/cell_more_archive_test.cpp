// cell_more_archive_test.cpp: the archive forms of the file, list, number form, up-down, span,
// place, font, hot key, address, picture and filter header cells: hand-built bytes for one of
// each family, a round trip of every registered class, hostile counts and values, and a
// provider that stores them and reads them back.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>

#include "grid/archive_bytes.h"
#include "toolkit/bitmap/bitmap.h"
#include "toolkit/grid/cell_combo_lists.h"
#include "toolkit/grid/cell_duration.h"
#include "toolkit/grid/cell_font.h"
#include "toolkit/grid/cell_header_filter.h"
#include "toolkit/grid/cell_hotkey.h"
#include "toolkit/grid/cell_ip_address.h"
#include "toolkit/grid/cell_ll.h"
#include "toolkit/grid/cell_number_forms.h"
#include "toolkit/grid/cell_object_size.h"
#include "toolkit/grid/cell_path.h"
#include "toolkit/grid/cell_picture.h"
#include "toolkit/grid/cell_updown.h"
#include "toolkit/grid/provider_sparse.h"

using namespace qmk::toolkit::grid;
using namespace qmk::platform;
using namespace grid_test;

namespace {

// Stores `cell`, compares with `want`, loads `want` into a fresh cell of the class and stores
// that again: the same bytes.
template <class CELL>
void ExpectForm(CELL& cell, const Bytes& want) {
  EXPECT_EQ(Store(cell), want);
  CELL back;
  ASSERT_TRUE(Load(back, want));
  EXPECT_EQ(Store(back), want);
  EXPECT_EQ(Text(back), Text(cell));
}

TEST(MoreCellArchive, FileByteForByte) {
  CExtGridCellFile cell;
  cell.TextSet("a.txt");
  cell.FilterSet("T|*.txt||");
  cell.DefaultExtSet("txt");
  cell.FileFlagsSet(CExtGridCellFile::kFilterEnforced);
  Bytes want = DataCellWords();
  PutString(want, "a.txt");
  PutString(want, "T|*.txt||");
  PutString(want, "txt");
  Put32(want, 1);
  ExpectForm(cell, want);
}

TEST(MoreCellArchive, CheckListByteForByte) {
  CExtGridCellCheckListComboBox cell;
  cell.ItemsReplace({"a", "b"});
  ASSERT_TRUE(cell.CheckSet(1, true));
  Bytes want = DataCellWords();
  PutString(want, "b");
  Put32(want, 2);
  PutString(want, "a");
  PutString(want, "b");
  Put32(want, 2);
  want.push_back(0);
  want.push_back(1);
  ExpectForm(cell, want);
}

TEST(MoreCellArchive, FontFaceNameHoldsOnlyTheName) {
  CExtGridCellFontFaceName cell;
  cell.ItemsSet({"Serif", "Sans"});
  cell.TextSet("sans");
  EXPECT_EQ(Text(cell), "Sans");
  Bytes want = DataCellWords();
  PutString(want, "Sans");
  ExpectForm(cell, want);
}

TEST(MoreCellArchive, FractionAndScientificByteForByte) {
  CExtGridCellFraction fraction;
  fraction.VariantSet(Variant::R8(2.5));
  ASSERT_TRUE(fraction.DenominatorDigitsSet(2));
  ASSERT_TRUE(fraction.FixedDenominatorSet(16));
  Bytes want = DataCellWords();
  Put16(want, VT_R8);
  PutReal(want, 2.5);
  Put32(want, 2);
  Put32(want, 16);
  ExpectForm(fraction, want);

  CExtGridCellScientific scientific;
  scientific.VariantSet(Variant::R8(-1e-5));
  ASSERT_TRUE(scientific.DecimalsSet(4));
  want = DataCellWords();
  Put16(want, VT_R8);
  PutReal(want, -1e-5);
  Put32(want, 4);
  ExpectForm(scientific, want);
}

TEST(MoreCellArchive, ObjectSizeByteForByte) {
  CExtGridCellObjectSize cell;
  ASSERT_TRUE(cell.SizeSet(int64_t{5} << 33));
  cell.SizeFlagsSet(CExtGridCellObjectSize::kShowBytes);
  Bytes want = DataCellWords();
  Put16(want, VT_I8);
  Put64(want, uint64_t{5} << 33);
  Put32(want, 1);
  ExpectForm(cell, want);
}

TEST(MoreCellArchive, UpDownFamilyByteForByte) {
  CExtGridCellUpDownColorPart cell;
  cell.PartSet(CExtGridCellUpDownColorPart::kBlue);
  cell.ReadFrom(0x00C08040);
  Bytes want = DataCellWords();
  Put16(want, VT_I4);
  Put32(want, 0xC0);
  PutReal(want, 0);
  PutReal(want, 255);
  PutReal(want, 1);
  Put32(want, 2);
  ExpectForm(cell, want);
}

TEST(MoreCellArchive, DurationLLFontHotKeyAddressByteForByte) {
  CExtGridCellDuration duration;
  ASSERT_TRUE(duration.SecondsSet(-90061));
  ASSERT_TRUE(duration.StepSet(60));
  Bytes want = DataCellWords();
  Put64(want, static_cast<uint64_t>(int64_t{-90061}));
  Put32(want, 60);
  ExpectForm(duration, want);

  CExtGridCellLL place;
  ASSERT_TRUE(place.LatLongSet(-12.5, 100.25));
  want = DataCellWords();
  PutReal(want, -12.5);
  PutReal(want, 100.25);
  Put32(want, 3);
  ExpectForm(place, want);

  CExtGridCellFont font;
  font.TextSet("Serif, 11, Bold, Italic");
  want = DataCellWords();
  PutString(want, "Serif");
  Put32(want, 11);
  Put32(want, 700);
  Put32(want, CExtGridCellFont::kItalic);
  ExpectForm(font, want);

  CExtGridCellHotKey key;
  key.TextSet("Ctrl+Alt+K");
  want = DataCellWords();
  Put32(want, 0x064B);
  ExpectForm(key, want);

  CExtGridCellIPAddress address;
  address.TextSet("10.1.2.3");
  want = DataCellWords();
  Put32(want, 0x0A010203);
  ExpectForm(address, want);
}

TEST(MoreCellArchive, PictureByteForByte) {
  CExtGridCellPictureRef ref;
  qmk::toolkit::bitmap::CExtBitmap picture;
  ASSERT_TRUE(picture.Create(4, 2, 32));
  ref.PictureRefSet(&picture);
  ref.LayoutSet(CExtGridCellPictureBase::kTile);
  Bytes want = DataCellWords();
  Put32(want, 3);
  EXPECT_EQ(Store(ref), want);
  CExtGridCellPictureRef back;
  ASSERT_TRUE(Load(back, want));
  EXPECT_EQ(back.PictureGet(), nullptr);  // a reference does not travel
  EXPECT_EQ(back.LayoutGet(), CExtGridCellPictureBase::kTile);

  // The owned picture follows in the bitmap engine's own form.
  CExtGridCellPicture owned;
  ASSERT_TRUE(owned.PictureSet(&picture));
  Bytes withPicture = DataCellWords();
  Put32(withPicture, 0);
  Append(withPicture, Store(picture));
  EXPECT_EQ(Store(owned), withPicture);
  CExtGridCellPicture loaded;
  ASSERT_TRUE(Load(loaded, withPicture));
  ASSERT_NE(loaded.PictureGet(), nullptr);
  EXPECT_EQ(loaded.PictureGet()->Width(), 4);
  EXPECT_EQ(loaded.PictureGet()->Height(), 2);
}

TEST(MoreCellArchive, HeaderFilterByteForByte) {
  CExtGridCellHeaderFilter cell;
  cell.TextSet("City");
  cell.ValuesSet({"Oslo", "Rome"});
  cell.ValueListOnSet(true);
  cell.ConditionSet(CExtGridCellHeaderFilter::kBeginsWith, "R");
  Bytes want = BaseWords(0x40000000, 0);
  PutString(want, "City");
  Put32(want, 1);
  Put32(want, 2);
  PutString(want, "Oslo");
  PutString(want, "Rome");
  Put32(want, CExtGridCellHeaderFilter::kBeginsWith);
  PutString(want, "R");
  ExpectForm(cell, want);
}

// A value that shows every class's form: the text each class is given before the round trip.
const std::map<std::string, const char*> kSampleText = {
    {"CExtGridCellFile", "/tmp/x.txt"},      {"CExtGridCellFileImage", "p.bmp"},
    {"CExtGridCellFolder", "/tmp/"},         {"CExtGridCellFraction", "1 1/2"},
    {"CExtGridCellScientific", "12345"},     {"CExtGridCellObjectSize", "3 MB"},
    {"CExtGridCellUpDownFontWeight", "Bold"}, {"CExtGridCellDuration", "1d 2h"},
    {"CExtGridCellLL", "10 N, 20 W"},        {"CExtGridCellFont", "Serif, 9, Italic"},
    {"CExtGridCellHotKey", "Shift+F3"},      {"CExtGridCellIPAddress", "1.2.3.4"},
};

TEST(MoreCellArchive, EveryRegisteredClassRoundTripsClonesAndAssigns) {
  for (const CellClass* c : CellClasses()) {
    std::unique_ptr<CExtGridCell> cell(c->CreateObject(nullptr));
    const auto sample = kSampleText.find(c->name);
    cell->TextSet(sample == kSampleText.end() ? "12" : sample->second);
    if (sample != kSampleText.end()) {
      EXPECT_FALSE(cell->IsEmpty()) << c->name;
    }
    cell->ModifyStyle(0x100);
    cell->SetItemData(77);
    const Bytes first = Store(*cell);
    std::unique_ptr<CExtGridCell> back(c->CreateObject(nullptr));
    ASSERT_TRUE(Load(*back, first)) << c->name;
    EXPECT_EQ(Store(*back), first) << c->name;
    EXPECT_EQ(Text(*back), Text(*cell)) << c->name;
    EXPECT_EQ(back->GetItemData(), 77u) << c->name;
    // Every short piece of the form fails to load.
    for (size_t cut : {size_t{0}, first.size() / 2, first.size() - 1}) {
      std::unique_ptr<CExtGridCell> part(c->CreateObject(nullptr));
      EXPECT_FALSE(Load(*part, Bytes(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(cut))))
          << c->name << " cut at " << cut;
    }
    std::unique_ptr<CExtGridCell> copy(cell->Clone());
    EXPECT_EQ(copy->GetRuntimeClass(), c) << c->name;
    EXPECT_EQ(copy->Compare(*cell, ~0u, ~0u), 0) << c->name;
    EXPECT_EQ(Store(*copy), first) << c->name;
    std::unique_ptr<CExtGridCell> assigned(c->CreateObject(nullptr));
    assigned->Assign(*cell);
    EXPECT_EQ(Store(*assigned), first) << c->name;
  }
}

TEST(MoreCellArchive, HostileCountsFailBeforeAllocating) {
  Bytes checks = DataCellWords();
  PutString(checks, "");
  Put32(checks, 0xFFFFFFF0u);  // items
  CExtGridCellCheckListComboBox list;
  EXPECT_FALSE(Load(list, checks));

  Bytes filter = BaseWords();
  PutString(filter, "H");
  Put32(filter, 1);
  Put32(filter, 0x7FFFFFFFu);  // values
  CExtGridCellHeaderFilter header;
  EXPECT_FALSE(Load(header, filter));
}

// Values that no cell of the class may hold fail the load, and the cell keeps its own.
TEST(MoreCellArchive, DamagedValuesFail) {
  using Make = std::function<void(Bytes&)>;
  struct Case {
    const char* what;
    std::function<std::unique_ptr<CExtGridCell>()> cell;
    Make tail;
  };
  const Case cases[] = {
      {"check count unlike item count", [] { return std::make_unique<CExtGridCellCheckListComboBox>(); },
       [](Bytes& b) { PutString(b, ""); Put32(b, 1); PutString(b, "a"); Put32(b, 2); b.push_back(1); b.push_back(0); }},
      {"fraction digits 9", [] { return std::make_unique<CExtGridCellFraction>(); },
       [](Bytes& b) { Put16(b, VT_R8); PutReal(b, 1); Put32(b, 9); Put32(b, 0); }},
      {"up-down range upside down", [] { return std::make_unique<CExtGridCellUpDown>(); },
       [](Bytes& b) { Put16(b, VT_I4); Put32(b, 1); PutReal(b, 5); PutReal(b, 1); PutReal(b, 1); }},
      {"up-down step 0", [] { return std::make_unique<CExtGridCellUpDown>(); },
       [](Bytes& b) { Put16(b, VT_I4); Put32(b, 1); PutReal(b, 0); PutReal(b, 1); PutReal(b, 0); }},
      {"rectangle side 4", [] { return std::make_unique<CExtGridCellUpDownRectPart>(); },
       [](Bytes& b) { Put16(b, VT_I4); Put32(b, 1); PutReal(b, 0); PutReal(b, 1); PutReal(b, 1); Put32(b, 4); }},
      {"span beyond the limit", [] { return std::make_unique<CExtGridCellDuration>(); },
       [](Bytes& b) { Put64(b, uint64_t{1} << 40); Put32(b, 1); }},
      {"latitude 91", [] { return std::make_unique<CExtGridCellLL>(); },
       [](Bytes& b) { PutReal(b, 91); PutReal(b, 0); Put32(b, 3); }},
      {"place shows nothing", [] { return std::make_unique<CExtGridCellLL>(); },
       [](Bytes& b) { PutReal(b, 1); PutReal(b, 0); Put32(b, 0); }},
      {"font of 0 points", [] { return std::make_unique<CExtGridCellFont>(); },
       [](Bytes& b) { PutString(b, "Serif"); Put32(b, 0); Put32(b, 400); Put32(b, 0); }},
      {"hot key high bits", [] { return std::make_unique<CExtGridCellHotKey>(); }, [](Bytes& b) { Put32(b, 0x10041); }},
      {"picture layout 7", [] { return std::make_unique<CExtGridCellPictureRef>(); }, [](Bytes& b) { Put32(b, 7); }},
  };
  for (const Case& c : cases) {
    Bytes bytes = DataCellWords();
    c.tail(bytes);
    auto cell = c.cell();
    EXPECT_FALSE(Load(*cell, bytes)) << c.what;
  }
  Bytes filter = BaseWords();
  PutString(filter, "H");
  Put32(filter, 0);
  Put32(filter, 0);
  Put32(filter, 99);  // no such condition
  PutString(filter, "");
  CExtGridCellHeaderFilter header;
  header.ConditionSet(CExtGridCellHeaderFilter::kContains, "x");
  EXPECT_FALSE(Load(header, filter));
  EXPECT_EQ(header.ConditionGet(), CExtGridCellHeaderFilter::kContains);
}

TEST(MoreCellArchive, AProviderStoresTheNewCellsAndReadsThemBack) {
  CExtGridDataProviderSparse grid;
  ASSERT_TRUE(grid.ColumnInsert(0, 4));
  ASSERT_TRUE(grid.RowInsert(0, 4));
  const CellClass* classes[] = {&CExtGridCellDuration::kClass, &CExtGridCellIPAddress::kClass,
                                &CExtGridCellFraction::kClass, &CExtGridCellHotKey::kClass,
                                &CExtGridCellLL::kClass,       &CExtGridCellUpDownFontWeight::kClass,
                                &CExtGridCellHeaderFilter::kClass, &CExtGridCellFolder::kClass};
  int i = 0;
  for (const CellClass* c : classes) {
    CExtGridCell* cell = grid.CellGet(i % 4, i / 4, c);
    ASSERT_NE(cell, nullptr) << c->name;
    const auto sample = kSampleText.find(c->name);
    cell->TextSet(sample == kSampleText.end() ? "H" : sample->second);
    ++i;
  }
  const Bytes bytes = Store(grid);
  CExtGridDataProviderSparse back;
  ASSERT_TRUE(Load(back, bytes));
  i = 0;
  for (const CellClass* c : classes) {
    CExtGridCell* mine = grid.CellGet(i % 4, i / 4);
    CExtGridCell* theirs = back.CellGet(i % 4, i / 4);
    ASSERT_NE(theirs, nullptr) << c->name;
    EXPECT_EQ(theirs->GetRuntimeClass(), c);
    EXPECT_EQ(Text(*theirs), Text(*mine)) << c->name;
    ++i;
  }
}

}  // namespace
