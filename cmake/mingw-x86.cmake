# 32-bit Windows with mingw-w64: most terminals are 32-bit programs.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(VANTRO_MINGW_TRIPLET i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
