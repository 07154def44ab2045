# The Debian package: `cpack -G DEB` in a build of the preset release.
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/qelcoretypes)
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/qelcoretypes)
# The reference is there when scripts/reference was run. The Debian package is made without: cpack asks of each of its
# hundreds of files whether it is a program.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/build/reference/html/ COMPONENT Reference OPTIONAL
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/qelcoretypes/reference)
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};QelCoreTypes;Unspecified;/")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qelcoretypes)
set(CPACK_PACKAGE_CONTACT "QelCoreTypes developers <developers@qelcoretypes.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "core types for business applications in Arabic and English")
set(CPACK_PACKAGE_DESCRIPTION "Days in the Gregorian and the Hijri calendar, dates and numbers as people type them,
texts in eight languages, errors that explain themselves, typed settings, files,
web requests, and one place where the modules of an application find each
other's services: the library, shared and static, its headers, and qel, which
shows it on the command line.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# Boost's headers are included by ours; libcurl is loaded at the first request, so that no linker knows of it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libboost-dev, libcurl4")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libboost-stacktrace-dev, libicu-dev, libsqlite3-dev")  # for the static library
include(CPack)
