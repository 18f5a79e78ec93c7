// What the user sees of a value read from a drive.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace chartproject {

struct DriveContext;

/// The text to show for a value text, by the drive's model: some models show nothing, some the status text for
/// parameter 6, and KRA-09 "--" for an invalid reading (13107 or more) of the parameters 14 to 17 and 60 to 65.
/// A text that is not numeric in the user's locale is returned unchanged. Throws RunTimeError 6 for a reading of those
/// parameters that does not fit 16 bits.
[[nodiscard]] std::string DisplayValue(const DriveContext& context, std::int16_t parameter, const std::string& value,
                                       std::string_view model);

}  // namespace chartproject
