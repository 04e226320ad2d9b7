# macroengine_add_plugin(NAME SOURCE...): a module named NAME.so or NAME.dll that a host loads at run time.
function(macroengine_add_plugin name)
    add_library(${name} MODULE ${ARGN})
    macroengine_target_defaults(${name})
    target_link_libraries(${name} PRIVATE macroengine::macroengine)
    set_target_properties(${name} PROPERTIES
        PREFIX ""
        LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib/plugins"
        INSTALL_RPATH $<IF:$<PLATFORM_ID:Darwin>,@loader_path,$ORIGIN>/..)
endfunction()
