# What "cmake --install" and CPack put where: the library for other programs, the Debian packages.
# Components: zorel (programs, data, manual, units) and dev (library, headers, package files).
include(CMakePackageConfigHelpers)

# Installing and packing take what is built; they do not build tests and the like first.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

# The library for other programs: Zorel::engine, Zorel::almanac and Zorel::catalogue with what they stand on.
install(TARGETS zorel_engine zorel_almanac EXPORT ZorelAlmanacTargets ARCHIVE COMPONENT dev)
install(TARGETS zorel_foundation zorel_coregraphics zorel_uikit zorel_common zorel_places zorel_catalogue
    EXPORT ZorelCatalogueTargets ARCHIVE COMPONENT dev)
set(zorel_package ${CMAKE_INSTALL_LIBDIR}/cmake/Zorel)
foreach(part Almanac Catalogue)
    install(EXPORT Zorel${part}Targets NAMESPACE Zorel:: DESTINATION ${zorel_package} COMPONENT dev)
endforeach()
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ZorelConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ZorelConfig.cmake INSTALL_DESTINATION ${zorel_package})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZorelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZorelConfig.cmake ${PROJECT_BINARY_DIR}/ZorelConfigVersion.cmake
    DESTINATION ${zorel_package} COMPONENT dev)
file(RELATIVE_PATH zorel_pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
foreach(part engine almanac catalogue)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/zorel-${part}.pc.in ${PROJECT_BINARY_DIR}/zorel-${part}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/zorel-${part}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endforeach()

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
# Beside what the linker sees: libraries that the program loads on demand.
pkg_check_modules(ICU REQUIRED icu-uc)
string(REGEX MATCH "^[0-9]+" zorel_icu_major ${ICU_VERSION})
set(CPACK_DEBIAN_ZOREL_PACKAGE_DEPENDS "tzdata, libicu${zorel_icu_major}, libical3")
# What lets alarms sound (the decoders and sound servers of GStreamer), and wake a sleeping machine (setcap).
set(CPACK_DEBIAN_ZOREL_PACKAGE_RECOMMENDS
    "gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, libcap2-bin")
set(CPACK_DEBIAN_ZOREL_PACKAGE_SUGGESTS "gstreamer1.0-libav, gstreamer1.0-pipewire, gstreamer1.0-alsa")
set(CPACK_DEBIAN_ZOREL_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/resources/debian/postinst ${PROJECT_SOURCE_DIR}/resources/debian/postrm)
# Sessions look for programs to start in /etc, wherever the rest is installed.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/ZorelEtc.cmake)
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
    "zorel (= ${PROJECT_VERSION}), libabsl-dev, libsqlite3-dev, libfmt-dev, libicu-dev, libplist-dev")
include(CPack)
