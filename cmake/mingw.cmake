# Shared by the two mingw-w64 toolchain files. The posix thread variant is preferred, because it has all of <mutex>.
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

include(${CMAKE_CURRENT_LIST_DIR}/host-headers.cmake)
set(CMAKE_FIND_ROOT_PATH /usr/${VANTRO_MINGW_TRIPLET} ${VANTRO_HOST_HEADERS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
