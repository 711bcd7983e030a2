#!/bin/bash
# Runs each fuzz target for a number of minutes with fresh seeds, in a build with the sanitizers:
#     scripts/fuzz.sh MINUTES [TARGET...]
# A failure names the seed that repeats it and keeps the output. docs/fuzzing.md says what the targets do.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

minutes=${1:-}
if ! [[ $minutes =~ ^[1-9][0-9]*$ ]]; then
    echo "usage: scripts/fuzz.sh MINUTES [TARGET...]" >&2
    exit 2
fi
shift
build=build/asan
longest_run=900 # seconds; a target that takes longer hangs

install_packages "${build_packages[@]}" "${program_packages[@]}" "${test_packages[@]}"
runtime_folder
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
# Qt and its fonts keep their memory until the end of the process.
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=0} UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}

say "Building the fuzz targets (preset asan, in $build)"
cmake --preset asan -DBUILD_TESTING=ON >/dev/null
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    mapfile -t targets < <(ctest --test-dir "$build" -N -L '^fuzz$' | sed -n 's/^ *Test *#[0-9]*: //p')
fi
[ ${#targets[@]} -gt 0 ]
cmake --build "$build" --target "${targets[@]}"

kept=$build/fuzz
mkdir -p "$kept"
failures=0
for target in "${targets[@]}"; do
    program=$(find "$build" -name "$target" -type f -perm -u+x -print -quit)
    say "$target for $minutes minutes"
    end=$((SECONDS + 60 * minutes))
    runs=0
    while [ $SECONDS -lt $end ]; do
        seed=$((1 + (RANDOM * 32768 + RANDOM) % 99999))
        runs=$((runs + 1))
        if ! timeout "$longest_run" "$program" --gtest_random_seed=$seed >"$kept/last.log" 2>&1; then
            mv "$kept/last.log" "$kept/$target-$seed.log"
            grep -m 20 -E 'Failure|ERROR|runtime error|FAILED' "$kept/$target-$seed.log" || true
            echo "FAILED: repeat with $program --gtest_random_seed=$seed (output: $kept/$target-$seed.log)"
            failures=$((failures + 1))
            break
        fi
    done
    echo "$target: $runs runs"
done
rm -f "$kept/last.log"
[ $failures -eq 0 ] && echo "no failure" || exit 1
