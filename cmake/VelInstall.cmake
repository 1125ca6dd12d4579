# What an installation has beside the tree of the program itself: the CMake package, the pkg-config file and a link to the
# program where a shell finds it.

include(CMakePackageConfigHelpers)

set(VEL_RESOURCE_DIR ${VEL_SCHEMA_DIR}/resources)
set(VEL_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/velbase)
configure_package_config_file(cmake/velbaseConfig.cmake.in ${CMAKE_BINARY_DIR}/velbaseConfig.cmake
  INSTALL_DESTINATION ${VEL_PACKAGE_DIR} PATH_VARS VEL_TRANSLATOR_DIR VEL_RESOURCE_DIR NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/velbaseConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/velbaseConfig.cmake ${CMAKE_BINARY_DIR}/velbaseConfigVersion.cmake
  DESTINATION ${VEL_PACKAGE_DIR})
install(EXPORT velbaseTargets NAMESPACE vel:: DESTINATION ${VEL_PACKAGE_DIR})

configure_file(cmake/velbase.pc.in ${CMAKE_BINARY_DIR}/velbase.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/velbase.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(TARGET vel)
  install(CODE "
    set(bin \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    file(MAKE_DIRECTORY \"\${bin}\")
    file(CREATE_LINK ../${VEL_EXEC_DIR}/vel \"\${bin}/vel\" SYMBOLIC)")
endif()
