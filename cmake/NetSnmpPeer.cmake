# net-snmp's own asn1 codec, the peer the BER codec is checked and measured
# against on the host. GVUTIL_NETSNMP_PEER: ON requires it, AUTO uses it
# when found, OFF leaves the peer test and benchmark out. A cross build never
# has it (the library is host x86-64).
#
# Defines the imported target gvutil_netsnmp and GVUTIL_HAVE_NETSNMP.
set(GVUTIL_NETSNMP_PEER AUTO CACHE STRING "Check BER against net-snmp: ON, AUTO or OFF")
set_property(CACHE GVUTIL_NETSNMP_PEER PROPERTY STRINGS ON AUTO OFF)
set(GVUTIL_HAVE_NETSNMP FALSE)

if(CMAKE_CROSSCOMPILING OR GVUTIL_NETSNMP_PEER STREQUAL "OFF")
    return()
endif()

find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
    pkg_check_modules(NETSNMP QUIET IMPORTED_TARGET netsnmp)
endif()
if(NETSNMP_FOUND)
    add_library(gvutil_netsnmp INTERFACE IMPORTED)
    target_link_libraries(gvutil_netsnmp INTERFACE PkgConfig::NETSNMP)
    set(GVUTIL_HAVE_NETSNMP TRUE)
else()
    find_program(NET_SNMP_CONFIG net-snmp-config)
    if(NET_SNMP_CONFIG)
        execute_process(COMMAND ${NET_SNMP_CONFIG} --netsnmp-libs
            OUTPUT_VARIABLE netsnmp_libs OUTPUT_STRIP_TRAILING_WHITESPACE)
        execute_process(COMMAND ${NET_SNMP_CONFIG} --base-cflags
            OUTPUT_VARIABLE netsnmp_cflags OUTPUT_STRIP_TRAILING_WHITESPACE)
        separate_arguments(netsnmp_libs UNIX_COMMAND "${netsnmp_libs}")
        # Only the header folders: the rest is net-snmp's own build flags.
        string(REGEX MATCHALL "-I[^ ]+" netsnmp_includes "${netsnmp_cflags}")
        list(TRANSFORM netsnmp_includes REPLACE "^-I" "")
        add_library(gvutil_netsnmp INTERFACE IMPORTED)
        target_link_libraries(gvutil_netsnmp INTERFACE ${netsnmp_libs})
        target_include_directories(gvutil_netsnmp INTERFACE ${netsnmp_includes})
        set(GVUTIL_HAVE_NETSNMP TRUE)
    endif()
endif()

if(GVUTIL_HAVE_NETSNMP)
    message(STATUS "net-snmp peer: found (BER peer test and benchmark)")
elseif(GVUTIL_NETSNMP_PEER STREQUAL "ON")
    message(FATAL_ERROR "net-snmp (Debian libsnmp-dev) is required by GVUTIL_NETSNMP_PEER=ON; "
        "run scripts/install-deps.sh")
else()
    message(STATUS "net-snmp peer: not found, BER peer test and benchmark left out")
endif()
