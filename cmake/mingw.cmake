# What the two mingw-w64 toolchain files share. The posix thread flavour is preferred: it has the whole of <mutex>.
set(CMAKE_SYSTEM_NAME Windows)

find_program(VANTRO_MINGW_CXX NAMES ${VANTRO_MINGW_TRIPLET}-g++-posix ${VANTRO_MINGW_TRIPLET}-g++ REQUIRED)
set(CMAKE_CXX_COMPILER ${VANTRO_MINGW_CXX})
string(REPLACE "-g++" "-gcc" CMAKE_C_COMPILER ${VANTRO_MINGW_CXX})  # GoogleTest's project asks for one
string(REPLACE "g++" "gcc" CMAKE_C_COMPILER ${VANTRO_MINGW_CXX})  # for GoogleTest's own sources
set(CMAKE_RC_COMPILER ${VANTRO_MINGW_TRIPLET}-windres)

# A terminal loads the server into its own process, on machines that have no runtime of this compiler.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")

# The header-only libraries of the tool are the build machine's. Its include folder as a whole must not come near
# a cross compiler, so a folder of links to these libraries alone stands in for it.
set(VANTRO_HOST_HEADERS ${CMAKE_BINARY_DIR}/host-headers)
foreach(library CLI rapidjson)
    if(IS_DIRECTORY /usr/include/${library} AND NOT EXISTS ${VANTRO_HOST_HEADERS}/include/${library})
        file(MAKE_DIRECTORY ${VANTRO_HOST_HEADERS}/include)
        file(CREATE_LINK /usr/include/${library} ${VANTRO_HOST_HEADERS}/include/${library} SYMBOLIC)
    endif()
endforeach()

set(CMAKE_FIND_ROOT_PATH /usr/${VANTRO_MINGW_TRIPLET} ${VANTRO_HOST_HEADERS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
