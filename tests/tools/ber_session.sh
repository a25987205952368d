#!/bin/sh
# The ber subcommand's answers, messages and exit status, one after another.
# The arguments are the tool's command line up to the subcommand.
step() {
    "$@" 2>&1
    echo "exit $?"
}
step "$@" ber encode int 127
step "$@" ber encode int -129
step "$@" ber encode int 2147483648
step "$@" ber encode string 'ab"c'
step "$@" ber encode string "$(printf '%0128d' 0)"
step "$@" ber decode 02 02 ff 7f
step "$@" ber decode 41:04:80:00:00:00
step "$@" ber decode '02 00 80'
step "$@" ber decode 040461620a63ee
step "$@" ber decode 02 05 00 80 00 00 00
step "$@" ber decode 04 03 61 62
step "$@" ber decode 04
step "$@" ber decode 0x02
step "$@" ber decode
