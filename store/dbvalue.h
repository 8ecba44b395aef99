// The values a database query gives back, and the rows that hold them.
//
// Column values keep the types of the file: integers, reals (a Jet single
// is carried as the double of its exact value), text (UTF-8), blobs, NULL.
// Names of tables and columns are compared without regard to case, as the
// Jet provider did.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace kelvane {

using DbValue = std::variant<std::monostate, std::int64_t, double, std::string, std::vector<std::uint8_t>>;

// The result of one query: column names in order and the rows. message is
// empty on success and holds the reason otherwise (the rows are then
// empty).
struct [[nodiscard]] QueryResult {
  std::vector<std::string> columns;
  std::vector<std::vector<DbValue>> rows;
  std::string message;

  bool ok() const { return message.empty(); }
  // Index of a column by name, compared without case; -1 when absent.
  int Column(std::string_view name) const;
  // Field of a row by column name. An absent column or a NULL is 0 / "".
  double Number(std::size_t row, std::string_view name) const;
  std::int64_t Integer(std::size_t row, std::string_view name) const;
  std::string Text(std::size_t row, std::string_view name) const;
  bool IsNull(std::size_t row, std::string_view name) const;
};

// The number a value holds (text is read as a number, blobs and NULL are 0).
double ValueNumber(const DbValue& value);
// The text of a value: numbers in their plain form, NULL empty.
std::string ValueText(const DbValue& value);

}  // namespace kelvane
