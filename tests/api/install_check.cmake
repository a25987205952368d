# Installs the build into a scratch prefix and builds and runs a consumer
# that finds the library through its CMake package and through pkg-config.
set(prefix ${WORK}/prefix)
file(REMOVE_RECURSE ${WORK})
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(failed)
        message(FATAL_ERROR "${ARGN}\n${out}")
    endif()
endfunction()
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
run(${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK}/consumer -G Ninja -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_BUILD_RPATH=${prefix}/lib
    # the consumer is built as the library was (sanitizer runtimes included)
    "-DCMAKE_C_FLAGS=${C_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${LINK_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK}/consumer)
set(ENV{LD_LIBRARY_PATH} ${prefix}/lib)
run(${WORK}/consumer/by_config)
run(${WORK}/consumer/by_pkgconfig)
if(NOT EXISTS ${prefix}/lib/libgvutil.so.${VERSION_MAJOR})
    message(FATAL_ERROR "no SONAME link libgvutil.so.${VERSION_MAJOR} installed")
endif()
