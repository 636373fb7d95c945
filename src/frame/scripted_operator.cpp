// scripted_operator.cpp: the scripted operator of tests and of unattended runs.
#include "frame/scripted_operator.h"

#include <cstdint>
#include <cstdio>

#include "platform/module_state.h"

namespace qmk::frame {
namespace {

std::string Handle(QMK_HWND window) {
  return std::to_string(reinterpret_cast<uintptr_t>(window));
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

class ScriptedNotice : public Notice {
 public:
  ScriptedNotice(ScriptedOperator& op, int width, int height)
      : op_(op), bounds_{0, 0, width, height} {}
  ~ScriptedNotice() override { op_.Record("notice destroy"); }

  void SetText(const std::string& text) override { op_.Record("notice text " + Quoted(text)); }
  void Show(bool visible) override { op_.Record(std::string("notice show ") + (visible ? "1" : "0")); }
  Rect Bounds() const override { return bounds_; }
  void MoveTo(int x, int y) override {
    bounds_ = Rect{x, y, x + bounds_.width(), y + bounds_.height()};
    op_.Record("notice move " + std::to_string(x) + "," + std::to_string(y));
  }
  bool Cancelled() const override { return op_.cancel_pressed(); }

 private:
  ScriptedOperator& op_;
  Rect bounds_;
};

}  // namespace

void ScriptedOperator::Record(const std::string& event) { events_.push_back(event); }

void ScriptedOperator::NoteModule() {
  const platform::ModuleState* state = platform::CurrentModule();
  modules_seen_.push_back(state && state->name ? state->name : "");
}

void ScriptedOperator::EnableWindow(QMK_HWND window, bool enabled) {
  NoteModule();
  if (enabled)
    disabled_.erase(window);
  else
    disabled_[window] = true;
  Record((enabled ? "enable " : "disable ") + Handle(window));
}

Rect ScriptedOperator::WindowRect(QMK_HWND window) {
  auto it = rects_.find(window);
  return it != rects_.end() ? it->second : Rect{0, 0, 1024, 768};
}

std::unique_ptr<Notice> ScriptedOperator::CreateNotice(QMK_HWND, const std::string& text,
                                                       bool show_cancel) {
  NoteModule();
  if (fail_next_notice_) {
    fail_next_notice_ = false;
    Record("notice failed");
    return nullptr;
  }
  cancel_pressed_ = false;
  Record("notice create " + Quoted(text) + " cancel=" + (show_cancel ? "1" : "0"));
  return std::make_unique<ScriptedNotice>(*this, notice_width_, notice_height_);
}

int ScriptedOperator::MessageBox(QMK_HWND, const std::string& text, const std::string& caption,
                                 unsigned flags, int help_id) {
  NoteModule();
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%X", flags);
  Record("message " + Quoted(caption) + " " + Quoted(text) + " flags=" + hex +
         " help=" + std::to_string(help_id));
  if (answers_.empty()) return 2;
  const int answer = answers_.front();
  answers_.pop_front();
  return answer;
}

int ScriptedOperator::ShowScanErrorList(const std::vector<std::string>& faults) {
  NoteModule();
  std::string event = "scan errors";
  for (const std::string& f : faults) event += " " + Quoted(f);
  Record(event);
  if (answers_.empty()) return 2;
  const int answer = answers_.front();
  answers_.pop_front();
  return answer;
}

void ScriptedOperator::PumpMessages() {
  if (cancel_countdown_ > 0 && --cancel_countdown_ == 0) cancel_pressed_ = true;
}

}  // namespace qmk::frame
