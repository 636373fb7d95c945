// wait_notices.cpp: the connection notice.
#include "frame/wait_notices.h"

#include <cstdio>
#include <string>

#include "platform/ui/window.h"
#include "toolkit/dialogs/string_table.h"

namespace qmk::frame {
namespace {
constexpr int kConnectingText = 5;
}

void CentreOver(Operator& op, QMK_HWND parent, Notice& notice) {
  const Rect p = op.WindowRect(parent);
  const Rect d = notice.Bounds();
  notice.MoveTo(p.left + (p.width() - d.width()) / 2, p.top + (p.height() - d.height()) / 2);
}

// A notice that can't be made leaves the parent enabled: the wait goes on without it.
CScnWaitInfoMessage::CScnWaitInfoMessage(QMK_HWND parent) : parent_(parent) {
  Operator& op = CurrentOperator();
  std::string text;
  toolkit::LoadString(kConnectingText, text);
  m_pDialog = op.CreateNotice(parent, text, false);
  if (!m_pDialog) return;
  op.EnableWindow(parent, false);
  CentreOver(op, parent, *m_pDialog);
  m_pDialog->Show(true);
}

CScnWaitInfoMessage::~CScnWaitInfoMessage() {
  if (!m_pDialog) return;
  CurrentOperator().EnableWindow(parent_, true);
  m_pDialog.reset();
}

}  // namespace qmk::frame

namespace qmk::frame {
namespace {

constexpr int kLampText = 6;
// Used when text 6 can't be loaded. It has one placeholder but gets minutes and seconds like the
// real text, so it shows the minutes as if they were seconds; hosts have seen it that way.
constexpr char kLampFallback[] = "Lamps are warming up.  %d seconds remaining.";

CScnWaitLampWarmup* g_current_warmup = nullptr;

// The timer has no window: it finds its object through the one current warm-up.
void TickCurrentWarmup(platform::ui::HWND, unsigned, uintptr_t, int64_t) {
  if (g_current_warmup) g_current_warmup->Tick();
}

}  // namespace

CScnWaitLampWarmup* CurrentLampWarmup() { return g_current_warmup; }

std::string FormatLampTime(const std::string& format, int seconds) {
  char text[160];
  std::snprintf(text, sizeof text, format.c_str(), seconds / 60, seconds % 60);
  return text;
}

CScnWaitLampWarmup::CScnWaitLampWarmup(QMK_HWND parent, std::function<int()> remaining_seconds)
    : parent_(parent), remaining_seconds_(std::move(remaining_seconds)) {
  if (!toolkit::LoadString(kLampText, m_strFormat)) m_strFormat = kLampFallback;
  m_nTimerId = platform::ui::SetTimer(nullptr, 0, 1000, TickCurrentWarmup);
  Operator& op = CurrentOperator();
  m_pDialog = op.CreateNotice(parent, "", true);
  if (m_pDialog) {
    op.EnableWindow(parent, false);
    CentreOver(op, parent, *m_pDialog);
    const int remaining = remaining_seconds_();
    if (remaining > 0) ShowRemaining(remaining);
    g_current_warmup = this;
  }
}

CScnWaitLampWarmup::~CScnWaitLampWarmup() {
  platform::ui::KillTimer(nullptr, m_nTimerId);
  m_nTimerId = 0;
  if (m_pDialog) {
    CurrentOperator().EnableWindow(parent_, true);
    m_pDialog.reset();
  }
  g_current_warmup = nullptr;
}

void CScnWaitLampWarmup::Tick() {
  if (!m_nTimerId || !m_pDialog) return;
  const int remaining = remaining_seconds_();
  if (remaining <= 0)
    m_pDialog->Show(false);  // the wait's owner ends the wait when it sees the lamps ready
  else
    ShowRemaining(remaining);
}

void CScnWaitLampWarmup::ShowRemaining(int seconds) {
  m_pDialog->SetText(FormatLampTime(m_strFormat, seconds));
  m_pDialog->Show(true);
}

}  // namespace qmk::frame
