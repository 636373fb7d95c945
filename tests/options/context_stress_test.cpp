// Several processes naming files in one context at once, and writers killed at random moments:
// the context's values file is never damaged and holds a number that a writer wrote.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <thread>

#include "options/auto_name.h"
#include "options/settings_mgr.h"
#include "options/settings_paths.h"
#include "platform/settings/atomic_file.h"
#include "platform/settings/key_store.h"
#include "support/settings_sandbox.h"

namespace qmk::options {
namespace {

constexpr int16_t kForm = 42;

build_data ContextRecord() {
  build_data record{};
  record.formNumber = kForm;
  record.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  record.autoNameFlags = QMK_AUTONAME_NEVER_RESET;
  record.contextFileInUse = 1;
  std::memcpy(record.autoNameTemplate, "Scan*S.dat", 11);
  return record;
}

// Commits `count` names (all of them when count < 0, until killed), appending each number to
// `log` before it is stored, then leaves the process.
[[noreturn]] void Writer(const std::string& data_dir, const std::string& log, int count) {
  std::FILE* out = std::fopen(log.c_str(), "a");
  for (int i = 0; count < 0 || i < count; ++i) {
    build_data record = ContextRecord();
    char name[QMK_NAME_BYTES];
    build_data preview = record;
    MakeAutoName(nullptr, data_dir.c_str(), name, &preview, 0);
    std::fprintf(out, "%d\n", preview.autoNameSequence + 1);
    std::fflush(out);
    MakeAutoName(nullptr, data_dir.c_str(), name, &record, 1);
  }
  std::fclose(out);
  _exit(0);
}

std::set<int> Logged(const std::string& log) {
  std::set<int> numbers;
  std::ifstream in(log);
  for (int n; in >> n;) numbers.insert(n);
  return numbers;
}

class ContextStressTest : public ::testing::Test {
 protected:
  // The values file must be exactly what the store writes: every line whole, all three values.
  void ExpectIntactStore(const std::set<int>& written) {
    auto key = platform::KeyHandle::Open(platform::KeyRoot::kCurrentUser,
                                         JoinKey(kProductKey, ContextName(kForm)), false);
    ASSERT_NE(key, nullptr);
    std::string text;
    ASSERT_EQ(platform::ReadWholeFile(key->folder() + "/.values", text), platform::ReadStatus::kOk);
    const auto values = platform::ParseKeyValues(text);
    EXPECT_EQ(platform::FormatKeyValues(values), text);
    ASSERT_EQ(values.size(), 3u) << text;
    const int stored = CSettingsMgr::OpenContext(ContextName(kForm).c_str())
                           .GetInt("ContextFileAutonameSequenceNumber", -1);
    EXPECT_TRUE(written.count(stored)) << "stored " << stored;
  }

  // The context as a first commit leaves it, so that a writer killed before its own first
  // commit finds a store to check: number 0, which counts as written.
  void SeedContext() {
    CSettingsMgr store = CSettingsMgr::OpenContextForWrite(ContextName(kForm).c_str());
    ASSERT_TRUE(store.SetInt("ContextFileAutonameSequenceNumber", 0));
    ASSERT_TRUE(store.SetInt("ContextFileAutonameResetDay", 1));
    ASSERT_TRUE(store.SetInt("ContextFileAutonameResetMonth", 1));
  }
  // Longer runs for a soak: QMK_STRESS_SCALE=10 runs ten times the work.
  static int Scale() {
    const char* scale = std::getenv("QMK_STRESS_SCALE");
    return scale && std::atoi(scale) > 0 ? std::atoi(scale) : 1;
  }

  testing::SettingsSandbox sandbox_;
  std::string data_dir_ = sandbox_.root();
};

TEST_F(ContextStressTest, ProcessesCommittingAtOnceLeaveAWrittenNumber) {
  const int kProcesses = 4, kCommits = 40 * Scale();
  const std::string log = sandbox_.root() + "/numbers.log";
  std::vector<pid_t> children;
  for (int p = 0; p < kProcesses; ++p) {
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) Writer(data_dir_, log, kCommits);
    children.push_back(pid);
  }
  for (pid_t pid : children) {
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  const std::set<int> written = Logged(log);
  ExpectIntactStore(written);
  // The race may issue a number twice, but every process took its own names in order.
  std::printf("[ figures ] %d processes x %d commits: %zu distinct numbers issued\n", kProcesses,
              kCommits, written.size());
}

TEST_F(ContextStressTest, WritersKilledAtRandomMomentsNeverDamageTheStore) {
  const int kKills = 25 * Scale();
  const std::string log = sandbox_.root() + "/numbers.log";
  SeedContext();
  std::mt19937 random(20261122);
  int killed_mid_run = 0;
  for (int k = 0; k < kKills; ++k) {
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) Writer(data_dir_, log, -1);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
    kill(pid, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    killed_mid_run += WIFSIGNALED(status);
    std::set<int> written = Logged(log);
    written.insert(0);
    ExpectIntactStore(written);
    if (HasFatalFailure()) return;
  }
  std::printf("[ figures ] %d writers killed, %d of them mid-run; %zu numbers committed\n", kKills,
              killed_mid_run, Logged(log).size());
}

}  // namespace
}  // namespace qmk::options
