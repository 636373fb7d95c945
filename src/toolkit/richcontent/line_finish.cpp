// line_finish.cpp: JustifyLine, AlignLine and shifting of a finished line.
#include "toolkit/richcontent/line_finish.h"

#include <algorithm>

namespace qmk::toolkit::richcontent {
namespace {

bool IsOpportunity(const LineItem& i) {
  return !i.hidden && !i.box.IsEmpty() && i.afterSpace && i.kind != 1;
}

bool IsTallImage(const LineItem& i) {
  return i.image && (i.verticalAlign == kAlignTop || i.verticalAlign == kAlignTextTop ||
                     i.verticalAlign == kAlignMiddle);
}

void MoveAll(std::vector<LineItem>& line, int dy) {
  for (LineItem& i : line) i.box.Offset(0, dy);
}

}  // namespace

void ShiftLine(std::vector<LineItem>& line, int dx) {
  if (dx == 0) return;
  for (LineItem& i : line) i.box.Offset(dx, 0);
}

bool JustifyLine(std::vector<LineItem>& line, int lineRight) {
  std::vector<size_t> opportunities;
  for (size_t k = 0; k < line.size(); ++k)
    if (IsOpportunity(line[k])) opportunities.push_back(k);
  const int n = static_cast<int>(opportunities.size());
  if (n < 2) return false;
  int contentRight = line.front().box.left;
  for (const LineItem& i : line)
    if (i.kind != 1 && !i.hidden) contentRight = std::max(contentRight, i.box.right);
  const int free = lineRight - contentRight;
  if (free < 0) return false;
  const int step = free / (n - 1);
  int rest = free % (n - 1);
  if (step == 0 && rest == 0) return false;
  int sum = 0;
  for (int o = 1; o < n; ++o) {
    sum += step;
    if (rest > 0) {
      ++sum;
      --rest;
    }
    const size_t from = opportunities[o];
    const size_t to = o + 1 < n ? opportunities[o + 1] : line.size();
    for (size_t k = from; k < to; ++k) line[k].box.Offset(sum, 0);
    // The space in front now reaches the moved word, so its background and underline stay whole.
    if (from > 0 && line[from - 1].kind == 1) line[from - 1].box.right = line[from].box.left;
  }
  return true;
}

int AlignLine(std::vector<LineItem>& line, int lineHeight) {
  if (std::none_of(line.begin(), line.end(), IsTallImage)) return 0;
  int hm = 0, hb = 0, ht = 0, w = 0;
  for (const LineItem& i : line) {
    const int h = i.box.Height();
    if (i.image && i.verticalAlign == kAlignMiddle) hm = std::max(hm, h);
    if (i.image && i.verticalAlign == kAlignTextBottom) hb = std::max(hb, h);
    if (i.image && i.verticalAlign == kAlignTextTop) ht = std::max(ht, h);
    const bool alignedImage = i.image && i.verticalAlign >= kAlignTop && i.verticalAlign <= kAlignBottom;
    if (!i.hidden && !alignedImage) w = std::max(w, h);
  }
  const int a = (hm - w) / 2;
  const int up = std::max(a, hb - w);
  const int down = std::max(a, ht - w);
  const int needed = up + down + w;
  int result = 0;
  if (needed > lineHeight) {
    MoveAll(line, needed - lineHeight);
    result = needed;
  }
  for (LineItem& i : line) {
    if (!i.image) continue;
    if (i.verticalAlign == kAlignTextTop) i.box.Offset(0, i.box.Height() - w);
    if (i.verticalAlign == kAlignMiddle) i.box.Offset(0, (i.box.Height() - w) / 2);
  }
  if (down > 0)
    for (LineItem& i : line)
      if (!(i.image && (i.verticalAlign == kAlignTop || i.verticalAlign == kAlignBottom))) i.box.Offset(0, -down);
  for (LineItem& i : line)
    if (i.image && i.verticalAlign == kAlignTop) i.box.Offset(0, -(std::max(lineHeight, needed) - i.box.Height()));
  return result;
}

}  // namespace qmk::toolkit::richcontent
