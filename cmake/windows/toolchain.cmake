# Builds for Windows with mingw-w64, on the libraries of tools/build_windows_libraries.sh, and runs what
# it builds under Wine. PAGIVO_WINDOWS_PROCESSOR is x86_64 or i686, as the presets say.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PAGIVO_WINDOWS_PROCESSOR PAGIVO_WINDOWS_FOLDER
  PAGIVO_WINDOWS_PROCESSOR_FLAGS)
set(project ${CMAKE_CURRENT_LIST_DIR}/../..)
set(build_libraries ${project}/tools/build_windows_libraries.sh)

# Asked once; the programs that CMake tries have them from their caller.
if(NOT PAGIVO_WINDOWS_FOLDER)
  execute_process(COMMAND ${build_libraries} --folder ${PAGIVO_WINDOWS_PROCESSOR}
    OUTPUT_VARIABLE PAGIVO_WINDOWS_FOLDER OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${build_libraries} --processor ${PAGIVO_WINDOWS_PROCESSOR}
    OUTPUT_VARIABLE PAGIVO_WINDOWS_PROCESSOR_FLAGS COMMAND_ERROR_IS_FATAL ANY)
  if(NOT EXISTS ${PAGIVO_WINDOWS_FOLDER}/complete)
    message(FATAL_ERROR
      "${PAGIVO_WINDOWS_FOLDER} is missing: run ${build_libraries} ${PAGIVO_WINDOWS_PROCESSOR}")
  endif()
endif()

# What was found of other libraries stays in the cache of a build folder.
if(FreeType_PREFIX)
  cmake_path(IS_PREFIX PAGIVO_WINDOWS_FOLDER "${FreeType_PREFIX}" NORMALIZE has_these_libraries)
  if(NOT has_these_libraries)
    message(FATAL_ERROR "${CMAKE_BINARY_DIR} was made with other libraries: configure it with --fresh")
  endif()
endif()

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${PAGIVO_WINDOWS_PROCESSOR})
# The compiler of these names has the threads of POSIX, which std::mutex and its like are made of.
set(target ${PAGIVO_WINDOWS_PROCESSOR}-w64-mingw32)
set(CMAKE_C_COMPILER ${target}-gcc-posix)
set(CMAKE_CXX_COMPILER ${target}-g++-posix)
set(CMAKE_RC_COMPILER ${target}-windres)
# What the libraries are compiled with, too. For 32 bits that is SSE2: the older floating point rounds to
# more digits in between, and files would differ from those of other systems. Its instructions want the
# stack at a multiple of 16, which hosts of 32 bits leave at one of 4, so that functions align it themselves.
set(CMAKE_C_FLAGS_INIT "${PAGIVO_WINDOWS_PROCESSOR_FLAGS}")
set(CMAKE_CXX_FLAGS_INIT "${PAGIVO_WINDOWS_PROCESSOR_FLAGS}")
# Programs need nothing besides the system: the compiler's own libraries are in them.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)

set(CMAKE_FIND_ROOT_PATH ${PAGIVO_WINDOWS_FOLDER} /usr/${target})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_PATH} "")
set(ENV{PKG_CONFIG_LIBDIR} ${PAGIVO_WINDOWS_FOLDER}/lib/pkgconfig)

set(CMAKE_CROSSCOMPILING_EMULATOR ${project}/tools/under_wine.sh ${CMAKE_BINARY_DIR}/wine)
if(PAGIVO_WINDOWS_PROCESSOR STREQUAL i686)
  list(PREPEND CMAKE_CROSSCOMPILING_EMULATOR ${project}/tools/in_windows32_chroot.sh)
endif()
