#!/usr/bin/env bash
# Builds GoogleTest and GoogleMock for 32-bit big-endian PowerPC from Debian's
# sources (/usr/src/googletest) into PREFIX as static libraries with a CMake
# package config, so find_package(GTest CONFIG) works in the ppc32 preset.
# Usage: scripts/build-gtest-cross.sh [PREFIX]   (default: build/deps/ppc32)
set -euo pipefail

repo_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
prefix="${1:-$repo_root/build/deps/ppc32}"
mkdir -p "$prefix"
prefix="$(cd "$prefix" && pwd)"
src=/usr/src/googletest
toolchain="$repo_root/cmake/toolchains/ppc32-linux-gnu.cmake"

# The stamp records the source version and the toolchain file's hash, so an
# upgraded googletest package or a changed toolchain triggers a rebuild.
gtest_version="$(dpkg-query -W -f='${Version}' googletest 2>/dev/null || echo unknown)"
stamp_want="googletest=$gtest_version toolchain=$(sha256sum "$toolchain" | cut -d' ' -f1)"
stamp="$prefix/.gtest-stamp"
config="$prefix/lib/cmake/GTest/GTestConfig.cmake"
if [[ -f "$config" && -f "$stamp" && "$(cat "$stamp")" == "$stamp_want" ]]; then
    echo "build-gtest-cross: up to date in $prefix"
    exit 0
fi

[[ -f "$src/CMakeLists.txt" ]] || {
    echo "build-gtest-cross: $src missing (run scripts/install-deps.sh ppc32)" >&2
    exit 1
}

work="$(mktemp -d "${TMPDIR:-/tmp}/gtest-ppc32.XXXXXX")"
trap 'rm -rf "$work"' EXIT

echo "build-gtest-cross: building GoogleTest $gtest_version into $prefix"
cmake -S "$src" -B "$work" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DGVUTIL_CROSS_DEPS="$prefix" \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DCMAKE_INSTALL_LIBDIR=lib \
    -DCMAKE_POSITION_INDEPENDENT_CODE=ON \
    -DBUILD_SHARED_LIBS=OFF \
    -DBUILD_GMOCK=ON \
    -DINSTALL_GTEST=ON \
    -Dgtest_build_tests=OFF \
    -Dgmock_build_tests=OFF \
    >"$work/configure.log" 2>&1 || { cat "$work/configure.log" >&2; exit 1; }
cmake --build "$work" --parallel "$(nproc)" >"$work/build.log" 2>&1 \
    || { cat "$work/build.log" >&2; exit 1; }
cmake --install "$work" >/dev/null

[[ -f "$config" ]] || { echo "build-gtest-cross: $config not installed" >&2; exit 1; }
printf '%s\n' "$stamp_want" >"$stamp"
echo "build-gtest-cross: done"
