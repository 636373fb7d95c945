// msg_box.h: CExtMsgBox, the toolkit's message box, and ExtMsgBox, the call that shows one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "toolkit/dialogs/msgbox_buttons.h"
#include "toolkit/dialogs/resizable_dialog.h"

namespace qmk::toolkit {

constexpr unsigned kMsgBoxTimerId = 678;
// The id the box's in-memory template carries (scripted operators find the box by it).
constexpr int kMsgBoxTemplateId = 30740;

class CExtMsgBox : public CExtResizableDialog {
 public:
  CExtMsgBox(HWND parent, std::string text, std::string caption, uint32_t style = 0,
             int help_id = 0, std::string unique_name = {}, uint32_t ex_style = 0);

  // Shows the box (unless a remembered answer stands) and returns the pressed button's id.
  intptr_t DoModal() override;
  // Counts down `seconds`; with `disable` the buttons wait disabled until the time is up,
  // otherwise the default button is pressed when it is.
  void SetTimer(int seconds, bool disable);

  std::string m_strCaption, m_strText, m_strUniqueId;
  uint32_t m_nStyle = 0, m_nExtendedStyle = 0;
  int m_nHelpId = 0;
  int m_nTimerSeconds = 0;
  uintptr_t m_nTimerHandle = 0;
  int m_nDefaultButton = -1, m_nEscapeButton = -1;
  MsgBoxButtons m_buttons;
  bool m_bDisableWhileTimer = false;

  // Layout metrics in dialog units.
  struct Metrics {
    int border_x = 8, border_y = 8, min_button_width = 50, button_height = 12, gap = 5,
        check_gap = 1, check_height = 14, check_margin = 6, min_text_width = 32,
        min_text_height = 80;
  };
  const Metrics& GetMetrics() const { return m_metrics; }
  void SetMetrics(const Metrics& m) { m_metrics = m; }

 protected:
  bool OnInitDialog() override;
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override;

 private:
  bool HasCheckBox() const { return (m_nStyle & (kMbCheckDontDisplay | kMbCheckDontAsk)) != 0; }
  bool IsOwnButton(int id) const;
  void CreateControls();
  void Layout();
  void OnTimerTick();
  void EndWith(int id);
  bool OnKey(unsigned vk);
  void SetButtonsEnabled(bool on);
  void ShowCountdown();

  void PaintBody(platform::ui::Dc* dc);

  Metrics m_metrics;
  platform::ui::Rect m_rcIcon{};
  int m_nSecondsLeft = 0;
  bool m_bWaiting = false;  // the buttons wait disabled for the timer
};

// Shows a message box and returns the pressed button's id (a remembered answer without showing
// anything). A null caption takes the application's name.
int ExtMsgBox(platform::ui::HWND parent, const char* text, const char* caption = nullptr,
              uint32_t style = 0, int help_id = 0, const char* unique_name = nullptr,
              uint32_t ex_style = 0, int timer_seconds = 0, bool disable_while_timer = false);

// The name a null caption stands for.
void SetMsgBoxApplicationName(std::string name);

}  // namespace qmk::toolkit
