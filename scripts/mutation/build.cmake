# Included by the build of the mutants after project(): headers that never change are compiled once, for every
# compilation after that.
function(vantro_precompile_for_mutants)
    target_precompile_headers(vantro_profile_utils PRIVATE <algorithm> <array> <bit> <cstdint> <cstring> <functional>
                              <limits> <memory> <optional> <span> <string> <string_view> <unordered_map> <utility>
                              <variant> <vector>)
    get_directory_property(areas DIRECTORY tests SUBDIRECTORIES)
    foreach(area IN LISTS areas)
        get_directory_property(targets DIRECTORY ${area} BUILDSYSTEM_TARGETS)
        foreach(target IN LISTS targets)
            get_target_property(type ${target} TYPE)
            if(type STREQUAL "EXECUTABLE")
                target_precompile_headers(${target} PRIVATE <gtest/gtest.h> <algorithm> <string> <vector>)
            endif()
        endforeach()
    endforeach()
endfunction()
cmake_language(DEFER CALL vantro_precompile_for_mutants)
