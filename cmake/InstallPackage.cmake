# The installed tree: headers, library, a CMake package and a pkg-config file; macroctl with its manual page and the
# completion for bash; licence and examples.

# Everywhere the same folder, which is also the one that macroctl's run path names.
set(CMAKE_INSTALL_LIBDIR lib CACHE PATH "Folder of the libraries")
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(packageDir "${CMAKE_INSTALL_LIBDIR}/cmake/macroengine")

install(TARGETS macroengine EXPORT macroengine-targets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/macroengine" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILES_MATCHING PATTERN "*.h")
if(TARGET macroctl)
    install(TARGETS macroctl RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
    if(NOT WIN32)
        install(FILES "${PROJECT_SOURCE_DIR}/docs/man/macroctl.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
        install(FILES "${PROJECT_SOURCE_DIR}/tools/macroctl/completion/macroctl.bash" RENAME macroctl
            DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
    endif()
endif()
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
# Each example is a project of its own; the list of them all belongs to this build.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
    REGEX "/examples/CMakeLists.txt$" EXCLUDE)

configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/macroengine-config.cmake.in"
    "${PROJECT_BINARY_DIR}/package/macroengine-config.cmake" INSTALL_DESTINATION "${packageDir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/macroengine-config-version.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/package/macroengine-config.cmake"
    "${PROJECT_BINARY_DIR}/package/macroengine-config-version.cmake" DESTINATION "${packageDir}")
install(EXPORT macroengine-targets NAMESPACE macroengine:: DESTINATION "${packageDir}")

if(NOT BUILD_SHARED_LIBS)
    # Who links the archive has to link what the shared library brings along by itself.
    set(pkgConfigDefinitions "-DMACROENGINE_STATIC")
    set(pkgConfigLibraries "-lstdc++ -pthread -ldl -lrt")
endif()
configure_file("${CMAKE_CURRENT_LIST_DIR}/macroengine.pc.in" "${PROJECT_BINARY_DIR}/package/macroengine.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/package/macroengine.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
