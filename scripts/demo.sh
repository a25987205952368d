#!/usr/bin/env bash
# Builds the gvutil tool and runs it on the embedded default chassis (K7400).
# Extra arguments go to the tool: scripts/demo.sh pnum 17
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

bash scripts/install-deps.sh native >/dev/null
cmake --preset default >/dev/null
cmake --build --preset default --target gvutil_tool >/dev/null
./build/default/tools/gvutil/gvutil "$@"
