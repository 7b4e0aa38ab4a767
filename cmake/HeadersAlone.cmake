# Every header compiles alone: most are the first that their own source file includes; for each of
# the others there is a generated source file that includes nothing else.
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
  ${PROJECT_SOURCE_DIR}/include/*.h ${PROJECT_SOURCE_DIR}/src/*.h)
if(NOT PAGIVO_QT)
  list(FILTER headers EXCLUDE REGEX "/window/qt/")
endif()

# What another system brings is compiled there.
if(WIN32)
  list(FILTER headers EXCLUDE REGEX "/(posix|fontconfig|pixbuf|cups)/")
else()
  list(FILTER headers EXCLUDE REGEX "/(automation|windows|directwrite|wic)/")
endif()

# Whether the source file of the header's name includes the header before anything else, as it stands
# when the build is configured.
function(pagivo_is_included_first header result)
  set(${result} FALSE PARENT_SCOPE)
  string(REGEX REPLACE "h$" "cpp" source ${PROJECT_SOURCE_DIR}/${header})
  if(NOT EXISTS ${source})
    return()
  endif()
  file(STRINGS ${source} first REGEX "^#include" LIMIT_COUNT 1)
  string(REGEX REPLACE "^src/" "" name ${header})
  if(first STREQUAL "#include \"${name}\"")
    set(${result} TRUE PARENT_SCOPE)
  endif()
endfunction()

add_library(pagivo_headers_alone OBJECT)
foreach(header IN LISTS headers)
  pagivo_is_included_first(${header} included)
  if(NOT included)
    string(MAKE_C_IDENTIFIER ${header} name)
    set(source ${PROJECT_BINARY_DIR}/headers_alone/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${PROJECT_SOURCE_DIR}/${header}\"\n")
    target_sources(pagivo_headers_alone PRIVATE ${source})
  endif()
endforeach()
target_compile_options(pagivo_headers_alone PRIVATE -O1 -g0 -fno-lto)
target_link_libraries(pagivo_headers_alone PRIVATE pagivo_options pagivo_assembly
  $<$<BOOL:${PAGIVO_QT}>:pagivo_qt>)
