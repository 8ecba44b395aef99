// Number text in the program's own forms.
//
// Every number the program shows or writes goes through this file: the
// format strings of the reports and files ("0.0", "000", "00.00",
// "#,#0.0;;;", "0.000000000"), the plain text of a number, the reading of a
// number out of text, and the conversion of a real to an integer.
//
// Two precisions are kept apart on purpose. A 32-bit float is shown through
// its own 7 significant digits, so a latitude held as 50.58233f prints as
// 50.582330000 and not as the binary neighbour 50.582328796; a double is
// shown through 15 significant digits. Rounding to the places of a format is
// then done on that decimal text, half away from zero, as a hand calculation
// would round.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace kelvane {

// Integer conversion of a real: nearest integer, ties to the even one
// (2.5 -> 2, 3.5 -> 4, -2.5 -> -2). Values outside the 32-bit range are
// clamped to it rather than left undefined.
std::int32_t RoundToInt(double value);

// The same conversion into a 16-bit integer, clamped to its range.
std::int16_t RoundToInt16(double value);

// Renders value by a format string of digit placeholders.
//
// A format has up to four sections separated by ";": positive, negative,
// zero, empty. A negative value uses the second section with its magnitude;
// with no second section it uses the first, preceded by "-". Zero uses the
// third section, or the first when there is none. A section that is present
// but empty renders nothing: "#,#0.0;;;" shows a negative height (and a
// height of exactly zero) as blank text.
//
// In a section, "0" is a digit that is always shown, "#" a digit shown only
// when significant, "." the decimal point, and "," between integer
// placeholders asks for thousands grouping. Everything else is copied as
// written. Digits beyond the integer placeholders are all shown.
std::string FormatNumber(double value, std::string_view format);
std::string FormatNumber(float value, std::string_view format);
template <typename Int, typename = std::enable_if_t<std::is_integral_v<Int>>>
std::string FormatNumber(Int value, std::string_view format) {
  return FormatNumber(static_cast<double>(value), format);
}

// The plain text of a number: shortest form up to 7 significant digits for
// a float, 15 for a double, no trailing zeros, "0" before a bare fraction,
// "-" for negatives, scientific form ("1.5E-05") outside 1E-04 .. 1E+15.
std::string NumberText(float value);
std::string NumberText(double value);

// NumberText of a single without the scientific form: the same digits,
// written out as a plain decimal ("0.00001", "-0.0000305", "12345680").
// The coordinates of GPX files are written this way: a reader expects a
// plain decimal there, and 1E-05 near the Greenwich meridian is none.
std::string DecimalText(float value);

// The text of a number with a sign column: a leading blank for zero and
// positive values, "-" for negative ones, and no "0" before a bare fraction
// (" 4", " .5", "-.25"). Clock texts that overflow their hour show through
// this form.
std::string SignedNumberText(double value);

// Reads as much of the text as forms a decimal number and ignores the rest:
// "12.34N" -> 12.34, "  -3e2x" -> -300, "N12" -> 0. Blanks and tabs are
// skipped wherever they stand, and an empty or non-numeric text is 0.
double TextValue(std::string_view text);

// Whether the whole text, blanks around it aside, is one decimal number as
// TextValue reads it: "6.5", " -3", ".5", "1e2" are; "", "6.5kn", "abc",
// "1.2.3" are not. A form asks this before it takes the value of an entry
// that must be refused when it is no number at all.
bool IsNumberText(std::string_view text);

}  // namespace kelvane
