# What "cmake --install" puts where besides the programs: the package files of the library. Components: zorel (programs, data,
# manual, units), window, library (libzorel.so.1), dev (headers, package files), python. debian/ makes packages of them.
include(CMakePackageConfigHelpers)

# Installing takes what is built; it does not build tests and the like first.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

set(zorel_package ${CMAKE_INSTALL_LIBDIR}/cmake/Zorel)
install(EXPORT ZorelTargets NAMESPACE Zorel:: DESTINATION ${zorel_package} COMPONENT dev)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ZorelConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ZorelConfig.cmake INSTALL_DESTINATION ${zorel_package})
# As the C++ interface does, which is that of one minor version.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZorelConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZorelConfig.cmake ${PROJECT_BINARY_DIR}/ZorelConfigVersion.cmake
    DESTINATION ${zorel_package} COMPONENT dev)
file(RELATIVE_PATH zorel_pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${PROJECT_SOURCE_DIR}/cmake/zorel.pc.in ${PROJECT_BINARY_DIR}/zorel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zorel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
