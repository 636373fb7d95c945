// callback_operator.cpp: a host's C callbacks behind the operator seam.
#include "frame/callback_operator.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "frame/scan_error_texts.h"

namespace qmk::frame {
namespace {

// The members every host must have, whatever later versions append.
constexpr size_t kFirstVersionSize = offsetof(ScnOperator, pump) + sizeof(ScnOperator::pump);

class CallbackNotice : public Notice {
 public:
  CallbackNotice(const ScnOperator& c, void* handle) : c_(c), handle_(handle) {}
  ~CallbackNotice() override { c_.notice_destroy(c_.context, handle_); }
  void SetText(const std::string& text) override { c_.notice_text(c_.context, handle_, text.c_str()); }
  void Show(bool visible) override { c_.notice_show(c_.context, handle_, visible ? 1 : 0); }
  Rect Bounds() const override { return Rect{}; }
  void MoveTo(int, int) override {}
  bool Cancelled() const override { return c_.notice_cancelled(c_.context, handle_) != 0; }

 private:
  const ScnOperator& c_;
  void* handle_;
};

}  // namespace

int CheckCallbacks(const ScnOperator& c) {
  if (c.size < kFirstVersionSize) return QMK_ERROR_BAD_OPERATOR;
  if (!c.message_box || !c.fault_list) return QMK_ERROR_NULL_ARGUMENT;
  const int notices = (c.notice_create != nullptr) + (c.notice_text != nullptr) +
                      (c.notice_show != nullptr) + (c.notice_cancelled != nullptr) +
                      (c.notice_destroy != nullptr);
  if (notices != 0 && notices != 5) return QMK_ERROR_BAD_OPERATOR;
  return 0;
}

CallbackOperator::CallbackOperator(const ScnOperator& callbacks) {
  // A host built against this header gives all of it; the size only guards older layouts.
  std::memset(&c_, 0, sizeof c_);
  std::memcpy(&c_, &callbacks, std::min<size_t>(callbacks.size, sizeof c_));
}

void CallbackOperator::EnableWindow(QMK_HWND window, bool enabled) {
  if (c_.enable_window) c_.enable_window(c_.context, window, enabled ? 1 : 0);
}

std::unique_ptr<Notice> CallbackOperator::CreateNotice(QMK_HWND parent, const std::string& text,
                                                       bool show_cancel) {
  if (!c_.notice_create) return nullptr;
  void* handle = c_.notice_create(c_.context, parent, text.c_str(), show_cancel ? 1 : 0);
  if (!handle) return nullptr;
  return std::make_unique<CallbackNotice>(c_, handle);
}

int CallbackOperator::MessageBox(QMK_HWND parent, const std::string& text,
                                 const std::string& caption, unsigned flags, int help_id) {
  return c_.message_box(c_.context, parent, text.c_str(), caption.c_str(), flags, help_id);
}

int CallbackOperator::ShowScanErrorList(const std::vector<std::string>& faults) {
  std::vector<const char*> texts;
  texts.reserve(faults.size() + 1);
  for (const std::string& f : faults) texts.push_back(f.c_str());
  texts.push_back(nullptr);
  const int answer = c_.fault_list(c_.context, kScanErrorTitle, kScanErrorHeading, texts.data(),
                                   static_cast<int>(faults.size()), kScanErrorAdvice);
  // Anything but "read again" stops: a host that answers nonsense must not loop on a fault.
  return answer == 1 ? 1 : 2;
}

void CallbackOperator::PumpMessages() {
  if (c_.pump) c_.pump(c_.context);
}

}  // namespace qmk::frame
