#!/bin/sh
# An alarm's life through the tool on a private copy of a chassis root:
# configure two causes for the critical LED, raise both, clear them one by
# one. Arguments: the root to copy, then the tool's command line up to
# --root (emulator included).
set -e
source_root=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -R "$source_root/." "$work"
"$@" --root "$work" alarm route fan-fail critical,major >/dev/null
"$@" --root "$work" alarm route power-fail critical >/dev/null
"$@" --root "$work" alarm disable minor >/dev/null
"$@" --root "$work" alarm raise fan-fail 2
"$@" --root "$work" alarm raise power-fail 1
"$@" --root "$work" alarm show
"$@" --root "$work" alarm clear fan-fail 2
"$@" --root "$work" alarm clear power-fail 1
cat "$work/proc/ibc"
if "$@" --root "$work" alarm raise fan-failure 1 2>/dev/null; then exit 1; fi
