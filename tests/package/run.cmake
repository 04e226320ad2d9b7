# Installs the build tree BUILD_DIR into a folder of its own, then builds and runs the consumer there: once through the
# CMake package and, where there is a pkg-config, once through the pkg-config file.

set(workDir "${BUILD_DIR}/package-test")
set(prefix "${workDir}/installed")
file(REMOVE_RECURSE "${workDir}")

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\nfailed (${status}):\n${output}")
    endif()
endfunction()

run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --config "${CONFIG}" --prefix "${prefix}")

run("${CMAKE_CTEST_COMMAND}" --build-and-test "${CMAKE_CURRENT_LIST_DIR}" "${workDir}/consumer"
    --build-generator "${GENERATOR}" --build-config "${CONFIG}"
    --build-options "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_BUILD_TYPE=${CONFIG}"
    --test-command consumer)

if(EXISTS "${prefix}/bin/macroctl")
    run("${prefix}/bin/macroctl" --help)
endif()

find_program(PKG_CONFIG pkg-config)
if(PKG_CONFIG AND NOT WIN32)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/lib/pkgconfig")
    execute_process(COMMAND "${PKG_CONFIG}" --cflags --libs macroengine
        OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    run("${CXX}" -std=c++17 "${CMAKE_CURRENT_LIST_DIR}/main.cpp" -o "${workDir}/consumer-pc"
        ${flags} "-Wl,-rpath,${prefix}/lib")
    run("${workDir}/consumer-pc")
endif()
