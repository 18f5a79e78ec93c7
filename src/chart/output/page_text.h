// Texts that must not leave the page: wrapping at a width, and shortening in the middle.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/printer.h"

namespace chartproject {

/// The text without as many characters from its middle as it takes to fit, "..." in their place.
/// @param width centimetres
[[nodiscard]] std::string ShortenMiddle(const Printer& printer, std::string_view text, const PrintFont& font,
                                        double width);

/// The text in lines that fit, broken after blanks and folder separators where there are any; a text that would take
/// more lines than allowed is shortened in the middle first. At least one line.
[[nodiscard]] std::vector<std::string> WrapText(const Printer& printer, std::string_view text, const PrintFont& font,
                                                double width, int mostLines);

}  // namespace chartproject
