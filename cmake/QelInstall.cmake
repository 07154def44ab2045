# What `cmake --install` lays down. `find_package(QelCoreTypes)` gives a host Qel::QelCoreTypes and
# <qelcoretypes.h>; with `COMPONENTS Static` also Qel::QelCoreTypesStatic, and what that stands on. pkg-config knows
# the same two as QelCoreTypes and QelCoreTypesStatic (with --static).
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/QelCoreTypes)
set(header_dir ${CMAKE_INSTALL_INCLUDEDIR}/qelcoretypes)

install(TARGETS QelCoreTypes EXPORT QelCoreTypes
  FILE_SET HEADERS DESTINATION ${header_dir} INCLUDES DESTINATION ${header_dir})
install(TARGETS QelCoreTypesStatic EXPORT QelCoreTypesStatic INCLUDES DESTINATION ${header_dir})
foreach(library QelCoreTypes QelCoreTypesStatic)
  install(EXPORT ${library} NAMESPACE Qel:: DESTINATION ${package_dir} FILE ${library}Targets.cmake)
endforeach()
if(WIN32)
  # A linker takes resources from no archive.
  install(FILES $<TARGET_OBJECTS:qel_strings> DESTINATION ${CMAKE_INSTALL_LIBDIR} RENAME QelCoreTypesStrings.o)
endif()
configure_package_config_file(cmake/QelCoreTypesConfig.cmake.in QelCoreTypesConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(QelCoreTypesConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/QelCoreTypesConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/QelCoreTypesConfigVersion.cmake DESTINATION ${package_dir})

# install_pc(<name> <linker's words> <compiler's words> <what the library stands on>)
file(RELATIVE_PATH up ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" up ${up})
function(install_pc name libs flags private)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/QelCoreTypes.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
if(WIN32)
  set(flags -DBOOST_STACKTRACE_USE_WINDBG)
  # By its whole name, since hosts that take the compiler's libraries inside (-static) find no other.
  install_pc(QelCoreTypes "-l:libQelCoreTypes.dll.a -ldbgeng -lole32" ${flags} "")
  install_pc(QelCoreTypesStatic "\${libdir}/QelCoreTypesStrings.o -lQelCoreTypesStatic" "${flags} -DQEL_STATIC"
    "-lcrypt32 -ldbgeng -lole32 -loleaut32 -lshell32 -lshlwapi -lwinhttp")
else()
  set(flags -DBOOST_STACKTRACE_LINK)
  set(private "-licui18n -licuuc -lsqlite3 -lboost_stacktrace_backtrace")
  install_pc(QelCoreTypes -lQelCoreTypes ${flags} "${private}")
  install_pc(QelCoreTypesStatic -lQelCoreTypesStatic "${flags} -DQEL_STATIC" "${private}")
endif()
# `cmake --install --strip` leaves archives as they are, and cpack too.
install(CODE "if(CMAKE_INSTALL_DO_STRIP)
  execute_process(COMMAND \"${CMAKE_STRIP}\" --strip-debug
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/libQelCoreTypesStatic.a\"
    COMMAND_ERROR_IS_FATAL ANY)
endif()")
if(QEL_CLI)
  install(TARGETS qel)
endif()
