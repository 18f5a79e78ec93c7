// Plain decimals are copied; every other number is read by the user's locale and written anew.
#include "chart/plain/plain_value.h"

#include <charconv>
#include <cmath>

#include "recording/file/field_value.h"

namespace chartproject {
namespace {

bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}

/// Sign, digits, and digits after one comma or full stop: the decimal separator in every locale, as FieldValue has it.
/// False, with nothing appended, for anything else.
bool CopyPlainDecimal(std::string& text, std::string_view field) {
  constexpr std::size_t kMostDigits = 15;  // with more FieldValue asks the locale
  if (field.size() > kMostDigits) return false;
  const bool negative = field[0] == '-';
  std::size_t whole = negative ? 1 : 0;
  std::size_t point = whole;
  while (point < field.size() && IsDigit(field[point])) ++point;
  std::size_t end = point;
  if (end < field.size() && (field[end] == '.' || field[end] == ',')) {
    do ++end;
    while (end < field.size() && IsDigit(field[end]));
  }
  if (end < field.size() || point == whole || end == point + 1) return false;
  while (whole + 1 < point && field[whole] == '0') ++whole;
  if (negative) text += '-';
  text.append(field, whole, point - whole);
  if (end > point) text.append(1, '.').append(field, point + 1, end - point - 1);
  return true;
}

}  // namespace

bool IsOutOfRange(std::string_view field) noexcept {
  return field.find_first_not_of("- ") == std::string_view::npos;
}

PlainKind AppendPlainNumber(std::string& text, std::string_view field, const NumberFormat& format) {
  if (field.empty()) {
    text += '0';
    return PlainKind::kNumber;
  }
  if (CopyPlainDecimal(text, field)) return PlainKind::kNumber;
  const double value = FieldValue(field, format);
  if (std::isnan(value)) return IsOutOfRange(field) ? PlainKind::kNothing : PlainKind::kText;
  char digits[32];
  text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
  return PlainKind::kNumber;
}

}  // namespace chartproject
