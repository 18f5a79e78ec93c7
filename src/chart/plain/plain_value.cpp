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
  std::size_t point = field.size();
  std::size_t separators = 0;
  std::size_t others = 0;
  for (std::size_t i = whole; i < field.size(); ++i) {  // without branches, as values differ in length
    const bool separator = field[i] == '.' || field[i] == ',';
    separators += separator ? 1 : 0;
    others += separator || IsDigit(field[i]) ? 0 : 1;
    point = separator ? i : point;
  }
  if (others > 0 || separators > 1 || point == whole || point + 1 == field.size()) return false;
  while (whole + 1 < point && field[whole] == '0') ++whole;
  if (negative) text += '-';
  const std::size_t begin = text.size();
  text.append(field, whole);
  if (separators == 1) text[begin + point - whole] = '.';
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
