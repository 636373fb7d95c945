// xvfb.h: a virtual X server for live window tests: started on a free display, DISPLAY pointed
// at it while it runs, stopped afterwards. Where it cannot start, the test skips with the reason.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <thread>

namespace qmk::testing {

class XvfbServer {
 public:
  // Starts `Xvfb -displayfd` with one 1280x1024x24 screen and waits (up to `timeout_ms`) until it
  // has told its display number and accepts connections on its socket.
  explicit XvfbServer(int timeout_ms = 15000) { Start(timeout_ms); }
  ~XvfbServer() { Stop(); }
  XvfbServer(const XvfbServer&) = delete;
  XvfbServer& operator=(const XvfbServer&) = delete;

  bool ok() const { return pid_ > 0 && !display_.empty(); }
  // Why the server is not running, for the skip message.
  const std::string& error() const { return error_; }
  // ":N"
  const std::string& display() const { return display_; }

  // One server for the whole test program: GTK opens its display once per process, so every
  // live test of a program shares it. It stops when the program exits.
  static XvfbServer& Shared() {
    static XvfbServer server;
    return server;
  }

  void Stop() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    if (!Reap(3000)) {
      kill(pid_, SIGKILL);
      Reap(3000);
    }
    pid_ = -1;
    if (!env_set_) return;
    env_set_ = false;
    RestoreEnv("DISPLAY", old_display_);
    RestoreEnv("WAYLAND_DISPLAY", old_wayland_);
  }

 private:
  void Start(int timeout_ms) {
    int fds[2];
    if (pipe2(fds, O_CLOEXEC) != 0) {
      error_ = std::string("pipe: ") + std::strerror(errno);
      return;
    }
    pid_t parent = getpid();
    pid_ = fork();
    if (pid_ < 0) {
      error_ = std::string("fork: ") + std::strerror(errno);
      close(fds[0]);
      close(fds[1]);
      return;
    }
    if (pid_ == 0) RunServer(fds[1], parent);
    close(fds[1]);
    std::string number;
    bool told = ReadDisplayNumber(fds[0], timeout_ms, &number);
    close(fds[0]);
    if (!told) {
      if (error_.empty()) error_ = "Xvfb did not report a display within the time allowed";
      Stop();
      return;
    }
    if (!WaitForSocket(number, timeout_ms)) {
      error_ = "Xvfb reported display :" + number + " but does not accept connections";
      Stop();
      return;
    }
    display_ = ":" + number;
    SaveEnv("DISPLAY", &old_display_);
    SaveEnv("WAYLAND_DISPLAY", &old_wayland_);
    setenv("DISPLAY", display_.c_str(), 1);
    env_set_ = true;
    // A live test must reach the X server, not a compositor the developer runs.
    unsetenv("WAYLAND_DISPLAY");
  }

  // In the child: becomes Xvfb, which writes its display number to `fd` once it is ready.
  [[noreturn]] static void RunServer(int fd, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);  // no stray server when a test crashes
    if (getppid() != parent) _exit(127);
    int null = open("/dev/null", O_RDWR);
    if (null >= 0) {
      dup2(null, 0);
      dup2(null, 1);
      dup2(null, 2);
    }
    // The pipe end becomes descriptor 3, which survives exec (dup2 clears close-on-exec); the
    // child of a threaded program may only make async-signal-safe calls, so nothing allocates.
    if (fd == 3) fcntl(fd, F_SETFD, 0);
    else dup2(fd, 3);
    execlp("Xvfb", "Xvfb", "-displayfd", "3", "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
           "-noreset", static_cast<char*>(nullptr));
    _exit(127);
  }

  bool ReadDisplayNumber(int fd, int timeout_ms, std::string* number) {
    auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
    while (true) {
      auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                      deadline - std::chrono::steady_clock::now()).count();
      if (left <= 0) return false;
      pollfd p{fd, POLLIN, 0};
      int r = poll(&p, 1, static_cast<int>(left));
      if (r < 0 && errno == EINTR) continue;
      if (r <= 0) return false;
      char buffer[32];
      ssize_t n = read(fd, buffer, sizeof buffer);
      if (n < 0 && errno == EINTR) continue;
      if (n <= 0) {
        // The write end closed without a number: Xvfb is missing or gave up.
        error_ = "Xvfb is missing or exited at start (scripts/ensure-deps installs it)";
        return false;
      }
      for (ssize_t i = 0; i < n; ++i) {
        if (buffer[i] == '\n') return !number->empty();
        if (buffer[i] < '0' || buffer[i] > '9') return false;
        *number += buffer[i];
      }
    }
  }

  static bool WaitForSocket(const std::string& number, int timeout_ms) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/tmp/.X11-unix/X%s", number.c_str());
    for (int waited = 0; waited <= timeout_ms; waited += 20) {
      int s = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
      if (s < 0) return false;
      bool connected = connect(s, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
      close(s);
      if (connected) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
  }

  bool Reap(int timeout_ms) {
    for (int waited = 0; waited <= timeout_ms; waited += 10) {
      if (waitpid(pid_, nullptr, WNOHANG) != 0) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }

  static void SaveEnv(const char* name, std::optional<std::string>* saved) {
    if (const char* value = getenv(name)) *saved = value;
  }
  static void RestoreEnv(const char* name, const std::optional<std::string>& saved) {
    if (saved) setenv(name, saved->c_str(), 1);
    else unsetenv(name);
  }

  pid_t pid_ = -1;
  std::string display_;
  std::string error_;
  bool env_set_ = false;
  std::optional<std::string> old_display_, old_wayland_;
};

}  // namespace qmk::testing

// Skips the current test, with the reason, when the shared virtual X server cannot run.
#define QMK_REQUIRE_XVFB()                                                        \
  do {                                                                           \
    auto& qmk_xvfb_ = ::qmk::testing::XvfbServer::Shared();                      \
    if (!qmk_xvfb_.ok()) GTEST_SKIP() << "Xvfb could not start: " << qmk_xvfb_.error(); \
  } while (0)
