#!/usr/bin/env bash
# Runs the rich content benchmarks beside litehtml in one run: parsing and styling
# (bench_richcontent), then layout and painting (bench_richlayout). Installs Debian's
# liblitehtml-dev for the comparison only (make test never needs it), builds both against it
# and runs them with the arguments given after the build folder.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
if ! dpkg-query -W -f='${Status}' liblitehtml-dev 2>/dev/null | grep -q 'install ok installed'; then
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo=sudo
  $sudo apt-get update -qq && $sudo apt-get install -y -qq --no-install-recommends liblitehtml-dev >/dev/null
fi
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DQMK_BENCH=ON >/dev/null
cmake --build "$build" -j "$(nproc)" --target bench_richcontent bench_richlayout
shift || true
"$build/bench/bench_richcontent" "$@"
"$build/bench/bench_richlayout" "$@"
