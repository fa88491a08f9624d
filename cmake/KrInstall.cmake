# What an installed KrCore consists of: libraries, headers, a CMake package and a pkg-config file.

include(CMakePackageConfigHelpers)

set(KRCORE_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/KrCore)

install(
    TARGETS ${KRCORE_LIBRARIES}
    EXPORT KrCoreTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
    FILE_SET generated DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
)
install(
    EXPORT KrCoreTargets
    NAMESPACE KrCore::
    DESTINATION ${KRCORE_CMAKE_DIR}
    COMPONENT development
)

configure_package_config_file(
    cmake/KrCoreConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/KrCoreConfig.cmake
    INSTALL_DESTINATION ${KRCORE_CMAKE_DIR}
)
write_basic_package_version_file(
    ${CMAKE_CURRENT_BINARY_DIR}/KrCoreConfigVersion.cmake COMPATIBILITY SameMajorVersion
)
install(
    FILES ${CMAKE_CURRENT_BINARY_DIR}/KrCoreConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/KrCoreConfigVersion.cmake
    DESTINATION ${KRCORE_CMAKE_DIR}
    COMPONENT development
)

configure_file(cmake/krcore.pc.in krcore.pc @ONLY)
install(
    FILES ${CMAKE_CURRENT_BINARY_DIR}/krcore.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development
)
