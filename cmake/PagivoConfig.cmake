# find_package(Pagivo [COMPONENTS [Qt] [Shared]]) gives Pagivo::Pagivo and, asked for Qt, Pagivo::Qt:
# the archives, or the shared libraries when Shared is asked for. There is one document in a process,
# so a host has one form: what it is asked for again comes in the form that it has.
set(_pagivo_form Static)
if(TARGET Pagivo::Pagivo)
  get_target_property(_pagivo_type Pagivo::Pagivo TYPE)
  if(_pagivo_type STREQUAL "SHARED_LIBRARY")
    set(_pagivo_form Shared)
  endif()
elseif("Shared" IN_LIST Pagivo_FIND_COMPONENTS
    AND EXISTS "${CMAKE_CURRENT_LIST_DIR}/PagivoSharedTargets.cmake")
  set(_pagivo_form Shared)
endif()

# A shared library brings along what it stands on.
if(_pagivo_form STREQUAL "Static")
  include("${CMAKE_CURRENT_LIST_DIR}/Dependencies.cmake")
endif()
include("${CMAKE_CURRENT_LIST_DIR}/Pagivo${_pagivo_form}Targets.cmake")
set(Pagivo_${_pagivo_form}_FOUND TRUE)

if("Qt" IN_LIST Pagivo_FIND_COMPONENTS
    AND EXISTS "${CMAKE_CURRENT_LIST_DIR}/Pagivo${_pagivo_form}QtTargets.cmake")
  include("${CMAKE_CURRENT_LIST_DIR}/QtDependencies.cmake")
  if(PAGIVO_HAS_QT)
    include("${CMAKE_CURRENT_LIST_DIR}/Pagivo${_pagivo_form}QtTargets.cmake")
    set(Pagivo_Qt_FOUND TRUE)
  endif()
endif()

foreach(component IN LISTS Pagivo_FIND_COMPONENTS)
  if(Pagivo_FIND_REQUIRED_${component} AND NOT Pagivo_${component}_FOUND)
    set(Pagivo_FOUND FALSE)
    set(Pagivo_NOT_FOUND_MESSAGE "this Pagivo has no ${component}, what it stands on is missing, or the host has the other form already")
  endif()
endforeach()
