# libxlsxwriter for Windows, from the source that "./kodra setup package" puts into the cache: the same folder as in
# tools/all.sh, and root's as a last resort. Without the source there is no target xlsxwriter.
set(cache $ENV{KODRA_CACHE})
if(NOT cache)
  set(user_cache $ENV{XDG_CACHE_HOME})
  if(NOT user_cache)
    set(user_cache $ENV{HOME}/.cache)
  endif()
  set(cache ${user_cache}/kodra)
  if(NOT EXISTS ${cache}/libxlsxwriter)
    set(cache /var/cache/kodra)
  endif()
endif()
set(xlsxwriter_source ${cache}/libxlsxwriter)
if(NOT EXISTS ${xlsxwriter_source}/src/workbook.c)
  return()
endif()
file(GLOB xlsxwriter_sources ${xlsxwriter_source}/src/*.c)
set(third_party ${xlsxwriter_source}/third_party)
add_library(xlsxwriter STATIC ${xlsxwriter_sources} ${third_party}/minizip/zip.c ${third_party}/minizip/ioapi.c
  ${third_party}/minizip/iowin32.c ${third_party}/tmpfileplus/tmpfileplus.c ${third_party}/md5/md5.c)
target_include_directories(xlsxwriter SYSTEM PUBLIC ${xlsxwriter_source}/include)
target_compile_options(xlsxwriter PRIVATE -w)  # not our code
target_link_libraries(xlsxwriter PUBLIC z)
