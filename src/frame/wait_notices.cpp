// wait_notices.cpp: the connection notice.
#include "frame/wait_notices.h"

#include <string>

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
