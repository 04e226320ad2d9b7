# The target docs: pages about the interface, made by doxygen from the public headers. A warning is an error.

find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
    return()
endif()

set(DOXYGEN_STRIP_FROM_INC_PATH "${PROJECT_SOURCE_DIR}/include")
set(DOXYGEN_STRIP_FROM_PATH "${PROJECT_SOURCE_DIR}/include")
set(DOXYGEN_HTML_OUTPUT api)
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE "${CMAKE_CURRENT_LIST_DIR}/api-pages.md")
set(DOXYGEN_ENABLE_PREPROCESSING YES)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED MACROENGINE_API= MACROENGINE_PLUGIN_EXPORT= __GNUC__)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_QUIET YES)
set(DOXYGEN_WARN_NO_PARAMDOC NO)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
doxygen_add_docs(docs "${PROJECT_SOURCE_DIR}/include/macroengine" "${CMAKE_CURRENT_LIST_DIR}/api-pages.md"
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}/include" COMMENT "The pages about the interface")

if(MACROENGINE_BUILD_TESTS AND NOT MACROENGINE_SANITIZE)
    add_test(NAME checks.api_pages
        COMMAND $<TARGET_FILE:Doxygen::doxygen> "${PROJECT_BINARY_DIR}/Doxyfile.docs"
        WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}/include")
    set_tests_properties(checks.api_pages PROPERTIES LABELS checks TIMEOUT 120)
endif()
