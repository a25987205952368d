#!/usr/bin/env bash
# Style gates: every tracked C/C++ file is clang-format clean, and the
# library, simulation and tool sources are clang-tidy clean against the
# default build's compile database.
# Usage: scripts/lint.sh   (after the default preset has been configured)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
bash scripts/install-deps.sh lint

mapfile -t sources < <(git ls-files '*.c' '*.h' '*.cpp')
clang-format --dry-run --Werror "${sources[@]}"
echo "clang-format: ${#sources[@]} files clean"

mapfile -t checked < <(git ls-files 'src/*.cpp' 'sim/*.cpp' 'tools/*.cpp')
printf '%s\n' "${checked[@]}" |
    xargs -P "$(nproc)" -n 8 clang-tidy -p build/default --quiet 2>/dev/null
echo "clang-tidy: ${#checked[@]} files clean"
