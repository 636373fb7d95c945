// painter.cpp: painting a laid out document: the walk with its delayed lists, clipping of
// scrolling boxes, and the pieces of one item.
#include "toolkit/richcontent/painter.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/draw/text.h"
#include "toolkit/richcontent/border_painter.h"
#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/scroll_bars.h"
#include "toolkit/richcontent/word_text.h"

namespace qmk::toolkit::richcontent {
namespace {

using platform::DrawRect;

constexpr int kMaxPaintDepth = 250;
constexpr int kDelayNow = 0, kDelaySkip = 1, kDelayLevel = 2, kDelayPreFixed = 3, kDelayPostFixed = 4;
constexpr int kDockPreFill = 10, kDockFill = 9;
constexpr int kListCircle = 1, kListDisc = 2, kListSquare = 3;

DrawRect ToDraw(const RichRect& r) { return {r.left, r.top, r.right, r.bottom}; }
uint32_t Opaque(int32_t colour) { return (static_cast<uint32_t>(colour) & 0xFFFFFFu) | 0xFF000000u; }

const CExtRichStyleDescription* TextStyleOf(const CExtRichContentItem& item) {
  for (const CExtRichContentItem* at = &item; at; at = at->m_pParent)
    if (at->m_pStyle) return at->m_pStyle;
  return nullptr;
}

// A cell of "empty-cells: hide" with nothing but blanks in it draws no background or border.
bool IsHiddenEmptyCell(const CExtRichContentItem& item) {
  const CExtRichStyleDescription& s = *item.m_pStyle;
  if (s.Display() != kDisplayTableCell || s.m_enums[kEmptyCells] != 0) return false;
  for (const CExtRichContentItem* child : item.m_children)
    if (child->m_nKind != kKindSpace) return false;
  return true;
}

int DockOf(const CExtRichContentItem& item) {
  return item.m_pStyle && item.m_pStyle->Display() == kDisplayDock ? item.m_pStyle->m_enums[kDockPosition] : -1;
}

// A filled disc, or a ring when `ring`, inside `r`, scanned row by row.
void FillRound(platform::DrawTarget& target, const RichRect& r, uint32_t colour, bool ring) {
  const double radius = r.Width() / 2.0, cx = r.left + radius, cy = r.top + r.Height() / 2.0;
  for (int y = r.top; y < r.bottom; ++y) {
    const double dy = y + 0.5 - cy;
    if (std::abs(dy) > radius) continue;
    const double half = std::sqrt(radius * radius - dy * dy);
    const int x0 = static_cast<int>(std::lround(cx - half)), x1 = static_cast<int>(std::lround(cx + half));
    if (!ring) {
      target.FillRect({x0, y, x1, y + 1}, colour);
      continue;
    }
    const double inner = radius - 1.5;
    const double innerHalf = std::abs(dy) < inner ? std::sqrt(inner * inner - dy * dy) : 0;
    const int i0 = static_cast<int>(std::lround(cx - innerHalf)), i1 = static_cast<int>(std::lround(cx + innerHalf));
    target.FillRect({x0, y, std::max(x0, i0), y + 1}, colour);
    target.FillRect({std::min(x1, i1), y, x1, y + 1}, colour);
  }
}

// Lays `colour` (a colour word) over `r` with a constant alpha (a fill would replace what is below).
void BlendColour(platform::DrawTarget& target, const RichRect& r, uint32_t colour, uint8_t alpha) {
  const uint8_t pixel[4] = {static_cast<uint8_t>((colour >> 16) & 0xFF), static_cast<uint8_t>((colour >> 8) & 0xFF),
                            static_cast<uint8_t>(colour & 0xFF), 0xFF};
  std::unique_ptr<platform::DeviceImage> image = platform::DeviceImage::Create({pixel, 1, 1, 4, false});
  if (image) target.AlphaBlend(*image, ToDraw(r), {0, 0, 1, 1}, alpha);
}

// Copies `source` onto `target` at (x, y) turned clockwise by `rotation` degrees.
void BlendTurned(const platform::DrawTarget& source, platform::DrawTarget& target, int x, int y, int rotation) {
  const int w = source.width(), h = source.height();
  const bool sideways = rotation == 90 || rotation == 270;
  const int tw = sideways ? h : w, th = sideways ? w : h;
  std::vector<uint8_t> pixels(static_cast<size_t>(tw) * th * 4);
  for (int sy = 0; sy < h; ++sy)
    for (int sx = 0; sx < w; ++sx) {
      int tx = sx, ty = sy;
      if (rotation == 90) { tx = h - 1 - sy; ty = sx; }
      if (rotation == 180) { tx = w - 1 - sx; ty = h - 1 - sy; }
      if (rotation == 270) { tx = sy; ty = w - 1 - sx; }
      const uint32_t c = source.GetPixel(sx, sy);
      uint8_t* p = &pixels[(static_cast<size_t>(ty) * tw + tx) * 4];
      p[0] = (c >> 16) & 0xFF;
      p[1] = (c >> 8) & 0xFF;
      p[2] = c & 0xFF;
      p[3] = c >> 24;
    }
  platform::PixelView view{pixels.data(), tw, th, static_cast<ptrdiff_t>(tw) * 4, false};
  std::unique_ptr<platform::DeviceImage> image = platform::DeviceImage::Create(view);
  if (image) target.AlphaBlend(*image, {x, y, x + tw, y + th}, {0, 0, tw, th}, 255);
}

}  // namespace

std::vector<CExtRichContentItem*> RichContentPainter::PaintOrder(const CExtRichContentItem& item) {
  std::vector<CExtRichContentItem*> order;
  auto take = [&](auto wanted) {
    for (CExtRichContentItem* child : item.m_children)
      if (wanted(DockOf(*child))) order.push_back(child);
  };
  take([](int dock) { return dock == kDockPreFill; });
  take([](int dock) { return dock == 2 || dock == 4 || dock == 6 || dock == 8; });
  take([](int dock) { return dock == 1 || dock == 3 || dock == 5 || dock == 7; });
  take([](int dock) { return dock == kDockFill || dock == 0; });
  take([](int dock) { return dock < 0; });
  return order;
}

void RichContentPainter::PaintDocument(int dx, int dy) {
  m_layout.UpdatePaintExtents();
  const int rotation = m_layout.Document().m_nRotation;
  if (rotation != 90 && rotation != 180 && rotation != 270) {
    PaintTree(dx, dy);
    return;
  }
  // A turned document is painted upright on a page of its own, then laid on the target turned.
  const RichRect client = m_layout.Client();
  const bool sideways = rotation != 180;
  const int w = sideways ? client.Height() : client.Width();
  const int h = sideways ? client.Width() : client.Height();
  if (w <= 0 || h <= 0) return;
  platform::DrawTarget page(w, h);
  platform::DrawTarget* outer = m_target;
  m_target = &page;
  PaintTree(dx - client.left, dy - client.top);
  m_target = outer;
  BlendTurned(page, *m_target, client.left, client.top, rotation);
}

void RichContentPainter::PaintTree(int dx, int dy) {
  m_preFixed.clear();
  m_postFixed.clear();
  if (CExtRichContentItem* root = m_layout.Document().Root()) PaintItem(*root, dx, dy);
  for (CExtRichContentItem* item : m_layout.OutOfFlow()) PaintItem(*item, dx, dy);
  // The lists may grow while they are painted; indices stay valid.
  for (size_t i = 0; i < m_preFixed.size(); ++i)
    PaintItem(*m_preFixed[i].first, m_preFixed[i].second.first, m_preFixed[i].second.second);
  for (size_t i = 0; i < m_postFixed.size(); ++i)
    PaintItem(*m_postFixed[i].first, m_postFixed[i].second.first, m_postFixed[i].second.second);
}

bool RichContentPainter::OnTarget(const RichRect& extent, int dx, int dy) const {
  return !extent.IsEmpty() && extent.right + dx > 0 && extent.bottom + dy > 0 && extent.left + dx < m_target->width() &&
         extent.top + dy < m_target->height();
}

void RichContentPainter::PaintChildren(CExtRichContentItem& item, int dx, int dy) {
  Pending level;
  const std::vector<CExtRichContentItem*>& outOfFlow = m_layout.OutOfFlow();
  for (CExtRichContentItem* child : PaintOrder(item)) {
    // Out-of-flow items are painted after the tree, over it.
    if (std::find(outOfFlow.begin(), outOfFlow.end(), child) != outOfFlow.end()) continue;
    const int delay = child->m_pStyle ? child->m_pStyle->m_enums[kDelayedDraw] : kDelayNow;
    if (delay == kDelayNow || delay == kNoValue) PaintItem(*child, dx, dy);
    else if (delay == kDelayLevel) level.push_back({child, {dx, dy}});
    else if (delay == kDelayPreFixed) m_preFixed.push_back({child, {dx, dy}});
    else if (delay == kDelayPostFixed) m_postFixed.push_back({child, {dx, dy}});
    // kDelaySkip and anything above the post list are not painted by this walk.
    static_cast<void>(kDelaySkip);
  }
  for (auto& [child, offset] : level) PaintItem(*child, offset.first, offset.second);
}

void RichContentPainter::PaintItem(CExtRichContentItem& item, int dx, int dy) {
  const RichItemBox* b = m_layout.BoxOf(&item);
  if (m_depth >= kMaxPaintDepth) return;
  // A long document is painted a page at a time: what lies off the target, with all it holds,
  // is passed over (its words would cost a text layout each for nothing).
  if (b && !OnTarget(b->extent, dx, dy)) return;
  if (item.m_nKind == kKindWord) {
    RichRect r = b ? b->box : RichRect{};
    r.Offset(dx, dy);
    if (!r.IsEmpty()) PaintWord(item, r);
    return;
  }
  if (item.m_nKind == kKindSpace || (item.m_nKind != kKindRoot && item.m_nKind != kKindTag)) return;
  if (item.m_pStyle && item.m_pStyle->Display() == kDisplayNone && item.m_nKind != kKindRoot) return;
  ++m_depth;
  const bool drawsSelf = item.m_nKind == kKindTag && b && !b->box.IsEmpty() && item.m_pStyle &&
                         item.m_pStyle->m_enums[kVisibility] == 0;
  RichRect borderBox{};
  if (b) {
    borderBox = Deflate(b->box, MarginOf(*item.m_pStyle));
    borderBox.Offset(dx, dy);
  }
  if (drawsSelf) {
    if (!IsHiddenEmptyCell(item)) {
      PaintBackground(item, borderBox);
      PaintBorders(item, borderBox);
    }
    PaintMarker(item, *b, dx, dy);
  }
  const int overflow = item.m_pStyle ? item.m_pStyle->m_enums[kOverflow] : 0;
  const bool scrolls = b && (b->barH || b->barV || overflow == 1 || overflow == 2 || overflow == 3);
  if (scrolls) {
    RichRect view = b->content;
    view.Offset(dx, dy);
    PushClip(view);
    PaintChildren(item, dx - b->scrollX, dy - b->scrollY);
    PopClip();
  } else {
    PaintChildren(item, dx, dy);
  }
  if (drawsSelf) PaintScrollBars(item, *b, dx, dy);
  --m_depth;
}

namespace {

// The constant alpha of a background: "ui-background-transparency" as a percent of opaque, or
// as an alpha value of 1 to 255; opaque when it is not declared (or 0, which a rule can't tell
// from not declared).
uint8_t BackgroundAlpha(const CExtRichStyleDescription& s) {
  const float percent = s.m_percents[kBackgroundTransparency];
  if (percent >= 0.0f) return static_cast<uint8_t>(std::lround(std::clamp(percent, 0.0f, 100.0f) * 255 / 100));
  const int value = s.m_lengths[kBackgroundTransparency];
  return value > 0 ? static_cast<uint8_t>(std::min(value, 255)) : 255;
}

}  // namespace

void RichContentPainter::PaintBackground(const CExtRichContentItem& item, const RichRect& borderBox) {
  const CExtRichStyleDescription& s = *item.m_pStyle;
  const uint8_t alpha = BackgroundAlpha(s);
  if (s.m_colors[kColorBackground] != -1) {
    if (alpha == 255) m_target->FillRect(ToDraw(borderBox), Opaque(s.m_colors[kColorBackground]));
    else BlendColour(*m_target, borderBox, static_cast<uint32_t>(s.m_colors[kColorBackground]), alpha);
  }
  CExtRichDocObjectImage* image = FindImageObject(*item.m_pLayout, s.m_strings[kBackgroundImage]);
  if (!image) return;
  const RichRect dst{borderBox.left - std::max(0, s.m_lengths[kBackgroundExtendLeft]),
                     borderBox.top - std::max(0, s.m_lengths[kBackgroundExtendTop]),
                     borderBox.right + std::max(0, s.m_lengths[kBackgroundExtendRight]),
                     borderBox.bottom + std::max(0, s.m_lengths[kBackgroundExtendBottom])};
  const DrawRect margins{std::max(0, s.m_lengths[kBackgroundSliceLeft]), std::max(0, s.m_lengths[kBackgroundSliceTop]),
                         std::max(0, s.m_lengths[kBackgroundSliceRight]), std::max(0, s.m_lengths[kBackgroundSliceBottom])};
  const auto method = static_cast<bitmap::NinePartMethod>(std::clamp(s.m_enums[kBackgroundDrawMethod], 0, 5));
  if (alpha == 255 || dst.IsEmpty()) {
    image->m_bitmap.DrawNinePart(*m_target, ToDraw(dst), {}, margins, method);
    return;
  }
  // A see-through image is drawn on a picture of its own and laid over with the constant alpha.
  platform::DrawTarget picture(dst.Width(), dst.Height());
  if (!picture.ok()) return;
  image->m_bitmap.DrawNinePart(picture, {0, 0, dst.Width(), dst.Height()}, {}, margins, method);
  std::unique_ptr<platform::DeviceImage> pixels = platform::DeviceImage::Create(picture.Pixels());
  if (pixels) m_target->AlphaBlend(*pixels, ToDraw(dst), {0, 0, dst.Width(), dst.Height()}, alpha);
}

void RichContentPainter::PaintBorders(const CExtRichContentItem& item, const RichRect& borderBox) {
  const CExtRichStyleDescription& s = *item.m_pStyle;
  if (s.m_enums[kVisibility] == 2) return;  // collapsed items draw no border
  const RichRect inner = Deflate(borderBox, BorderOf(s));
  const struct {
    BorderSide side;
    EnumField style;
    ColorField colour;
    LengthField width;
  } kSides[] = {{kSideTop, kBorderStyleTop, kBorderColorTop, kBorderWidthTop},
                {kSideRight, kBorderStyleRight, kBorderColorRight, kBorderWidthRight},
                {kSideBottom, kBorderStyleBottom, kBorderColorBottom, kBorderWidthBottom},
                {kSideLeft, kBorderStyleLeft, kBorderColorLeft, kBorderWidthLeft}};
  for (const auto& side : kSides)
    DrawBorderSide(*m_target, borderBox, inner, side.side,
                   {s.m_enums[side.style], s.m_colors[side.colour], s.m_lengths[side.width]});
  if (s.m_enums[kOutlineStyle] > 0 && s.m_lengths[kOutlineWidth] > 0) {
    const int w = s.m_lengths[kOutlineWidth];
    const RichRect outer{borderBox.left - w, borderBox.top - w, borderBox.right + w, borderBox.bottom + w};
    const int32_t colour = s.m_colors[kColorOutline] != -1 ? s.m_colors[kColorOutline] : s.m_colors[kColorText];
    for (BorderSide side : {kSideTop, kSideRight, kSideBottom, kSideLeft})
      DrawBorderSide(*m_target, outer, borderBox, side, {s.m_enums[kOutlineStyle], colour, w});
  }
}

void RichContentPainter::PaintMarker(const CExtRichContentItem& item, const RichItemBox& b, int dx, int dy) {
  if (b.markerBox.IsEmpty()) return;
  const CExtRichStyleDescription& s = *item.m_pStyle;
  RichRect r = b.markerBox;
  r.Offset(dx, dy);
  const uint32_t colour = Opaque(s.m_colors[kColorText] == -1 ? 0 : s.m_colors[kColorText]);
  if (CExtRichDocObjectImage* image = FindImageObject(*item.m_pLayout, b.markerImage)) {
    image->m_bitmap.AlphaBlend(*m_target, ToDraw(r));
  } else if (!b.marker.empty()) {
    platform::TextOptions options;
    options.center_vertically = false;
    platform::DrawText(*m_target, ToDraw(r), b.marker, FontSpecOf(s.m_font), colour, options);
  } else if (b.markerType == kListSquare) {
    m_target->FillRect(ToDraw(r), colour);
  } else if (b.markerType == kListDisc || b.markerType == kListCircle) {
    FillRound(*m_target, r, colour, b.markerType == kListCircle);
  }
}

void RichContentPainter::PaintWord(const CExtRichContentItem& word, const RichRect& box) {
  const CExtRichStyleDescription* s = TextStyleOf(word);
  if (!s || s->m_enums[kVisibility] != 0) return;
  const uint32_t colour = Opaque(s->m_colors[kColorText] == -1 ? 0 : s->m_colors[kColorText]);
  const std::string shown = ShownText(word.m_strName, *s);
  const platform::FontSpec font = FontSpecOf(s->m_font);
  const int spacing = s->m_lengths[kLetterSpacing];
  if (spacing == 0 || spacing == kNoValue || shown.size() < 2) {
    DrawWordText(box, shown, font, colour);
  } else {
    // Spaced letters are drawn one by one, each followed by the spacing.
    int x = box.left;
    for (char c : shown) {
      const std::string letter(1, c);
      platform::DrawText(*m_target, {x, box.top, box.right, box.bottom}, letter, font, colour);
      x += platform::MeasureText(letter, font).width + spacing;
    }
  }
  const int thickness = std::max(1, std::abs(s->m_font.lfHeight) / 14);
  if (s->m_font.lfUnderline) m_target->FillRect({box.left, box.bottom - 2 * thickness, box.right, box.bottom - thickness}, colour);
  if (s->m_font.lfStrikeOut) {
    const int mid = box.top + box.Height() / 2;
    m_target->FillRect({box.left, mid, box.right, mid + thickness}, colour);
  }
}

void RichContentPainter::DrawWordText(const RichRect& box, const std::string& shown, const platform::FontSpec& font,
                                      uint32_t colour) {
  if (!m_target->RectVisible(ToDraw(box))) return;
  // A word drawn in a box of its own size gives the same pixels wherever the box is, and a
  // document repeats its words: each is drawn once into a picture that is then laid on the
  // target at every place it shows.
  std::string key = shown;
  key += '\0';
  key += font.face;
  for (long long v : {static_cast<long long>(font.pixels * 64), static_cast<long long>(font.bold),
                      static_cast<long long>(font.italic), static_cast<long long>(colour),
                      static_cast<long long>(box.Width()), static_cast<long long>(box.Height())}) {
    key += '\0';
    key += std::to_string(v);
  }
  auto found = m_words.find(key);
  if (found == m_words.end()) {
    const size_t pixels = static_cast<size_t>(box.Width()) * static_cast<size_t>(box.Height());
    if (m_keptPixels + pixels > kMaxKeptPixels) {
      platform::DrawText(*m_target, ToDraw(box), shown, font, colour);
      return;
    }
    platform::DrawTarget picture(box.Width(), box.Height());
    if (!picture.ok()) return;
    platform::DrawText(picture, {0, 0, box.Width(), box.Height()}, shown, font, colour);
    found = m_words.emplace(std::move(key), platform::DeviceImage::Create(picture.Pixels())).first;
    m_keptPixels += pixels;
  }
  if (found->second) m_target->AlphaBlend(*found->second, ToDraw(box), {0, 0, box.Width(), box.Height()}, 255);
}

void RichContentPainter::PaintScrollBars(const CExtRichContentItem& item, const RichItemBox& b, int dx, int dy) {
  const int type = item.m_pStyle->m_enums[kScrollBarType];
  for (bool vertical : {true, false}) {
    ScrollBarParts p = ScrollBarPartsOf(b, vertical);
    if (p.bar.IsEmpty()) continue;
    p.bar.Offset(dx, dy);
    // The light pop-over bar lets the content show through its track.
    PaintScrollBar(*m_target, p, type == kScrollBarPopOverLight);
  }
}

void RichContentPainter::PushClip(const RichRect& r) {
  RichRect clip = r;
  if (!m_clips.empty()) {
    const RichRect& o = m_clips.back();
    clip = {std::max(o.left, r.left), std::max(o.top, r.top), std::min(o.right, r.right), std::min(o.bottom, r.bottom)};
    if (clip.IsEmpty()) clip = {o.left, o.top, o.left, o.top};
  }
  m_clips.push_back(clip);
  // An empty clip would lift the limit, so a box with nothing to show clips to a point outside.
  m_target->SetClip(clip.IsEmpty() ? DrawRect{-2, -2, -1, -1} : ToDraw(clip));
}

void RichContentPainter::PopClip() {
  m_clips.pop_back();
  m_target->SetClip(m_clips.empty() ? DrawRect{} : ToDraw(m_clips.back()));
}

}  // namespace qmk::toolkit::richcontent
