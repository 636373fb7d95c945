// ext_label.h: CExtLabel, the themed static text: its text on the theme's background, with
// margins, colour overrides and a tooltip.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/draw/text.h"
#include "toolkit/bitmap/bitmap.h"
#include "toolkit/dialogs/label_text.h"
#include "toolkit/dialogs/themed_control.h"
#include "toolkit/dialogs/tool_tip.h"

namespace qmk::toolkit {

// A colour slot that follows the theme.
constexpr uint32_t kThemeColor = 0xFFFFFFFFu;

class CExtLabel : public ThemedControl {
 public:
  CExtLabel() = default;

  // The tooltip; with tooltips on, a label with a tip takes SS_NOTIFY so that it sees the mouse.
  void SetTooltipText(const std::string& text);
  const std::string& GetTooltipText() const { return m_strToolTipText; }
  void ActivateTooltip(bool on);
  // Space kept free inside the label's edges, in pixels.
  void SetMargins(int left, int top, int right, int bottom);
  // kThemeColor gives the slot back to the theme.
  void SetTextColor(bool enabled, uint32_t rgb);
  void SetBkColor(uint32_t rgb);
  // A picture shown instead of the text, at the top left inside the margins (centred with
  // SS_CENTERIMAGE); an empty picture gives the text back.
  void SetBitmap(const bitmap::CExtBitmap& picture);
  const bitmap::CExtBitmap& GetBitmap() const { return m_bitmap; }

  std::string m_strToolTipText;
  bool m_bToolTipActive = true;
  int m_nMarginLeft = 0, m_nMarginTop = 0, m_nMarginRight = 0, m_nMarginBottom = 0;
  unsigned m_nToolTipAlign = kTipAlignDefault;
  uint32_t m_clrTextNormal = kThemeColor, m_clrTextDisabled = kThemeColor, m_clrBackground = kThemeColor;
  bitmap::CExtBitmap m_bitmap;

 protected:
  void OnSubclassed() override;
  bool PaintsClient() const override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;
  std::string HoverTip() const override { return m_bToolTipActive ? m_strToolTipText : std::string(); }
  unsigned HoverTipAlign() const override { return m_nToolTipAlign; }

 private:
  void SyncNotifyStyle();
  void PaintText(platform::DrawTarget& target, const platform::DrawRect& box);
  void PaintBitmap(platform::DrawTarget& target, const platform::DrawRect& box);
  void PaintFrame(platform::DrawTarget& target, const platform::DrawRect& rc);
};

}  // namespace qmk::toolkit
