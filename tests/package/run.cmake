# Takes the tree that a user of the library gets, and builds and runs a consumer against it: once through the CMake
# package and, where it is meant for, once through the pkg-config file. macroctl of that tree runs the demo macro.
#
#   BUILD_DIR   the build tree
#   FORM        what the user gets: installed (by cmake --install), static (the same from a build of the archive), or
#               DEB, ZIP, NSIS (the package that cpack makes)
#   CONFIG GENERATOR CXX    how the consumer is built
#   TOOLCHAIN EMULATOR      of a cross-built tree: the toolchain file, and what runs its programs

get_filename_component(sourceDir "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
set(workDir "${BUILD_DIR}/package-test/${FORM}")
set(prefix "${workDir}/installed")
file(REMOVE_RECURSE "${prefix}" "${workDir}/consumer")
file(MAKE_DIRECTORY "${workDir}")

# run(COMMAND...): its standard output goes to the variable output. What fails ends the test.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\nfailed (${status}):\n${output}${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect what expected actual)
    if(NOT actual STREQUAL expected)
        message(FATAL_ERROR "${what}: expected\n${expected}\nbut it is\n${actual}")
    endif()
endfunction()

if(TOOLCHAIN)
    set(compiler "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}")
else()
    set(compiler "-DCMAKE_CXX_COMPILER=${CXX}")
endif()
list(APPEND compiler "-DCMAKE_BUILD_TYPE=${CONFIG}")

# --- the tree

function(make_package)
    set(packages "${workDir}/packages")
    file(REMOVE_RECURSE "${packages}")
    run("${CMAKE_CPACK_COMMAND}" --config "${BUILD_DIR}/CPackConfig.cmake" -G "${FORM}" -C "${CONFIG}" -B "${packages}")
    file(GLOB package "${packages}/*.deb" "${packages}/*.zip" "${packages}/*.exe")
    set(package "${package}" PARENT_SCOPE)
endfunction()

if(FORM STREQUAL "installed")
    run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --config "${CONFIG}" --prefix "${prefix}")
elseif(FORM STREQUAL "static")
    # The build stays, so that another run has nothing to compile.
    run("${CMAKE_COMMAND}" -S "${sourceDir}" -B "${workDir}/build" -G "${GENERATOR}" ${compiler}
        -DBUILD_SHARED_LIBS=OFF -DMACROENGINE_BUILD_TESTS=OFF -DMACROENGINE_BUILD_EXAMPLES=OFF)
    run("${CMAKE_COMMAND}" --build "${workDir}/build" --config "${CONFIG}")
    run("${CMAKE_COMMAND}" --install "${workDir}/build" --config "${CONFIG}" --prefix "${prefix}")
elseif(FORM STREQUAL "DEB")
    make_package()
    run(dpkg-deb --field "${package}" Package Depends)
    if(NOT output MATCHES "^Package: macroengine\nDepends: libc6 \\(>= [0-9.]+\\), libgcc-s1 \\(>= [0-9.]+\\), libstdc\\+\\+6 \\(>= [0-9.]+\\)\n$")
        message(FATAL_ERROR "The package depends on other than the C++ library:\n${output}")
    endif()
    run(dpkg-deb --info "${package}")
    run(dpkg -x "${package}" "${workDir}/installed")
    set(prefix "${prefix}/usr")
    foreach(file man/man1/macroctl.1.gz doc/macroengine/changelog.gz doc/macroengine/changelog.Debian.gz)
        run(gzip --test "${prefix}/share/${file}")
    endforeach()
    run(dpkg-parsechangelog --file "${prefix}/share/doc/macroengine/changelog.Debian.gz" --show-field Version)
    run(dpkg-deb --field "${package}" Version)
    if(NOT EXISTS "${prefix}/share/doc/macroengine/copyright")
        message(FATAL_ERROR "There is no copyright")
    endif()
elseif(FORM STREQUAL "ZIP")
    make_package()
    file(ARCHIVE_EXTRACT INPUT "${package}" DESTINATION "${workDir}/installed")
    file(GLOB prefix "${workDir}/installed/*")
elseif(FORM STREQUAL "NSIS")
    make_package()
    # /S asks nothing; the folder comes last and takes no quotes. Z: is the root of the build system.
    string(REPLACE "/" "\\" folder "Z:${prefix}")
    run(${EMULATOR} "${package}" /S "/D=${folder}")
else()
    message(FATAL_ERROR "There is no form named ${FORM}")
endif()

# --- what is in it

file(GLOB macroctl "${prefix}/bin/macroctl" "${prefix}/bin/macroctl.exe")
if(macroctl)
    set(examples "${prefix}/share/doc/macroengine/examples")
    run(${EMULATOR} "${macroctl}" run --registers "${examples}/registers/amplifier.rgi"
        "${examples}/scripts/bringup.mac")
    string(REPLACE "\r\n" "\n" output "${output}")
    file(READ "${sourceDir}/tests/cli/golden/examples/bringup.mac.expected" expected)
    expect("The demo's output" "${expected}" "${output}")

    if(NOT TOOLCHAIN)
        foreach(file share/man/man1/macroctl.1 share/bash-completion/completions/macroctl)
            file(GLOB found "${prefix}/${file}*")
            if(NOT found)
                message(FATAL_ERROR "There is no ${file}")
            endif()
        endforeach()
    endif()
endif()
if(NOT EXISTS "${prefix}/share/doc/macroengine/LICENSE")
    message(FATAL_ERROR "There is no licence")
endif()

foreach(wanted 1.0 2.0 0.9)
    set(PACKAGE_FIND_VERSION ${wanted})
    string(REGEX MATCH "^[0-9]+" PACKAGE_FIND_VERSION_MAJOR ${wanted})
    include("${prefix}/lib/cmake/macroengine/macroengine-config-version.cmake")
    list(APPEND compatible "${wanted} ${PACKAGE_VERSION_COMPATIBLE}")
endforeach()
expect("The versions that the CMake package stands in for" "1.0 TRUE;2.0 FALSE;0.9 FALSE" "${compatible}")

file(GLOB sharedLibrary "${prefix}/lib/libmacroengine.so")
if(sharedLibrary)
    run(objdump -p "${sharedLibrary}")
    string(REGEX MATCH "SONAME +([^\n]+)" name "${output}")
    expect("The name that programs remember" libmacroengine.so.1 "${CMAKE_MATCH_1}")
endif()

# --- consumers

run("${CMAKE_CTEST_COMMAND}" --build-and-test "${CMAKE_CURRENT_LIST_DIR}" "${workDir}/consumer"
    --build-generator "${GENERATOR}" --build-config "${CONFIG}"
    --build-options "-DCMAKE_PREFIX_PATH=${prefix}" ${compiler}
    --test-command "${CMAKE_CTEST_COMMAND}" --build-config "${CONFIG}" --no-tests=error --output-on-failure)

find_program(PKG_CONFIG pkg-config)
if(PKG_CONFIG AND NOT WIN32 AND NOT TOOLCHAIN)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/lib/pkgconfig")
    run("${PKG_CONFIG}" --cflags --libs macroengine)
    separate_arguments(flags UNIX_COMMAND "${output}")
    run("${CXX}" -std=c++17 "${CMAKE_CURRENT_LIST_DIR}/main.cpp" -o "${workDir}/consumer-pc"
        ${flags} "-Wl,-rpath,${prefix}/lib")
    run("${workDir}/consumer-pc")
endif()
