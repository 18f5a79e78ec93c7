// The number in a value field of a chart file.
#pragma once

#include <string_view>

#include "platform/locale.h"

namespace chartproject {

/// An empty field is 0. A field that is not a number is a gap: NaN; a recording writes for example "--" for a reading
/// out of its range. Decimal comma and full stop are both accepted in every locale.
/// @param field the field's bytes, as they are in the file
[[nodiscard]] double FieldValue(std::string_view field, const NumberFormat& format);

}  // namespace chartproject
