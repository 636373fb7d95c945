// scoped_env.h: test helpers that set a piece of process state and put it back: an environment
// variable, a temporary folder, the serial port opener, the clock.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/serial/serial_port.h"

namespace qmk::testing {

class ScopedEnv {
 public:
  ScopedEnv(const char* name, const std::string& value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    setenv(name, value.c_str(), 1);
  }
  ~ScopedEnv() {
    if (old_) setenv(name_, old_->c_str(), 1);
    else unsetenv(name_);
  }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "qmk-test-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  const std::filesystem::path& path() const { return path_; }
  std::string str() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

class ScopedPortOpener {
 public:
  explicit ScopedPortOpener(platform::serial::PortOpener* opener)
      : previous_(platform::serial::SetPortOpener(opener)) {}
  ~ScopedPortOpener() { platform::serial::SetPortOpener(previous_); }

 private:
  platform::serial::PortOpener* previous_;
};

class ScopedClock {
 public:
  explicit ScopedClock(platform::Clock* clock) : previous_(platform::SetClock(clock)) {}
  ~ScopedClock() { platform::SetClock(previous_); }

 private:
  platform::Clock* previous_;
};

}  // namespace qmk::testing
