# The include check meets a toolkit header in a library, an upward include,
# a line that names more than its room uses and a page whose table
# disagrees with the build, in a small tree of its own beside the real
# table, and must fail naming each file and line.
#   cmake -DKELVANE_ROOT=<top of the tree> -DWORK=<scratch folder> -P tests/rooms_plant_test.cmake
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/cmake ${WORK}/tools ${WORK}/core ${WORK}/tides ${WORK}/routes)
file(COPY ${KELVANE_ROOT}/cmake/rooms.cmake ${KELVANE_ROOT}/cmake/roomtable.cmake DESTINATION ${WORK}/cmake)
file(WRITE ${WORK}/core/format.cpp "#include \"core/format.h\"\n\n#include <string>\n#include \"routes/gpx.h\"\n")
file(WRITE ${WORK}/tides/harmonicfile.cpp "#include \"core/format.h\"\n  #  include <QString>\n#include <QtCore/QDate>\n")
# The page's table: a row that claims less than the line, and no row for
# routes/.
file(WRITE ${WORK}/CONTRIBUTING.md "| room | kind | holds | may use |\n|---|---|---|---|\n| `core/` | library | x | nothing |\n| `tides/` | library | x | nothing |\n")
file(WRITE ${WORK}/routes/gpx.cpp "// #include <QString> in a comment is no include\n#include \"core/format.h\"\n#include <string>\n")

execute_process(COMMAND ${CMAKE_COMMAND} -DKELVANE_ROOT=${WORK} -P ${KELVANE_ROOT}/tools/check_rooms.cmake
  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
if(rc EQUAL 0)
  message(FATAL_ERROR "the check passed a tree with planted includes:\n${out}")
endif()
foreach(expected
    "core/format.cpp:4: error: core/ may not include \"routes/gpx.h\": routes/ is not on the line of core in cmake/rooms.cmake"
    "tides/harmonicfile.cpp:2: error: tides/ may not include <QString>: no toolkit header outside forms/ and app/"
    "tides/harmonicfile.cpp:3: error: tides/ may not include <QtCore/QDate>: no toolkit header outside forms/ and app/"
    "cmake/rooms.cmake: error: the line of routes names pugixml, but no file of routes/ includes it"
    "CONTRIBUTING.md: error: the table says tides/ may use \"nothing\", cmake/rooms.cmake says \"core\""
    "CONTRIBUTING.md: error: the table has no row for routes/"
    "6 fault(s)")
  string(FIND "${out}" "${expected}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "missing from the check's report: ${expected}\nreport:\n${out}")
  endif()
endforeach()
