# cmake --install: the four libraries with their SONAME links, the public headers, a CMake
# package (find_package(QmkScan)) and a pkg-config file (qmkscan.pc).
include(CMakePackageConfigHelpers)

# Hosts link libQmkScan alone; it finds its siblings beside itself.
set_target_properties(QmkScan PROPERTIES INSTALL_RPATH "$ORIGIN")

install(TARGETS QmkScan QmkLink QmkGen QmkRecog EXPORT QmkScanTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/include/qmk DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT QmkScanTargets NAMESPACE QmkScan:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QmkScan)

configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/QmkScanConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/QmkScanConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QmkScan)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/QmkScanConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/QmkScanConfig.cmake ${CMAKE_BINARY_DIR}/QmkScanConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QmkScan)

# The .pc file finds the prefix from its own place, so an installed tree can move.
file(RELATIVE_PATH QMK_PC_UP "/p/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/p")
configure_file(${CMAKE_SOURCE_DIR}/cmake/qmkscan.pc.in ${CMAKE_BINARY_DIR}/qmkscan.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/qmkscan.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
