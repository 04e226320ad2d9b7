# GoogleTest is not packaged for this target, but its sources are installed (Debian: googletest).
find_path(GTEST_SOURCE_DIR googletest/src/gtest-all.cc PATHS /usr/src/googletest
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(GTest REQUIRED_VARS GTEST_SOURCE_DIR)

if(GTEST_SOURCE_DIR AND NOT TARGET GTest::gtest)
    # Our own choices go no further than this file: a function has its own variables.
    function(add_googletest)
        set(BUILD_SHARED_LIBS OFF)
        set(INSTALL_GTEST OFF)
        set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
        add_subdirectory("${GTEST_SOURCE_DIR}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
    endfunction()
    add_googletest()
endif()
