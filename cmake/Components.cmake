# Where the build joins sources to compile them together (CMAKE_UNITY_BUILD, as the presets say), the
# files of a folder share their names. EACH_ALONE, in both functions below, is for folders whose files
# are many of a kind and use the same names for the same things.

# One component a folder: pagivo_component(fonts engine/native/fonts USES values LIBRARIES ...)
# makes pagivo_fonts of the folder's own sources (not those of folders below it). USES names the
# components it may include and link; LIBRARIES the outside libraries it stands in front of, LATE those
# of them that are loaded when they are first called.
set_property(GLOBAL PROPERTY PAGIVO_COMPONENTS)

function(pagivo_component name folder)
  cmake_parse_arguments(PARSE_ARGV 2 ARG "EACH_ALONE" "" "USES;LIBRARIES;LATE")
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    add_library(pagivo_${name} INTERFACE)
    set(scope INTERFACE)
  else()
    add_library(pagivo_${name} STATIC ${sources})
    target_link_libraries(pagivo_${name} PRIVATE pagivo_options)
    set_target_properties(pagivo_${name} PROPERTIES CXX_CLANG_TIDY "${PAGIVO_CLANG_TIDY}")
    if(ARG_EACH_ALONE)
      set_target_properties(pagivo_${name} PROPERTIES UNITY_BUILD OFF)
    endif()
    set_property(GLOBAL APPEND PROPERTY PAGIVO_COMPONENTS pagivo_${name})
    set(scope PUBLIC)
  endif()
  target_include_directories(pagivo_${name} ${scope}
    ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src)
  list(TRANSFORM ARG_USES PREPEND pagivo_)
  target_link_libraries(pagivo_${name} ${scope} ${ARG_USES} ${ARG_LIBRARIES})
  foreach(library IN LISTS ARG_LATE)
    target_include_directories(pagivo_${name} SYSTEM ${scope}
      $<TARGET_PROPERTY:${library},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
endfunction()

# In tests/, folders of this name are what is this system's own.
if(WIN32)
  set(PAGIVO_SYSTEM windows)
else()
  set(PAGIVO_SYSTEM posix)
endif()

# pagivo_test(fonts engine/native/fonts USES fonts) makes the test program pagivo_tests_fonts of the
# folder's sources under tests/, and of those in this system's folder there. Its tests run as processes of their own, or in one on Windows and with
# AS_ONE, for those that share something costly. No test prints on the machine's own printers. PROPERTIES are
# more of what CTest is told of each.
function(pagivo_test name folder)
  cmake_parse_arguments(PARSE_ARGV 2 ARG "AS_ONE;EACH_ALONE" "" "USES;LIBRARIES;PROPERTIES")
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp
    ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/${PAGIVO_SYSTEM}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(pagivo_tests_${name} ${sources})
  if(ARG_EACH_ALONE)
    set_target_properties(pagivo_tests_${name} PROPERTIES UNITY_BUILD OFF)
  endif()
  target_include_directories(pagivo_tests_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  list(TRANSFORM ARG_USES PREPEND pagivo_)
  target_link_libraries(pagivo_tests_${name} PRIVATE
    pagivo_options pagivo_test_options ${ARG_USES} ${ARG_LIBRARIES} GTest::gmock GTest::gtest_main)
  if(WIN32)
    target_compile_definitions(pagivo_tests_${name} PRIVATE _USE_MATH_DEFINES)  # M_PI
  endif()
  # Wine takes longer to start than most of these programs to run.
  if(ARG_AS_ONE OR WIN32)
    add_test(NAME ${name}.all_together COMMAND pagivo_tests_${name})
  else()
    gtest_discover_tests(pagivo_tests_${name} DISCOVERY_MODE PRE_TEST
      PROPERTIES ENVIRONMENT CUPS_SERVER=127.0.0.1:1 ${ARG_PROPERTIES})
  endif()
endfunction()
