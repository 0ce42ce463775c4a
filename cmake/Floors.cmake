# One library a floor. A floor links only what stands below it, so that an include that climbs does not link;
# warnings are errors everywhere.

add_library(halyard_flags INTERFACE)
target_compile_options(halyard_flags INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
                                               -Wimplicit-fallthrough -Werror
                                               $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>
                                               $<$<CXX_COMPILER_ID:Clang>:-Wreserved-identifier>
                                               # GCC 12 sees an overlap in every optimised "literal" + text.
                                               $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_include_directories(halyard_flags INTERFACE ${CMAKE_SOURCE_DIR})
if(HALYARD_SANITIZE)
  target_compile_options(halyard_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  target_link_options(halyard_flags INTERFACE -fsanitize=address,undefined)
endif()

if(HALYARD_FUZZ)
  target_compile_options(halyard_flags INTERFACE
                         -fsanitize=fuzzer-no-link
                         -fsanitize-coverage-ignorelist=${CMAKE_SOURCE_DIR}/fuzz/uncounted.txt)
endif()

# Where the sources of a floor are compiled as one (CMAKE_UNITY_BUILD), script/check-alone compiles each by itself.
set(CMAKE_UNITY_BUILD_BATCH_SIZE 0)
if(CMAKE_UNITY_BUILD)
  # A test's fixture in an unnamed namespace is then one of an included file.
  target_compile_options(halyard_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()

# halyard_floor(<folder> [ROOMS <folder below it>...] [NEEDS <folder>...] [LINKS <library>...])
# A room is a folder of the same library.
function(halyard_floor folder)
  cmake_parse_arguments(FLOOR "" "" "ROOMS;NEEDS;LINKS" ${ARGN})
  string(REPLACE "/" "_" name ${folder})
  set(patterns ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
  foreach(room IN LISTS FLOOR_ROOMS)
    list(APPEND patterns ${CMAKE_SOURCE_DIR}/${folder}/${room}/*.cpp)
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  if(sources)
    add_library(halyard_${name} STATIC ${sources})
    set(scope PUBLIC)
  else()
    add_library(halyard_${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_link_libraries(halyard_${name} ${scope} halyard_flags ${FLOOR_LINKS})
  foreach(need IN LISTS FLOOR_NEEDS)
    string(REPLACE "/" "_" need ${need})
    target_link_libraries(halyard_${name} ${scope} halyard_${need})
  endforeach()
endfunction()
