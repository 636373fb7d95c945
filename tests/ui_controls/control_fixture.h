// control_fixture.h: a host window on the headless back end that records what its controls
// tell it, and helpers to make controls and to click and type at them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ui/backend.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/messages.h"
#include "platform/ui/window.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/register.h"

namespace qmk::platform::ui::controls::testing {

// One thing the host heard: WM_COMMAND (code), WM_NOTIFY (code) or a scroll message.
struct Heard {
  unsigned message = 0;
  int id = 0;
  unsigned code = 0;
  int pos = 0;
  bool operator==(const Heard&) const = default;
};

inline std::vector<Heard>& HeardLog() {
  static std::vector<Heard> log;
  return log;
}
// What the host answers to the next WM_NOTIFY (a refusal of TCN_SELCHANGING or UDN_DELTAPOS).
inline LRESULT& NotifyAnswer() {
  static LRESULT answer = 0;
  return answer;
}

inline LRESULT HostProc(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_COMMAND:
      HeardLog().push_back({msg, LOWORD(wparam), HIWORD(wparam), 0});
      return 0;
    case WM_NOTIFY: {
      const auto* nm = reinterpret_cast<const NMHDR*>(lparam);
      Heard h{msg, static_cast<int>(nm->idFrom), nm->code, 0};
      if (nm->code == UDN_DELTAPOS) h.pos = reinterpret_cast<const NMUPDOWN*>(lparam)->iDelta;
      HeardLog().push_back(h);
      return NotifyAnswer();
    }
    case WM_VSCROLL:
    case WM_HSCROLL:
      HeardLog().push_back({msg, GetDlgCtrlID(reinterpret_cast<HWND>(lparam)), LOWORD(wparam),
                            static_cast<int16_t>(HIWORD(wparam))});
      return 0;
    default:
      return DefWindowProc(hwnd, msg, wparam, lparam);
  }
}

class ControlTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    setenv("QMK_UI", "headless", 1);
    ASSERT_TRUE(RegisterPlainControls());
    WNDCLASS wc;
    if (!GetClassInfo("QmkControlTestHost", &wc)) {
      wc.lpszClassName = "QmkControlTestHost";
      wc.lpfnWndProc = &HostProc;
      ASSERT_TRUE(RegisterClass(wc));
    }
  }

  void SetUp() override {
    HeardLog().clear();
    NotifyAnswer() = 0;
    host_ = CreateWindowEx(0, "QmkControlTestHost", "Host", WS_POPUP | WS_VISIBLE, 40, 40, 420,
                           320, nullptr, 0, nullptr);
    ASSERT_NE(host_, nullptr);
    SetActiveWindow(host_);
    Pump();
  }

  void TearDown() override {
    DestroyWindow(host_);
    Pump();
  }

  HWND Make(const char* cls, const char* text, uint32_t style, Rect r, int id) {
    HWND h = CreateWindowEx(0, cls, text, WS_CHILD | WS_VISIBLE | style, r.left, r.top,
                            r.Width(), r.Height(), host_, id, nullptr);
    EXPECT_NE(h, nullptr) << cls;
    return h;
  }

  static void Pump() {
    for (int i = 0; i < 4; ++i) PumpMessages(0);
  }

  // A click at a point of a window's client area.
  static void ClickAt(HWND hwnd, Point p, unsigned mods = 0) {
    ClientToScreen(hwnd, &p);
    InjectClick(p, MouseButton::Left, mods);
    Pump();
  }

  static void Key(unsigned vk, unsigned mods = 0) {
    InjectKeyPress(vk, mods);
    Pump();
  }

  static void Type(const std::string& text) {
    InjectText(text);
    Pump();
  }

  static LRESULT Send(HWND h, unsigned msg, WPARAM w = 0, LPARAM l = 0) {
    return SendMessage(h, msg, w, l);
  }
  static LRESULT SendText(HWND h, unsigned msg, WPARAM w, const char* text) {
    return SendMessage(h, msg, w, reinterpret_cast<LPARAM>(text));
  }

  // The WM_COMMAND codes the host heard from control `id`, in order.
  static std::vector<unsigned> Commands(int id) {
    std::vector<unsigned> out;
    for (const Heard& h : HeardLog()) {
      if (h.message == WM_COMMAND && h.id == id) out.push_back(h.code);
    }
    return out;
  }
  static std::vector<unsigned> Notices(int id) {
    std::vector<unsigned> out;
    for (const Heard& h : HeardLog()) {
      if (h.message == WM_NOTIFY && h.id == id) out.push_back(h.code);
    }
    return out;
  }

  HWND host_ = nullptr;
};

}  // namespace qmk::platform::ui::controls::testing
