# Cross-compiling for 32-bit Windows with Debian's mingw-w64 (posix thread model).
set(triple i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(KODRA_WIDL ${triple}-widl --win32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
