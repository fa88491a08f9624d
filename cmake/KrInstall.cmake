# What an installed KrCore consists of: libraries, headers, a CMake package, a pkg-config file, and what debuggers need.

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

# gdb loads a script by the full path of the library that it belongs to. Every program of KrCore has the platform's library, so the
# printers of all classes go by its name. The prefix is known when it is installed, and not before.
install(
    FILES debug/krcore-gdb.py
    DESTINATION "${CMAKE_INSTALL_DATADIR}/gdb/auto-load\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}"
    RENAME libKrPlatform141.so.${PROJECT_VERSION}-gdb.py
    COMPONENT development
)
install(
    FILES debug/krcore.natvis
    DESTINATION ${CMAKE_INSTALL_DATADIR}/krcore
    COMPONENT development
)
