# What cpack makes of the installed tree: a package for Debian, or an archive and an installer for Windows.

set(CPACK_PACKAGE_VENDOR "The macroengine authors")
set(CPACK_PACKAGE_CONTACT "The macroengine authors <authors@macroengine.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_FILE "${CMAKE_CURRENT_LIST_DIR}/package-description.txt")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_PACKAGE_INSTALL_DIRECTORY macroengine)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(WIN32)
    # NSIS makes 32-bit installers unless told otherwise.
    set(CPACK_GENERATOR ZIP NSIS)
    set(CPACK_NSIS_DEFINES "Target amd64-unicode")
    set(CPACK_NSIS_MODIFY_PATH ON)
else()
    set(CPACK_GENERATOR DEB)
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
    # What it depends on is read from the files; who links the library finds this package by its shlibs file.
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
    set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/DebianFiles.cmake")
endif()

include(CPack)
