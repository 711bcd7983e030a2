#!/bin/bash
# Fails when a C++ file of ours is not laid out as .clang-format says.
set -euo pipefail
cd "$(dirname "$0")/.."
# Each release formats a little differently, so only one of them is used; status 77 says that nothing was checked.
decides=14
if ! clang-format --version | grep -q "version $decides\."; then
    echo "The layout is that of clang-format $decides; here is $(clang-format --version)"
    exit 77
fi
# A room that does not exist ends this script: find says which.
listed=$(python3 -B scripts/includes.py --rooms)
mapfile -t rooms <<<"$listed"
found=$(find "${rooms[@]}" \( -name '*.h' -o -name '*.cpp' \) | sort)
mapfile -t files <<<"$found"
[ -n "${files[0]}" ]
echo "${#files[@]} files"
clang-format --dry-run -Werror --style=file "${files[@]}"
