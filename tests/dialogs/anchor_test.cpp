// anchor_test.cpp: anchors, the minimum size and the anchor map's archive form.
#include <gtest/gtest.h>

#include "dialogs/dialog_fixture.h"
#include "platform/archive.h"
#include "platform/ui/dialog.h"
#include "toolkit/dialogs/anchor_map.h"
#include "toolkit/dialogs/resizable_dialog.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using toolkit::RDI_t;

// ---- The arithmetic -------------------------------------------------------------------------
struct PlaceCase {
  const char* name;
  Rect control;
  int w0, h0;     // client size when anchored
  int pct[4];     // left, top, right, bottom percentages
  int w1, h1;     // client size of the layout
  Rect expected;
};

// Offsets truncate when anchored and the layout rounds, so a 50% anchor in an odd width moves
// by one pixel on the first layout: kept on purpose.
const PlaceCase kPlaceCases[] = {
    {"stretch keeps left edge and right margin", {10, 5, 90, 17}, 100, 50, {0, 0, 100, 0}, 160, 50,
     {10, 5, 150, 17}},
    {"hang on the right keeps distance and size", {70, 5, 90, 19}, 100, 50, {100, 0, 100, 0}, 130,
     80, {100, 5, 120, 19}},
    {"bottom right follows both axes", {70, 40, 90, 48}, 100, 50, {100, 100, 100, 100}, 120, 70,
     {90, 60, 110, 68}},
    {"same size moves nothing", {10, 10, 30, 30}, 101, 51, {50, 50, 50, 50}, 101, 51,
     {11, 11, 31, 31}},
    {"half of an odd width rounds up", {10, 0, 20, 10}, 100, 10, {50, 0, 50, 0}, 101, 10,
     {11, 0, 21, 10}},
};

class Place : public ::testing::TestWithParam<PlaceCase> {};

TEST_P(Place, ControlLandsWhereItsAnchorsSay) {
  const PlaceCase& c = GetParam();
  const RDI_t rdi =
      toolkit::MakeAnchor(c.control, c.w0, c.h0, c.pct[0], c.pct[1], c.pct[2], c.pct[3]);
  EXPECT_EQ(toolkit::PlaceAnchor(rdi, c.w1, c.h1), c.expected) << c.name;
}
INSTANTIATE_TEST_SUITE_P(Anchors, Place, ::testing::ValuesIn(kPlaceCases));

TEST(MulDiv, RoundsHalfAwayFromZeroAndRefusesZero) {
  const struct {
    int v, n, d, want;
  } cases[] = {{5, 1, 2, 3}, {-5, 1, 2, -3}, {7, 50, 100, 4}, {1, 1, 3, 0},
               {2, 1, 3, 1}, {3, 1, 0, -1}, {5, -1, 2, -3}, {0x7FFFFFFF, 2, 2, 0x7FFFFFFF}};
  for (const auto& c : cases) EXPECT_EQ(toolkit::MulDiv(c.v, c.n, c.d), c.want) << c.v << "/" << c.d;
}

TEST(AnchorArchive, RoundTripsAndRefusesADamagedCount) {
  toolkit::AnchorMap map;
  map[reinterpret_cast<HWND>(0x10001)] = RDI_t{0, 0, 8, 8, 100, 0, -10, 20};
  map[reinterpret_cast<HWND>(0x10002)] = RDI_t{100, 100, -60, -30, 100, 100, -4, -4};
  auto out = platform::Archive::ToMemory();
  ASSERT_TRUE(toolkit::SaveAnchorMap(out, map));
  const std::vector<uint8_t> bytes = out.TakeStored();
  EXPECT_EQ(bytes.size(), 4u + 2 * 40);

  auto in = platform::Archive::FromMemory(bytes.data(), bytes.size());
  toolkit::AnchorMap back;
  ASSERT_TRUE(toolkit::LoadAnchorMap(in, back));
  EXPECT_EQ(back, map);

  std::vector<uint8_t> damaged = bytes;
  damaged[0] = 3;  // one record more than there is
  auto bad = platform::Archive::FromMemory(damaged.data(), damaged.size());
  toolkit::AnchorMap untouched = map;
  EXPECT_FALSE(toolkit::LoadAnchorMap(bad, untouched));
  EXPECT_EQ(untouched, map);
}

// ---- Through the window system --------------------------------------------------------------
class AnchoredDialog : public toolkit::CExtResizableDialog {
 public:
  AnchoredDialog() : CExtResizableDialog(kAnchorTemplate) {}
  bool anchored_edit = false, anchored_button = false;

 protected:
  bool OnInitDialog() override {
    anchored_edit = AddAnchor(101, toolkit::ANCHOR_TOP_LEFT, toolkit::ANCHOR_TOP_RIGHT);
    anchored_button = AddAnchor(102, toolkit::ANCHOR_TOP_RIGHT, {-1, -1});
    return CExtResizableDialog::OnInitDialog();
  }
};

class Anchors : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    ASSERT_TRUE(dlg_.Create(kAnchorTemplate, nullptr));
    hwnd_ = dlg_.GetSafeHwnd();
    ShowWindow(hwnd_, SW_SHOW);
    GetWindowRect(hwnd_, &created_);
    GetClientRect(hwnd_, &client_);
    edit_ = ChildRect(GetDlgItem(hwnd_, 101));
    button_ = ChildRect(GetDlgItem(hwnd_, 102));
  }
  void Resize(int dx, int dy) {
    SetWindowPos(hwnd_, nullptr, 0, 0, created_.Width() + dx, created_.Height() + dy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }

  AnchoredDialog dlg_;
  HWND hwnd_ = nullptr;
  Rect created_, client_, edit_, button_;
};

TEST_F(Anchors, WideningStretchesTheEditAndCarriesTheButton) {
  ASSERT_TRUE(dlg_.anchored_edit);
  ASSERT_TRUE(dlg_.anchored_button);
  Resize(57, 31);
  const Rect edit = ChildRect(GetDlgItem(hwnd_, 101));
  const Rect button = ChildRect(GetDlgItem(hwnd_, 102));
  EXPECT_EQ(edit.left, edit_.left);
  EXPECT_EQ(edit.top, edit_.top);
  EXPECT_EQ(edit.Width(), edit_.Width() + 57);
  EXPECT_EQ(edit.Height(), edit_.Height());
  EXPECT_EQ(button.left, button_.left + 57);
  EXPECT_EQ(button.top, button_.top);
  EXPECT_EQ(button.Width(), button_.Width());
}

TEST_F(Anchors, ShrinkingBelowTheCreationSizeIsRefused) {
  Resize(-40, -20);
  Rect now;
  GetWindowRect(hwnd_, &now);
  EXPECT_EQ(now.Width(), created_.Width());
  EXPECT_EQ(now.Height(), created_.Height());
  EXPECT_EQ(ChildRect(GetDlgItem(hwnd_, 102)), button_);
  EXPECT_EQ(dlg_.m_sizeMinTrack.cx, created_.Width());
  EXPECT_TRUE(dlg_.m_nLimits & toolkit::kLimitMinTrack);
}

TEST_F(Anchors, AMinimisedSizeKeepsTheLayout) {
  SendMessage(hwnd_, WM_SIZE, SIZE_MINIMIZED, MAKELPARAM(10, 10));
  EXPECT_EQ(ChildRect(GetDlgItem(hwnd_, 101)), edit_);
  EXPECT_EQ(ChildRect(GetDlgItem(hwnd_, 102)), button_);
}

TEST_F(Anchors, MaximumTrackSizeHoldsWhenSet) {
  dlg_.m_sizeMaxTrack = {created_.Width() + 20, created_.Height() + 20};
  dlg_.m_nLimits |= toolkit::kLimitMaxTrack;
  Resize(100, 100);
  Rect now;
  GetWindowRect(hwnd_, &now);
  EXPECT_EQ(now.Width(), created_.Width() + 20);
  EXPECT_EQ(ChildRect(GetDlgItem(hwnd_, 102)).left, button_.left + 20);
}

TEST_F(Anchors, AControlOfAnotherWindowIsRefused) {
  AnchoredDialog other;
  ASSERT_TRUE(other.Create(kAnchorTemplate, nullptr));
  const size_t before = dlg_.m_mapRDI.size();
  EXPECT_FALSE(dlg_.AddAnchor(GetDlgItem(other.GetSafeHwnd(), 101), 0, 0, 100, 0));
  EXPECT_FALSE(dlg_.AddAnchor(GetDlgItem(hwnd_, 101), -1, -1, 100, 0));
  EXPECT_FALSE(dlg_.AddAnchor(4242, toolkit::ANCHOR_TOP_LEFT, {-1, -1}));
  EXPECT_EQ(dlg_.m_mapRDI.size(), before);
}

TEST_F(Anchors, AVanishedControlLeavesTheMapAtTheNextLayout) {
  DestroyWindow(GetDlgItem(hwnd_, 102));
  Resize(10, 0);
  EXPECT_EQ(dlg_.m_mapRDI.size(), 1u);
  EXPECT_EQ(ChildRect(GetDlgItem(hwnd_, 101)).Width(), edit_.Width() + 10);
}

TEST_F(Anchors, TheDialogHasAThemedGripperInItsCorner) {
  const HWND grip = GetDlgItem(hwnd_, toolkit::kGripperControlId);
  ASSERT_NE(grip, nullptr);
  EXPECT_TRUE(IsWindowVisible(grip));
  Resize(30, 12);
  Rect client;
  GetClientRect(hwnd_, &client);
  const Rect r = ChildRect(grip);
  EXPECT_EQ(r.right, client.right);
  EXPECT_EQ(r.bottom, client.bottom);
  EXPECT_FALSE(dlg_.ShowSizeGrip(false));
  EXPECT_FALSE(IsWindowVisible(grip));
}

}  // namespace
}  // namespace qmk::testing
