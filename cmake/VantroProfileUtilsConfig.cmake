# find_package(VantroProfileUtils) reads this. A component is a target: C is VantroProfileUtils::C.
include(${CMAKE_CURRENT_LIST_DIR}/VantroProfileUtilsTargets.cmake)
foreach(component IN LISTS VantroProfileUtils_FIND_COMPONENTS)
    if(TARGET VantroProfileUtils::${component})
        set(VantroProfileUtils_${component}_FOUND TRUE)
    elseif(VantroProfileUtils_FIND_REQUIRED_${component})
        set(VantroProfileUtils_FOUND FALSE)
        set(VantroProfileUtils_NOT_FOUND_MESSAGE
            "this installation has no component ${component}; C needs a build with VANTRO_BUILD_C")
    endif()
endforeach()
