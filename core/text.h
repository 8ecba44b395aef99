// Small text helpers: trimming, letter case and counting characters.
//
// Three trims are in use and they are not interchangeable: fixed-width
// fields of the data files and NMEA/AIS texts are padded with spaces only,
// typed entries and file lines may also carry tabs, and texts taken from
// databases, settings and chart files may end in a line break as well.
// Each caller keeps the one it has always used.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelvane {

// Without leading and trailing spaces, tabs, carriage returns and line feeds.
std::string Trim(std::string_view text);

// Without leading and trailing spaces and tabs; line breaks are kept.
std::string TrimBlanks(std::string_view text);

// Without leading and trailing spaces (' ' only); tabs and line breaks are
// kept.
std::string TrimSpaces(std::string_view text);

// Without the trailing spaces and NULs that pad a fixed-width field.
std::string TrimFieldPadding(std::string_view text);

// Letters to upper or lower case byte by byte, by the C library's tables
// (in a UTF-8 locale only ASCII letters change).
std::string ToUpper(std::string text);
std::string ToLower(std::string text);

// Equal apart from letter case, byte by byte as ToLower sees it.
bool EqualNoCase(std::string_view a, std::string_view b);

// Characters (code points) in UTF-8 text: the bytes that do not continue a
// sequence.
std::size_t Utf8Length(std::string_view text);

}  // namespace kelvane
