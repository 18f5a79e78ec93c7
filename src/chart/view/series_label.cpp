// Parameter numbers of a header, which may hold anything.
#include "chart/view/series_label.h"

#include <algorithm>

#include "common/values/numbers.h"
#include "drive/parameter_tables.h"
#include "drive/unit_codes.h"
#include "recording/file/field_value.h"

namespace chartproject {

std::optional<int> HeaderParameter(const std::string& text, const NumberFormat& format) {
  const double number = text.empty() ? -1 : FieldValue(text, format);
  if (!(number >= 0 && number < kParameterCount)) return std::nullopt;
  return std::min<int>(RoundToInteger16(number), kParameterCount - 1);
}

std::string HeaderParameterName(const std::string& text, const NumberFormat& format) {
  if (const auto parameter = HeaderParameter(text, format)) return ParameterName(*parameter);
  return text.empty() ? std::string() : "P" + text;
}

}  // namespace chartproject
