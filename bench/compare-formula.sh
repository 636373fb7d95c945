#!/usr/bin/env bash
# compare-formula.sh: runs the formula engine and a peer engine (HyperFormula, installed from
# the npm registry into bench/peers/) on the same generated sheet, in one run: build and
# compute the sheet, then change one input in the middle and recompute. Prints both engines'
# times, wall-clock and processor (on a shared machine the processor time is the steadier),
# and the last chain value of each, which must agree.
#
#   bench/compare-formula.sh [ROWS] [QMKSCAN]
#
# ROWS defaults to 100000; QMKSCAN to build/tools/qmkscan/qmkscan.
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
rows="${1:-100000}"
qmkscan="${2:-$here/../build/tools/qmkscan/qmkscan}"
peers="$here/peers"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

if [ ! -d "$peers/node_modules/hyperformula" ]; then
  echo "installing the peer engine into $peers" >&2
  npm install --silent --no-audit --no-fund --prefix "$peers" hyperformula >&2
fi

# One input column A and five formula columns: a chain, a branch, rounding, a range sum and a
# second chain reading the previous row. The same rows as bench_formula_engine.cpp builds.
awk -v N="$rows" 'BEGIN {
  for (r = 1; r <= N; r++) {
    P = r - 1; a = r % 97
    if (r == 1) { print a "\t=A1\t=A1\t=ROUND(B1,2)\t=A1\t=C1"; continue }
    printf "%d\t=B%d+A%d\t=IF(A%d>50,A%d*2,A%d-1)\t=ROUND(B%d*0.01+C%d,2)\t=SUM(A%d:A%d)+D%d\t=F%d*0.5+E%d\n",
           a, P, r, r, r, r, r, r, P, r, r, P, r
  }
}' > "$work/sheet.tsv"
mid=$((rows / 2))

echo "== qmkscan ($rows rows)"
"$qmkscan" sheet "$work/sheet.tsv" --set "A$mid=1000" --print "F$rows:F$rows" --time 2>"$work/qmk.err" \
  | grep -v '^set' | sed 's/^/value /'
cat "$work/qmk.err"

echo "== HyperFormula ($rows rows)"
cat > "$work/peer.js" <<'JS'
const { HyperFormula } = require(process.argv[2]);
const fs = require('fs');
const rows = fs.readFileSync(process.argv[3], 'utf8').trimEnd().split('\n')
  .map(line => line.split('\t').map(t => (t.startsWith('=') ? t : Number(t))));
const mid = Number(process.argv[4]);
// Wall-clock and processor time (every thread of the process) of one step.
function timed(step) {
  const wall = process.hrtime.bigint(), cpu = process.cpuUsage();
  const result = step();
  const used = process.cpuUsage(cpu);
  return [result, Number(process.hrtime.bigint() - wall) / 1e9, (used.user + used.system) / 1e6];
}
const [hf, build, buildCpu] = timed(() => HyperFormula.buildFromArray(rows, { licenseKey: 'gpl-v3', maxRows: rows.length + 1 }));
console.log(`build and compute: ${build.toFixed(6)} s (cpu ${buildCpu.toFixed(6)} s)`);
const [changes, change, changeCpu] = timed(() => hf.setCellContents({ sheet: 0, col: 0, row: mid - 1 }, [[1000]]));
console.log(`change A${mid}: ${change.toFixed(6)} s (cpu ${changeCpu.toFixed(6)} s), ${changes.length} cells changed`);
console.log(`value F${rows.length}\t${hf.getCellValue({ sheet: 0, col: 5, row: rows.length - 1 })}`);
JS
node "$work/peer.js" "$peers/node_modules/hyperformula" "$work/sheet.tsv" "$mid"
