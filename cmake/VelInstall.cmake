# Installs what does not belong to the program's own tree: the CMake package, the pkg-config file, a link to the program
# in the directory for executables, the pages and the translator example. The whole installation can be moved.

include(CMakePackageConfigHelpers)

set(VEL_RESOURCE_DIR ${VEL_SCHEMA_DIR}/resources)
set(VEL_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/velbase)
configure_package_config_file(cmake/velbaseConfig.cmake.in ${CMAKE_BINARY_DIR}/velbaseConfig.cmake
  INSTALL_DESTINATION ${VEL_PACKAGE_DIR}
  PATH_VARS VEL_TRANSLATOR_DIR VEL_RESOURCE_DIR VEL_SERVICE_DIR CMAKE_INSTALL_LIBDIR
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/velbaseConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/velbaseConfig.cmake ${CMAKE_BINARY_DIR}/velbaseConfigVersion.cmake
  DESTINATION ${VEL_PACKAGE_DIR})
install(EXPORT velbaseTargets NAMESPACE vel:: DESTINATION ${VEL_PACKAGE_DIR})

# The prefix is computed from the file's own path, because the installation's may differ from the configured one.
set(VEL_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH VEL_PKGCONFIG_UP /prefix/${VEL_PKGCONFIG_DIR} /prefix)
string(REGEX REPLACE "/$" "" VEL_PKGCONFIG_UP ${VEL_PKGCONFIG_UP})
configure_file(cmake/velbase.pc.in ${CMAKE_BINARY_DIR}/velbase.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/velbase.pc DESTINATION ${VEL_PKGCONFIG_DIR})

install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY examples/translator DESTINATION file/examples)

if(TARGET vel)
  file(RELATIVE_PATH VEL_PROGRAM /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${VEL_EXEC_DIR}/vel)
  install(CODE "
    set(bin \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    file(MAKE_DIRECTORY \"\${bin}\")
    file(CREATE_LINK ${VEL_PROGRAM} \"\${bin}/vel\" SYMBOLIC)")
endif()
