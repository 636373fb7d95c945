// msg_box.h: CExtMsgBox, the toolkit's message box, and ExtMsgBox, the call that shows one.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/ui/controls/icons.h"
#include "toolkit/dialogs/msgbox_buttons.h"
#include "toolkit/dialogs/resizable_dialog.h"

namespace qmk::toolkit {

constexpr unsigned kMsgBoxTimerId = 678;
// The id the box's in-memory template carries (scripted operators find the box by it).
constexpr int kMsgBoxTemplateId = 30740;
// The control that shows the text: a label, or a read-only edit in the scrolling text mode.
constexpr int kMsgBoxTextId = 0xFFF0;
// Sent to the box's owner for help when no help handler is set (the platform's number);
// wParam carries the help id.
constexpr unsigned kMsgBoxHelpMessage = 0x0053;

// What the Help button and F1 call: the box and its help id.
using MsgBoxHelpHandler = std::function<void(platform::ui::HWND box, int help_id)>;
// Replaces the help handler of every box (empty: send kMsgBoxHelpMessage to the owner).
void SetMsgBoxHelpHandler(MsgBoxHelpHandler handler);

class CExtMsgBox : public CExtResizableDialog {
 public:
  CExtMsgBox(HWND parent, std::string text, std::string caption, uint32_t style = 0,
             int help_id = 0, std::string unique_name = {}, uint32_t ex_style = 0);
  // Releases an icon of the box's own that is still held (a box never shown, or closed by the
  // window manager).
  ~CExtMsgBox() override { ReleaseIcon(); }

  // Shows the box (unless a remembered answer stands) and returns the pressed button's id.
  intptr_t DoModal() override;
  // Counts down `seconds`; with `disable` the buttons wait disabled until the time is up,
  // otherwise the default button is pressed when it is.
  void SetTimer(int seconds, bool disable);
  // Gives the box an icon of its own, shown in place of the system's icon for the icon bits;
  // the box releases it when it ends.
  void SetIcon(platform::ui::controls::HICON icon) { m_hIcon = icon; }
  void ReleaseIcon();

  std::string m_strCaption, m_strText, m_strUniqueId;
  uint32_t m_nStyle = 0, m_nExtendedStyle = 0;
  int m_nHelpId = 0;
  int m_nTimerSeconds = 0;
  uintptr_t m_nTimerHandle = 0;
  int m_nDefaultButton = -1, m_nEscapeButton = -1;
  MsgBoxButtons m_buttons;
  bool m_bDisableWhileTimer = false;
  platform::ui::controls::HICON m_hIcon = nullptr;

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
  bool PreTranslateMessage(platform::ui::MSG& msg) override;
  // A box without an escape button has no Close in its system menu.
  bool SystemMenuCloseEnabled() const override { return m_nEscapeButton != -1; }
  // Puts the text on the clipboard.
  virtual void CopyText();
  // Asks for help on the box's help id.
  virtual void OnHelp();

 private:
  bool HasCheckBox() const { return (m_nStyle & (kMbCheckDontDisplay | kMbCheckDontAsk)) != 0; }
  bool IsOwnButton(int id) const;
  void CreateControls();
  void Layout();
  void OnTimerTick();
  void EndWith(int id);
  bool OnKey(unsigned vk);
  bool HasIcon() const { return m_hIcon || (m_nStyle & kMbIconMask); }
  bool TextScrolls() const { return (m_nExtendedStyle & kMbExScrollText) != 0; }
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
              uint32_t ex_style = 0, int timer_seconds = 0, bool disable_while_timer = false,
              platform::ui::controls::HICON icon = nullptr);

// The name a null caption stands for.
void SetMsgBoxApplicationName(std::string name);

}  // namespace qmk::toolkit
