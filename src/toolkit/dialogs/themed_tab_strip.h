// themed_tab_strip.h: ThemedTabStrip, a plain tab strip drawn by the theme: its tabs, selection
// and hot tab where the theme lays them out, with clicks taken by the same layout.
#pragma once

#include <string>
#include <vector>

#include "toolkit/dialogs/themed_control.h"

namespace qmk::toolkit {

class ThemedTabStrip : public ThemedControl {
 public:
  ThemedTabStrip() = default;

  // The titles of the strip's tabs, in order.
  std::vector<std::string> Titles() const;
  // The tab under a client point as the theme lays the strip out, or -1.
  int TabAt(platform::ui::Point p) const;
  int HotTab() const { return m_nHotTab; }

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;

 private:
  // A click's choice: the parent may refuse it (TCN_SELCHANGING), and hears of it after.
  void SelectByUser(int index);
  void SetHotTab(int index);

  int m_nHotTab = -1;
};

}  // namespace qmk::toolkit
