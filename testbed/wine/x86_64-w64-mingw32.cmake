# Cross-compiling for 64-bit Windows with Debian's mingw-w64 (posix thread model).
set(triple x86_64-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(KODRA_WIDL ${triple}-widl --win64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
