# Compiler flags shared by every target.
#
# The navigation arithmetic is that of 32-bit singles with double
# intermediates where the code says so. Fused multiply-adds would change the
# last bits of those results, so contraction is off everywhere, and the
# fast-math family is never used.
add_compile_options(-Wall -Wextra -ffp-contract=off -fno-fast-math)
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

# kelvane_subsystem(name DEPENDS ...)
# Every subsystem folder is one static library made of the .cpp files in it.
# A folder with no sources yet is an interface library, so that others can
# already name it.
function(kelvane_subsystem name)
  cmake_parse_arguments(KS "" "" "DEPENDS" ${ARGN})
  file(GLOB _sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(_sources)
    kelvane_library(${name} SOURCES ${_sources} DEPENDS ${KS_DEPENDS})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR})
    if(KS_DEPENDS)
      target_link_libraries(${name} INTERFACE ${KS_DEPENDS})
    endif()
  endif()
endfunction()
