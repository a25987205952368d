#!/usr/bin/env bash
# Copies the header-only dependencies of the host chassis (the BSD tree
# macros of libbsd-dev) into PREFIX/include for the ppc32 cross build, whose
# search path holds only the target's own roots. The headers are the same for
# every architecture, and nothing of libbsd is linked.
# Usage: scripts/stage-cross-headers.sh [PREFIX]   (default: build/deps/ppc32)
set -euo pipefail

repo_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
prefix="${1:-$repo_root/build/deps/ppc32}"
headers=(bsd/sys/tree.h bsd/sys/cdefs.h)

for header in "${headers[@]}"; do
    [[ -f "/usr/include/$header" ]] || {
        echo "stage-cross-headers: /usr/include/$header missing (run scripts/install-deps.sh ppc32)" >&2
        exit 1
    }
    install -D -m 0644 "/usr/include/$header" "$prefix/include/$header"
done
echo "stage-cross-headers: ${headers[*]} in $prefix/include"
