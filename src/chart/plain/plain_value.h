// One value of a chart file for other programs: a number with a full stop, a text, or nothing.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/values/growing_text.h"
#include "platform/locale.h"

namespace chartproject {

enum class PlainKind : std::uint8_t {
  kNothing,  ///< a reading out of its range ("--")
  kNumber,
  kText  ///< anything else
};

/// True for what a recording writes for a reading out of its range: "--".
[[nodiscard]] bool IsOutOfRange(std::string_view field) noexcept;

/// Appends the number of a value field, digit by digit as the file has it: nothing is rounded. JSON takes it too: no
/// blank, no plus sign, no leading zero, a digit on both sides of the full stop. Nothing is appended for the other
/// kinds. An empty field is 0, as everywhere.
/// @param field the field's bytes, as they are in the file
PlainKind AppendPlainNumber(GrowingText& text, std::string_view field, const NumberFormat& format);

}  // namespace chartproject
