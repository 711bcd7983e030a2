#!/bin/bash
# Configures and builds the programs in the named folder of build/, with neither tests nor benchmarks; further
# arguments go to CMake. ./run calls it, and the test that shows that ./run needs no more than its packages.
set -euo pipefail
cd "$(dirname "$0")/.."
folder=$1
shift

# What was compiled in one folder of build/ is reused in the next one, so that building in a second folder is quick.
export CCACHE_BASEDIR="$PWD"
# The preset sets everything that differs between folders each time, so that a cached setting cannot switch on what
# needs more packages.
cmake --preset program -B "$folder" "$@"
cmake --build "$folder"
