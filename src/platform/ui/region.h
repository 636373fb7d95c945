// region.h: a set of pixels as disjoint rectangles, for invalid regions and paint clipping.
#pragma once

#include <vector>

#include "platform/ui/types.h"

namespace qmk::platform::ui {

class Region {
 public:
  Region() = default;
  explicit Region(const Rect& r) { Add(r); }

  void Add(const Rect& r);
  void Subtract(const Rect& r);
  void Intersect(const Rect& r);
  void Offset(int dx, int dy);
  void Clear() { rects_.clear(); }

  bool IsEmpty() const { return rects_.empty(); }
  bool Contains(Point p) const;
  bool Intersects(const Rect& r) const;
  Rect Bounds() const;
  long long Area() const;
  const std::vector<Rect>& rects() const { return rects_; }

 private:
  std::vector<Rect> rects_;  // disjoint, none empty
};

}  // namespace qmk::platform::ui
