// The numbered messages: every text of the dialogs, in Portuguese, English and Spanish.
#pragma once

#include <string>
#include <string_view>

namespace chartproject {

struct Environment;

/// Messages are numbered 0 to 100; message k has the id 1000 + k in Portuguese, 2000 + k in English, 3000 + k in
/// Spanish.
inline constexpr int kMessageCount = 101;
inline constexpr int kPortugueseMessageBase = 1000;

/// The text with an id, blanks at its ends included (pieces that are joined with values have them). UTF-8.
/// Throws RunTimeError 326 for an id without a text.
[[nodiscard]] std::string_view StringById(int id);

/// Message k (0 to 100) in the component's language. Throws RunTimeError 326 for a number that is not in the table.
[[nodiscard]] std::string LoadMessage(const Environment& environment, int k);

}  // namespace chartproject
