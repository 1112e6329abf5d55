# What "cmake --install" and CPack put where: the library for other programs, the Debian packages.
# Components: zorel (programs, data, manual, units) and dev (library, headers, package files).
include(CMakePackageConfigHelpers)

# Installing and packing take what is built; they do not build tests and the like first.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

# One archive for other programs: the engine and the catalogue with everything they stand on.
set(zorel_parts zorel_engine zorel_foundation zorel_coregraphics zorel_uikit zorel_eventkit zorel_common zorel_store)
set(zorel_archive ${PROJECT_BINARY_DIR}/lib/libzorel.a)
set(script "CREATE ${zorel_archive}\n")
foreach(part IN LISTS zorel_parts)
    string(APPEND script "ADDLIB $<TARGET_FILE:${part}>\n")
endforeach()
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/lib/libzorel.mri CONTENT "${script}SAVE\nEND\n")
add_custom_command(
    OUTPUT ${zorel_archive}
    COMMAND ${CMAKE_COMMAND} -E rm -f ${zorel_archive}
    COMMAND ${CMAKE_AR} -M < ${PROJECT_BINARY_DIR}/lib/libzorel.mri
    DEPENDS ${zorel_parts} ${PROJECT_BINARY_DIR}/lib/libzorel.mri
    COMMENT "Putting libzorel.a together"
    VERBATIM)
add_custom_target(libzorel ALL DEPENDS ${zorel_archive})
install(FILES ${zorel_archive} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)

foreach(folder engine platform/foundation common store)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${folder}/
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zorel/${folder} COMPONENT dev FILES_MATCHING PATTERN "*.h")
endforeach()

file(RELATIVE_PATH zorel_pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${PROJECT_SOURCE_DIR}/cmake/zorel.pc.in ${PROJECT_BINARY_DIR}/zorel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zorel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ZorelConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ZorelConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Zorel
    PATH_VARS CMAKE_INSTALL_INCLUDEDIR CMAKE_INSTALL_LIBDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZorelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZorelConfig.cmake ${PROJECT_BINARY_DIR}/ZorelConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Zorel COMPONENT dev)

# Debian packages: zorel (command line, data, units), zorel-settings (the window) and libzorel-dev.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zorel)
set(CPACK_PACKAGE_CONTACT "Zorel developers <zorel@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL zorel dev)
if(ZOREL_HOST)
    list(APPEND CPACK_COMPONENTS_ALL window)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ZOREL_PACKAGE_NAME zorel)
set(CPACK_DEBIAN_ZOREL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_ZOREL_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_ZOREL_PACKAGE_DEPENDS tzdata)
set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME zorel-settings)
set(CPACK_DEBIAN_WINDOW_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_WINDOW_PACKAGE_SHLIBDEPS ON)
# What Qt loads at run time and no linker sees: a module of QML; without a font all texts are blank.
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS
    "zorel (= ${PROJECT_VERSION}), qml6-module-qtqml-workerscript, fonts-dejavu-core")
set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS qt6-wayland)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libzorel-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
    "zorel (= ${PROJECT_VERSION}), libsqlite3-dev, libfmt-dev, libicu-dev, libplist-dev, libical-dev")
include(CPack)
