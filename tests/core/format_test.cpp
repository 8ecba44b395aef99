// Number text: the format strings of reports and files, plain number text,
// reading numbers out of text, and the integer conversion.
#include <gtest/gtest.h>

#include <clocale>

#include "core/format.h"

using namespace kelvane;

TEST(Format, FormatStringsRenderAsAHandWouldRound) {
  struct Case {
    double value;
    const char* format;
    const char* expected;
  };
  const Case cases[] = {
      {5, "000", "005"},
      {123.456, "0.0", "123.5"},
      {2.5, "0", "3"},           // half away from zero, not to even, in text
      {9.995, "0.00", "10.00"},  // decided on the decimal text 9.995, not on the binary 9.99499..
      {0.05, "0.0", "0.1"},
      {7.0, "00.00", "07.00"},
      {1234567.891, "#,#0.0;;;", "1,234,567.9"},
      {999.96, "#,#0.0;;;", "1,000.0"},
      {3.25, "#,#0.00;;;", "3.25"},
      {-1.5, "#,#0.0;;;", ""},   // the empty negative section shows nothing
      {0.0, "#,#0.0;;;", ""},    // and so does the empty zero section
      {-1.5, "0.0", "-1.5"},     // no negative section: the first one with a sign
      {0.5, "#.0", ".5"},
      {0, "#", ""},
      {1.0, "0.##", "1."},
      {1.25, "0.0#", "1.25"},
      {1.2, "0.0#", "1.2"},
      {42, "000000000", "000000042"},
      {0.1, "0.000000000", "0.100000000"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.format) + " of " + std::to_string(c.value));
    EXPECT_EQ(FormatNumber(c.value, c.format), c.expected);
  }
}

TEST(Format, SinglesShowThroughTheirOwnSevenDigits) {
  // 50.58233 held as a float is 50.582328796..; written with nine places it
  // must read as the number the user typed.
  EXPECT_EQ(FormatNumber(50.58233f, "0.000000000"), "50.582330000");
  EXPECT_EQ(FormatNumber(-1.930833f, "0.000000000"), "-1.930833000");
  // 2.675f is 2.67499995..; through seven digits it is 2.675 and rounds up.
  EXPECT_EQ(FormatNumber(2.675f, "0.00"), "2.68");
  EXPECT_EQ(FormatNumber(2.675, "0.00"), "2.68");
  EXPECT_EQ(FormatNumber(0.1f, "0.000000000"), "0.100000000");
  EXPECT_EQ(FormatNumber(12, "00"), "12");
}

TEST(Format, IntegerConversionRoundsHalfToEven) {
  EXPECT_EQ(RoundToInt(0.5), 0);
  EXPECT_EQ(RoundToInt(1.5), 2);
  EXPECT_EQ(RoundToInt(2.5), 2);
  EXPECT_EQ(RoundToInt(3.5), 4);
  EXPECT_EQ(RoundToInt(-2.5), -2);
  EXPECT_EQ(RoundToInt(-2.6), -3);
  EXPECT_EQ(RoundToInt(359.7), 360);
  EXPECT_EQ(RoundToInt(1e12), 2147483647);  // clamped, not undefined
  EXPECT_EQ(RoundToInt16(40000.0), 32767);
}

TEST(Format, PlainNumberText) {
  EXPECT_EQ(NumberText(0.5f), "0.5");
  EXPECT_EQ(NumberText(12.3f), "12.3");
  EXPECT_EQ(NumberText(0.1f), "0.1");
  EXPECT_EQ(NumberText(-3.0), "-3");
  EXPECT_EQ(NumberText(0.0), "0");
  EXPECT_EQ(NumberText(1e-5), "1E-05");
  EXPECT_EQ(NumberText(0.0001), "0.0001");
  EXPECT_EQ(NumberText(12345678.0f), "1.234568E+07");
  // The sign column of a clock that overflowed its hour.
  EXPECT_EQ(SignedNumberText(4), " 4");
  EXPECT_EQ(SignedNumberText(24), " 24");
  EXPECT_EQ(SignedNumberText(0.5), " .5");
  EXPECT_EQ(SignedNumberText(-0.25), "-.25");
}

TEST(Format, TextValueReadsTheLeadingNumber) {
  EXPECT_DOUBLE_EQ(TextValue("12.34N"), 12.34);
  EXPECT_DOUBLE_EQ(TextValue("30.00E"), 30.0);  // a hemisphere E is no exponent
  EXPECT_DOUBLE_EQ(TextValue("  -3e2x"), -300.0);
  EXPECT_DOUBLE_EQ(TextValue("1 2"), 12.0);
  EXPECT_DOUBLE_EQ(TextValue("N12"), 0.0);
  EXPECT_DOUBLE_EQ(TextValue(""), 0.0);
  EXPECT_DOUBLE_EQ(TextValue("."), 0.0);
  EXPECT_DOUBLE_EQ(TextValue("1e999"), 0.0);  // overflow is no number
  EXPECT_DOUBLE_EQ(TextValue("50."), 50.0);
}

// Inside the GUI the C library runs in the desktop's locale, where strtod
// and printf take and write a decimal comma. Numbers are read and written
// with the point whatever it is; only the position texts' branch follows
// the desktop, as it is meant to.
TEST(Format, DecimalCommaLocalesReadAndWriteThePoint) {
  const std::string previous = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
    SCOPED_TRACE(name);
    ASSERT_NE(std::setlocale(LC_ALL, name), nullptr) << "locale not installed";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    struct Read { const char* text; double value; } reads[] = {
        {"50.58233", 50.58233}, {" -1.930833", -1.930833}, {"0.4", 0.4}, {"5.5", 5.5},
        {"1.5E-05", 1.5e-05},   {"12.34N", 12.34},           {"50,5", 50.0},
    };
    for (const auto& r : reads) EXPECT_DOUBLE_EQ(TextValue(r.text), r.value) << r.text;
    struct Write { std::string text, expected; } writes[] = {
        {NumberText(50.58233f), "50.58233"},
        {NumberText(-1.930833f), "-1.930833"},
        {NumberText(1.5e-05), "1.5E-05"},
        {SignedNumberText(0.5), " .5"},
        {FormatNumber(0.45f, "0.0"), "0.5"},
        {FormatNumber(1234.5, "#,#0.00"), "1,234.50"},
        {FormatNumber(50.58233f, "0.000000000"), "50.582330000"},
    };
    for (const auto& w : writes) EXPECT_EQ(w.text, w.expected);
  }
  std::setlocale(LC_ALL, previous.c_str());
}
