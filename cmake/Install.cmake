# Headers, the library, a CMake package (find_package(Pagivo)) and a pkg-config file.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Pagivo)

install(TARGETS pagivo EXPORT PagivoTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY include/pagivo DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT PagivoTargets NAMESPACE Pagivo:: DESTINATION ${package_folder})
if(PAGIVO_QT)
  install(TARGETS pagivo-qt EXPORT PagivoQtTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(EXPORT PagivoQtTargets NAMESPACE Pagivo:: DESTINATION ${package_folder})
  install(FILES ${PROJECT_SOURCE_DIR}/cmake/QtDependencies.cmake DESTINATION ${package_folder})
endif()

configure_file(cmake/PagivoConfig.cmake.in PagivoConfig.cmake @ONLY)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/PagivoConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PagivoConfig.cmake ${PROJECT_BINARY_DIR}/PagivoConfigVersion.cmake
  ${PROJECT_SOURCE_DIR}/cmake/Dependencies.cmake DESTINATION ${package_folder})

configure_file(cmake/pagivo.pc.in pagivo.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/pagivo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
