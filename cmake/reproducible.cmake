# The same sources produce the same files in any folder and at any time.
if(NOT PROJECT_IS_TOP_LEVEL OR MSVC)
    return()
endif()

# A debug build keeps the real paths: the debugger finds the sources by them.
add_compile_options($<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
if(NOT APPLE)
    # D: no times, users or modes in an archive. CMake's default is only "qc".
    set(CMAKE_CXX_ARCHIVE_CREATE "<CMAKE_AR> qcD <TARGET> <LINK_FLAGS> <OBJECTS>")
    set(CMAKE_CXX_ARCHIVE_APPEND "<CMAKE_AR> qD <TARGET> <LINK_FLAGS> <OBJECTS>")
    set(CMAKE_CXX_ARCHIVE_FINISH "<CMAKE_RANLIB> -D <TARGET>")
endif()
if(MINGW)
    add_link_options(-Wl,--no-insert-timestamp)
endif()
