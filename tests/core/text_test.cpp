// The three trims differ only in the characters they take off, and each
// caller depends on its own set: a tab or line break that one keeps, another
// drops.
#include <gtest/gtest.h>

#include <string>

#include "core/text.h"

using namespace kelvane;

TEST(Text, TrimVariantsTakeOffOnlyTheirOwnCharacters) {
  using namespace std::string_literals;
  struct Case {
    std::string in, trim, blanks, spaces;
  } cases[] = {
      {"  Solent  ", "Solent", "Solent", "Solent"},
      {"\tSolent\t", "Solent", "Solent", "\tSolent\t"},
      {" Solent\r\n", "Solent", "Solent\r\n", "Solent\r\n"},
      {" \t\r\n ", "", "\r\n", "\t\r\n"},
      {"", "", "", ""},
      {" Old  Harry ", "Old  Harry", "Old  Harry", "Old  Harry"},
      {"Needles\0 "s, "Needles\0"s, "Needles\0"s, "Needles\0"s},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.in);
    EXPECT_EQ(Trim(c.in), c.trim);
    EXPECT_EQ(TrimBlanks(c.in), c.blanks);
    EXPECT_EQ(TrimSpaces(c.in), c.spaces);
  }
  // A fixed-width field loses its trailing spaces and NULs, never its front.
  EXPECT_EQ(TrimFieldPadding(" Hurst\0\0 \0"s), " Hurst");
  EXPECT_EQ(TrimFieldPadding("\0\0"s), "");
}

TEST(Text, CaseAndLength) {
  EXPECT_EQ(ToUpper("bw 3c"), "BW 3C");
  EXPECT_EQ(ToLower("Chart.L35"), "chart.l35");
  EXPECT_TRUE(EqualNoCase("ChartName", "CHARTNAME"));
  EXPECT_FALSE(EqualNoCase("Chart", "Charts"));
  EXPECT_EQ(Utf8Length("50\xC2\xB0" "30"), 5u);  // the degree sign counts once
}
