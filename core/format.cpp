#include "core/format.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>
#include <vector>

namespace kelvane {

std::int32_t RoundToInt(double value) {
  if (std::isnan(value)) return 0;
  if (value >= 2147483647.0) return std::numeric_limits<std::int32_t>::max();
  if (value <= -2147483648.0) return std::numeric_limits<std::int32_t>::min();
  // nearbyint follows the current rounding mode, which is round-to-nearest
  // with ties to even unless someone changed it; std::rint is the same
  // operation and is what we want: 0.5 -> 0, 1.5 -> 2, 2.5 -> 2.
  return static_cast<std::int32_t>(std::rint(value));
}

std::int16_t RoundToInt16(double value) {
  std::int32_t v = RoundToInt(value);
  if (v > 32767) return 32767;
  if (v < -32768) return -32768;
  return static_cast<std::int16_t>(v);
}

namespace {

// A non-negative decimal number as digit text: whole part and fraction.
struct Decimal {
  std::string whole;     // no leading zeros, "" for zero
  std::string fraction;  // no trailing zeros
};

// The significant digits of a finite, non-zero magnitude and the power of
// ten of its first digit: 1234.5 through 3 digits is "123" and 3. The text
// comes from std::to_chars, which never consults the process locale, so a
// German or French desktop gets the same digits as any other.
struct Scientific {
  std::string digits;
  int exponent = 0;
};

Scientific ScientificDigits(double magnitude, int significant) {
  char buf[64];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific, significant - 1);
  Scientific s;
  if (ec != std::errc()) return s;
  // buf is "d.dddde[+-]xx"
  const char* p = buf;
  for (; p != end && *p != 'e'; ++p)
    if (*p >= '0' && *p <= '9') s.digits += *p;
  if (p != end) {
    ++p;
    bool negative = *p == '-';
    if (*p == '-' || *p == '+') ++p;
    std::from_chars(p, end, s.exponent);
    if (negative) s.exponent = -s.exponent;
  }
  return s;
}

// The magnitude of value through `significant` digits, as a decimal text.
Decimal ToDecimal(double value, int significant) {
  Decimal d;
  value = std::fabs(value);
  if (value == 0.0 || !std::isfinite(value)) return d;
  Scientific sci = ScientificDigits(value, significant);
  std::string digits = sci.digits;
  int exponent = sci.exponent;
  // The value is 0.digits x 10^(exponent + 1).
  int point = exponent + 1;
  if (point <= 0) {
    d.fraction = std::string(static_cast<size_t>(-point), '0') + digits;
  } else if (point >= static_cast<int>(digits.size())) {
    d.whole = digits + std::string(static_cast<size_t>(point) - digits.size(), '0');
  } else {
    d.whole = digits.substr(0, static_cast<size_t>(point));
    d.fraction = digits.substr(static_cast<size_t>(point));
  }
  while (!d.fraction.empty() && d.fraction.back() == '0') d.fraction.pop_back();
  size_t nz = d.whole.find_first_not_of('0');
  d.whole = (nz == std::string::npos) ? std::string() : d.whole.substr(nz);
  return d;
}

// Rounds to `places` decimals, half away from zero on the decimal text.
Decimal RoundDecimal(Decimal d, size_t places) {
  if (d.fraction.size() <= places) return d;
  bool up = d.fraction[places] >= '5';
  d.fraction.resize(places);
  if (up) {
    std::string all = d.whole + d.fraction;
    int i = static_cast<int>(all.size()) - 1;
    while (i >= 0 && all[static_cast<size_t>(i)] == '9') all[static_cast<size_t>(i--)] = '0';
    if (i < 0)
      all.insert(all.begin(), '1');
    else
      all[static_cast<size_t>(i)]++;
    d.whole = all.substr(0, all.size() - places);
    d.fraction = all.substr(all.size() - places);
  }
  size_t nz = d.whole.find_first_not_of('0');
  d.whole = (nz == std::string::npos) ? std::string() : d.whole.substr(nz);
  return d;
}

std::vector<std::string_view> SplitSections(std::string_view format) {
  std::vector<std::string_view> out;
  size_t start = 0;
  for (size_t i = 0; i <= format.size(); ++i) {
    if (i == format.size() || format[i] == ';') {
      out.push_back(format.substr(start, i - start));
      start = i + 1;
    }
  }
  return out;
}

bool IsPlaceholder(char c) { return c == '0' || c == '#'; }

// Formats the magnitude of value by one section.
std::string FormatSection(double value, int significant, std::string_view section) {
  size_t first = std::string_view::npos, last = 0;
  for (size_t i = 0; i < section.size(); ++i) {
    if (IsPlaceholder(section[i])) {
      if (first == std::string_view::npos) first = i;
      last = i;
    }
  }
  if (first == std::string_view::npos) return std::string(section);  // all literal
  // A point just before the first placeholder belongs to the number.
  if (first > 0 && section[first - 1] == '.') --first;
  std::string_view prefix = section.substr(0, first);
  std::string_view body = section.substr(first, last - first + 1);
  std::string_view suffix = section.substr(last + 1);

  size_t dot = body.find('.');
  std::string_view intPart = body.substr(0, dot);
  std::string_view fracPart = dot == std::string_view::npos ? std::string_view() : body.substr(dot + 1);

  size_t minWhole = 0;
  bool grouping = false;
  for (char c : intPart) {
    if (c == '0') ++minWhole;
    if (c == ',') grouping = true;
  }
  size_t zeros = 0, places = 0;
  for (char c : fracPart) {
    if (IsPlaceholder(c)) {
      ++places;
      if (c == '0') zeros = places;  // digits up to the last "0" always show
    }
  }

  Decimal d = RoundDecimal(ToDecimal(value, significant), places);
  std::string whole = d.whole;
  if (whole.size() < minWhole) whole.insert(0, minWhole - whole.size(), '0');
  if (grouping && whole.size() > 3) {
    std::string grouped;
    size_t lead = whole.size() % 3;
    for (size_t i = 0; i < whole.size(); ++i) {
      if (i != 0 && (i - lead) % 3 == 0 && i >= lead) grouped += ',';
      grouped += whole[i];
    }
    whole = grouped;
  }
  std::string fraction = d.fraction;
  fraction.resize(places, '0');
  // Optional "#" places drop their trailing zeros.
  while (fraction.size() > zeros && !fraction.empty() && fraction.back() == '0') fraction.pop_back();

  std::string out(prefix);
  out += whole;
  if (dot != std::string_view::npos) {
    out += '.';
    out += fraction;
  }
  out += suffix;
  return out;
}

std::string Format(double value, int significant, std::string_view format) {
  std::vector<std::string_view> sections = SplitSections(format);
  if (value < 0.0) {
    if (sections.size() >= 2) return FormatSection(value, significant, sections[1]);
    return "-" + FormatSection(value, significant, sections[0]);
  }
  if (value == 0.0 && sections.size() >= 3) return FormatSection(value, significant, sections[2]);
  return FormatSection(value, significant, sections[0]);
}

std::string PlainText(double value, int significant, bool signColumn, bool exponentAllowed = true) {
  std::string sign = value < 0 ? "-" : (signColumn ? " " : "");
  if (value == 0.0 || !std::isfinite(value)) return sign + "0";
  Scientific sci = ScientificDigits(std::fabs(value), significant);
  std::string digits = sci.digits;
  int exponent = sci.exponent;
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  if (exponentAllowed && (exponent < -4 || exponent >= significant)) {
    std::string mant = digits.substr(0, 1);
    if (digits.size() > 1) mant += "." + digits.substr(1);
    int power = std::abs(exponent);
    std::string e = std::string("E") + (exponent < 0 ? '-' : '+') + (power < 10 ? "0" : "") + std::to_string(power);
    return sign + mant + e;
  }
  Decimal d = ToDecimal(std::fabs(value), significant);
  std::string whole = d.whole.empty() ? (signColumn ? "" : "0") : d.whole;
  std::string out = sign + whole;
  if (!d.fraction.empty()) out += "." + d.fraction;
  return out;
}

}  // namespace

std::string FormatNumber(double value, std::string_view format) { return Format(value, 15, format); }
std::string FormatNumber(float value, std::string_view format) { return Format(value, 7, format); }

std::string NumberText(float value) { return PlainText(value, 7, false); }
std::string NumberText(double value) { return PlainText(value, 15, false); }
std::string SignedNumberText(double value) { return PlainText(value, 15, true); }
std::string DecimalText(float value) { return PlainText(value, 7, false, false); }

double TextValue(std::string_view text) {
  std::string s;
  for (char c : text)
    if (c != ' ' && c != '\t' && c != '\n' && c != '\r') s += c;
  size_t i = 0;
  std::string num;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) num += s[i++];
  bool digits = false, point = false;
  while (i < s.size()) {
    char c = s[i];
    if (c >= '0' && c <= '9') {
      num += c;
      digits = true;
    } else if (c == '.' && !point) {
      num += c;
      point = true;
    } else {
      break;
    }
    ++i;
  }
  if (!digits) return 0.0;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
    size_t j = i + 1;
    std::string ex = "e";
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ex += s[j++];
    size_t k = j;
    while (k < s.size() && s[k] >= '0' && s[k] <= '9') ex += s[k++];
    if (k > j) num += ex;
  }
  // std::from_chars reads "." as the decimal point whatever the process
  // locale says; strtod would stop at it under de_DE or fr_FR and read
  // "50.58233" as 50. A value beyond the range of a double reads as 0.
  const char* first = num.data();
  if (*first == '+') ++first;
  double v = 0.0;
  auto [end, ec] = std::from_chars(first, num.data() + num.size(), v, std::chars_format::general);
  (void)end;
  if (ec != std::errc()) return 0.0;
  return std::isfinite(v) ? v : 0.0;
}

bool IsNumberText(std::string_view text) {
  auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  std::size_t i = 0, end = text.size();
  while (i < end && blank(text[i])) ++i;
  while (end > i && blank(text[end - 1])) --end;
  if (i < end && (text[i] == '+' || text[i] == '-')) ++i;
  bool digits = false, point = false;
  for (; i < end; ++i) {
    if (text[i] >= '0' && text[i] <= '9') {
      digits = true;
    } else if (text[i] == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  if (!digits) return false;
  if (i < end && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    if (i < end && (text[i] == '+' || text[i] == '-')) ++i;
    const std::size_t first = i;
    while (i < end && text[i] >= '0' && text[i] <= '9') ++i;
    if (i == first) return false;
  }
  return i == end;
}

}  // namespace kelvane
