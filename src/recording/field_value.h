// The number that a value field of a chart file stands for.
#pragma once

#include <string_view>

#include "platform/locale.h"

namespace chartproject {

/// An empty field is 0. A field that is no number (for example "--", which a recording writes for a reading out of its
/// range) is a gap: NaN. Decimal comma and full stop are read alike, whatever the user's locale.
/// @param field the field's bytes, as they stand in the file
[[nodiscard]] double FieldValue(std::string_view field, const NumberFormat& format);

}  // namespace chartproject
