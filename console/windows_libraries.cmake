# The libraries of the console program that Debian has only for Debian, for Windows, from the sources that
# "./kodra setup package" puts into the cache: the same folder as in tools/all.sh, and root's as a last resort. Without
# the sources there are no targets xlsxwriter, hpdf, zint and httplib.
set(cache $ENV{KODRA_CACHE})
if(NOT cache)
  set(user_cache $ENV{XDG_CACHE_HOME})
  if(NOT user_cache)
    set(user_cache $ENV{HOME}/.cache)
  endif()
  set(cache ${user_cache}/kodra)
  if(NOT EXISTS ${cache}/zint)
    set(cache /var/cache/kodra)
  endif()
endif()
foreach(file libxlsxwriter/src/workbook.c libharu/src/hpdf_doc.c zint/backend/library.c cpp-httplib/httplib.h)
  if(NOT EXISTS ${cache}/${file})
    set(missing_library ${cache}/${file})
    return()
  endif()
endforeach()

# A library from sources that are not ours: third_party(NAME INCLUDE_FOLDER SOURCE…)
function(third_party name include)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} SYSTEM PUBLIC ${include})
  target_compile_options(${name} PRIVATE -w)
  target_link_libraries(${name} PUBLIC z)
endfunction()

file(GLOB library_sources ${cache}/libxlsxwriter/src/*.c)
set(xlsxwriter_parts ${cache}/libxlsxwriter/third_party)
third_party(xlsxwriter ${cache}/libxlsxwriter/include ${library_sources} ${xlsxwriter_parts}/minizip/zip.c
  ${xlsxwriter_parts}/minizip/ioapi.c ${xlsxwriter_parts}/minizip/iowin32.c
  ${xlsxwriter_parts}/tmpfileplus/tmpfileplus.c ${xlsxwriter_parts}/md5/md5.c)

# Without what needs libpng.
file(GLOB library_sources ${cache}/libharu/src/*.c)
list(FILTER library_sources EXCLUDE REGEX "_png\\.c$")
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/libharu/hpdf_config.h CONTENT
  "#define LIBHPDF_STDC_HEADERS 1\n#define LIBHPDF_HAVE_LIBZ 1\n#define LIBHPDF_HAVE_NOPNGLIB 1\n")
third_party(hpdf ${cache}/libharu/include ${library_sources})
target_include_directories(hpdf SYSTEM PUBLIC ${CMAKE_BINARY_DIR}/libharu)
# The same digits as on Linux.
target_compile_options(hpdf PRIVATE -msse2 -mfpmath=sse)

file(GLOB library_sources ${cache}/zint/backend/*.c)
list(FILTER library_sources EXCLUDE REGEX "/(dllversion|png)\\.c$")
third_party(zint ${cache}/zint/backend ${library_sources})
target_compile_definitions(zint PUBLIC NO_PNG PRIVATE ZINT_VERSION="2.11.1")

# A header only.
add_library(httplib INTERFACE)
target_include_directories(httplib SYSTEM INTERFACE ${cache}/cpp-httplib)
target_link_libraries(httplib INTERFACE ws2_32)
