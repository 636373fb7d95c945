// settings_sandbox.h: a private folder for the settings roots of one test, removed afterwards.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qmk::testing {

// Points the per-user and per-machine key roots and the shared data folder into a fresh
// temporary folder, and puts the environment back when it goes.
class SettingsSandbox {
 public:
  SettingsSandbox() {
    std::string pattern = (std::filesystem::temp_directory_path() / "qmk-settings-XXXXXX").string();
    root_ = mkdtemp(pattern.data()) ? pattern : "";
    EXPECT_FALSE(root_.empty());
    Set("XDG_CONFIG_HOME", root_ + "/config");
    Set("QMK_MACHINE_ROOT", root_ + "/machine");
    Set("QMK_COMMON_DATA", root_ + "/common");
  }
  ~SettingsSandbox() {
    for (auto it = saved_.rbegin(); it != saved_.rend(); ++it) {
      if (it->second) setenv(it->first.c_str(), it->second->c_str(), 1);
      else unsetenv(it->first.c_str());
    }
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  SettingsSandbox(const SettingsSandbox&) = delete;
  SettingsSandbox& operator=(const SettingsSandbox&) = delete;

  // Sets an environment variable until the sandbox goes.
  void Set(const std::string& name, const std::string& value) {
    Save(name);
    setenv(name.c_str(), value.c_str(), 1);
  }
  void Unset(const std::string& name) {
    Save(name);
    unsetenv(name.c_str());
  }

  const std::string& root() const { return root_; }
  std::string UserRoot() const { return root_ + "/config/quillmark/registry"; }

 private:
  void Save(const std::string& name) {
    const char* old = getenv(name.c_str());
    saved_.emplace_back(name, old ? std::optional<std::string>(old) : std::nullopt);
  }

  std::string root_;
  std::vector<std::pair<std::string, std::optional<std::string>>> saved_;
};

}  // namespace qmk::testing
