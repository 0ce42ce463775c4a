# What stands on Qt: the real platform, the windows, and the programs a person starts.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Network Widgets)

halyard_floor(platform/qt NEEDS platform LINKS Qt6::Core Qt6::Network)
# Words such as "slots" stay free for our own names.
target_compile_definitions(halyard_platform_qt PUBLIC QT_NO_KEYWORDS)
# Boxes and tray stand apart, so that programs without a window neither link nor need a screen.
halyard_floor(platform/qt/widgets NEEDS platform/qt LINKS Qt6::Widgets)
halyard_floor(surface/qt ROOMS bind views widgets NEEDS surface platform/qt/widgets)

halyard_floor(tour NEEDS surface platform/qt)

# halyard_program(<name> NEEDS <libraries>...): programs/<name>.cpp and what it stands on.
function(halyard_program name)
  cmake_parse_arguments(PROGRAM "" "" "NEEDS" ${ARGN})
  add_executable(${name} ${CMAKE_SOURCE_DIR}/programs/${name}.cpp)
  target_link_libraries(${name} PRIVATE halyard_flags ${PROGRAM_NEEDS})
endfunction()

halyard_program(halyard-practice NEEDS halyard_practice halyard_platform_qt)
halyard_program(halyard-tour NEEDS halyard_tour)
halyard_program(halyard NEEDS halyard_surface_qt $<TARGET_NAME_IF_EXISTS:halyard_platform_sqlite>)

# For terminals: Debian's libcli11-dev.
find_package(CLI11 QUIET)
if(CLI11_FOUND AND TARGET halyard_platform_sqlite)
  halyard_program(halyardctl NEEDS halyard_bridge halyard_platform_qt halyard_platform_sqlite CLI11::CLI11)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/programs/ctl/*.cpp)
  target_sources(halyardctl PRIVATE ${sources})
endif()

# The tour's scene and settings lie beside its program.
file(COPY ${CMAKE_SOURCE_DIR}/tour/den.txt ${CMAKE_SOURCE_DIR}/tour/Tour.hys
     DESTINATION ${CMAKE_BINARY_DIR}/tour)
