#!/bin/sh
# One session of the ONU store commands in a private IPC namespace, so the
# store's fixed key meets nothing else on the machine. The arguments are the
# tool's command line up to the subcommand (emulator and --root included).
exec unshare --ipc sh -ec '
    "$@" onu-init
    "$@" onus 0,3-9 8
    "$@" onu-set 1/3 5 description lobby
    "$@" onu-set 1/3 5 mac 00:1b:2c:3d:4e:5f
    "$@" onu-set 1/3 5 unis 4
    "$@" onu-set 1/3 5 uni 0 camera
    "$@" olt-red 1 3 4
    "$@" onu-show 3 5
    "$@" onu-table 44
    if "$@" onu-set 1/3 130 unis 2; then exit 1; fi
' onu_session "$@"
