// unattended_operator.cpp: answers without a person, and traces each answer.
#include "frame/unattended_operator.h"

#include "qmk/QmkGen.h"

namespace qmk::frame {
namespace {

// A notice nobody sees and nobody cancels.
class SilentNotice : public Notice {
 public:
  void SetText(const std::string&) override {}
  void Show(bool) override {}
  Rect Bounds() const override { return Rect{}; }
  void MoveTo(int, int) override {}
  bool Cancelled() const override { return false; }
};

}  // namespace

std::unique_ptr<Notice> UnattendedOperator::CreateNotice(QMK_HWND, const std::string&, bool) {
  return std::make_unique<SilentNotice>();
}

int UnattendedOperator::MessageBox(QMK_HWND, const std::string& text, const std::string& caption,
                                   unsigned flags, int) {
  const int answer = ClosedBoxAnswer(flags);
  GenTraceDebugFormatted("Operator", "no operator to ask; \"%s: %s\" answered %d", caption.c_str(),
                         text.c_str(), answer);
  return answer;
}

int UnattendedOperator::ShowScanErrorList(const std::vector<std::string>& faults) {
  std::string list;
  for (const std::string& f : faults) list += (list.empty() ? "" : "; ") + f;
  GenTraceDebugFormatted("Operator",
                         "no operator to ask (no host operator, no terminal); the faults \"%s\" "
                         "are answered Cancel and the scan stops",
                         list.c_str());
  return 2;
}

}  // namespace qmk::frame
