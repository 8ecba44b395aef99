#include "core/text.h"

#include <cctype>

namespace kelvane {

namespace {

std::string Stripped(std::string_view text, const char* set) {
  const std::size_t first = text.find_first_not_of(set);
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(set);
  return std::string(text.substr(first, last - first + 1));
}

}  // namespace

std::string Trim(std::string_view text) { return Stripped(text, " \t\r\n"); }

std::string TrimBlanks(std::string_view text) { return Stripped(text, " \t"); }

std::string TrimSpaces(std::string_view text) { return Stripped(text, " "); }

std::string TrimFieldPadding(std::string_view text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '\0')) text.remove_suffix(1);
  return std::string(text);
}

std::string ToUpper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

std::string ToLower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) return false;
  return true;
}

std::size_t Utf8Length(std::string_view text) {
  std::size_t n = 0;
  for (char c : text)
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++n;
  return n;
}

}  // namespace kelvane
