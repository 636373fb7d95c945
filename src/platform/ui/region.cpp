// region.cpp: regions as disjoint rectangles: adding cuts the new rectangle around the old ones.
#include "platform/ui/region.h"

namespace qmk::platform::ui {
namespace {

// The parts of `a` outside `b`: up to four rectangles (bands above and below, sides between).
void SubtractInto(const Rect& a, const Rect& b, std::vector<Rect>* out) {
  const Rect i = IntersectRect(a, b);
  if (i.IsEmpty()) {
    out->push_back(a);
    return;
  }
  if (a.top < i.top) out->push_back({a.left, a.top, a.right, i.top});
  if (i.bottom < a.bottom) out->push_back({a.left, i.bottom, a.right, a.bottom});
  if (a.left < i.left) out->push_back({a.left, i.top, i.left, i.bottom});
  if (i.right < a.right) out->push_back({i.right, i.top, a.right, i.bottom});
}

}  // namespace

void Region::Add(const Rect& r) {
  if (r.IsEmpty()) return;
  // Keep the old rectangles and add only the pieces of `r` that none of them covers.
  std::vector<Rect> pieces{r};
  for (const Rect& old : rects_) {
    std::vector<Rect> next;
    for (const Rect& p : pieces) SubtractInto(p, old, &next);
    pieces.swap(next);
    if (pieces.empty()) return;
  }
  rects_.insert(rects_.end(), pieces.begin(), pieces.end());
}

void Region::Subtract(const Rect& r) {
  if (r.IsEmpty()) return;
  std::vector<Rect> next;
  for (const Rect& old : rects_) SubtractInto(old, r, &next);
  rects_.swap(next);
}

void Region::Intersect(const Rect& r) {
  std::vector<Rect> next;
  for (const Rect& old : rects_) {
    const Rect i = IntersectRect(old, r);
    if (!i.IsEmpty()) next.push_back(i);
  }
  rects_.swap(next);
}

void Region::Offset(int dx, int dy) {
  for (Rect& r : rects_) r = OffsetRect(r, dx, dy);
}

bool Region::Contains(Point p) const {
  for (const Rect& r : rects_)
    if (PtInRect(r, p)) return true;
  return false;
}

bool Region::Intersects(const Rect& r) const {
  for (const Rect& old : rects_)
    if (!IntersectRect(old, r).IsEmpty()) return true;
  return false;
}

Rect Region::Bounds() const {
  Rect b{};
  for (const Rect& r : rects_) b = UnionRect(b, r);
  return b;
}

long long Region::Area() const {
  long long a = 0;
  for (const Rect& r : rects_) a += static_cast<long long>(r.Width()) * r.Height();
  return a;
}

}  // namespace qmk::platform::ui
