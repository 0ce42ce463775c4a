# What stands on Qt: the real platform, the windows, and the programs a person starts.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Network Widgets)

halyard_floor(platform/qt NEEDS platform LINKS Qt6::Core Qt6::Network)
# Words such as "slots" stay free for our own names.
target_compile_definitions(halyard_platform_qt PUBLIC QT_NO_KEYWORDS)
# Boxes and tray stand apart, so that programs without a window neither link nor need a screen.
halyard_floor(platform/qt/widgets NEEDS platform/qt LINKS Qt6::Widgets)
halyard_floor(surface/qt NEEDS surface platform/qt/widgets)

# halyard_program(<name> SOURCES <file patterns>... NEEDS <libraries>...)
function(halyard_program name)
  cmake_parse_arguments(PROGRAM "" "" "SOURCES;NEEDS" ${ARGN})
  list(TRANSFORM PROGRAM_SOURCES PREPEND ${CMAKE_SOURCE_DIR}/)
  file(GLOB sources CONFIGURE_DEPENDS ${PROGRAM_SOURCES})
  if(sources)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE halyard_flags ${PROGRAM_NEEDS})
  endif()
endfunction()

halyard_program(halyard-practice SOURCES practice/main.cpp NEEDS halyard_practice halyard_platform_qt)
halyard_program(halyard-tour SOURCES surface/tour/*.cpp NEEDS halyard_surface halyard_platform_qt)
halyard_program(halyard SOURCES surface/main.cpp NEEDS halyard_surface_qt)

# The tour's scene and settings lie beside its program.
file(COPY ${CMAKE_SOURCE_DIR}/surface/tour/den.txt ${CMAKE_SOURCE_DIR}/surface/tour/Tour.hys
     DESTINATION ${CMAKE_BINARY_DIR}/tour)
