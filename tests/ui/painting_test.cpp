// painting_test.cpp: regions, invalidation and the paint cycle, clipping between windows,
// deferred positioning, printing, and dialog units.
#include <gmock/gmock.h>

#include "platform/ui/control_messages.h"
#include "platform/ui/paint.h"
#include "platform/ui/region.h"
#include "platform/ui/screen.h"
#include "ui/ui_fixture.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

TEST(RegionMath, AddSubtractAndIntersectKeepAreasRight) {
  struct Case {
    std::vector<Rect> add;
    std::vector<Rect> subtract;
    long long area;
    Rect bounds;
  };
  const Case cases[] = {
      {{{0, 0, 10, 10}, {0, 0, 10, 10}}, {}, 100, {0, 0, 10, 10}},     // same twice
      {{{0, 0, 10, 10}, {5, 5, 15, 15}}, {}, 175, {0, 0, 15, 15}},     // overlap counted once
      {{{0, 0, 10, 10}}, {{2, 2, 8, 8}}, 64, {0, 0, 10, 10}},          // a hole
      {{{0, 0, 10, 10}}, {{-5, -5, 20, 20}}, 0, {}},                   // all gone
      {{{0, 0, 10, 10}, {20, 0, 30, 10}}, {{5, 0, 25, 10}}, 100, {0, 0, 30, 10}},
      {{{0, 0, 0, 10}}, {}, 0, {}},                                    // empty adds nothing
  };
  for (const Case& c : cases) {
    Region r;
    for (const Rect& a : c.add) r.Add(a);
    for (const Rect& s : c.subtract) r.Subtract(s);
    EXPECT_EQ(r.Area(), c.area);
    EXPECT_EQ(r.Bounds(), c.bounds);
    for (size_t i = 0; i < r.rects().size(); ++i)
      for (size_t j = i + 1; j < r.rects().size(); ++j)
        EXPECT_TRUE(IntersectRect(r.rects()[i], r.rects()[j]).IsEmpty()) << "overlap";
  }
  Region r({0, 0, 10, 10});
  r.Intersect({5, 5, 20, 20});
  EXPECT_EQ(r.Area(), 25);
  EXPECT_TRUE(r.Contains({5, 5}));
  EXPECT_FALSE(r.Contains({10, 10}));
}

// A window class that paints its client area one colour (its id) and records each paint.
std::vector<std::pair<int, Rect>>& Paints() {
  static std::vector<std::pair<int, Rect>> paints;
  return paints;
}

LRESULT SolidProc(HWND h, unsigned msg, WPARAM wp, LPARAM lp) {
  if (msg == WM_PAINT) {
    PAINTSTRUCT ps;
    Dc* dc = BeginPaint(h, &ps);
    Paints().push_back({static_cast<int>(GetWindowLongPtr(h, GWLP_USERDATA)), ps.rcPaint});
    Rect r;
    GetClientRect(h, &r);
    dc->FillRect(r, static_cast<uint32_t>(GetWindowLongPtr(h, GWLP_USERDATA)) | 0xFF000000u);
    EndPaint(h, &ps);
    return 0;
  }
  return DefWindowProc(h, msg, wp, lp);
}

class Painting : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    WNDCLASS wc;
    wc.lpszClassName = "Solid";
    wc.lpfnWndProc = SolidProc;
    RegisterClass(wc);
    Paints().clear();
  }
  HWND Solid(HWND parent, uint32_t colour, int x, int y, int cx, int cy, uint32_t ex = 0) {
    HWND h = CreateWindowEx(ex, "Solid", "", (parent ? WS_CHILD : WS_POPUP) | WS_VISIBLE, x, y,
                            cx, cy, parent, 0, nullptr);
    SetWindowLongPtr(h, GWLP_USERDATA, colour);
    InvalidateRect(h, nullptr, true);
    return h;
  }
};

TEST_F(Painting, InvalidRegionGrowsAndShrinksAndPaintValidates) {
  HWND t = Solid(nullptr, 0x0000FF, 0, 0, 100, 100);
  UpdateWindow(t);
  Rect a{10, 10, 20, 20}, b{15, 15, 30, 30};
  InvalidateRect(t, &a, false);
  InvalidateRect(t, &b, false);
  Rect u;
  EXPECT_TRUE(GetUpdateRect(t, &u, false));
  EXPECT_EQ(u, (Rect{10, 10, 30, 30}));
  long long area = 0;
  for (const Rect& r : GetUpdateRegion(t)) area += r.Width() * r.Height();
  EXPECT_EQ(area, 100 + 225 - 25);
  ValidateRect(t, &b);
  EXPECT_THAT(GetUpdateRegion(t), ::testing::Each(::testing::Truly([&](const Rect& r) {
                return IntersectRect(r, b).IsEmpty();
              })));
  Rect outside{200, 200, 300, 300};
  InvalidateRect(t, &outside, false);  // clipped to the client area: nothing
  Paints().clear();
  UpdateWindow(t);
  ASSERT_EQ(Paints().size(), 1u);
  EXPECT_EQ(Paints()[0].second, (Rect{10, 10, 20, 20}));
  EXPECT_FALSE(GetUpdateRect(t, &u, false));
}

TEST_F(Painting, ParentPaintIsClippedAroundChildrenAndSiblingsAbove) {
  HWND t = Solid(nullptr, 0x0000FF, 0, 0, 100, 100);
  HWND lower = Solid(t, 0x00FF00, 10, 10, 40, 40);
  Solid(t, 0xFF0000, 30, 30, 40, 40);  // created later: below `lower` in z-order? no, bottom
  UpdateWindow(t);
  auto pic = RenderWindow(t);
  ASSERT_TRUE(pic);
  EXPECT_EQ(pic->GetPixel(5, 5), 0xFF0000FFu);    // parent
  EXPECT_EQ(pic->GetPixel(15, 15), 0xFF00FF00u);  // first child
  EXPECT_EQ(pic->GetPixel(35, 35), 0xFF00FF00u);  // the first child is above the second
  EXPECT_EQ(pic->GetPixel(65, 65), 0xFFFF0000u);  // second child
  // Repainting the parent alone leaves the children's pixels alone.
  InvalidateRect(t, nullptr, true);
  UpdateWindow(t);
  pic = RenderWindow(t);
  EXPECT_EQ(pic->GetPixel(15, 15), 0xFF00FF00u);
  // Raising the second child puts it on top where they overlap.
  SetWindowPos(GetWindow(lower, GW_HWNDNEXT), HWND_TOP(), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  pic = RenderWindow(t);
  EXPECT_EQ(pic->GetPixel(35, 35), 0xFFFF0000u);
  EXPECT_EQ(pic->GetPixel(15, 15), 0xFF00FF00u);
}

TEST_F(Painting, MovingAChildRepaintsWhatItUncovered) {
  HWND t = Solid(nullptr, 0x0000FF, 0, 0, 100, 100);
  HWND c = Solid(t, 0x00FF00, 10, 10, 20, 20);
  UpdateWindow(t);
  MoveWindow(c, 60, 60, 20, 20, true);
  auto pic = RenderWindow(t);
  EXPECT_EQ(pic->GetPixel(15, 15), 0xFF0000FFu);
  EXPECT_EQ(pic->GetPixel(65, 65), 0xFF00FF00u);
  ShowWindow(c, SW_HIDE);
  pic = RenderWindow(t);
  EXPECT_EQ(pic->GetPixel(65, 65), 0xFF0000FFu);
}

TEST_F(Painting, ClientEdgeIsAFrameOutsideTheClientArea) {
  HWND t = Solid(nullptr, 0x0000FF, 0, 0, 100, 100);
  HWND c = Solid(t, 0x00FF00, 10, 10, 20, 20, WS_EX_CLIENTEDGE);
  Rect client, window;
  GetClientRect(c, &client);
  GetWindowRect(c, &window);
  EXPECT_EQ(client, (Rect{0, 0, 16, 16}));
  EXPECT_EQ(window, (Rect{10, 10, 30, 30}));
  Point p{0, 0};
  ClientToScreen(c, &p);
  EXPECT_EQ(p, (Point{12, 12}));
  auto pic = RenderWindow(t);
  EXPECT_EQ(pic->GetPixel(10, 10), 0xFFA0A0A0u);  // outer shadow
  EXPECT_EQ(pic->GetPixel(11, 11), 0xFF696969u);  // inner shadow
  EXPECT_EQ(pic->GetPixel(29, 29), 0xFFFFFFFFu);  // outer light
  EXPECT_EQ(pic->GetPixel(12, 12), 0xFF00FF00u);
}

TEST_F(Painting, DeferredPositionsAnnounceAllChangesThenRepaintOnce) {
  HWND t = CreateWindowEx(0, "Recorder", "t", WS_POPUP | WS_VISIBLE, 0, 0, 200, 200, nullptr, 0,
                          nullptr);
  HWND a = CreateWindowEx(0, "Recorder", "a", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, t, 1, nullptr);
  HWND b = CreateWindowEx(0, "Recorder", "b", WS_CHILD | WS_VISIBLE, 20, 0, 10, 10, t, 2, nullptr);
  UpdateWindow(t);
  RecordedMessages().clear();
  HDWP list = BeginDeferWindowPos(2);
  list = DeferWindowPos(list, a, nullptr, 50, 50, 20, 20, SWP_NOZORDER);
  list = DeferWindowPos(list, b, nullptr, 80, 50, 20, 20, SWP_NOZORDER);
  ASSERT_NE(list, nullptr);
  EXPECT_TRUE(EndDeferWindowPos(list));
  EXPECT_THAT(RecordedMessages(),
              ElementsAre("a:WM_WINDOWPOSCHANGING", "b:WM_WINDOWPOSCHANGING", "a:WM_NCCALCSIZE",
                          "b:WM_NCCALCSIZE", "a:WM_WINDOWPOSCHANGED", "a:WM_MOVE", "a:WM_SIZE",
                          "b:WM_WINDOWPOSCHANGED", "b:WM_MOVE", "b:WM_SIZE"));
  RecordedMessages().clear();
  UpdateWindow(t);
  int paints = 0;
  for (const auto& m : RecordedMessages()) paints += m.find(":WM_PAINT") != std::string::npos;
  EXPECT_EQ(paints, 3);  // each window once
  Rect r;
  GetWindowRect(b, &r);
  EXPECT_EQ(r, (Rect{80, 50, 100, 70}));
  // A list naming a dead window is dropped whole.
  HDWP bad = BeginDeferWindowPos(1);
  DestroyWindow(b);
  EXPECT_EQ(DeferWindowPos(bad, b, nullptr, 0, 0, 1, 1, 0), nullptr);
  EXPECT_FALSE(EndDeferWindowPos(nullptr));
}

TEST_F(Painting, PrintWindowDrawsTheSameAsTheScreen) {
  HWND t = Solid(nullptr, 0x0000FF, 0, 0, 60, 40);
  Solid(t, 0x00FF00, 10, 10, 20, 20, WS_EX_CLIENTEDGE);
  auto printed = PrintWindow(t);
  auto shown = RenderWindow(t);
  ASSERT_TRUE(printed && shown);
  for (int y = 0; y < 40; y += 3)
    for (int x = 0; x < 60; x += 3)
      ASSERT_EQ(printed->GetPixel(x, y), shown->GetPixel(x, y)) << x << "," << y;
}

TEST_F(Painting, WindowsTakeAndGiveBackTheirFont) {
  HWND t = Solid(nullptr, 0, 0, 0, 10, 10);
  EXPECT_EQ(SendMessage(t, WM_GETFONT, 0, 0), 0);
  LOGFONT lf;
  lf.height = 20;
  HFONT f = CreateFontIndirect(lf);
  SendMessage(t, WM_SETFONT, reinterpret_cast<WPARAM>(f), 1);
  EXPECT_EQ(reinterpret_cast<HFONT>(SendMessage(t, WM_GETFONT, 0, 0)), f);
  EXPECT_TRUE(DeleteObject(f));
  EXPECT_FALSE(DeleteObject(f));
  EXPECT_FALSE(DeleteObject(GetStockGuiFont()));
}

TEST(DialogUnits, RoundingAsThePlatformDoes) {
  struct Case {
    int du, base, x, y;
  };
  // x = du * base / 4 and y = du * base / 8, rounded half away from zero.
  for (const Case c : {Case{4, 6, 6, 3}, {1, 6, 2, 1}, {2, 7, 4, 2}, {3, 13, 10, 5},
                       {-3, 13, -10, -5}, {0, 9, 0, 0}, {100, 7, 175, 88}}) {
    EXPECT_EQ(DialogUnitsToPixelsX(c.du, c.base), c.x) << c.du << "@" << c.base;
    EXPECT_EQ(DialogUnitsToPixelsY(c.du, c.base), c.y) << c.du << "@" << c.base;
  }
  EXPECT_EQ(PointsToPixels(8, 96), 11);
  EXPECT_EQ(PointsToPixels(9, 96), 12);
  EXPECT_EQ(PointsToPixels(8, 120), 13);
  EXPECT_EQ(PointsToPixels(8, 144), 16);
}

TEST_F(Painting, BaseUnitsComeFromTheMeasuredDialogFont) {
  // DejaVu Sans at 8 points and 96 dots per inch: the numbers every machine must agree on.
  const Size base = GetFontBaseUnits(GetStockGuiFont());
  EXPECT_EQ(base, (Size{7, 14}));
  const Size letters = GetTextExtent(GetStockGuiFont(),
                                     "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(base.cx, (letters.cx / 26 + 1) / 2);
}

TEST_F(Painting, DialogSizeFollowsTheResolutionOfItsMonitor) {
  SetTemplateSource([](int, uint16_t) -> std::optional<std::string> {
    return std::string("dialog 1\nposition 0 0 100 50\nend\n");
  });
  auto size_at = [](int dpi) {
    Monitor m;
    m.bounds = m.work = {0, 0, 1600, 1200};
    m.dpi = dpi;
    m.primary = true;
    SetHeadlessMonitors({m});
    HWND d = CreateDialogParam(1, nullptr, nullptr, 0);
    Rect r{};
    GetClientRect(d, &r);
    const Size base = GetDialogBaseUnits(d);
    Rect mapped{0, 0, 100, 50};
    MapDialogRect(d, &mapped);
    EXPECT_EQ(mapped, r);
    DestroyWindow(d);
    return std::make_pair(base, Size{r.Width(), r.Height()});
  };
  const auto [base96, size96] = size_at(96);
  const auto [base144, size144] = size_at(144);
  SetHeadlessMonitors({});
  EXPECT_EQ(size96, (Size{DialogUnitsToPixelsX(100, base96.cx), DialogUnitsToPixelsY(50, base96.cy)}));
  EXPECT_GT(base144.cx, base96.cx);
  EXPECT_GT(size144.cx, size96.cx);
  EXPECT_GT(size144.cy, size96.cy);
}

TEST_F(Painting, ScreenModelDefaultsAndPicksMonitors) {
  ASSERT_EQ(GetMonitors().size(), 1u);
  EXPECT_EQ(PrimaryMonitor().bounds, (Rect{0, 0, 1280, 1024}));
  EXPECT_EQ(PrimaryMonitor().dpi, 96);
  Monitor left, right;
  left.bounds = left.work = {0, 0, 1000, 800};
  left.primary = true;
  right.bounds = {1000, 0, 2000, 800};
  right.work = {1000, 0, 2000, 760};
  right.dpi = 144;
  SetHeadlessMonitors({left, right});
  EXPECT_EQ(VirtualScreenRect(), (Rect{0, 0, 2000, 800}));
  EXPECT_EQ(MonitorFromRect({900, 0, 1200, 100}).dpi, 144);  // most of it on the right
  EXPECT_EQ(MonitorFromPoint({5000, 10}).dpi, 144);          // nearest
  EXPECT_EQ(MonitorFromPoint({-50, 10}).dpi, 96);
  SetHeadlessMonitors({});
}

}  // namespace
}  // namespace qmk::testing
