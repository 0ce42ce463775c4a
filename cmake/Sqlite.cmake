# The real database, where SQLite and its C++ wrapper are there: the library halyard_platform_sqlite, which says
# HALYARD_SQLITE to whoever links it. Debian's libsqlitecpp-dev brings both.

find_package(SQLiteCpp QUIET)
find_package(SQLite3 QUIET)
if(SQLiteCpp_FOUND)
  set(sqlitecpp SQLiteCpp)
else()
  # Distributions that install the wrapper without its package file.
  find_library(sqlitecpp_library SQLiteCpp)
  find_path(sqlitecpp_headers SQLiteCpp/SQLiteCpp.h)
  if(sqlitecpp_library AND sqlitecpp_headers)
    add_library(halyard_sqlitecpp INTERFACE)
    target_include_directories(halyard_sqlitecpp SYSTEM INTERFACE ${sqlitecpp_headers})
    target_link_libraries(halyard_sqlitecpp INTERFACE ${sqlitecpp_library})
    set(sqlitecpp halyard_sqlitecpp)
  endif()
endif()
if(NOT sqlitecpp OR NOT SQLite3_FOUND)
  message(STATUS "HALYARD_SQLITE: not found (libsqlitecpp-dev), so no records are kept")
  return()
endif()

message(STATUS "HALYARD_SQLITE: found, version ${SQLite3_VERSION}")
find_package(Threads REQUIRED)
halyard_floor(platform/sqlite NEEDS platform LINKS ${sqlitecpp} SQLite::SQLite3 Threads::Threads)
target_compile_definitions(halyard_platform_sqlite PUBLIC HALYARD_SQLITE)
