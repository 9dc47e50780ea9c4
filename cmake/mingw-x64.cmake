# 64-bit Windows with mingw-w64.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(VANTRO_MINGW_TRIPLET x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
