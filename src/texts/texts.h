// Every text that users see, in Portuguese, English and Spanish.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "texts/language.h"
#include "texts/text.h"

namespace chartproject {

/// The numbered messages are the texts 0 to 100; message k has the id 1000 + k in Portuguese, 2000 + k in English and
/// 3000 + k in Spanish.
inline constexpr int kMessageCount = 101;
inline constexpr int kPortugueseMessageBase = 1000;

/// A text, blanks at its ends included (pieces that are joined with values have them). "%1", "%2" are left for FillIn.
[[nodiscard]] std::string_view TextIn(Language language, Text text) noexcept;

/// The numbered message with an id; nothing for an id without one.
[[nodiscard]] std::optional<std::string_view> MessageById(int id) noexcept;

/// Replaces "%1", "%2" ... by the values in their order.
[[nodiscard]] std::string FillIn(std::string_view text, std::initializer_list<std::string> values);

}  // namespace chartproject
