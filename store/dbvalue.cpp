#include "store/dbvalue.h"


#include "core/format.h"
#include "core/text.h"

namespace kelvane {

int QueryResult::Column(std::string_view name) const {
  for (std::size_t c = 0; c < columns.size(); ++c)
    if (EqualNoCase(columns[c], name)) return static_cast<int>(c);
  return -1;
}

double ValueNumber(const DbValue& value) {
  if (const auto* i = std::get_if<std::int64_t>(&value)) return static_cast<double>(*i);
  if (const auto* d = std::get_if<double>(&value)) return *d;
  if (const auto* s = std::get_if<std::string>(&value)) return TextValue(*s);
  return 0;
}

std::string ValueText(const DbValue& value) {
  if (const auto* i = std::get_if<std::int64_t>(&value)) return std::to_string(*i);
  if (const auto* d = std::get_if<double>(&value)) return NumberText(*d);
  if (const auto* s = std::get_if<std::string>(&value)) return *s;
  if (const auto* b = std::get_if<std::vector<std::uint8_t>>(&value)) return std::string(b->begin(), b->end());
  return "";
}

double QueryResult::Number(std::size_t row, std::string_view name) const {
  int c = Column(name);
  if (c < 0 || row >= rows.size()) return 0;
  return ValueNumber(rows[row][static_cast<std::size_t>(c)]);
}

std::int64_t QueryResult::Integer(std::size_t row, std::string_view name) const {
  int c = Column(name);
  if (c < 0 || row >= rows.size()) return 0;
  const DbValue& v = rows[row][static_cast<std::size_t>(c)];
  if (const auto* i = std::get_if<std::int64_t>(&v)) return *i;
  return RoundToInt(ValueNumber(v));
}

std::string QueryResult::Text(std::size_t row, std::string_view name) const {
  int c = Column(name);
  if (c < 0 || row >= rows.size()) return "";
  return ValueText(rows[row][static_cast<std::size_t>(c)]);
}

bool QueryResult::IsNull(std::size_t row, std::string_view name) const {
  int c = Column(name);
  if (c < 0 || row >= rows.size()) return true;
  return std::holds_alternative<std::monostate>(rows[row][static_cast<std::size_t>(c)]);
}

}  // namespace kelvane
