# What goes onto a machine, and the Debian package of it.
#
# The help page has to lie beside the program, which a folder of programs is no place for. So programs and page
# live together in a folder of their own, and links in bin point there. What the operator saves lies in the
# operator's home: no script of the package knows of it, and removing or purging the package leaves it.

include(GNUInstallDirs)

foreach(program halyard halyard-practice halyardctl)
  if(TARGET ${program})
    list(APPEND programs ${program})
  endif()
endforeach()
if(NOT programs)
  return()
endif()

# In the build tree, too; copied anew whenever the page has changed.
configure_file(packaging/Halyard_Help.htm ${CMAKE_BINARY_DIR}/Halyard_Help.htm COPYONLY)

set(ownFolder ${CMAKE_INSTALL_LIBDIR}/halyard)
install(TARGETS ${programs} DESTINATION ${ownFolder})
install(FILES packaging/Halyard_Help.htm DESTINATION ${ownFolder})
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
file(RELATIVE_PATH fromBin ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/halyard)
foreach(program IN LISTS programs)
  set(link ${CMAKE_BINARY_DIR}/links/${program})
  file(CREATE_LINK ${fromBin}/${program} ${link} SYMBOLIC)
  install(FILES ${link} DESTINATION ${CMAKE_INSTALL_BINDIR})
endforeach()

if(TARGET halyard)
  install(FILES packaging/halyard.svg RENAME org.halyard.Halyard.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  install(FILES packaging/org.halyard.Halyard.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES packaging/org.halyard.Halyard.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES LICENSE RENAME copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN "*.md" PATTERN "*.png")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME halyard)
set(CPACK_PACKAGE_VENDOR "The Halyard authors")
set(CPACK_PACKAGE_CONTACT "The Halyard authors <halyard@halyard.home.arpa>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://halyard.home.arpa/")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGE_DESCRIPTION
    "Halyard signs on with a screenname of its own, sits in chat rooms, obeys the commands of\n\
its ops and ejects those who misbehave. It works from one window and runs unattended.\n\
.\n\
The package also holds a practice network that runs on this machine, to try everything\n\
without an account.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS ca-certificates) # whom TLS trusts
include(CPack)
