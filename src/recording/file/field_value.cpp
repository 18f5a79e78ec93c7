// Reading values: plain decimals at once, everything else by the rules of the user's locale.
#include "recording/file/field_value.h"

#include <algorithm>
#include <limits>

#include "common/values/numbers.h"
#include "platform/run_time_error.h"

namespace chartproject {
namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

}  // namespace

double FieldValue(std::string_view field, const NumberFormat& format) {
  if (field.empty()) return 0;
  double value = 0;
  const char* const end = field.data() + field.size();
  if (ReadPlainDecimal(field.data(), end, value) == end) return value;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (std::none_of(field.begin(), field.end(), isDigit)) return kGap;  // words and dashes need no closer look
  const std::string text = LocaleDecimal(field, format);
  if (!IsNumeric(text, format)) return kGap;
  try {
    return ToDouble(text, format);
  } catch (const RunTimeError&) {
    return kGap;  // larger than any number
  }
}

}  // namespace chartproject
