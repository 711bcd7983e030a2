#!/bin/bash
# Fails when a C++ file of the house is not laid out as .clang-format says.
set -euo pipefail
cd "$(dirname "$0")/.."
rooms=()
for room in platform store frame movement lists history barcode tools tests benchmarks; do
    [ ! -d "$room" ] || rooms+=("$room")
done
mapfile -d '' files < <(find "${rooms[@]}" \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z)
[ "${#files[@]}" -gt 0 ]
echo "${#files[@]} files"
clang-format --dry-run -Werror --style=file "${files[@]}"
