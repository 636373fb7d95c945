// scroll_bar_model.h: range, page, position and thumb of a scroll bar, without a window.
#pragma once

namespace qmk::platform::ui::controls {

// The parts of a scroll bar along its length.
enum class ScrollPart { kNone, kLineBack, kPageBack, kThumb, kPageForward, kLineForward };

struct ThumbGeometry {
  int offset = 0;  // from the start of the track, after the first arrow
  int length = 0;  // 0 when there is no room for a thumb
};

class ScrollBarModel {
 public:
  int min() const { return min_; }
  int max() const { return max_; }
  unsigned page() const { return page_; }
  int pos() const { return pos_; }
  int track_pos() const { return track_pos_; }
  // The highest position: the last page fills the view.
  int MaxPos() const;

  // A reversed or too large range becomes 0..0; the page and the position are pulled in.
  void SetRange(int min, int max);
  // Cut to the range's size.
  void SetPage(unsigned page);
  // Clamped to min..MaxPos(); returns the position before.
  int SetPos(int pos);
  void SetTrackPos(int pos) { track_pos_ = Clamp(pos); }
  int Clamp(int pos) const;

  // The position a scroll code (SB_LINEUP ...) leads to, clamped as the bar clamps; thumb
  // codes take `track`.
  int PosForCode(int code, int track) const;

  // The thumb in a track of `track_length` pixels (the bar less its two arrows); a thumb is at
  // least `min_thumb` long, and square (`min_thumb`) without a page.
  ThumbGeometry Thumb(int track_length, int min_thumb) const;
  // The position for a thumb dragged to `offset` in that track.
  int PosFromThumbOffset(int offset, int track_length, int min_thumb) const;
  // Which part lies at `at` along a bar `length` long whose arrows are `arrow` long.
  ScrollPart HitTest(int at, int length, int arrow, int min_thumb) const;

 private:
  int min_ = 0;
  int max_ = 100;
  unsigned page_ = 0;
  int pos_ = 0;
  int track_pos_ = 0;
};

}  // namespace qmk::platform::ui::controls
