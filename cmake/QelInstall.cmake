# `find_package(QelCoreTypes)` gives a host Qel::QelCoreTypes and <qelcoretypes.h>.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/QelCoreTypes)

set(installed QelCoreTypes)
if(WIN32)
  list(APPEND installed qel_boost)
endif()
install(TARGETS ${installed} EXPORT QelCoreTypes
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qelcoretypes
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qelcoretypes)
install(EXPORT QelCoreTypes NAMESPACE Qel:: DESTINATION ${package_dir} FILE QelCoreTypesTargets.cmake)
configure_package_config_file(cmake/QelCoreTypesConfig.cmake.in QelCoreTypesConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(QelCoreTypesConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/QelCoreTypesConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/QelCoreTypesConfigVersion.cmake DESTINATION ${package_dir})
if(QEL_CLI)
  install(TARGETS qel)
endif()
