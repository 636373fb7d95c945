#!/usr/bin/env bash
# Runs the rich content benchmark beside litehtml in one run. Installs Debian's liblitehtml-dev
# for the comparison only (make test never needs it), builds bench_richcontent against it and runs it.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
if ! dpkg-query -W -f='${Status}' liblitehtml-dev 2>/dev/null | grep -q 'install ok installed'; then
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo=sudo
  $sudo apt-get update -qq && $sudo apt-get install -y -qq --no-install-recommends liblitehtml-dev >/dev/null
fi
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DQMK_BENCH=ON >/dev/null
cmake --build "$build" -j "$(nproc)" --target bench_richcontent
shift || true
"$build/bench/bench_richcontent" "$@"
