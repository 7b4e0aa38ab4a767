# Every header compiles alone: one generated source file for each, which includes nothing else.
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
  ${PROJECT_SOURCE_DIR}/include/*.h ${PROJECT_SOURCE_DIR}/src/*.h)
if(NOT PAGIVO_QT)
  list(FILTER headers EXCLUDE REGEX "/window/qt/")
endif()
add_library(pagivo_headers_alone OBJECT)
foreach(header IN LISTS headers)
  string(MAKE_C_IDENTIFIER ${header} name)
  set(source ${PROJECT_BINARY_DIR}/headers_alone/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${PROJECT_SOURCE_DIR}/${header}\"\n")
  target_sources(pagivo_headers_alone PRIVATE ${source})
endforeach()
target_compile_options(pagivo_headers_alone PRIVATE -O0 -g0)
target_link_libraries(pagivo_headers_alone PRIVATE pagivo_options pagivo_assembly
  $<$<BOOL:${PAGIVO_QT}>:pagivo_qt>)
