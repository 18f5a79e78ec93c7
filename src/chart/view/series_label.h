// Which parameter a header's text names.
#pragma once

#include <optional>
#include <string>

#include "platform/locale.h"

namespace chartproject {

/// Number 0 to 999 of the parameter that a header's PXXXn names; nothing when it names none.
[[nodiscard]] std::optional<int> HeaderParameter(const std::string& text, const NumberFormat& format);

/// "P005", or "P" and the header's own text where that names no parameter; empty for an empty text.
[[nodiscard]] std::string HeaderParameterName(const std::string& text, const NumberFormat& format);

}  // namespace chartproject
