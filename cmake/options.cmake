# Warnings, hardening and instrumentation, applied to every target of this project through one function.
function(vantro_compile_options target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /utf-8 $<$<BOOL:${VANTRO_WARNINGS_AS_ERRORS}>:/WX>)
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                               $<$<BOOL:${VANTRO_WARNINGS_AS_ERRORS}>:-Werror>)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
            # "literal" + std::string: this compiler warns of an impossible overlap inside its own library.
            target_compile_options(${target} PRIVATE -Wno-restrict)
        endif()
    endif()
    vantro_harden(${target})
endfunction()

# vantro_precompile(<target>): precompiles what most sources include. Not in a clang-tidy build, where every source must
# include what it uses.
function(vantro_precompile target)
    if(VANTRO_QUICK_TESTS AND NOT CMAKE_CXX_CLANG_TIDY)
        target_precompile_headers(${target} PRIVATE <algorithm> <array> <functional> <memory> <optional> <span> <string>
                                  <string_view> <unordered_map> <utility> <variant> <vector>)
    endif()
endfunction()

# No paths of the sources or the build in the files: the same sources produce the same files in any folder.
if(PROJECT_IS_TOP_LEVEL AND VANTRO_BUILD_COM AND NOT MSVC)
    add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
endif()

if(PROJECT_IS_TOP_LEVEL AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(VANTRO_CCACHE ccache)
    mark_as_advanced(VANTRO_CCACHE)
    if(VANTRO_CCACHE)
        # Without this, ccache does not cache sources that use a precompiled header.
        set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
            ${VANTRO_CCACHE})
    endif()
endif()

if(VANTRO_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        add_compile_options(-fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitizers-ignore.txt)
    endif()
endif()
if(VANTRO_BUILD_FUZZERS)
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        message(FATAL_ERROR "VANTRO_BUILD_FUZZERS needs Clang, whose libFuzzer the fuzzers are linked with")
    endif()
    # The marks are in the fuzzers' own lists: watching every comparison for them costs a fifth of the speed.
    add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
endif()
if(VANTRO_SANITIZE_THREAD)
    if(VANTRO_SANITIZE)
        message(FATAL_ERROR "The thread sanitizer and the address sanitizer exclude each other")
    endif()
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
endif()
if(VANTRO_NO_SIMD)
    add_compile_definitions(VANTRO_NO_SIMD)
endif()
if(VANTRO_COVERAGE)
    add_link_options(--coverage)
endif()

# vantro_count_coverage(<target>): counts coverage in the sources of this target. Not used for the oracle, where
# counting would take most of the time.
function(vantro_count_coverage target)
    if(VANTRO_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage)
    endif()
endfunction()
