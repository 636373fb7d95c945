// scroll_bar_model.cpp: clamping of range, page and position, scroll codes and thumb geometry.
#include "platform/ui/controls/scroll_bar_model.h"

#include <algorithm>

#include "platform/ui/controls/control_messages.h"

namespace qmk::platform::ui::controls {

int ScrollBarModel::MaxPos() const {
  long long top = static_cast<long long>(max_) - (page_ > 0 ? static_cast<long long>(page_) - 1 : 0);
  return static_cast<int>(std::max<long long>(top, min_));
}

int ScrollBarModel::Clamp(int pos) const { return std::clamp(pos, min_, MaxPos()); }

void ScrollBarModel::SetRange(int min, int max) {
  if (min > max || static_cast<long long>(max) - min >= 0x80000000LL) {
    min_ = max_ = 0;
  } else {
    min_ = min;
    max_ = max;
  }
  SetPage(page_);
}

void ScrollBarModel::SetPage(unsigned page) {
  unsigned long long size = static_cast<unsigned long long>(static_cast<long long>(max_) - min_ + 1);
  page_ = static_cast<unsigned>(std::min<unsigned long long>(page, size));
  pos_ = Clamp(pos_);
  track_pos_ = Clamp(track_pos_);
}

int ScrollBarModel::SetPos(int pos) {
  int before = pos_;
  pos_ = Clamp(pos);
  return before;
}

int ScrollBarModel::PosForCode(int code, int track) const {
  long long page = std::max<long long>(page_, 1);
  long long p = pos_;
  switch (code) {
    case SB_LINEUP: p -= 1; break;
    case SB_LINEDOWN: p += 1; break;
    case SB_PAGEUP: p -= page; break;
    case SB_PAGEDOWN: p += page; break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: p = track; break;
    case SB_TOP: p = min_; break;
    case SB_BOTTOM: p = MaxPos(); break;
    default: break;
  }
  return static_cast<int>(std::clamp<long long>(p, min_, MaxPos()));
}

ThumbGeometry ScrollBarModel::Thumb(int track_length, int min_thumb) const {
  if (track_length < min_thumb || max_ <= min_) return {};
  long long range = static_cast<long long>(max_) - min_ + 1;
  int length = page_ > 0 ? static_cast<int>(track_length * static_cast<long long>(page_) / range)
                         : min_thumb;
  length = std::clamp(length, min_thumb, track_length);
  long long span = static_cast<long long>(MaxPos()) - min_;
  int offset = span > 0 ? static_cast<int>((track_length - length) * (pos_ - min_) / span) : 0;
  return {offset, length};
}

int ScrollBarModel::PosFromThumbOffset(int offset, int track_length, int min_thumb) const {
  ThumbGeometry g = Thumb(track_length, min_thumb);
  int room = track_length - g.length;
  if (g.length == 0 || room <= 0) return pos_;
  offset = std::clamp(offset, 0, room);
  long long span = static_cast<long long>(MaxPos()) - min_;
  // Rounded to the nearest position, so a drag back to where it started lands there.
  return min_ + static_cast<int>((span * offset + room / 2) / room);
}

ScrollPart ScrollBarModel::HitTest(int at, int length, int arrow, int min_thumb) const {
  if (at < 0 || at >= length) return ScrollPart::kNone;
  // A bar too short for both arrows splits its length between them.
  int a = std::min(arrow, length / 2);
  if (at < a) return ScrollPart::kLineBack;
  if (at >= length - a) return ScrollPart::kLineForward;
  ThumbGeometry g = Thumb(length - 2 * a, min_thumb);
  int in_track = at - a;
  if (g.length == 0) return in_track < (length - 2 * a) / 2 ? ScrollPart::kPageBack
                                                            : ScrollPart::kPageForward;
  if (in_track < g.offset) return ScrollPart::kPageBack;
  if (in_track < g.offset + g.length) return ScrollPart::kThumb;
  return ScrollPart::kPageForward;
}

}  // namespace qmk::platform::ui::controls
