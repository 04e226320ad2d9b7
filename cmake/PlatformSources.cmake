# macroengine_choose_platform(LIST): takes the other platform's files, X_win32.cpp or X_posix.cpp, out of the list,
# and their tests, X_win32_test.cpp or X_win32_threads_test.cpp.
function(macroengine_choose_platform listName)
    if(WIN32)
        set(other posix)
    else()
        set(other win32)
    endif()
    list(FILTER ${listName} EXCLUDE REGEX "_${other}(_threads)?(_test)?\\.cpp$")
    set(${listName} "${${listName}}" PARENT_SCOPE)
endfunction()
