# What every target is compiled with.
option(PAGIVO_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

add_library(pagivo_options INTERFACE)
target_compile_options(pagivo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wold-style-cast -Wnull-dereference -Werror)
# A product and the sum that it goes into are rounded one by one on every processor, so that files come
# out the same on all.
target_compile_options(pagivo_options INTERFACE -ffp-contract=off)
# A mistake in memory ends the program instead of going on: guarded stacks, C calls with checked
# lengths, containers with checked subscripts, addresses bound before the program starts, and jumps
# only to marked places, where compiler and processor know them. Only optimised code can check the
# lengths of C calls. On Windows addresses are bound before the start anyway, and it has marked places of
# its own kind, which this compiler cannot make.
if(NOT WIN32)
  include(CheckCXXCompilerFlag)
  check_cxx_compiler_flag(-fcf-protection PAGIVO_HAS_CF_PROTECTION)
endif()
set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
target_compile_definitions(pagivo_options INTERFACE _GLIBCXX_ASSERTIONS)
target_compile_options(pagivo_options INTERFACE -fstack-protector-strong
  $<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=3>
  $<$<BOOL:${PAGIVO_HAS_CF_PROTECTION}>:-fcf-protection>)
if(WIN32)
  # The checks are a library there, which the linker looks for when it is told of them.
  target_link_options(pagivo_options INTERFACE -fstack-protector-strong)
  # The headers of Windows 10, without macros by the names of std::min and std::max.
  target_compile_definitions(pagivo_options INTERFACE _WIN32_WINNT=0x0A00 NOMINMAX)
  # The system aligns stacks to 16 bytes, the compiler trusts them with vectors of 32 (GCC bug 54412).
  target_compile_options(pagivo_options INTERFACE -Wa,-muse-unaligned-vector-move)
else()
  target_link_options(pagivo_options INTERFACE -Wl,-z,relro,-z,now)
endif()
# GCC 12's -Wrestrict sees overlaps in std::string that cannot be (GCC bug 105329).
target_compile_options(pagivo_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# GCC 12's -Wnull-dereference sees null buffers in the standard library's strings and streams, which
# tests are full of, and null widgets in Qt's headers. Linked after pagivo_options, whose option this
# takes back.
add_library(pagivo_null_pointer_options INTERFACE)
target_compile_options(pagivo_null_pointer_options INTERFACE -Wno-null-dereference)
add_library(pagivo_test_options INTERFACE)
target_link_libraries(pagivo_test_options INTERFACE pagivo_null_pointer_options)
# A test is compiled more often than it runs: optimising it costs more than it saves.
if(PAGIVO_SANITIZE)
  target_compile_options(pagivo_test_options INTERFACE -O0)
elseif(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  target_compile_options(pagivo_test_options INTERFACE -O1)
endif()
if(PAGIVO_SANITIZE)
  # These two see ghosts in instrumented code.
  target_compile_options(pagivo_options INTERFACE
    -O1 -g1 -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
    -Wno-null-dereference $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(pagivo_options INTERFACE -fsanitize=address,undefined)
endif()

option(PAGIVO_FUZZ "Build the fuzzers' programs (needs clang and PAGIVO_SANITIZE)" OFF)
if(PAGIVO_FUZZ)
  target_compile_options(pagivo_options INTERFACE -fsanitize=fuzzer-no-link)
  target_compile_definitions(pagivo_options INTERFACE FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION)
endif()

option(PAGIVO_ODR "Look at link time for names that are defined differently in two sources" OFF)
if(PAGIVO_ODR)
  target_compile_options(pagivo_options INTERFACE -flto)
  target_link_options(pagivo_options INTERFACE -flto=auto -Wodr -Werror=odr -Werror=lto-type-mismatch)
endif()

option(PAGIVO_LINT "Run clang-tidy on the library's sources as they are compiled" OFF)
if(PAGIVO_LINT)
  find_program(CLANG_TIDY clang-tidy REQUIRED)
  # GCC's own warning and sanitizer flags mean nothing to it.
  set(PAGIVO_CLANG_TIDY ${CLANG_TIDY} --quiet --extra-arg=-Wno-unknown-warning-option)
endif()
