# libxlsxwriter for Windows, from the source that "./kodra setup" puts into the cache; without it there is no target.
set(cache $ENV{KODRA_CACHE})
if(NOT cache)
  set(cache /var/cache/kodra)
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
