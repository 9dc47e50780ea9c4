# Warnings and instrumentation, applied to every target of this project through one function.
function(vantro_compile_options target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /utf-8 $<$<BOOL:${VANTRO_WARNINGS_AS_ERRORS}>:/WX>)
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                               $<$<BOOL:${VANTRO_WARNINGS_AS_ERRORS}>:-Werror>)
    endif()
endfunction()

if(VANTRO_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(VANTRO_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
