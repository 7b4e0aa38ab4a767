# What the Qt windows stand on besides: in a build wanted when it is there, in an installation asked
# for by a host that wants the windows.
find_package(PkgConfig QUIET)
find_package(Qt6 QUIET COMPONENTS Widgets)
pkg_check_modules(Xcb QUIET IMPORTED_TARGET xcb)
if(TARGET Qt6::Widgets AND TARGET PkgConfig::Xcb)
  set(PAGIVO_HAS_QT ON)
else()
  set(PAGIVO_HAS_QT OFF)
endif()
