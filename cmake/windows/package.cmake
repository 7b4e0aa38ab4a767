# What a host on Windows gets, for tools/package_windows.sh: the component `package`, which is installed
# when it is asked for.
set(package COMPONENT package EXCLUDE_FROM_ALL)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(server_folder x64)
else()
  set(server_folder x86)
endif()

# --- The server, and what hosts bind to and start from -----------------------------------------

set(made ${PROJECT_BINARY_DIR}/src/automation)
install(TARGETS pagivo_server RUNTIME DESTINATION ${server_folder} ${package})
install(FILES ${made}/pagivo.tlb DESTINATION ${server_folder} ${package})
install(FILES ${made}/include/pagivo_automation.h DESTINATION include ${package})
install(FILES examples/plumeo/logo.png examples/plumeo/pluim.png
  DESTINATION examples/plumeo ${package})
install(DIRECTORY examples/windows DESTINATION examples ${package}
  PATTERN CMakeLists.txt EXCLUDE)

# --- What is read --------------------------------------------------------------------------------

configure_file(cmake/windows/README.txt.in README.txt @ONLY NEWLINE_STYLE CRLF)
install(FILES ${PROJECT_BINARY_DIR}/README.txt CHANGELOG.md DESTINATION . ${package})
install(DIRECTORY docs DESTINATION . ${package} FILES_MATCHING PATTERN *.md
  PATTERN architecture.md EXCLUDE
  PATTERN windows.md EXCLUDE)  # of other systems
install(FILES include/pagivo/pg_print.h include/pagivo/constants.h
  DESTINATION include/pagivo ${package})

# --- The licences of all that is inside the server ----------------------------------------------

install(DIRECTORY ${PAGIVO_WINDOWS_FOLDER}/share/licences DESTINATION . ${package})
# The compiler's libraries, with those of the system's calls and threads, as Debian tells of them.
install(FILES /usr/share/doc/gcc-mingw-w64-base/copyright /usr/share/common-licenses/GPL-3
  DESTINATION licences/gcc ${package})
install(FILES /usr/share/doc/mingw-w64-common/copyright DESTINATION licences/mingw-w64 ${package})
