# The system-utility commands of the gvutil tool, on generated roots. The
# loglevel test sets a threshold to the value it already has, so the root
# stays as generated.
gv_tool_test(channel "^1 3\nresult 0\n$" --root ${GVSIM_ROOTS_DIR}/test3 channel /proc/gv_loglevel get 5 3)
gv_tool_test(channel_remote "^There is no system\nresult -1\n$"
    --root ${GVSIM_ROOTS_DIR}/k7100 channel -f 2 /SLOT9/proc/gv_loglevel get 5 3)
gv_tool_test(loglevel_table "system +0 +yes +3 err\n.*gpon +28 +yes +3 err\n.*snmp +2 +yes +3 err\n$"
    --root ${GVSIM_ROOTS_DIR}/test3 loglevel)
gv_tool_test(loglevel_set "^result +0\nreply +1 3\npriority +3 err\n$"
    --root ${GVSIM_ROOTS_DIR}/test3 loglevel set gpon 28 err)
gv_tool_test(loglevel_refused "reply +% Invalid log index : 29 \\(type 5 has 0-28\\)\npriority +0 emerg"
    --root ${GVSIM_ROOTS_DIR}/test3 loglevel get xgpon 29)
gv_tool_test(probe_uptime "^uptime 9378452 \\(1d 02:03:04.52\\)\n$" --root ${GVSIM_ROOTS_DIR}/test3 probe uptime)
gv_tool_test(probe_config "^/.config has room\n$" --root ${GVSIM_ROOTS_DIR}/test3 probe config-mem)
gv_tool_test(probe_ftp "^size +0\nmessage +\\(none\\)\n$" --root ${GVSIM_ROOTS_DIR}/test3 probe ftp-log /tmp/none)
gv_tool_test(mirror "^mirror +disabled, 0 entries\nrx +\\(none\\)\ntx +\\(none\\)\n$"
    --root ${GVSIM_ROOTS_DIR}/test3 mirror)
gv_tool_test(alive "slot 8 +alive\nslot 9 +-\nslot 10 +alive\nslot 11 +-\nslot 12 +-\n$"
    --root ${GVSIM_ROOTS_DIR}/k7100 alive)
gv_tool_test(octets "^words +1\npnums +2 9\nback +0102\nint +0x00000102 \\(first 4 octets\\)\next words 00004080\nreversed +8040\n$"
    octets 0102)
gv_tool_test(octets_pnums "^pnums +1 33\noctets +0100000001\n$" octets -p 33,1)
# A private copy of test3, so writing port data leaves the shared root alone.
add_test(NAME tool.portdata
    COMMAND sh -c "rm -rf \"$1\" && cp -r \"$2\" \"$1\" && shift 2 && \"$@\" portdata set /tmp/pd 7,2 lobby camera && \"$@\" portdata del /tmp/pd 2"
        portdata ${CMAKE_CURRENT_BINARY_DIR}/portdata-root ${GVSIM_ROOTS_DIR}/test3
        ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:gvutil_tool>
        --root ${CMAKE_CURRENT_BINARY_DIR}/portdata-root)
set_tests_properties(tool.portdata PROPERTIES
    PASS_REGULAR_EXPRESSION "^2 records written\nPort 2  : lobby camera\nPort 7  : lobby camera\nresult 1\n$"
    ENVIRONMENT "GVUTIL_ROOT=;TMPDIR=${CMAKE_CURRENT_BINARY_DIR}")
