#!/usr/bin/env bash
# Installs the Debian packages a build flavour needs, and only those missing.
# Usage: scripts/install-deps.sh [native|asan|ppc32|lint|fuzz|all]   (default: native)
set -euo pipefail

flavour="${1:-native}"

# libbsd-dev: the host chassis' balanced tree is its <bsd/sys/tree.h>
# (header only; libbsd itself is not linked). libsnmp-dev: net-snmp's asn1
# codec, the peer the BER codec is checked and measured against.
# libhwloc-dev: the peer the set text benchmark measures against. valgrind:
# `ctest -T memcheck`.
native_pkgs=(cmake ninja-build g++ pkg-config googletest libgtest-dev
             libgmock-dev libbenchmark-dev libreadline-dev libbsd-dev libsnmp-dev
             libhwloc-dev valgrind)
# GCC ships libasan/libubsan with g++ itself; nothing extra is needed.
asan_pkgs=("${native_pkgs[@]}")
# The cross build has no readline: Debian 12 has no powerpc port of it in
# main, so the ppc32 preset configures without it. GoogleTest is rebuilt
# from the sources in /usr/src/googletest (package googletest); the tree
# header is architecture-independent and staged by stage-cross-headers.sh.
ppc32_pkgs=(cmake ninja-build g++-powerpc-linux-gnu qemu-user googletest libbsd-dev)
lint_pkgs=(clang-format clang-tidy git)
# The fuzz targets: clang 14 and its libFuzzer and sanitizer runtimes.
fuzz_pkgs=(cmake ninja-build clang-14 libclang-rt-14-dev libbsd-dev)

case "$flavour" in
    native) wanted=("${native_pkgs[@]}") ;;
    asan)   wanted=("${asan_pkgs[@]}") ;;
    ppc32)  wanted=("${ppc32_pkgs[@]}") ;;
    lint)   wanted=("${lint_pkgs[@]}") ;;
    fuzz)   wanted=("${fuzz_pkgs[@]}") ;;
    all)    wanted=("${native_pkgs[@]}" "${ppc32_pkgs[@]}" "${lint_pkgs[@]}" "${fuzz_pkgs[@]}") ;;
    *)      echo "usage: $0 [native|asan|ppc32|lint|fuzz|all]" >&2; exit 2 ;;
esac

is_installed() {
    [[ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" == installed ]]
}

missing=()
for pkg in "${wanted[@]}"; do
    is_installed "$pkg" || missing+=("$pkg")
done
# Drop duplicates (the "all" flavour lists some packages twice).
if ((${#missing[@]})); then
    mapfile -t missing < <(printf '%s\n' "${missing[@]}" | sort -u)
fi

if ((${#missing[@]} == 0)); then
    echo "install-deps ($flavour): all packages present"
    exit 0
fi

echo "install-deps ($flavour): installing ${missing[*]}"
sudo_cmd=()
if ((EUID != 0)); then
    command -v sudo >/dev/null || { echo "install-deps: need root or sudo" >&2; exit 1; }
    sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
apt_opts=(-q -y -o Dpkg::Use-Pty=0 -o APT::Install-Recommends=false)
"${sudo_cmd[@]}" apt-get -qq update
"${sudo_cmd[@]}" apt-get "${apt_opts[@]}" install "${missing[@]}" >/dev/null

for pkg in "${missing[@]}"; do
    is_installed "$pkg" || { echo "install-deps: $pkg failed to install" >&2; exit 1; }
done
echo "install-deps ($flavour): done"
