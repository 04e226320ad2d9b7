# Run by cpack between the installation and the packing: what Debian wants below /usr/share beside the installed tree,
# the manual page and the changelogs compressed, and the licence as "copyright".

if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

set(source "${CMAKE_CURRENT_LIST_DIR}/..")
set(share "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share")
set(doc "${share}/doc/${CPACK_PACKAGE_NAME}")

configure_file("${source}/LICENSE" "${doc}/copyright" COPYONLY)
configure_file("${source}/CHANGELOG.md" "${doc}/changelog" COPYONLY)

# The package's own history: one entry, with the date of the release.
file(STRINGS "${source}/CHANGELOG.md" release REGEX "^## \\[[0-9.]+\\] - [0-9-]+$" LIMIT_COUNT 1)
string(REGEX MATCH "[0-9-]+$" day "${release}")
execute_process(COMMAND date --utc --rfc-email "--date=${day}" OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
file(WRITE "${doc}/changelog.Debian" "${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * Release ${CPACK_PACKAGE_VERSION}; changelog.gz tells what is in it.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")

file(GLOB pages "${share}/man/man1/*.1")
execute_process(COMMAND gzip --best --no-name --force ${pages} "${doc}/changelog" "${doc}/changelog.Debian"
    COMMAND_ERROR_IS_FATAL ANY)
