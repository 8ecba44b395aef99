# Reads cmake/rooms.cmake into variables, for the build (through
# KelvaneFlags.cmake) and for the include check (tools/check_rooms.cmake):
#   KELVANE_ROOMS                the rooms in table order
#   KELVANE_ROOM_<room>_USES     what the room's line names
#   KELVANE_ROOM_<room>_LIBRARY  TRUE for a library room
#   KELVANE_OUTSIDES             the outside packages
#   KELVANE_OUTSIDE_<p>_TARGET / _HEADERS
# KELVANE_ROOT must name the top of the tree before this file is included.

set(KELVANE_ROOMS "")
set(KELVANE_OUTSIDES "")

function(kelvane_outside name)
  cmake_parse_arguments(KO "" "TARGET;HEADERS" "" ${ARGN})
  set(KELVANE_OUTSIDES ${KELVANE_OUTSIDES} ${name} PARENT_SCOPE)
  set(KELVANE_OUTSIDE_${name}_TARGET "${KO_TARGET}" PARENT_SCOPE)
  set(KELVANE_OUTSIDE_${name}_HEADERS "${KO_HEADERS}" PARENT_SCOPE)
endfunction()

function(kelvane_room room)
  cmake_parse_arguments(KR "LIBRARY" "" "USES" ${ARGN})
  if(room IN_LIST KELVANE_ROOMS)
    message(FATAL_ERROR "cmake/rooms.cmake: room ${room} has two lines")
  endif()
  # A room may only use rooms listed above it, and known packages.
  foreach(use IN LISTS KR_USES)
    if(NOT use IN_LIST KELVANE_ROOMS AND NOT use IN_LIST KELVANE_OUTSIDES)
      message(FATAL_ERROR "cmake/rooms.cmake: ${room} uses ${use}, which is neither a room above it nor an outside package")
    endif()
  endforeach()
  set(KELVANE_ROOMS ${KELVANE_ROOMS} ${room} PARENT_SCOPE)
  set(KELVANE_ROOM_${room}_USES "${KR_USES}" PARENT_SCOPE)
  set(KELVANE_ROOM_${room}_LIBRARY ${KR_LIBRARY} PARENT_SCOPE)
endfunction()

include(${KELVANE_ROOT}/cmake/rooms.cmake)

# kelvane_room_sources(<room> <out>): the files of a room's folder that the
# check reads (and the build watches).
function(kelvane_room_sources room out)
  set(_watch CONFIGURE_DEPENDS)
  if(CMAKE_SCRIPT_MODE_FILE)
    set(_watch "")
  endif()
  file(GLOB _files ${_watch}
    ${KELVANE_ROOT}/${room}/*.h ${KELVANE_ROOT}/${room}/*.hpp
    ${KELVANE_ROOT}/${room}/*.cpp ${KELVANE_ROOT}/${room}/*.cc)
  set(${out} ${_files} PARENT_SCOPE)
endfunction()
