# Headers, the libraries, a CMake package (find_package(Pagivo)) and pkg-config files. Each finds the
# rest from where it stands itself, so that an installation can be moved.
include(CMakePackageConfigHelpers)

install(DIRECTORY include/pagivo DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# --- The CMake package ----------------------------------------------------------------------

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Pagivo)

function(pagivo_install library targets)
  install(TARGETS ${library} EXPORT ${targets}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(EXPORT ${targets} NAMESPACE Pagivo:: DESTINATION ${package_folder})
endfunction()

pagivo_install(pagivo PagivoStaticTargets)
if(PAGIVO_SHARED)
  pagivo_install(pagivo-shared PagivoSharedTargets)
endif()
if(PAGIVO_QT)
  pagivo_install(pagivo-qt PagivoStaticQtTargets)
  if(PAGIVO_SHARED)
    pagivo_install(pagivo-qt-shared PagivoSharedQtTargets)
  endif()
endif()

write_basic_package_version_file(${PROJECT_BINARY_DIR}/PagivoConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES cmake/PagivoConfig.cmake ${PROJECT_BINARY_DIR}/PagivoConfigVersion.cmake
  cmake/Dependencies.cmake cmake/QtDependencies.cmake DESTINATION ${package_folder})

# --- pkg-config -----------------------------------------------------------------------------

# pagivo_pkg_config(pagivo NAME Pagivo DESCRIPTION ... REQUIRES ... LIBS ...) installs pagivo.pc.
function(pagivo_pkg_config package)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "NAME;DESCRIPTION;REQUIRES;LIBS" "")
  set(to_prefix ${CMAKE_INSTALL_PREFIX})
  cmake_path(RELATIVE_PATH to_prefix BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
  set(libdir "\${prefix}")
  cmake_path(APPEND libdir ${CMAKE_INSTALL_LIBDIR})
  set(includedir "\${prefix}")
  cmake_path(APPEND includedir ${CMAKE_INSTALL_INCLUDEDIR})
  configure_file(cmake/pkg-config.pc.in ${package}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

set(description "In-process print component: compose, preview, print and export documents")
set(qt_description "The print component's windows in Qt 6")
if(WIN32)
  list(TRANSFORM PAGIVO_LIBRARIES_OF_SYSTEM PREPEND " -l" OUTPUT_VARIABLE libs_of_system)
  string(JOIN "" libs_of_system ${libs_of_system})
  set(packages_of_system "cairo ")
else()
  set(packages_of_system "fontconfig ")
endif()
pagivo_pkg_config(pagivo NAME "Pagivo" DESCRIPTION "${description}"
  REQUIRES "${packages_of_system}freetype2 harfbuzz harfbuzz-subset fribidi libpng libjpeg libdeflate"
  LIBS "-l:libpagivo.a${libs_of_system}")
if(PAGIVO_SHARED)
  pagivo_pkg_config(pagivo-shared NAME "Pagivo, shared" DESCRIPTION "${description}" LIBS -lpagivo)
endif()
if(PAGIVO_QT)
  pagivo_pkg_config(pagivo-qt NAME "Pagivo in Qt" DESCRIPTION "${qt_description}"
    REQUIRES "pagivo = ${PROJECT_VERSION} Qt6Widgets xcb" LIBS -l:libpagivo-qt.a)
  if(PAGIVO_SHARED)
    pagivo_pkg_config(pagivo-qt-shared NAME "Pagivo in Qt, shared" DESCRIPTION "${qt_description}"
      REQUIRES "pagivo-shared = ${PROJECT_VERSION} Qt6Widgets" LIBS -lpagivo-qt)
  endif()
endif()
