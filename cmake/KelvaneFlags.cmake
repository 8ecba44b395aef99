# Compiler flags shared by every target.
#
# The navigation arithmetic is that of 32-bit singles with double
# intermediates where the code says so. Fused multiply-adds would change the
# last bits of those results, so contraction is off everywhere, and the
# fast-math family is never used.
add_compile_options(-Wall -Wextra -ffp-contract=off -fno-fast-math)
# A library returns its decision as an outcome record marked [[nodiscard]],
# and the window switches over a library's commands without a default: a
# dropped decision or a command nobody carries out is an error, not a
# warning that scrolls by.
add_compile_options(-Werror=unused-result -Werror=switch)
# x86-64 does its float arithmetic in SSE registers at the declared width,
# so single-precision steps stay single without further flags.

if(KELVANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()

# kelvane_library(name SOURCES ... DEPENDS ...)
# A toolkit-free subsystem library. The include root is the project root, so
# code says #include "core/positions.h".
function(kelvane_library name)
  cmake_parse_arguments(KL "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${KL_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  if(KL_DEPENDS)
    target_link_libraries(${name} PUBLIC ${KL_DEPENDS})
  endif()
endfunction()

# The rooms of the tree and what each uses: cmake/rooms.cmake.
set(KELVANE_ROOT ${PROJECT_SOURCE_DIR})
include(${PROJECT_SOURCE_DIR}/cmake/roomtable.cmake)

# kelvane_room_links(<room> <out>): the targets a room's line names, those
# of rooms not (yet) in the tree left out.
function(kelvane_room_links room out)
  set(_links "")
  foreach(_use IN LISTS KELVANE_ROOM_${room}_USES)
    if(_use IN_LIST KELVANE_OUTSIDES)
      if(KELVANE_OUTSIDE_${_use}_TARGET)
        list(APPEND _links ${KELVANE_OUTSIDE_${_use}_TARGET})
      endif()
    elseif(IS_DIRECTORY ${PROJECT_SOURCE_DIR}/${_use})
      list(APPEND _links kelvane_${_use})
    endif()
  endforeach()
  set(${out} ${_links} PARENT_SCOPE)
endfunction()

# The include check: every library (and front end) waits for it, so a file
# that includes what its room's line does not name fails the build before
# anything is compiled.
set(_room_files "")
foreach(_room IN LISTS KELVANE_ROOMS)
  kelvane_room_sources(${_room} _files)
  list(APPEND _room_files ${_files})
endforeach()
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/rooms.checked
  COMMAND ${CMAKE_COMMAND} -DKELVANE_ROOT=${PROJECT_SOURCE_DIR} -P ${PROJECT_SOURCE_DIR}/tools/check_rooms.cmake
  COMMAND ${CMAKE_COMMAND} -E touch ${PROJECT_BINARY_DIR}/rooms.checked
  DEPENDS ${_room_files} ${PROJECT_SOURCE_DIR}/cmake/rooms.cmake ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md
          ${PROJECT_SOURCE_DIR}/cmake/roomtable.cmake ${PROJECT_SOURCE_DIR}/tools/check_rooms.cmake
  COMMENT "Checking every room's includes against cmake/rooms.cmake"
  VERBATIM)
add_custom_target(kelvane_rooms ALL DEPENDS ${PROJECT_BINARY_DIR}/rooms.checked)

# kelvane_subsystem(name [DEPENDS ...])
# Every subsystem folder is one static library made of the .cpp files in it,
# linking exactly what its line in cmake/rooms.cmake names. DEPENDS, when
# given, must say the same. A folder with no sources yet is an interface
# library, so that others can already name it.
function(kelvane_subsystem name)
  cmake_parse_arguments(KS "" "" "DEPENDS" ${ARGN})
  get_filename_component(_room ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  if(NOT _room IN_LIST KELVANE_ROOMS OR NOT KELVANE_ROOM_${_room}_LIBRARY)
    message(FATAL_ERROR "${_room}/ has no library line in cmake/rooms.cmake")
  endif()
  kelvane_room_links(${_room} _links)
  if(DEFINED KS_DEPENDS)
    set(_given ${KS_DEPENDS})
    set(_table ${_links})
    list(SORT _given)
    list(SORT _table)
    if(NOT _given STREQUAL _table)
      message(FATAL_ERROR "${name}: DEPENDS (${KS_DEPENDS}) is not what the line of ${_room} in cmake/rooms.cmake names (${_links})")
    endif()
  endif()
  file(GLOB _sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(_sources)
    kelvane_library(${name} SOURCES ${_sources} DEPENDS ${_links})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR})
    if(_links)
      target_link_libraries(${name} INTERFACE ${_links})
    endif()
  endif()
  add_dependencies(${name} kelvane_rooms)
endfunction()
