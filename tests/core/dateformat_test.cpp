// The short-date probe and the checks of the working date form.
#include <gtest/gtest.h>

#include <cstdlib>

#include "core/dateformat.h"

using namespace kelvane;

TEST(DateFormat, ExperimentOnGivenFacts) {
  struct Case {
    const char* name;
    LocaleDateFacts facts;
    const char* format;
    const char* language;
  };
  auto facts = [](const char* today, bool yearFirst, bool dayFirst, const char* weekday) {
    LocaleDateFacts f;
    f.todayText = today;
    f.yearFirst = yearFirst;
    f.dayBeforeMonth = dayFirst;
    f.testWeekday = weekday;
    f.month = 11;
    return f;
  };
  const Case cases[] = {
      {"British", facts("23/11/26", false, true, "Wed"), "DD/MM/YYYY", "ENGLISH"},
      {"American", facts("11/23/2026", false, false, "Thu"), "MM/DD/YYYY", "ENGLISH"},
      {"German", facts("23.11.2026", false, true, "Mi"), "DD.MM.YYYY", "GERMAN"},
      {"Dutch", facts("23-11-26", false, true, "wo"), "DD-MM-YYYY", "DUTCH"},
      {"Swedish-style ISO in English", facts("2026-11-23", true, false, "Thu"), "YYYY-MM-DD", "ENGLISH"},
      {"year, day, month", facts("2026/23/11", true, true, "Wed"), "YYYY/DD/MM", "ENGLISH"},
      {"Nynorsk with dashes", facts("23-11-2026", false, true, "on"), "DD-MM-YYYY", "NYNORSK"},
      {"Norwegian with points", facts("23.11.2026", false, true, "on"), "DD.MM.YYYY", "NORWEGIAN"},
      {"Spanish", facts("23/11/26", false, true, "mi\xC3\xA9"), "DD/MM/YYYY", "SPANISH"},
      {"Portuguese", facts("23/11/2026", false, true, "qua"), "DD/MM/YYYY", "PORTUGESE"},
      {"unknown language", facts("23/11/2026", false, true, "ke"), "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    DateFormat d = DetectDateFormat(c.facts);
    EXPECT_EQ(d.format, c.format);
    EXPECT_EQ(d.language, c.language);
  }
}

TEST(DateFormat, InstalledLocales) {
  struct Case {
    const char* locale;
    const char* format;
    const char* language;
  };
  const Case cases[] = {
      {"en_GB.UTF-8", "DD/MM/YYYY", "ENGLISH"}, {"en_US.UTF-8", "MM/DD/YYYY", "ENGLISH"},
      {"de_DE.UTF-8", "DD.MM.YYYY", "GERMAN"},  {"it_IT.UTF-8", "DD/MM/YYYY", "ITALIAN"},
      {"nl_NL.UTF-8", "DD-MM-YYYY", "DUTCH"},
  };
  int probed = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.locale);
    auto facts = LocaleDateFactsFor(c.locale);
    if (!facts) continue;  // not installed on this machine
    ++probed;
    DateFormat d = DetectDateFormat(*facts);
    EXPECT_EQ(d.format, c.format);
    EXPECT_EQ(d.language, c.language);
    EXPECT_GE(d.month, 1);
    EXPECT_LE(d.month, 12);
  }
  EXPECT_FALSE(LocaleDateFactsFor("xx_YY.UTF-8").has_value());
  if (probed == 0) GTEST_SKIP() << "no test locale installed (Debian package locales-all)";
}

TEST(DateFormat, UnsupportedLocaleFallsBackInsteadOfEnding) {
  for (const char* locale : {"ja_JP.UTF-8", "xx_YY.UTF-8", "C"}) {
    SCOPED_TRACE(locale);
    setenv("LC_ALL", locale, 1);
    DateFormat d = DetectSystemDateFormat();
    EXPECT_FALSE(d.format.empty());
    EXPECT_FALSE(d.language.empty());
    EXPECT_NE(d.month, 0);
  }
  setenv("LC_ALL", "en_GB.UTF-8", 1);
  if (LocaleDateFactsFor("en_GB.UTF-8")) {
    DateFormat d = DetectSystemDateFormat();
    EXPECT_EQ(d.format, "DD/MM/YYYY");
    EXPECT_FALSE(d.fellBack);
  }
  unsetenv("LC_ALL");
}

TEST(DateForm, TimeBoxAndDateText) {
  EXPECT_EQ(CheckTimeText("1235").message, "Please enter a valid time i.e. 12:35");
  EXPECT_EQ(CheckTimeText("24:00").message, "Please enter a valid time");
  EXPECT_EQ(CheckTimeText("12:60").message, "Please enter a valid time");
  ClockCheck ok = CheckTimeText("23:59");
  ASSERT_TRUE(ok.entry.has_value());
  EXPECT_EQ(ok.entry->hours, 23);
  EXPECT_EQ(ok.entry->minutes, 59);

  EXPECT_EQ(DateText("DD/MM/YYYY", 5, 3, 2026), "05/03/2026");
  EXPECT_EQ(DateText("MM-DD-YYYY", 5, 3, 2026), "03-05-2026");
  EXPECT_EQ(DateText("YYYY.DD.MM", 5, 3, 2026), "2026.05.03");

  // 1 March 2024 is day 61 of a leap year, a Friday.
  WorkingDate w = MakeWorkingDate(1, 3, 2024, {12, 30});
  EXPECT_EQ(w.dayOfYear, 61);
  EXPECT_EQ(w.weekday, "Friday");
  EXPECT_EQ(w.monthName, "Mar");
  EXPECT_FLOAT_EQ(w.time, 12.5f);
  EXPECT_DOUBLE_EQ(w.julianDate, 2460371.0 + 0.5 / 24.0);
  // 31 April is 1 May.
  WorkingDate may = MakeWorkingDate(31, 4, 2026, {0, 0});
  EXPECT_EQ(may.month, 5);
  EXPECT_EQ(may.dayOfMonth, 1);
}
