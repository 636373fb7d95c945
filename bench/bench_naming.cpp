// bench_naming.cpp: time of a name preview, a committed name with its context, the template
// check, and the settings store's reads and writes. The store lives in a temporary folder.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "options/auto_name.h"
#include "options/settings_mgr.h"
#include "platform/settings/profile_file.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkScan.h"

namespace {

// Points the settings roots into a fresh temporary folder for the whole run.
const std::string& Sandbox() {
  static const std::string root = [] {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "qmk-bench-naming-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
      std::perror("bench_naming: no temporary folder");
      std::exit(1);
    }
    const std::string dir = pattern;
    setenv("XDG_CONFIG_HOME", (dir + "/config").c_str(), 1);
    setenv("QMK_COMMON_DATA", (dir + "/common").c_str(), 1);
    // Removed at exit through a copy: the string itself may be gone by then.
    static char copy[4096];
    std::snprintf(copy, sizeof copy, "%s", dir.c_str());
    std::atexit([] {
      std::error_code ignored;
      std::filesystem::remove_all(copy, ignored);
    });
    return dir;
  }();
  return root;
}

build_data Record(bool context) {
  build_data record{};
  record.formNumber = 5;
  record.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  record.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  record.contextFileInUse = context ? 1 : 0;
  std::memcpy(record.autoNameTemplate, "*W*D*M*S.dat", 13);
  return record;
}

void BM_PreviewName(benchmark::State& state) {
  build_data record = Record(false);
  char name[QMK_NAME_BYTES];
  for (auto _ : state) {
    benchmark::DoNotOptimize(ScnMakeAutoName(nullptr, "/nonexistent", name, &record, 0));
  }
}
BENCHMARK(BM_PreviewName);

void BM_CommitNameWithContext(benchmark::State& state) {
  const std::string dir = Sandbox();
  build_data record = Record(true);
  char name[QMK_NAME_BYTES];
  for (auto _ : state) {
    benchmark::DoNotOptimize(ScnMakeAutoName(nullptr, dir.c_str(), name, &record, 1));
  }
}
BENCHMARK(BM_CommitNameWithContext)->Unit(benchmark::kMicrosecond);

void BM_CheckTemplate(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(GenCheckAutoNameCString("AP*J-*Y*S.dat", nullptr));
}
BENCHMARK(BM_CheckTemplate);

void BM_ContextRead(benchmark::State& state) {
  Sandbox();
  qmk::options::CSettingsMgr::OpenContextForWrite("Bench").SetInt("V", 12);
  for (auto _ : state) {
    const auto store = qmk::options::CSettingsMgr::OpenContext("Bench");
    benchmark::DoNotOptimize(store.GetInt("V", 0));
  }
}
BENCHMARK(BM_ContextRead)->Unit(benchmark::kMicrosecond);

void BM_ContextWrite(benchmark::State& state) {
  Sandbox();
  auto store = qmk::options::CSettingsMgr::OpenContextForWrite("Bench");
  int value = 0;
  for (auto _ : state) benchmark::DoNotOptimize(store.SetInt("V", ++value));
}
BENCHMARK(BM_ContextWrite)->Unit(benchmark::kMicrosecond);

void BM_IniLookup(benchmark::State& state) {
  std::string text;
  for (int s = 0; s < 20; ++s) {
    text += "[Section" + std::to_string(s) + "]\n";
    for (int k = 0; k < 20; ++k) text += "Key" + std::to_string(k) + " = " + std::to_string(k) + "\n";
  }
  for (auto _ : state)
    benchmark::DoNotOptimize(qmk::platform::FindProfileValue(text, "section19", "key19"));
}
BENCHMARK(BM_IniLookup)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
