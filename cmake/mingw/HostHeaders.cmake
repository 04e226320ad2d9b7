# use_host_headers(TARGET FOLDER): an imported target for a header-only library that is installed on the build system
# as /usr/include/FOLDER. Its headers are reached through a folder that holds nothing else: /usr/include itself would
# mix the C library of the build system into the other one's.
function(use_host_headers target folder)
    find_path(${folder}_HOST_HEADERS "${folder}" PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    if(NOT ${folder}_HOST_HEADERS)
        return()
    endif()
    set(headers "${CMAKE_BINARY_DIR}/host_headers/${folder}")
    file(MAKE_DIRECTORY "${headers}")
    file(CREATE_LINK "${${folder}_HOST_HEADERS}/${folder}" "${headers}/${folder}" SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED)
    target_include_directories(${target} SYSTEM INTERFACE "${headers}")
endfunction()
