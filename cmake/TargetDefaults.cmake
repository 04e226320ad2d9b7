# macroengine_target_defaults(TARGET): language level, visibility, warnings and sanitizers of one of our targets.
# They go to the target itself and never to those who link it.
function(macroengine_target_defaults target)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)

    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8 /Zc:__cplusplus)
        target_compile_definitions(${target} PRIVATE NOMINMAX WIN32_LEAN_AND_MEAN _CRT_SECURE_NO_WARNINGS)
    else()
        # clang counts sign conversions among -Wconversion and g++ does not: both shall say the same.
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
            -Wnon-virtual-dtor -Woverloaded-virtual)
    endif()

    if(MACROENGINE_WERROR)
        target_compile_options(${target} PRIVATE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
    endif()

    if(MACROENGINE_SANITIZE)
        list(JOIN MACROENGINE_SANITIZE "," sanitizers)
        target_compile_options(${target} PRIVATE
            -fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${sanitizers})
    endif()
endfunction()
