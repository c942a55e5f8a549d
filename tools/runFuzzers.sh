#!/bin/bash
# Runs every fuzzer of a build folder for some seconds, as many at a time as there are cores:
# runFuzzers.sh BUILD SECONDS. What they learn stays in BUILD/corpus, what they find in
# BUILD/findings.
set -euo pipefail
build=$(cd "$1" && pwd)
export build seconds=$2
cd "$(dirname "$0")/../tests/fuzz"

run_fuzzer() {
    local name=$1
    mkdir -p "$build/corpus/$name" "$build/findings"
    # A second for any one input is very long; the limit leaves room for a busy machine.
    if "$build/fuzz_$name" "$build/corpus/$name" "corpus/$name" -dict=help.dict \
        -max_total_time="$seconds" -timeout=20 -use_value_profile=1 -print_final_stats=1 \
        -artifact_prefix="$build/findings/$name-" > "$build/$name.log" 2>&1; then
        echo "$name: $(grep -Eo 'Done [0-9]+ runs in [0-9]+ second' "$build/$name.log")s, no findings"
    else
        tail -n 60 "$build/$name.log"
        echo "$name: FAILED, see $build/$name.log and $build/findings"
        return 1
    fi
}
export -f run_fuzzer

find "$build" -maxdepth 1 -name 'fuzz_*' -type f -executable -printf '%f\n' | sed 's/^fuzz_//' |
    sort | xargs -I{} -P "$(nproc)" bash -c 'run_fuzzer {}'
