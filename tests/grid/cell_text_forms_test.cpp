// cell_text_forms_test.cpp: text in and out of the cells with a written form of their own, one
// table per class: what a text stores, what the cell then shows, and what it refuses.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "grid/archive_bytes.h"
#include "toolkit/grid/cell_duration.h"
#include "toolkit/grid/cell_font.h"
#include "toolkit/grid/cell_hotkey.h"
#include "toolkit/grid/cell_ip_address.h"
#include "toolkit/grid/cell_ll.h"
#include "toolkit/grid/cell_number_forms.h"
#include "toolkit/grid/cell_object_size.h"
#include "toolkit/grid/cell_path.h"
#include "toolkit/grid/cell_updown.h"

using namespace qmk::toolkit::grid;
using namespace qmk::platform;
using namespace grid_test;

namespace {

// One row: the text typed, whether the cell takes it, and what it shows afterwards. A refused
// text is typed over `before`, which must stay.
struct Row {
  const char* in;
  bool ok;
  const char* shown;
};

template <class CELL>
void CheckRows(const char* before, std::initializer_list<Row> rows, void (*setup)(CELL&) = nullptr) {
  for (const Row& r : rows) {
    CELL cell;
    if (setup) setup(cell);
    cell.TextSet(before);
    const std::string old = Text(cell);
    EXPECT_EQ(cell.OnParseText(r.in) == S_OK, r.ok) << r.in;
    cell.TextSet(r.in);
    EXPECT_EQ(Text(cell), r.ok ? std::string(r.shown) : old) << r.in;
  }
}

TEST(FractionCell, ShowsTheNearestFractionOfItsDigits) {
  struct Case { double value; int digits; int32_t fixed; const char* shown; };
  for (const Case& c : {Case{2.375, 1, 0, "2 3/8"}, Case{-0.5, 1, 0, "-1/2"}, Case{0, 1, 0, "0"},
                        Case{3, 1, 0, "3"}, Case{0.333333, 1, 0, "1/3"}, Case{3.14159265, 1, 0, "3 1/7"},
                        Case{3.14159265, 3, 0, "3 16/113"}, Case{0.9999, 1, 0, "1"}, Case{-1.9999, 2, 0, "-2"},
                        Case{0.5, 1, 8, "4/8"}, Case{0.3, 1, 4, "1/4"}, Case{0.99, 1, 4, "1"},
                        Case{0.01, 1, 0, "0"}, Case{1e-300, 4, 0, "0"}, Case{1e16, 1, 0, "10000000000000000"}}) {
    CExtGridCellFraction cell;
    ASSERT_TRUE(cell.DenominatorDigitsSet(c.digits));
    ASSERT_TRUE(cell.FixedDenominatorSet(c.fixed));
    cell.VariantSet(Variant::R8(c.value));
    EXPECT_EQ(Text(cell), c.shown) << c.value << " " << c.digits << " " << c.fixed;
  }
}

TEST(FractionCell, ReadsFractionsAndPlainNumbers) {
  CheckRows<CExtGridCellFraction>("7", {
      {"2 3/8", true, "2 3/8"}, {"-1 1/2", true, "-1 1/2"}, {"+3/4", true, "3/4"}, {"6/4", true, "1 1/2"},
      {"0.25", true, "1/4"}, {"+", true, "0"}, {"-", true, "0"}, {" 5 ", true, "5"},
      {"1/0", false, ""}, {"1 2", false, ""}, {"a/b", false, ""}, {"1 -2/3", false, ""}, {"", false, ""},
      {"1/2/3", false, ""}});
  CExtGridCellFraction cell;
  EXPECT_FALSE(cell.DenominatorDigitsSet(0));
  EXPECT_FALSE(cell.DenominatorDigitsSet(5));
  EXPECT_FALSE(cell.FixedDenominatorSet(1));
  EXPECT_FALSE(cell.FixedDenominatorSet(10001));
}

TEST(ScientificCell, MantissaDecimalsAndTwoExponentDigits) {
  CheckRows<CExtGridCellScientific>("1", {
      {"12345", true, "1.23E+04"}, {"-0.000123", true, "-1.23E-04"}, {"0", true, "0.00E+00"},
      {"1.5E+300", true, "1.50E+300"}, {"+", true, "0.00E+00"}, {"abc", false, ""}, {"1e", false, ""}});
  CExtGridCellScientific cell;
  ASSERT_TRUE(cell.DecimalsSet(0));
  cell.TextSet("98765");
  EXPECT_EQ(Text(cell), "1E+05");
  EXPECT_FALSE(cell.DecimalsSet(16));
}

TEST(ObjectSizeCell, UnitsCutToThreeDigits) {
  struct Case { int64_t bytes; uint32_t flags; const char* shown; };
  for (const Case& c : {Case{0, 0, "0 bytes"}, Case{1, 0, "1 byte"}, Case{1023, 0, "1,023 bytes"},
                        Case{1024, 0, "1.00 KB"}, Case{1536, 0, "1.50 KB"}, Case{2047, 0, "1.99 KB"},
                        Case{1048575, 0, "1023 KB"}, Case{16672358, 0, "15.8 MB"},
                        Case{int64_t{1} << 40, 0, "1.00 TB"}, Case{INT64_MAX, 0, "7.99 EB"},
                        Case{1536, CExtGridCellObjectSize::kShowBytes, "1,536 bytes"}}) {
    EXPECT_EQ(CExtGridCellObjectSize::Format(c.bytes, c.flags), c.shown) << c.bytes;
  }
}

TEST(ObjectSizeCell, ReadsNumbersWithUnits) {
  CheckRows<CExtGridCellObjectSize>("5", {
      {"1.5 KB", true, "1.50 KB"}, {"2mb", true, "2.00 MB"}, {"100 bytes", true, "100 bytes"},
      {"1 B", true, "1 byte"}, {"3", true, "3 bytes"}, {"0.5 k", true, "512 bytes"},
      {"-1", false, ""}, {"8 EB", false, ""}, {"1 parsec", false, ""}, {"KB", false, ""}, {"", false, ""}});
  CExtGridCellObjectSize cell;
  EXPECT_EQ(cell.OnParseText("-1"), DISP_E_OVERFLOW);
  EXPECT_EQ(cell.OnParseText("x"), DISP_E_TYPEMISMATCH);
}

TEST(DurationCell, ClockAndDays) {
  struct Case { int64_t seconds; const char* shown; };
  for (const Case& c : {Case{0, "00:00:00"}, Case{3723, "01:02:03"}, Case{86400, "1 day 00:00:00"},
                        Case{-(2 * 86400 + 61), "-2 days 00:01:01"}, Case{CExtGridCellDuration::kMaxSeconds, "99999 days 23:59:59"}}) {
    EXPECT_EQ(CExtGridCellDuration::Format(c.seconds), c.shown) << c.seconds;
  }
}

TEST(DurationCell, ReadsClocksUnitsAndSeconds) {
  CheckRows<CExtGridCellDuration>("10", {
      {"1:30", true, "01:30:00"}, {"36:00:00", true, "1 day 12:00:00"}, {"2 days 01:00:00", true, "2 days 01:00:00"},
      {"1d 2:03:04", true, "1 day 02:03:04"}, {"1d 2h 30m", true, "1 day 02:30:00"}, {"90 min", true, "01:30:00"},
      {"45 seconds", true, "00:00:45"}, {"-5", true, "-00:00:05"}, {"1h, 5s", true, "01:00:05"},
      {"1:60", false, ""}, {"1:00:60", false, ""}, {"1 day 24:00", false, ""}, {"5 fortnights", false, ""},
      {"1h 5", false, ""}, {"100000 days", false, ""}, {"", false, ""}, {"-", false, ""}, {"1::2", false, ""}});
  CExtGridCellDuration cell;
  EXPECT_EQ(cell.OnParseText("100000 d"), DISP_E_OVERFLOW);
}

TEST(LLCell, DegreesMinutesSecondsWithHemisphere) {
  struct Case { double lat, lon; const char* shown; };
  for (const Case& c : {Case{51.507222, -0.1275, "51\xC2\xB0" "30'26\"N, 0\xC2\xB0" "07'39\"W"},
                        Case{0, 0, "0\xC2\xB0" "00'00\"N, 0\xC2\xB0" "00'00\"E"},
                        // 59.9 seconds round up and carry into the minute and the degree.
                        Case{-33.9998889, 180, "34\xC2\xB0" "00'00\"S, 180\xC2\xB0" "00'00\"E"},
                        Case{10.9999999, -179.9999999, "11\xC2\xB0" "00'00\"N, 180\xC2\xB0" "00'00\"W"}}) {
    CExtGridCellLL cell;
    ASSERT_TRUE(cell.LatLongSet(c.lat, c.lon));
    EXPECT_EQ(Text(cell), c.shown) << c.lat << " " << c.lon;
  }
}

TEST(LLCell, ReadsManyWritings) {
  CheckRows<CExtGridCellLL>("1 N, 1 E", {
      {"51 30 26 N, 0 7 39 W", true, "51\xC2\xB0" "30'26\"N, 0\xC2\xB0" "07'39\"W"},
      {"51d30m N, 2.5 E", true, "51\xC2\xB0" "30'00\"N, 2\xC2\xB0" "30'00\"E"},
      {"-12.25, +100.5", true, "12\xC2\xB0" "15'00\"S, 100\xC2\xB0" "30'00\"E"},
      {"51\xC2\xB0" "30'26\"N, 0\xC2\xB0" "07'39\"W", true, "51\xC2\xB0" "30'26\"N, 0\xC2\xB0" "07'39\"W"},
      {"91 N, 0 E", false, ""}, {"10 E, 10 N", false, ""}, {"10 N", false, ""}, {"10 60 N, 1 E", false, ""},
      {"-10 S, 1 E", false, ""}, {"10.5 30 N, 1 E", false, ""}, {"1 N, 2 E, 3 E", false, ""}, {"x, y", false, ""},
      {"1 N N, 1 E", false, ""}, {", 1 E", false, ""}});
  CExtGridCellLL latitudeOnly;
  ASSERT_TRUE(latitudeOnly.PartsSet(CExtGridCellLL::kLatitude));
  latitudeOnly.TextSet("45 S");
  EXPECT_EQ(Text(latitudeOnly), "45\xC2\xB0" "00'00\"S");
  EXPECT_NE(latitudeOnly.OnParseText("45 S, 1 E"), S_OK);
  EXPECT_FALSE(latitudeOnly.PartsSet(0x4));
}

TEST(FontCell, FaceSizeWeightAndStyles) {
  CheckRows<CExtGridCellFont>("Sans, 9", {
      {"DejaVu Sans, 12pt, Bold, Italic", true, "DejaVu Sans, 12pt, Bold, Italic"},
      {"Serif,10", true, "Serif, 10pt"},
      {" Mono , 8 pt , strikeout, underline, semibold", true, "Mono, 8pt, Semi Bold, Underline, Strikeout"},
      {"Serif, 10, 450", true, "Serif, 10pt, 450"}, {"Serif, 10, Regular", true, "Serif, 10pt"},
      {"Serif", false, ""}, {", 10", false, ""}, {"Serif, 0", false, ""}, {"Serif, 1639", false, ""},
      {"Serif, 10, Wavy", false, ""}, {"Serif, 10, 1001", false, ""}});
}

TEST(HotKeyCell, ModifiersInOrderAndKeyNames) {
  CheckRows<CExtGridCellHotKey>("F2", {
      {"shift + ctrl + a", true, "Ctrl+Shift+A"}, {"Alt+F12", true, "Alt+F12"}, {"Control+Escape", true, "Ctrl+Esc"},
      {"pgup", true, "Page Up"}, {"Ctrl+Num +", true, "Ctrl+Num +"}, {"num 7", true, "Num 7"},
      {"Ctrl+0x07", true, "Ctrl+0x07"}, {"ctrl+,", true, "Ctrl+,"}, {"", true, ""},
      {"Ctrl", false, ""}, {"Ctrl+", false, ""}, {"Ctrl++", false, ""}, {"Hyper+A", false, ""}, {"F25", false, ""},
      {"0x00", false, ""}, {"AB", false, ""}});
  CExtGridCellHotKey cell;
  ASSERT_TRUE(cell.HotKeySet(0x2E, CExtGridCellHotKey::kExtended | CExtGridCellHotKey::kAlt));
  EXPECT_EQ(Text(cell), "Alt+Delete");
  // The extended bit has no text: typing the same key keeps it, another key drops it.
  cell.TextSet("Ctrl+Del");
  EXPECT_EQ(cell.ModifiersGet(), CExtGridCellHotKey::kControl | CExtGridCellHotKey::kExtended);
  cell.TextSet("Ctrl+Insert");
  EXPECT_EQ(cell.ModifiersGet(), CExtGridCellHotKey::kControl);
  EXPECT_FALSE(cell.HotKeySet(0x41, 0x10));
}

TEST(IPAddressCell, FourDecimalFields) {
  CheckRows<CExtGridCellIPAddress>("1.2.3.4", {
      {"192.168.0.1", true, "192.168.0.1"}, {" 010.0.0.1 ", true, "10.0.0.1"}, {"255.255.255.255", true, "255.255.255.255"},
      {"", true, ""}, {"256.0.0.1", false, ""}, {"1.2.3", false, ""}, {"1.2.3.4.5", false, ""}, {"1..2.3", false, ""},
      {"0001.2.3.4", false, ""}, {"a.b.c.d", false, ""}, {"1.2.3.-4", false, ""}});
  CExtGridCellIPAddress cell;
  cell.TextSet("192.168.1.20");
  EXPECT_EQ(cell.AddressGet(), 0xC0A80114u);
  EXPECT_EQ(cell.FieldGet(3), 20);
}

TEST(FontWeightCell, NamesForTheHundreds) {
  CheckRows<CExtGridCellUpDownFontWeight>("Normal", {
      {"bold", true, "Bold"}, {"Extra-Bold", true, "Extra Bold"}, {"demi bold", true, "Semi Bold"},
      {"550", true, "550"}, {"0", true, "Default"}, {"1000", true, "1000"}, {"Black", true, "Heavy"},
      {"1001", false, ""}, {"-1", false, ""}, {"Chunky", false, ""}});
}

TEST(FileCell, PathPartsAndFilter) {
  CExtGridCellFile cell;
  cell.FilterSet("Text (*.txt;*.log)|*.txt; *.log|All files|*.*||");
  EXPECT_EQ(cell.FilterPatterns(), (std::vector<std::string>{"*.txt", "*.log", "*.*"}));
  cell.TextSet("  C:\\data\\scores.v2.TXT ");
  EXPECT_EQ(Text(cell), "C:\\data\\scores.v2.TXT");
  EXPECT_EQ(cell.FileNameGet(), "scores.v2.TXT");
  EXPECT_EQ(cell.FolderGet(), "C:\\data");
  EXPECT_EQ(cell.ExtensionGet(), "TXT");
  cell.DefaultExtSet("txt");
  cell.TextSet("/home/u/.profile");
  EXPECT_EQ(cell.ExtensionGet(), "");  // a leading dot hides a file; it is no extension
  EXPECT_EQ(cell.PathWithDefaultExt(), "/home/u/.profile.txt");
  EXPECT_NE(cell.OnParseText("/home/u/"), S_OK);
  cell.TextSet("/home/u/");
  EXPECT_EQ(Text(cell), "/home/u/.profile");
}

TEST(FileCell, WildcardsAndAnEnforcedFilter) {
  struct Case { const char* pattern; const char* name; bool match; };
  for (const Case& c : {Case{"*.bmp", "A.BMP", true}, Case{"*.bmp", "a.bmpx", false}, Case{"a?c", "abc", true},
                        Case{"a?c", "ac", false}, Case{"*.*", "README", true}, Case{"*a*b", "xaxxb", true},
                        Case{"*a*b", "xaxxbc", false}, Case{"*", "", true}, Case{"", "", true}, Case{"", "x", false}}) {
    EXPECT_EQ(WildcardMatch(c.pattern, c.name), c.match) << c.pattern << " " << c.name;
  }
  CheckRows<CExtGridCellFileImage>("/p/a.bmp", {
      {"/p/b.DIB", true, "/p/b.DIB"}, {"c.rle", true, "c.rle"}, {"/p/notes.txt", false, ""}, {"/p/", false, ""}});
}

TEST(FolderCell, DropsTrailingSeparatorsButKeepsRoots) {
  CheckRows<CExtGridCellFolder>("/x", {
      {"/home/u///", true, "/home/u"}, {"/", true, "/"}, {"C:\\", true, "C:\\"}, {"C:\\Data\\", true, "C:\\Data"},
      {"rel/dir/", true, "rel/dir"}});
  CExtGridCellFolder cell;
  cell.TextSet("C:\\Data");
  EXPECT_EQ(cell.Join("a.txt"), "C:\\Data\\a.txt");
  cell.TextSet("/");
  EXPECT_EQ(cell.Join("etc"), "/etc");
}

}  // namespace
