# The rooms of the tree and what each may use: the one table.
#
# A room is a folder of the project. For every library room (one made by
# kelvane_subsystem) the line below is exactly what its sources include: the
# project folders of its `#include "folder/..."` lines and the outside
# packages of its `#include <...>` lines. The library links exactly those, so
# its CMake target cannot declare more or less than it uses; the include
# check (tools/check_rooms.cmake, part of every build and a test) fails when
# the sources and this line disagree.
#
# The order is the layering: a room may only use rooms above it, so an
# upward include cannot be made legal by adding it to its line without also
# moving the room, which a reviewer sees.
#
# The front ends (forms, app, cli) are checked against an upper bound only:
# they may include what their line names, nothing else. Only forms, app and
# the one PDF file of cli may see the toolkit.
#
# A room whose folder is not in the tree is skipped everywhere.

# kelvane_outside(<package> TARGET <CMake target> HEADERS <regex>)
# An outside package: the target a room links for it, and the headers (a
# regex matched against the whole name between the angle brackets) that
# mean a room uses it. Headers of no package are the C++ and POSIX
# libraries, free to all.
kelvane_outside(Qt      TARGET ""                  HEADERS "Q[A-Za-z0-9_]*|Qt[A-Za-z0-9_]*/.*|q[a-z0-9_]*[.]h")
kelvane_outside(SQLite  TARGET SQLite::SQLite3     HEADERS "sqlite3[.]h|sqlite3ext[.]h")
kelvane_outside(Jet     TARGET PkgConfig::LIBMDB   HEADERS "mdbtools[.]h|mdbsql[.]h|mdbfakeglib[.]h")
kelvane_outside(pugixml TARGET pugixml::pugixml    HEADERS "pugixml[.]hpp|pugiconfig[.]hpp")
kelvane_outside(CLI11   TARGET CLI11::CLI11        HEADERS "CLI/.*")

# kelvane_room(<folder> [LIBRARY] USES <rooms and packages>)
# LIBRARY: the folder is a toolkit-free library, kelvane_<folder>, whose
# includes must match USES exactly; otherwise USES is an upper bound.
kelvane_room(core        LIBRARY USES)
kelvane_room(store       LIBRARY USES core SQLite Jet)
kelvane_room(tides       LIBRARY USES core)
kelvane_room(routes      LIBRARY USES core pugixml)
kelvane_room(streams     LIBRARY USES core tides store)
# The passage plan gives sunrise and sunset at the start from the almanac.
kelvane_room(passage     LIBRARY USES core tides streams routes)
# The chart's modes move route points and waypoints, so chart/ sees the
# passage and the waypoint store; nothing below it sees the chart.
kelvane_room(chart       LIBRARY USES core store routes passage)
# The AIS display list places its symbols through the chart's screen
# arithmetic.
kelvane_room(instruments LIBRARY USES core chart)
kelvane_room(wind        LIBRARY USES core store)
kelvane_room(wrecks      LIBRARY USES)
kelvane_room(state       LIBRARY USES core tides streams routes passage chart wind)

# The front ends.
kelvane_room(forms USES core store tides chart streams wind routes instruments passage wrecks state Qt)
kelvane_room(app   USES core store tides chart streams wind routes instruments passage wrecks state forms Qt)
# kelvane-cli is toolkit-free but for one file built only with the toolkit:
# `plan --pdf` paints the same pages as the window's passage plan (the chart
# picture is the window's overlay painter), offscreen.
kelvane_room(cli   USES core store tides chart streams wind routes instruments passage wrecks state CLI11 app Qt)
