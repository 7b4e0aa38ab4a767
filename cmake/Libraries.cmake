# pagivo_library(pagivo-qt Qt COMPONENTS pagivo_qt USES pagivo HANDS_ON ... STANDS_ON ...) makes what
# a host links, in two forms of the same objects: the archive libpagivo-qt.a (target pagivo-qt, in
# this build also Pagivo::Qt) and the shared library libpagivo-qt.so (target pagivo-qt-shared), which
# shows what src/pagivo-qt.map.in names. An installation calls either form Pagivo::Qt. USES names such a
# library; the host of a shared one need not know the outside libraries that it only STANDS_ON.
#
# The sanitizers' own checks reach for more than the shared libraries show, and names are compared in
# the archives' programs alone.
# Windows knows no versions of the names in a library; what its hosts load there is the server of
# src/automation.
option(PAGIVO_SHARED "Build the shared libraries too" ON)
if(PAGIVO_SANITIZE OR PAGIVO_ODR OR WIN32)
  set(PAGIVO_SHARED OFF)
endif()

function(pagivo_library name exported_as)
  cmake_parse_arguments(PARSE_ARGV 2 ARG "" "" "COMPONENTS;USES;HANDS_ON;STANDS_ON")
  list(TRANSFORM ARG_COMPONENTS REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
  add_library(${name} STATIC ${objects})
  add_library(Pagivo::${exported_as} ALIAS ${name})
  target_link_libraries(${name} PUBLIC ${ARG_USES} ${ARG_HANDS_ON} ${ARG_STANDS_ON})
  set(forms ${name})
  if(PAGIVO_SHARED)
    add_library(${name}-shared SHARED ${objects})
    list(TRANSFORM ARG_USES APPEND -shared)
    target_link_libraries(${name}-shared
      PUBLIC ${ARG_USES} ${ARG_HANDS_ON} PRIVATE ${ARG_STANDS_ON} pagivo_options)
    set(map ${CMAKE_CURRENT_BINARY_DIR}/${name}.map)
    configure_file(${name}.map.in ${map} @ONLY)
    target_link_options(${name}-shared PRIVATE -Wl,--version-script=${map} -Wl,--no-undefined)
    set_target_properties(${name}-shared PROPERTIES OUTPUT_NAME ${name} LINK_DEPENDS ${map}
      VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} INSTALL_RPATH "$<$<BOOL:${ARG_USES}>:$ORIGIN>")
    list(APPEND forms ${name}-shared)
  endif()
  foreach(form IN LISTS forms)
    set_target_properties(${form} PROPERTIES EXPORT_NAME ${exported_as} LINKER_LANGUAGE CXX)
    target_compile_features(${form} PUBLIC cxx_std_20)
    target_include_directories(${form} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  endforeach()
endfunction()
