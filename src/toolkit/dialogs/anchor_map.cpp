// anchor_map.cpp: anchor records, their layout arithmetic and their archive form.
#include "toolkit/dialogs/anchor_map.h"

#include <array>

#include "platform/archive.h"

namespace qmk::toolkit {
namespace {

using platform::ui::HWND;
using platform::ui::Rect;

constexpr size_t kRecordBytes = 8 + 8 * 4;  // handle as 64 bits, eight integers

std::array<int32_t*, 8> Fields(RDI_t& r) {
  return {&r.m_nLeftPercent,  &r.m_nTopPercent,    &r.m_nLeftOffset,  &r.m_nTopOffset,
          &r.m_nRightPercent, &r.m_nBottomPercent, &r.m_nRightOffset, &r.m_nBottomOffset};
}

}  // namespace

int MulDiv(int value, int numerator, int denominator) {
  if (denominator == 0) return -1;
  const int64_t product = int64_t{value} * numerator;
  const int64_t half = (denominator < 0 ? -int64_t{denominator} : denominator) / 2;
  const bool negative = (product < 0) != (denominator < 0);
  const int64_t magnitude = (product < 0 ? -product : product) + half;
  const int64_t q = magnitude / (denominator < 0 ? -int64_t{denominator} : denominator);
  return static_cast<int>(negative ? -q : q);
}

RDI_t MakeAnchor(const Rect& rect, int width, int height, int left_percent, int top_percent,
                 int right_percent, int bottom_percent) {
  RDI_t r;
  r.m_nLeftPercent = left_percent;
  r.m_nTopPercent = top_percent;
  r.m_nRightPercent = right_percent;
  r.m_nBottomPercent = bottom_percent;
  r.m_nLeftOffset = rect.left - (left_percent * width) / 100;
  r.m_nTopOffset = rect.top - (top_percent * height) / 100;
  r.m_nRightOffset = rect.right - (right_percent * width) / 100;
  r.m_nBottomOffset = rect.bottom - (bottom_percent * height) / 100;
  return r;
}

Rect PlaceAnchor(const RDI_t& rdi, int width, int height) {
  const int left = MulDiv(width, rdi.m_nLeftPercent, 100) + rdi.m_nLeftOffset;
  const int top = MulDiv(height, rdi.m_nTopPercent, 100) + rdi.m_nTopOffset;
  const int cx = rdi.m_nRightOffset - left + MulDiv(width, rdi.m_nRightPercent, 100);
  const int cy = rdi.m_nBottomOffset - top + MulDiv(height, rdi.m_nBottomPercent, 100);
  return Rect{left, top, left + cx, top + cy};
}

bool SaveAnchorMap(platform::Archive& ar, const AnchorMap& map) {
  ar.WriteU32(static_cast<uint32_t>(map.size()));
  for (auto [hwnd, rdi] : map) {
    const auto key = reinterpret_cast<uint64_t>(hwnd);
    ar.WriteU32(static_cast<uint32_t>(key));
    ar.WriteU32(static_cast<uint32_t>(key >> 32));
    for (int32_t* f : Fields(rdi)) ar.WriteU32(static_cast<uint32_t>(*f));
  }
  return ar.ok();
}

bool LoadAnchorMap(platform::Archive& ar, AnchorMap& map) {
  const uint32_t count = ar.ReadU32();
  const std::optional<uint64_t> left = ar.Remaining();
  // A damaged count can't ask for more records than the archive holds.
  if (!ar.ok() || (left && uint64_t{count} * kRecordBytes > *left)) return false;
  AnchorMap loaded;
  for (uint32_t i = 0; i < count; ++i) {
    uint64_t key = ar.ReadU32();
    key |= uint64_t{ar.ReadU32()} << 32;
    RDI_t rdi;
    for (int32_t* f : Fields(rdi)) *f = static_cast<int32_t>(ar.ReadU32());
    loaded[reinterpret_cast<HWND>(key)] = rdi;
  }
  if (!ar.ok()) return false;
  map = std::move(loaded);
  return true;
}

}  // namespace qmk::toolkit
