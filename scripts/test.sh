#!/usr/bin/env bash
# Configures, builds and runs the test suite for one CMake preset.
# Usage: scripts/test.sh [default|asan|ppc32]   (default: default)
#   default  native RelWithDebInfo build
#   asan     native build with AddressSanitizer + UndefinedBehaviorSanitizer
#   ppc32    32-bit big-endian PowerPC cross build, tests run under qemu-ppc
set -euo pipefail

preset="${1:-default}"
repo_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$repo_root"

case "$preset" in
    default) bash scripts/install-deps.sh native ;;
    asan)    bash scripts/install-deps.sh asan ;;
    ppc32)   bash scripts/install-deps.sh native
             bash scripts/install-deps.sh ppc32
             bash scripts/build-gtest-cross.sh "$repo_root/build/deps/ppc32"
             bash scripts/stage-cross-headers.sh "$repo_root/build/deps/ppc32" ;;
    *)       echo "usage: $0 [default|asan|ppc32]" >&2; exit 2 ;;
esac

# Tests are isolated from each other (own root directory, own IPC
# namespace), so they run in parallel unless the caller or preset says so.
export CTEST_PARALLEL_LEVEL="${CTEST_PARALLEL_LEVEL:-$(nproc)}"

cmake --preset "$preset"
cmake --build --preset "$preset"
ctest --preset "$preset"
