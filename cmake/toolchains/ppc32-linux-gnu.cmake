# Cross toolchain for the chassis CPU: 32-bit big-endian PowerPC, Linux.
# Uses Debian's g++-powerpc-linux-gnu and runs target binaries (tests, and
# tools invoked from custom commands) under qemu-ppc from qemu-user.
#
# GoogleTest for the target is not packaged by Debian; scripts/build-gtest-cross.sh
# builds it into GVUTIL_CROSS_DEPS (default: <repo>/build/deps/ppc32).

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR powerpc)

set(GVUTIL_CROSS_TRIPLE powerpc-linux-gnu)
set(GVUTIL_CROSS_SYSROOT /usr/${GVUTIL_CROSS_TRIPLE})

set(CMAKE_C_COMPILER   ${GVUTIL_CROSS_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${GVUTIL_CROSS_TRIPLE}-g++)

# CMAKE_SOURCE_DIR is not defined yet when this file is read, nor inside
# try_compile projects, so the default is anchored to this file's location.
get_filename_component(_gvutil_repo_root "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
set(GVUTIL_CROSS_DEPS "${_gvutil_repo_root}/build/deps/ppc32"
    CACHE PATH "Prefix holding target-built dependencies (GoogleTest)")
# Hand the prefix on to try_compile projects, which re-read this file.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES GVUTIL_CROSS_DEPS)

set(CMAKE_FIND_ROOT_PATH "${GVUTIL_CROSS_SYSROOT}" "${GVUTIL_CROSS_DEPS}")
list(APPEND CMAKE_PREFIX_PATH "${GVUTIL_CROSS_DEPS}")

# Build-time programs (python, git, ...) come from the host; libraries,
# headers and CMake packages from the target roots only, so a host x86-64
# library can never be picked up by mistake.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# pkg-config must not report host packages either.
set(ENV{PKG_CONFIG_LIBDIR} "${GVUTIL_CROSS_SYSROOT}/lib/pkgconfig:${GVUTIL_CROSS_DEPS}/lib/pkgconfig")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "")

# ctest, gtest_discover_tests and add_custom_command(COMMAND <target>) run
# target binaries through this; -L lets qemu find ld.so.1 and the target
# libstdc++/libc under the cross sysroot.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-ppc -L ${GVUTIL_CROSS_SYSROOT})
