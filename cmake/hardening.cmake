# Hardening: a memory error ends the program instead of being exploitable. For shipped code only, not for tests; other
# systems' compilers have their own switches.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

set(hardening_possible OFF)
if(VANTRO_HARDENING AND UNIX AND NOT APPLE)
    set(hardening_possible ON)
    check_pie_supported(LANGUAGES CXX)
    check_cxx_compiler_flag(-fstack-protector-strong VANTRO_HAS_STACK_PROTECTOR)
    check_cxx_compiler_flag(-fstack-clash-protection VANTRO_HAS_STACK_CLASH_PROTECTION)
    check_cxx_compiler_flag(-fcf-protection VANTRO_HAS_CF_PROTECTION)
    check_linker_flag(CXX -Wl,-z,relro,-z,now VANTRO_HAS_FULL_RELRO)
endif()

# The library's checks of sizes need an optimiser, and a sanitizer brings its own.
set(fortify OFF)
if(NOT VANTRO_SANITIZE AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    set(fortify ON)
endif()

function(vantro_harden target)
    # VANTRO_HARDENING is tested again, because a folder can switch it off.
    if(NOT hardening_possible OR NOT VANTRO_HARDENING)
        return()
    endif()
    target_compile_options(${target} PRIVATE
        $<$<BOOL:${VANTRO_HAS_STACK_PROTECTOR}>:-fstack-protector-strong>
        $<$<BOOL:${VANTRO_HAS_STACK_CLASH_PROTECTION}>:-fstack-clash-protection>
        $<$<BOOL:${VANTRO_HAS_CF_PROTECTION}>:-fcf-protection>)
    if(fortify)
        target_compile_options(${target} PRIVATE
            "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>")
    endif()
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    get_target_property(type ${target} TYPE)
    if(VANTRO_HAS_FULL_RELRO AND NOT type STREQUAL "STATIC_LIBRARY")
        target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now)
    endif()
endfunction()
