add_compile_definitions(UNICODE _UNICODE NOMINMAX STRICT _WIN32_WINNT=0x0601 WINVER=0x0601)
add_link_options(-static -static-libgcc -static-libstdc++)

# A floor of the control: a static library of the sources given, which may include the floors that it knows.
#   ormisk_floor(tree KNOWS model)
function(ormisk_floor name)
  cmake_parse_arguments(FLOOR "" "" "SOURCES;KNOWS" ${ARGN})
  add_library(${name} STATIC ${FLOOR_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ormisk_idl ${FLOOR_KNOWS})
  # Most of a unit's time is the system's headers: the lowest floor compiles them for all.
  if(name STREQUAL win)
    target_precompile_headers(win PRIVATE <windows.h> <ole2.h> <olectl.h> <ocidl.h> <comdef.h> <wrl/client.h>
                              <ormisk.h> <functional> <map> <memory> <optional> <string> <vector>)
  else()
    target_precompile_headers(${name} REUSE_FROM win)
  endif()
endfunction()
