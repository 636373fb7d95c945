// message_loop.h: the thread's message queue, message loops, idle processing and modal loops.
#pragma once

#include <functional>

#include "platform/ui/messages.h"
#include "platform/ui/types.h"

namespace qmk::platform::ui {

constexpr unsigned PM_NOREMOVE = 0x0, PM_REMOVE = 0x1;

// Takes the next message for `hwnd` (and its children; null: any) in the range (0, 0: all),
// waiting for input, timers and posted messages. False when WM_QUIT was taken.
bool GetMessage(MSG* msg, HWND hwnd, unsigned first, unsigned last);
// Like GetMessage without waiting: false when nothing is there.
bool PeekMessage(MSG* msg, HWND hwnd, unsigned first, unsigned last, unsigned remove);
LRESULT DispatchMessage(const MSG* msg);
void PostQuitMessage(int exit_code);

// One batch: takes in what the back end has (waiting up to `timeout_ms`, 0 none, -1 without
// limit), runs due timers, dispatches every queued message through the dialog manager of the
// active window, then paints. Returns false when WM_QUIT was seen (and leaves it queued for the
// loop that owns it).
bool PumpMessages(int timeout_ms);

// Runs until WM_QUIT; returns its exit code.
int RunMessageLoop();

// Runs until `done()` is true, a WM_QUIT comes (re-posted for the outer loop) or `owner` is
// destroyed. While it runs `owner`'s owner is disabled by the caller (see DialogBox). Idle
// handlers run when the queue falls empty. Returns false on WM_QUIT.
bool RunModalLoop(HWND owner, const std::function<bool()>& done);

// Idle processing: called with an increasing count each time the queue falls empty, until it
// returns false; the count starts at 0 again after the next message.
using IdleHandler = std::function<bool(int count)>;
int AddIdleHandler(IdleHandler handler);
void RemoveIdleHandler(int id);

// The depth of modal loops running now (0 outside any).
int ModalDepth();

// A function that sees every message before dispatch (the scripted operator, hooks of tests);
// returns true to swallow it.
using MessageFilter = std::function<bool(MSG& msg)>;
int AddMessageFilter(MessageFilter filter);
void RemoveMessageFilter(int id);

}  // namespace qmk::platform::ui
