// Texts to numbers and back, under the user's locale, with the platform's errors instead of silent damage.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/locale.h"

namespace chartproject {

/// True for a number in the user's locale: blanks around, a sign, grouping, one decimal separator, an exponent.
/// Group separators are accepted between any digits, so that a half-typed number is numeric at every keystroke.
[[nodiscard]] bool IsNumeric(std::string_view text, const NumberFormat& format);

/// Conversions of a whole text. Throw RunTimeError 13 when the text is not numeric, 6 when the number does not fit.
/// Whole numbers round to the nearest, a half to the even neighbour.
[[nodiscard]] double ToDouble(std::string_view text, const NumberFormat& format);
[[nodiscard]] float ToSingle(std::string_view text, const NumberFormat& format);
[[nodiscard]] std::int16_t ToInteger16(std::string_view text, const NumberFormat& format);
[[nodiscard]] std::int32_t ToInteger32(std::string_view text, const NumberFormat& format);

/// True for what ToTypedDecimal takes: a number in the user's locale, or with the other decimal sign.
[[nodiscard]] bool IsTypedDecimal(std::string_view text, const NumberFormat& format);

/// ToDouble of a number that a user typed. A single foreign separator that cannot group thousands (12.5 in a comma
/// locale) is read as the decimal sign; reading 125 would go unnoticed.
[[nodiscard]] double ToTypedDecimal(std::string_view text, const NumberFormat& format);

/// Rounds to the nearest whole number, a half to the even neighbour. Throw RunTimeError 6 when it does not fit.
[[nodiscard]] std::int16_t RoundToInteger16(double value);
[[nodiscard]] std::int32_t RoundToInteger32(double value);

/// Checked arithmetic of the 16- and 32-bit routines: the value when it fits, else RunTimeError 6.
[[nodiscard]] std::int16_t CheckedInteger16(std::int64_t value);
[[nodiscard]] std::int32_t CheckedInteger32(std::int64_t value);

/// The number that a text begins with (blanks before it skipped, full stop as decimal separator); 0 when it begins with
/// none. Throws RunTimeError 6 when the number does not fit.
[[nodiscard]] double LeadingNumber(std::string_view text);

/// Shortest text of a number, with the locale's decimal separator: 7 significant digits for single precision, 15 for
/// double.
[[nodiscard]] std::string SingleText(float value, const NumberFormat& format);
[[nodiscard]] std::string DoubleText(double value, const NumberFormat& format);

/// Pattern "#####0.00": at least one digit, two decimals, halves away from zero, no grouping.
[[nodiscard]] std::string FormatTwoDecimals(double value, const NumberFormat& format);
/// Pattern "###,###,###,##0": a whole number with the locale's grouping.
[[nodiscard]] std::string FormatGrouped(double value, const NumberFormat& format);
/// Patterns "00" and "000": a whole number with at least `digits` digits.
[[nodiscard]] std::string FormatDigits(std::int64_t value, int digits);

/// Hours, minutes and seconds as "hh:mm:ss".
[[nodiscard]] std::string FormatTimeOfDay(int hour, int minute, int second);
/// The same of a number of seconds, 0 or more; from 100 hours on the text is longer.
[[nodiscard]] std::string FormatSeconds(std::int64_t seconds);

/// "350 bytes", "1.40 kB", "66.76 MB", "130.39 GB": units of 1024, two decimals. @param bytes 0 or more
[[nodiscard]] std::string FileSizeText(double bytes, const NumberFormat& format);

/// "99,999,999 bytes", grouped as the user's locale does.
[[nodiscard]] std::string BytesText(double bytes, const NumberFormat& format);

/// A number's text with its first decimal separator made the locale's own (1,5 to 1.5 in a full-stop locale, 1.5 to
/// 1,5 in a comma locale); only the first occurrence is replaced, because the input is one number.
[[nodiscard]] std::string LocaleDecimal(std::string_view text, const NumberFormat& format);

}  // namespace chartproject
